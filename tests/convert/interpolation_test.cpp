#include "convert/interpolation.h"

#include <sstream>
#include <string>
#include <vector>

#include "support/rows.h"

namespace vantelgis {
namespace {

// The elevations of a section along the x axis, and whether it dangles, from pairs of x and the
// elevation of a snapped vertex. One that did not snap (-) starts with the polyline's elevation, 7.
std::string interpolated(std::string_view section) {
    std::istringstream pairs{std::string(section)};
    std::vector<double> x;
    std::vector<VertexElevation> vertices;
    std::string z;
    for (double place = 0; pairs >> place >> z;) {
        x.push_back(place);
        vertices.push_back({z == "-" ? 7 : std::stof(z), z != "-"});
    }
    const bool dangles = interpolateElevations(x, std::vector<double>(x.size(), 0), vertices);
    std::ostringstream told;
    told.precision(9);
    for (const VertexElevation& vertex : vertices) told << vertex.z << ' ';
    return told.str() + (dangles ? "dangles" : "held");
}

TEST(Interpolation, FillsFromSnappedVertices) {
    checkRows(interpolated, "0 5  1 2  3 8 -> 5 2 8 held",
              "0 0  3 -  1 -  2 12 -> 0 6 10 12 held",  // along the line, there and back
              // 8100 / 7 in 32 bits is 1157.1431 once the quotient has been rounded.
              "0 900  1 -  7 9000 -> 900 2057.14307 9000 held",
              "0 -  1 -  2 3  3 -  4 - -> 3 3 3 3 3 dangles", "0 4  1 -  2 - -> 4 4 4 dangles",
              "0 -  1 -  2 4 -> 4 4 4 dangles", "0 1  1 -  2 3  3 - -> 1 2 3 3 dangles",
              "0 -  1 1  2 -  3 3 -> 1 1 2 3 dangles",
              "0 0  1 -  1 -  4 8 -> 0 2 2 8 held",  // twice the same place, then only one
              "6 1  6 -  6 -  6 4 -> 1 2.5 2.5 4 held", "5 2 -> 2 held");
}

}  // namespace
}  // namespace vantelgis
