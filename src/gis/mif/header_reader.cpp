#include <algorithm>

#include "gis/mif/reader.h"
#include "gis/report.h"
#include "run/console.h"
#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/free_format.h"

namespace vantelgis {

namespace {

// The number of columns stands behind the word Columns, with or without a blank between.
constexpr std::size_t kCountColumn = 8;

// Version, Charset, Delimiter, CoordSys and Transform stand before it and are passed over: values
// in the .mid are taken as separated by commas whatever the header says.
std::int32_t readFieldCount(int mifUnit) {
    std::string_view line;
    while (!beginsWith(line, "Columns") && !atEnd(mifUnit)) {
        if (readLine(mifUnit, line) != ReadResult::ok)
            gisStop("ERROR 0315 - Could not find start of attribute definitions in .mif file");
    }
    FreeFormat list{fromColumn(line.substr(0, Line::capacity()), kCountColumn)};
    std::int32_t count = 0;
    if (!taken(takeInteger(list, count)))
        gisStop("ERROR 0314 - Could not read number of attributes in .mif file");
    if (count < 1) gisStop("ERROR 0319 - No attributes specified in .mif file.");
    return count;
}

// A line such as "  Z Decimal(10,3)": what follows the first blank is the type. Fields beyond the
// table still take their line, or the search for Data would begin among them.
void readField(mifL_& layer, std::int32_t i) {
    std::string_view line;
    if (readLine(layer.mifUnit, line) != ReadResult::ok)
        gisStop("ERROR 0316 - Could not read attribute definitions in .mif file");
    if (i >= kMaxMifFields) return;
    line = withoutLeadingBlanks(line.substr(0, Line::capacity()));
    const std::size_t blank = std::min(line.find(' '), line.size());
    layer.attrName[i] = line.substr(0, blank);
    layer.attrType[i] = line.substr(std::min(blank + 1, line.size()));
}

void reportFields(const mifL_& layer) {
    consoleText(layer.nAttr, " MIF Fields: Name [#/Type]: ");
    for (int i = 0; i < layer.nAttr; ++i)
        consoleText(layer.attrName[i], " [", i + 1, "/", layer.attrType[i], "]  ");
    consoleLine();
}

// What stands between the fields and Data is no part of any object.
void readToData(int mifUnit) {
    std::string_view line;
    while (!beginsWith(line, "Data")) {
        if (readLine(mifUnit, line) != ReadResult::ok)
            gisStop("ERROR 0313 - Could not find start of \"Data\" block in .mif file.");
    }
}

}  // namespace

void gisMifReadHeader(mifL_& layer) {
    if (layer.mifUnit <= 0) return;
    rewindUnit(layer.mifUnit);
    const std::int32_t count = readFieldCount(layer.mifUnit);
    for (std::int32_t i = 0; i < count; ++i) readField(layer, i);
    layer.nAttr = std::min(count, kMaxMifFields);
    reportFields(layer);
    readToData(layer.mifUnit);
}

void gisMifSkipToData(int mifUnit) {
    if (mifUnit <= 0) return;
    rewindUnit(mifUnit);
    readToData(mifUnit);
}

}  // namespace vantelgis
