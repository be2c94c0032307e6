// Calls routines that keep nothing from many threads, while one thread opens, writes and prints.
// The thread sanitizer ends it at the first race; a wrong result makes its exit status 1.

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "toolkit/geometry.h"
#include "toolkit/lines.h"
#include "toolkit/messages.h"
#include "toolkit/numbers.h"
#include "toolkit/opener.h"
#include "toolkit/paths.h"
#include "toolkit/strings.h"
#include "toolkit/units.h"

using namespace vantelgis;

namespace {

std::string pureResults(int seed) {
    const std::string line = "Level = 1." + std::to_string(seed) + "D1, 'a b', C:\\a\\..\\x_P.mif";
    Text<100> text, more;
    std::string all;
    const auto add = [&] { all += text.view(); };
    REPLACEALL(text, line, ",", ";"), add();
    EXTRACTSTRING(text, line, line, "level", 0), add();
    AREAL(text, EXTRACTREAL(line, line, "level", 0, 0)), add();
    CLEANATTRIBUTENAME(text, line, 20), add();
    FILENAMEPATHNO_(text, line), add();
    ADDFOLDER(text, "C:\\flood\\", "..\\x.mif"), add();
    more = line;
    NEXTTOKEN(text, more), add();
    AREAL8(text, DISTANCE_8(seed, 0, 3, 4)), add();
    const float x[] = {0, 4, 4, 0, 0, 4}, y[] = {0, 0, 4, 4, 0, 0};
    const std::int32_t ends[] = {5};
    all += INSIDE_POLYGON(static_cast<float>(seed % 6), 1, x, y, 6, 0, ends, 1) ? "in" : "out";
    return all + std::to_string(NUMBEROFNUMBERS(line)) + (ASAME(line, more) ? "=" : "#");
}

}  // namespace

int main() {
    constexpr int kThreads = 4, kCalls = 2000;
    std::vector<std::string> wanted;
    for (int n = 0; n < kCalls; ++n) wanted.push_back(pureResults(n));
    std::atomic<bool> same = true;
    std::vector<std::thread> threads;
    for (int k = 0; k < kThreads; ++k)
        threads.emplace_back([&] {
            for (int n = 0; n < kCalls; ++n)
                if (pureResults(n) != wanted[static_cast<std::size_t>(n)]) same = false;
        });
    int unit = 0;
    FILEOPEN(unit, "O", "lines.txt");
    for (int n = 0; n < kCalls; ++n) vg_write_line(unit, wanted[static_cast<std::size_t>(n)]);
    CLOSER(unit);
    DLINE(0);
    for (std::thread& thread : threads) thread.join();
    return same ? 0 : 1;
}
