// Results take their places all or none, whichever of the system's calls fails, and whenever the
// process ends.

#include "batch/run/placing.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "batch/files.h"
#include "batch/run/scratch.h"

namespace {

// The call, counted from 0, that fails, or at which the process ends; no call when it is below 0.
int faultAt = -1;
int calls = 0;
bool endsProcess = false;
bool faultStays = false;  // as on a disk that is taken away
bool noLinks = false;     // as on a disk whose file system has no second names

struct ProcessEnds {};

bool failsNow() {
    if (faultAt < 0) return false;
    const int call = calls++;
    if (call < faultAt || (call > faultAt && !faultStays)) return false;
    if (endsProcess) throw ProcessEnds{};
    errno = EIO;
    return true;
}

}  // namespace

extern "C" {
int __real_rename(const char* from, const char* to);
int __real_link(const char* from, const char* to);
int __real_unlink(const char* name);
int __real_fsync(int file);
int __real_open64(const char* name, int flags, unsigned mode);
ssize_t __real_write(int file, const void* bytes, size_t size);

int __wrap_rename(const char* from, const char* to) {
    return failsNow() ? -1 : __real_rename(from, to);
}
int __wrap_link(const char* from, const char* to) {
    if (noLinks) errno = EPERM;
    return noLinks || failsNow() ? -1 : __real_link(from, to);
}
int __wrap_unlink(const char* name) {
    return failsNow() ? -1 : __real_unlink(name);
}
int __wrap_fsync(int file) {
    return failsNow() ? -1 : __real_fsync(file);
}
int __wrap_open64(const char* name, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = va_arg(rest, unsigned);
    va_end(rest);
    return failsNow() ? -1 : __real_open64(name, flags, mode);
}
ssize_t __wrap_write(int file, const void* bytes, size_t size) {
    return failsNow() ? -1 : __real_write(file, bytes, size);
}
}

