#include "gis/measures.h"

#include <sstream>
#include <string>

#include "support/rows.h"

namespace vantelgis {
namespace {

// Centre, angle and length of an object with the nodes of a row: x and y of each.
template <ObjectKind kKind>
std::string measured(std::string_view row) {
    std::istringstream numbers{std::string(row)};
    ObjectNodes nodes{20};
    nodes.makeRoom(20);
    for (std::size_t i = 0; numbers >> nodes.x[i] >> nodes.y[i]; ++i) ++nodes.n;
    const Measures m = measuresOf({kKind}, nodes);
    std::ostringstream text;
    text << m.xCentre << ' ' << m.yCentre << ' ' << m.angle << ' ' << m.length;
    return text.str();
}

TEST(Measures, TellWhereAnObjectLies) {
    checkRows(measured<ObjectKind::point>, "3 4 3 4 -> 3 4 0 0");
    checkRows(measured<ObjectKind::line>, "0 0 -2 0 -> -1 0 180 2", "1 1 4 5 -> 2.5 3 53.1301 5");
    // Lengths of 5 and 10: the middle lies 2.5 up the second one.
    checkRows(measured<ObjectKind::polyline>, "0 0 3 4 3 14 -> 3 6.5 90 15", "5 6 -> 5 6 0 0",
              "9 9 0 9 0 8 -> 4 9 180 10", "0 0 0 2 4 2 -> 1 2 0 6", "0 0 0 2 2 2 -> 0 2 90 4");
    // Behind a square its first two vertices are repeated: they do not count twice.
    checkRows(measured<ObjectKind::region>, "0 0 9 0 9 6 0 6 0 0 9 0 -> 4.5 3 0 0",
              "1 1 1 1 -> 0 0 0 0", "7 8 1 1 7 8 -> 7 8 0 0");
    checkRows(measured<ObjectKind::arc>, "1 2 3 4 -> 0 0 0 0");
    ObjectNodes nodes{2};
    nodes.centreRead = true;
    nodes.xCentre = 7;
    EXPECT_EQ(measuresOf({ObjectKind::region}, nodes).xCentre, 7);
}

}  // namespace
}  // namespace vantelgis
