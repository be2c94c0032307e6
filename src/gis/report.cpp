#include "gis/report.h"

#include "run/console.h"
#include "run/opener.h"

namespace vantelgis {

Text<1000> gisMsg[4];

void gisReport(int nBlank) {
    for (int i = 0; i < nBlank; ++i) consoleLine();
    consoleLine(gisMsg[0]);
    for (int i = 1; i < 4; ++i)
        if (!gisMsg[i].blank()) consoleLine(gisMsg[i]);
}

void gisSetMessage(std::string_view line1, std::string_view line2, std::string_view line3,
                   std::string_view line4) {
    gisMsg[0] = line1;
    gisMsg[1] = line2;
    gisMsg[2] = line3;
    gisMsg[3] = line4;
}

void gisCloseFile(int& unit, std::string_view failure) {
    if (unit > 0 && !tryCloseUnit(unit)) gisStop(failure);
}

void gisCheckNodes(std::int64_t requested, std::int32_t limit, std::string_view what) {
    if (requested <= limit) return;
    constexpr int kColumns = 8;
    char wanted[kColumns];
    char allowed[kColumns];
    integerField(wanted, requested, kColumns);
    integerField(allowed, limit, kColumns);
    gisSetMessage(
        MessageLine("ERROR 0310 - Exceeded number of allowable nodes in a single ", what, "."),
        MessageLine("             Requested", std::string_view(wanted, kColumns), "        Limit",
                    std::string_view(allowed, kColumns)));
    gisReport(1);
    EXITS();
}

}  // namespace vantelgis
