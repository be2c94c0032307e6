#include "gis/report.h"

#include "run/opener.h"
#include "text/number_field.h"

namespace vantelgis {

void gisCloseFile(int& unit, std::string_view failure) {
    if (unit > 0 && !tryCloseUnit(unit)) gisStop(failure);
}

void gisMakeRoom(ObjectNodes& nodes, std::int64_t count, std::string_view what) {
    if (count <= nodes.maxNodes) return nodes.makeRoom(count);
    constexpr int kColumns = 8;
    stopWith("",
             MessageLine("ERROR 0310 - Exceeded number of allowable nodes in a single ", what, "."),
             MessageLine("             Requested", IntegerText(count, kColumns), "        Limit",
                         IntegerText(nodes.maxNodes, kColumns)));
}

}  // namespace vantelgis
