// Layers of modelled results.

#include "generate/mif.h"
#include "generate/places.h"
#include "generate/recipes.h"
#include "generate/shapefile.h"

namespace bench {

namespace {

// Metres and degrees in thousandths and hundredths.
struct Result {
    Place place;
    std::int64_t speed, angle, depth, cell;
};

Result nextResult(Random& random, std::int64_t cell) {
    return {somewhere(random), random.below(5000), random.below(36'000), random.below(20'000),
            cell};
}

}  // namespace

std::int64_t mifResults(const std::string& folder, std::int64_t vertices) {
    Random random;
    Output mif(folder + "/points.mif"), mid(folder + "/points.mid");
    putMifHead(mif, 4, "  V Float\n  Angle Float\n  Depth Float\n  Cell Decimal(10,0)\n");
    for (std::int64_t cell = 1; cell <= vertices; ++cell) {
        const Result result = nextResult(random, cell);
        mif << "Point " << result.place << "    Symbol (35,0,12)\n";
        mid.decimal(result.speed, 3) << ",";
        mid.decimal(result.angle, 2) << ",";
        mid.decimal(result.depth, 3) << "," << result.cell << "\n";
    }
    return vertices;
}

std::int64_t shpResults(const std::string& folder, std::int64_t vertices) {
    constexpr std::int32_t kPoint = 1;
    Random random;
    Shapefile shapefile(
        kPoint,
        {{"V", 'N', 12, 3}, {"Angle", 'N', 12, 2}, {"Depth", 'N', 12, 3}, {"Cell", 'N', 10, 0}});
    for (std::int64_t cell = 1; cell <= vertices; ++cell) {
        const Result result = nextResult(random, cell);
        shapefile.add(littleMetres(result.place),
                      numberColumns(result.speed, 3, 12) + numberColumns(result.angle, 2, 12) +
                          numberColumns(result.depth, 3, 12) + numberColumns(result.cell, 0, 10));
    }
    shapefile.write(folder, "points");
    return vertices;
}

}  // namespace bench
