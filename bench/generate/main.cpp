// Writes the data of one benchmark.

#include "generate/recipes.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

struct NamedRecipe {
    std::string_view name;
    bench::Recipe* write;
};
constexpr NamedRecipe kRecipes[] = {
    {"mif-lines", bench::longMifLines},
    {"mif-short", bench::shortMifLines},
    {"shp-lines", bench::longShpLines},
    {"shp-short", bench::shortShpLines},
    {"mif-results", bench::mifResults},
    {"shp-results", bench::shpResults},
    {"archive-3d", bench::archiveOf3dStrings},
    {"archive-super", bench::archiveOfSuperStrings},
    {"archive-longest", bench::archiveOfOneString},
    {"archive-short", bench::archiveOfShortStrings},
    {"archive-40", bench::archiveOfForties},
    {"archive-4", bench::archiveOfFours},
    {"snap-near", bench::snapNear},
    {"snap-dense", bench::snapDense},
    {"snap-line", bench::snapOnLine},
    {"snap-place", bench::snapInOnePlace},
    {"snap-crowd", bench::snapCrowded},
};

}  // namespace

// Arguments: a recipe, the folder to fill and the vertices wanted. Prints how many there are.
int main(int argc, char** argv) {
    for (const NamedRecipe& recipe : kRecipes) {
        if (argc == 4 && recipe.name == argv[1]) {
            const std::int64_t wanted = std::strtoll(argv[3], nullptr, 10);
            std::printf("%lld\n", static_cast<long long>(recipe.write(argv[2], wanted)));
            return 0;
        }
    }
    std::fprintf(stderr, "Usage: bench_generate RECIPE FOLDER VERTICES\n");
    return 2;
}
