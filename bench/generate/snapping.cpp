// Layers of lines and of the points that give them elevations.

#include <algorithm>
#include <vector>

#include "generate/mif.h"
#include "generate/places.h"
#include "generate/recipes.h"

namespace bench {

namespace {

constexpr std::int64_t kNodes = 50;  // of a line
constexpr std::int64_t kVerticesToAPoint = 5;
constexpr std::int64_t kMostPoints = 1'000'000;

// The layers of one folder, each begun.
struct Layers {
    explicit Layers(const std::string& folder)
        : lines(folder + "/lines.mif"),
          linesMid(folder + "/lines.mid"),
          points(folder + "/points.mif"),
          pointsMid(folder + "/points.mid") {
        Output none(folder + "/none.mif"), noneMid(folder + "/none.mid");
        for (Output* mif : {&lines, &points, &none}) putMifHead(*mif, 1, "  Z Float\n");
    }
    void beginLine() {
        lines << "Pline " << kNodes << "\n";
        linesMid << ++lineCount % 100 << "\n";
    }
    void addPoint(Random& random, const Place& place) {
        points << "Point " << place;
        pointsMid << random.below(500) << ".25\n";
    }

    Output lines, linesMid, points, pointsMid;
    std::int64_t lineCount = 0;
};

// Where the vertices lie, and where a point lies of which some vertex is given.
struct Layout {
    Place (*vertex)(Random&, const Place& before);
    Place (*point)(Random&, const Place& vertex);
};

Place sameAs(Random&, const Place& place) {
    return place;
}
Place within(Random& random, const Place& place, std::int64_t reach) {
    return {place.x + random.below(2 * reach) - reach, place.y + random.below(2 * reach) - reach};
}

// Half of the points are near enough to a vertex; hardly any vertex is on a point.
constexpr Layout kNear = {[](Random& random, const Place& before) {
                              Place place = before;
                              step(random, place);
                              return place;
                          },
                          [](Random& random, const Place& vertex) {
                              return within(random, vertex, random.below(2) ? 900 : 3000);
                          }};
// On 10 km, points stand closer than a vertex can tell apart.
constexpr Layout kOnLine = {
    [](Random& random, const Place&) {
        return Place{312'345 * kMetre + 678, 6'200'000 * kMetre + random.below(10'000 * kMetre)};
    },
    sameAs};
constexpr Layout kInOnePlace = {[](Random&, const Place&) {
                                    return Place{312'345 * kMetre + 678, 6'212'345 * kMetre + 9};
                                },
                                sameAs};
// Each at a spot of its own.
constexpr Layout kCrowded = {[](Random& random, const Place&) {
                                 return Place{312'345 * kMetre + random.below(9900),
                                              6'212'345 * kMetre + random.below(9900)};
                             },
                             sameAs};

std::int64_t writeLayout(const std::string& folder, const Layout& layout, std::int64_t wanted) {
    Random random;
    Layers layers(folder);
    std::int64_t points = 0;
    std::int64_t vertices = 0;
    for (; vertices < wanted; vertices += kNodes) {
        layers.beginLine();
        Place place = somewhere(random);
        for (std::int64_t node = 0; node < kNodes; ++node) {
            place = layout.vertex(random, place);
            layers.lines << place;
            if (node % kVerticesToAPoint != 0 || points == kMostPoints) continue;
            layers.addPoint(random, layout.point(random, place));
            ++points;
        }
    }
    return vertices;
}

}  // namespace

std::int64_t snapNear(const std::string& folder, std::int64_t vertices) {
    return writeLayout(folder, kNear, vertices);
}
std::int64_t snapOnLine(const std::string& folder, std::int64_t vertices) {
    return writeLayout(folder, kOnLine, vertices);
}
std::int64_t snapInOnePlace(const std::string& folder, std::int64_t vertices) {
    return writeLayout(folder, kInOnePlace, vertices);
}
std::int64_t snapCrowded(const std::string& folder, std::int64_t vertices) {
    return writeLayout(folder, kCrowded, vertices);
}

// The points make chains, and time after time a line runs along each of them, a little aside.
std::int64_t snapDense(const std::string& folder, std::int64_t wanted) {
    constexpr std::int64_t kReach = 900;
    Random random;
    Layers layers(folder);
    std::vector<Place> chain(static_cast<std::size_t>(std::min(
        std::max(wanted / kVerticesToAPoint / kNodes, std::int64_t{1}) * kNodes, kMostPoints)));
    Place place{};
    for (std::size_t i = 0; i < chain.size(); ++i) {
        if (i % kNodes == 0) place = somewhere(random);
        step(random, place);
        chain[i] = place;
        layers.addPoint(random, place);
    }
    std::int64_t vertices = 0;
    for (std::size_t i = 0; vertices < wanted; vertices += kNodes) {
        layers.beginLine();
        for (std::int64_t node = 0; node < kNodes; ++node, i = (i + 1) % chain.size())
            layers.lines << within(random, chain[i], kReach);
    }
    return vertices;
}

}  // namespace bench
