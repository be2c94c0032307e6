#include "gis/shp/files.h"

#include "gis/layer_files.h"
#include "gis/report.h"
#include "gis/shp/shape_types.h"
#include "gis/shp/writer.h"
#include "run/opener.h"
#include "run/stop.h"
#include "run/unit_writing.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

Path withExtension(std::string_view stem, std::string_view extension) {
    Path name{stem};
    name += extension;
    return name;
}

void openForOutput(int& unit, std::string_view mode, std::string_view name) {
    openUnit(unit, mode, name);
    ownerReportsWriteFailures(unit);
}

// A .shp and a .shx hold numbers of both byte orders; each order has a unit of its own.
void openOutputFiles(std::string_view stem, shpL_& shp, dbfL_& dbf) {
    openForOutput(shp.shpUnit, "SB", withExtension(stem, ".shp"));
    openForOutput(shp.shpUnitBE, "SE", withExtension(stem, ".shp"));
    openForOutput(shp.shxUnit, "SB", withExtension(stem, ".shx"));
    openForOutput(shp.shxUnitBE, "SE", withExtension(stem, ".shx"));
    openForOutput(shp.prjUnit, "O ", withExtension(stem, ".prj"));
    openForOutput(dbf.dbfUnit, "BO", withExtension(stem, ".dbf"));
}

// The shape type is what every object of the set has: a shapefile holds one type.
struct Family {
    std::string_view letters;
    ShapeFamily index;
    std::int32_t shapeType;
};
constexpr Family kFamilyTable[] = {
    {"Pp", kPoints, kPoint}, {"Ll", kLines, kPolyLine}, {"Rr", kRegions, kPolygon}};

[[noreturn]] void stopAtFamilies() {
    stopWith(MessageLine("Should not be here [OpenshpFileType] - please contact ", SUPPORT_ADDRESS,
                         "."));
}

const Family& familyOf(char letter) {
    for (const Family& family : kFamilyTable)
        if (family.letters.find(letter) != std::string_view::npos) return family;
    stopAtFamilies();
}

}  // namespace

void shpOpenInput(std::string_view name, shpL_& shp, dbfL_& dbf) {
    openUnit(shp.shpUnit, "BI", name);
    openUnit(shp.shpUnitBE, "BE", name);
    openUnit(dbf.dbfUnit, "BI", withExtension(withoutExtension(name), ".dbf"));
}

void shpOpenFamilies(std::string_view name, std::string_view shapeFamilies, GisLayer& layer) {
    const std::string_view letters = withoutTrailingBlanks(shapeFamilies);
    if (letters.empty()) stopAtFamilies();
    for (const char letter : letters) static_cast<void>(familyOf(letter));
    for (const char letter : letters) {
        const Family& family = familyOf(letter);
        shpL_& shp = layer.shp[family.index];
        if (shp.shpUnit > 0) continue;
        shp.shapeType = family.shapeType;
        openOutputFiles(gisFamilyStem(name, letter), shp, layer.dbf[family.index]);
    }
}

// What is still open of a set when its layer is closed holds nothing but a header.
void shpCloseFiles(GisLayer& layer) {
    for (std::size_t k = 0; k < kFamilies; ++k) {
        shpL_& shp = layer.shp[k];
        for (int* unit : {&shp.shpUnit, &shp.shpUnitBE, &shp.shxUnit, &shp.shxUnitBE, &shp.prjUnit,
                          &layer.dbf[k].dbfUnit})
            gisCloseFile(*unit, kShpHeaderFailure);
    }
}

}  // namespace vantelgis