namespace vantelgis::batch {

namespace {

namespace fs = std::filesystem;

const std::vector<Move> kSet = {{"run/a.mif", "a.mif"}, {"run/a.mid", "a.mid"}, {"run/b", "b"}};

void put(const fs::path& file, std::string_view text) {
    std::ofstream{file} << text;
}

std::string textOf(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream{file}.rdbuf();
    return text.str();
}

// In memory where there is such a folder: each result is synced.
std::string newFolder() {
    const fs::path memory = "/dev/shm";
    const fs::path base = fs::is_directory(memory) ? memory : fs::temp_directory_path();
    return base / ("vantelgis-placing-" + std::to_string(getpid()));
}

// A scratch folder with new results, and a target folder with old ones.
struct Folders {
    explicit Folders(std::size_t count)
        : moves(kSet.begin(), kSet.begin() + static_cast<long>(count)) {
        fs::create_directories(scratch + "/run");
        fs::create_directories(target);
        for (const Move& move : moves) {
            put(scratch + "/" + move.from, "new");
            if (move.to != "b") put(target + "/" + move.to, "old");
        }
    }
    ~Folders() { fs::remove_all(root); }
    // "old old -" or "new new new"; a mixture is a fault.
    [[nodiscard]] std::string results() const {
        std::string all;
        for (const Move& move : moves) {
            const std::string text = textOf(target + "/" + move.to);
            all += (all.empty() ? "" : " ") + (text.empty() ? "-" : text);
        }
        return all;
    }
    const std::string root = newFolder();
    const std::string scratch = root + "/t/.vantelgis-batch/s";
    const std::string target = root + "/t";
    const std::vector<Move> moves;
};

std::string oldResults(std::size_t count) {
    return count == 1 ? "old" : "old old -";
}
std::string newResults(std::size_t count) {
    return count == 1 ? "new" : "new new new";
}

class Placing : public testing::TestWithParam<std::size_t> {};

TEST_P(Placing, LeavesAllOrNoneWhicheverCallFails) {
    const std::size_t count = GetParam();
    bool met = true;
    for (int n = 0; met; ++n) {
        const Folders folders(count);
        calls = 0;
        endsProcess = false;
        faultAt = n;
        std::string failure;
        const Placed placed = placeResults(folders.scratch, folders.target, folders.moves, failure);
        faultAt = -1;
        met = calls > n;
        const std::string expected = placed == Placed::all ? newResults(count) : oldResults(count);
        EXPECT_EQ(folders.results(), expected) << "call " << n << ": " << failure;
        EXPECT_EQ(placed == Placed::all, failure.empty()) << failure;
        EXPECT_NE(placed, Placed::halfway);
        // What did not get its place is still there for who wants to keep it.
        EXPECT_EQ(textOf(folders.scratch + "/run/a.mif"), placed == Placed::all ? "" : "new");
    }
}

// True when the process ended at its call `at`.
template <typename Body>
bool endsAt(int at, Body body) {
    calls = 0;
    endsProcess = true;
    faultAt = at;
    bool ended = false;
    try {
        body();
    } catch (const ProcessEnds&) {
        ended = true;
    }
    faultAt = -1;
    endsProcess = false;
    return ended;
}

// The next one may be ended as well, while it puts things in order.
TEST_P(Placing, IsFinishedOrUndoneByTheNextWheneverTheProcessEnds) {
    const std::size_t count = GetParam();
    std::string failure;
    for (const bool linkless : {false, true}) {
        noLinks = linkless;
        int second = 0;
        for (int first = 0; first >= 0;) {
            const Folders folders(count);
            const auto place = [&] {
                placeResults(folders.scratch, folders.target, folders.moves, failure);
            };
            const auto recover = [&] {
                EXPECT_EQ(recoverPlacing(folders.scratch, folders.target), Placed::all);
            };
            const bool met = endsAt(first, place);
            const bool metAgain = met && endsAt(second, recover);
            recover();
            const std::string results = folders.results();
            EXPECT_TRUE(results == oldResults(count) || results == newResults(count))
                << first << ", " << second << ": " << results;
            if (metAgain) {
                ++second;
            } else {
                second = 0;
                first = met ? first + 1 : -1;
            }
        }
    }
    noLinks = false;
}

// The disk may stay bad, then or when the next batch puts things in order; in the end it is well.
TEST_P(Placing, LosesNothingOnADiskThatStaysBad) {
    const std::size_t count = GetParam();
    for (int first = 0; first < 40; ++first) {
        for (int second = -1; second < 12; ++second) {
            const Folders folders(count);
            std::string failure;
            calls = 0;
            endsProcess = false;
            faultStays = true;
            faultAt = first;
            Placed placed = placeResults(folders.scratch, folders.target, folders.moves, failure);
            calls = 0;
            faultAt = second;
            if (placed == Placed::halfway) {
                placed = recoverPlacing(folders.scratch, folders.target);
                faultAt = -1;
                if (placed == Placed::halfway)
                    placed = recoverPlacing(folders.scratch, folders.target);
            }
            faultAt = -1;
            faultStays = false;
            EXPECT_NE(placed, Placed::halfway);
            const std::string results = folders.results();
            EXPECT_TRUE(results == oldResults(count) || results == newResults(count))
                << first << ", " << second << ": " << results;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OneFileAndSeveral, Placing, testing::Values(1, 3));

TEST(AScratchFolder, IsGoneAfterwardsWhicheverCallFailed) {
    bool met = true;
    for (int n = 0; met; ++n) {
        const std::string target = newFolder();
        fs::create_directories(target);
        calls = 0;
        endsProcess = false;
        faultAt = n;
        std::vector<std::string> notes;
        std::string failure;
        Scratch scratch;
        const bool opened = scratch.open(target, notes, failure);
        met = calls > n;
        faultAt = -1;
        EXPECT_EQ(opened, failure.empty()) << failure;
        EXPECT_EQ(opened, fs::exists(target + "/.vantelgis-batch"));
        scratch.close();
        EXPECT_FALSE(fs::exists(target + "/.vantelgis-batch")) << n;
        fs::remove_all(target);
    }
}

TEST(AScratchFolder, ThatWasNotRemovedIsSoByTheNext) {
    bool met = true;
    for (int n = 0; met; ++n) {
        const std::string target = newFolder();
        std::vector<std::string> notes;
        std::string failure;
        Scratch scratch;
        ASSERT_TRUE(scratch.open(target, notes, failure)) << failure;
        put(scratch.runFolder() + "/left", "");
        calls = 0;
        faultAt = n;
        scratch.close();
        met = calls > n;
        faultAt = -1;
        cleanAbandoned(target, notes);
        EXPECT_FALSE(fs::exists(target + "/.vantelgis-batch")) << n;
        EXPECT_TRUE(notes.empty());
        fs::remove_all(target);
    }
}

}  // namespace

}  // namespace vantelgis::batch
