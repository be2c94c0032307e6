// Runs one bare loop.

#include <string_view>

#include "bare/files.h"
#include "bare/loops.h"

namespace {

struct NamedLoop {
    std::string_view name;
    bench::Loop* run;
};
constexpr NamedLoop kLoops[] = {
    {"mif-to-archive", bench::mifToArchive},
    {"shp-to-archive", bench::shpToArchive},
    {"archive-to-mif", bench::archiveToMif},
    {"archive-to-shp", bench::archiveToShp},
    {"archive-to-package", bench::archiveToPackage},
    {"package-to-archive", bench::packageToArchive},
    {"mif-results", bench::mifResults},
    {"shp-results", bench::shpResults},
    {"snapping", bench::snapping},
};

}  // namespace

// Arguments: the loop, its input and its output, both without extension.
int main(int argc, char** argv) {
    for (const NamedLoop& loop : kLoops) {
        if (argc == 4 && loop.name == argv[1]) {
            loop.run(argv[2], argv[3]);
            return 0;
        }
    }
    bench::giveUp("usage: bench_bare LOOP INPUT OUTPUT");
}
