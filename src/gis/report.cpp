#include "gis/report.h"

#include "run/opener.h"
#include "text/number_field.h"

namespace vantelgis {

void gisCloseFile(int& unit, std::string_view failure) {
    if (unit > 0 && !tryCloseUnit(unit)) gisStop(failure);
}

void gisCheckNodes(std::int64_t requested, std::int32_t limit, std::string_view what) {
    if (requested <= limit) return;
    constexpr int kColumns = 8;
    stopWith("",
             MessageLine("ERROR 0310 - Exceeded number of allowable nodes in a single ", what, "."),
             MessageLine("             Requested", IntegerText(requested, kColumns),
                         "        Limit", IntegerText(limit, kColumns)));
}

}  // namespace vantelgis
