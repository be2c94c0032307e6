#include "gis/shp/files.h"

#include "gis/report.h"
#include "run/console.h"
#include "run/opener.h"
#include "run/platform.h"
#include "run/stop.h"
#include "run/unit_writing.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

[[noreturn]] void stopAtInternalFault(std::string_view where) {
    consoleLine("Should not be here [", where, "] - please contact ", SUPPORT_ADDRESS, ".");
    EXITS();
}

Path withExtension(std::string_view stem, std::string_view extension) {
    Path name{stem};
    name += extension;
    return name;
}

void openForOutput(int& unit, std::string_view mode, std::string_view name) {
    FILEOPEN(unit, mode, name);
    ownerReportsWriteFailures(unit);
}

void openOutputFiles(std::string_view stem, shpL_& shp, dbfL_& dbf) {
    openForOutput(shp.shpUnit, "SB", withExtension(stem, ".shp"));
    openForOutput(shp.shpUnitBE, "SE", withExtension(stem, ".shp"));
    openForOutput(shp.shxUnit, "SB", withExtension(stem, ".shx"));
    openForOutput(shp.shxUnitBE, "SE", withExtension(stem, ".shx"));
    openForOutput(shp.prjUnit, "O ", withExtension(stem, ".prj"));
    openForOutput(dbf.dbfUnit, "BO", withExtension(stem, ".dbf"));
}

void openInputFiles(std::string_view name, std::string_view stem, shpL_& shp, dbfL_& dbf) {
    FILEOPEN(shp.shpUnit, "BI", name);
    FILEOPEN(shp.shpUnitBE, "BE", name);
    FILEOPEN(dbf.dbfUnit, "BI", withExtension(stem, ".dbf"));
}

struct Family {
    std::string_view letters;
    std::size_t index;
    std::int32_t shapeType;
};
constexpr Family kFamilyTable[] = {{"Pp", 0, 1}, {"Ll", 1, 3}, {"Rr", 2, 5}};

const Family& familyOf(char letter) {
    for (const Family& family : kFamilyTable)
        if (family.letters.find(letter) != std::string_view::npos) return family;
    stopAtInternalFault("OpenshpFileType");
}

// What is still open of a set when its layer is closed holds nothing but a header.
void closeIfOpen(int& unit) {
    gisCloseFile(unit, "ERROR 0437 - Writing .shp file header.");
}

}  // namespace

bool OpenshpFile(std::string_view name, std::string_view family, std::string_view mode, shpL_& shp,
                 dbfL_& dbf) {
    shp.shpUnit = shp.shpUnitBE = shp.shxUnit = shp.shxUnitBE = dbf.dbfUnit = 0;
    const Text<8> familyText{family};
    const bool input = mode == "I ";
    if (!input && mode != "O ") stopAtInternalFault("OpenshpFile");
    Text<8> extension;
    FILEEXT(extension, name);
    if (!(extension == ".shp")) gisStop("ERROR 0426 - ", ".shp", " file not specified.");
    if (!input && familyText.blank()) stopAtInternalFault("OpenshpFileO");

    Path stem;
    FILENAMEPATH(stem, name);
    Path workingName{name};
    if (!familyText.blank()) {
        stem += "_";
        stem += familyText;
        workingName = withExtension(stem, ".shp");
    }
    if (!input) {
        openOutputFiles(stem, shp, dbf);
        return true;
    }
    if (!familyText.blank() && !platform::inputExists(workingName)) return false;
    openInputFiles(workingName, stem, shp, dbf);
    return true;
}

void shpOpenFamilies(std::string_view name, std::string_view shapeFamilies, GisLayer& layer) {
    for (const char& letter : withoutTrailingBlanks(shapeFamilies)) {
        const Family& family = familyOf(letter);
        shpL_& shp = layer.shp[family.index];
        if (shp.shpUnit > 0) continue;
        shp.shapeType = family.shapeType;
        OpenshpFile(name, {&letter, 1}, "O ", shp, layer.dbf[family.index]);
    }
}

void shpCloseFiles(GisLayer& layer) {
    for (std::size_t k = 0; k < kFamilies; ++k) {
        shpL_& shp = layer.shp[k];
        closeIfOpen(shp.shpUnit);
        closeIfOpen(shp.shpUnitBE);
        closeIfOpen(shp.shxUnit);
        closeIfOpen(shp.shxUnitBE);
        closeIfOpen(shp.prjUnit);
        closeIfOpen(layer.dbf[k].dbfUnit);
    }
}

}  // namespace vantelgis
