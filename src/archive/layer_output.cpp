#include "archive/layer_output.h"

#include "text/number_field.h"

namespace vantelgis {

void writePolyline(int gisID) {
    gisO_.pline = true;
    gisWriteObject(gisID, gisO_);
    gisWriteRecord(gisID, gisO_);
    gisO_.pline = false;
}

void composeElevationRow(float z, std::string_view rest) {
    char columns[kElevationColumns];
    fixedField(columns, static_cast<double>(z), kElevationColumns, 3);
    gisDataLine = std::string_view(columns, kElevationColumns);
    gisDataLine += rest;
}

void changeElevation(float z) {
    fixedField(gisDataLine.data(), static_cast<double>(z), kElevationColumns, 3);
}

}  // namespace vantelgis
