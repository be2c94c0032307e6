// Writes the data of the benchmarks: the same bytes on every machine and in every run.

#include "generator.h"

namespace {

using bench::kMetre;
using bench::Output;
using bench::Place;
using bench::Random;
using bench::somewhere;
using bench::step;

// A coordinate in millionths of a metre, with its six decimals.
void putMicro(Output& out, std::int64_t micro) {
    const std::string fraction = std::to_string(1'000'000 + micro % 1'000'000);
    out << micro / 1'000'000 << "." << std::string_view(fraction).substr(1);
}

void putPlace(Output& mif, const Place& place) {
    putMicro(mif, place.x);
    mif << " ";
    putMicro(mif, place.y);
    mif << "\n";
}

constexpr std::string_view kCoordSys =
    "CoordSys Earth Projection 8, 116, \"m\", 153, 0, 0.9996, 500000, 10000000\n";

// lines.mif and lines.mid: 100,000 polylines of 20 to 60 nodes, two attributes. Gives the nodes.
std::int64_t mifLines(const std::string& folder) {
    Random random;
    Output(folder + "/Header.mif") << kCoordSys;
    Output mif(folder + "/lines.mif");
    Output mid(folder + "/lines.mid");
    mif << "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
        << kCoordSys << "Columns 2\n  ID Integer\n  NAME Char(24)\nData\n\n";
    std::int64_t vertices = 0;
    for (std::int64_t line = 1; line <= 100'000; ++line) {
        const std::int64_t nodes = 20 + random.below(41);
        vertices += nodes;
        mif << "Pline " << nodes << "\n";
        Place place = somewhere(random);
        for (std::int64_t node = 0; node < nodes; ++node) {
            putPlace(mif, place);
            step(random, place);
        }
        mif << "    Pen (1,2,0)\n";
        mid << line << ",\"ridge " << line << "\"\n";
    }
    return vertices;
}

void layerHead(Output& mif) {
    mif << "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
        << kCoordSys << "Columns 1\n  Z Float\nData\n\n";
}

// A million points and five million vertices by one rule: where the vertices lie, and where a point
// lies of which some vertex is given.
struct SnapLayout {
    Place (*vertex)(Random&, const Place& before);
    Place (*point)(Random&, const Place& vertex);
};

Place sameAs(Random&, const Place& place) {
    return place;
}

// Half of the points are near enough to a vertex; hardly any vertex is on a point.
constexpr SnapLayout kNearVertices = {[](Random& random, const Place& before) {
                                          Place place = before;
                                          step(random, place);
                                          return place;
                                      },
                                      [](Random& random, const Place& vertex) {
                                          const std::int64_t reach = random.below(2) ? 900 : 3000;
                                          return Place{vertex.x + random.below(2 * reach) - reach,
                                                       vertex.y + random.below(2 * reach) - reach};
                                      }};
// All on one north-south line of 10 km: points stand closer than a vertex can tell apart.
constexpr SnapLayout kOnLine = {
    [](Random& random, const Place&) {
        return Place{312'345 * kMetre + 678, 6'200'000 * kMetre + random.below(10'000 * kMetre)};
    },
    sameAs};
constexpr SnapLayout kInOnePlace = {
    [](Random&, const Place&) {
        return Place{312'345 * kMetre + 678, 6'212'345 * kMetre + 9};
    },
    sameAs};
// All on the same few centimetres of ground, each at a spot of its own.
constexpr SnapLayout kCrowded = {[](Random& random, const Place&) {
                                     return Place{312'345 * kMetre + random.below(9900),
                                                  6'212'345 * kMetre + random.below(9900)};
                                 },
                                 sameAs};

// lines.mif, points.mif and, as points that cost nothing, none.mif. Gives the vertices.
std::int64_t snapData(const std::string& folder, const SnapLayout& layout) {
    constexpr std::int64_t kLines = 100'000;
    constexpr std::int64_t kNodes = 50;
    constexpr std::int64_t kVerticesToAPoint = 5;
    Random random;
    Output lines(folder + "/lines.mif"), points(folder + "/points.mif"), none(folder + "/none.mif");
    Output linesMid(folder + "/lines.mid"), pointsMid(folder + "/points.mid");
    Output noneMid(folder + "/none.mid");
    for (Output* mif : {&lines, &points, &none}) layerHead(*mif);
    for (std::int64_t line = 1; line <= kLines; ++line) {
        lines << "Pline " << kNodes << "\n";
        linesMid << line % 100 << "\n";
        Place place = somewhere(random);
        for (std::int64_t node = 0; node < kNodes; ++node) {
            place = layout.vertex(random, place);
            putPlace(lines, place);
            if (node % kVerticesToAPoint != 0) continue;
            points << "Point ";
            putPlace(points, layout.point(random, place));
            pointsMid << random.below(500) << ".25\n";
        }
    }
    return kLines * kNodes;
}

struct Recipe {
    std::string_view name;
    std::int64_t (*write)(const std::string& folder);
};
constexpr Recipe kRecipes[] = {
    {"mif-lines", mifLines},
    {"shp-lines", bench::shapefileLines},
    {"archive-3d", bench::archiveOf3dStrings},
    {"archive-super", bench::archiveOfSuperStrings},
    {"archive-longest", bench::archiveOfLongestString},
    {"snap-near", [](const std::string& folder) { return snapData(folder, kNearVertices); }},
    {"snap-line", [](const std::string& folder) { return snapData(folder, kOnLine); }},
    {"snap-place", [](const std::string& folder) { return snapData(folder, kInOnePlace); }},
    {"snap-crowd", [](const std::string& folder) { return snapData(folder, kCrowded); }},
};

}  // namespace

// Arguments: a recipe and the folder to fill. Prints the number of vertices.
int main(int argc, char** argv) {
    for (const Recipe& recipe : kRecipes) {
        if (argc == 3 && recipe.name == argv[1]) {
            std::printf("%lld\n", static_cast<long long>(recipe.write(argv[2])));
            return 0;
        }
    }
    std::fprintf(stderr, "Usage: bench_generate RECIPE FOLDER\n");
    return 2;
}
