#include "gis/mif/files.h"

#include "run/opener.h"
#include "run/unit_writing.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

// For a refused write the format has messages of its own, so that the unit is to keep silent.
void openFileOfPair(int& unit, std::string_view stem, std::string_view extension,
                    std::string_view mode) {
    Path name{stem};
    name += extension;
    openUnit(unit, mode, name);
    if (unit > 0 && mode == "O ") ownerReportsWriteFailures(unit);
}

}  // namespace

void gisMifOpen(std::string_view name, std::string_view mode, mifL_& layer) {
    Path stem{withoutLeadingBlanks(name)};
    if (hasExtension(stem, ".mif") || hasExtension(stem, ".mid"))
        stem = stem.view().substr(0, stem.size() - extensionOf(stem).size());
    openFileOfPair(layer.mifUnit, stem, ".mif", mode);
    openFileOfPair(layer.midUnit, stem, ".mid", mode);
}

MessageLine midWriteFailure(const mifL_& layer) {
    return MessageLine("ERROR 0254 - Failed to write attribute data record for a ",
                       layer.objectName, " object in GIS layer.");
}

void gisMifClose(mifL_& layer) {
    gisCloseFile(layer.mifUnit, kMifWriteFailure);
    gisCloseFile(layer.midUnit, midWriteFailure(layer));
}

}  // namespace vantelgis
