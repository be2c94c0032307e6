#include "gis/mif/files.h"

#include "run/opener.h"
#include "run/unit_writing.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

void openFileOfPair(int& unit, std::string_view stem, std::string_view extension,
                    std::string_view mode) {
    Path name{stem};
    name += extension;
    FILEOPEN(unit, mode, name);
    if (unit > 0 && mode == "O ") ownerReportsWriteFailures(unit);
}

}  // namespace

void gisMifOpen(std::string_view name, std::string_view mode, mifL_& layer) {
    Path stem{withoutLeadingBlanks(name)};
    Text<16> extension;
    FILEEXT(extension, stem);
    if (extension == ".mif" || extension == ".mid")
        stem = stem.view().substr(0, stem.size() - extension.size());
    openFileOfPair(layer.mifUnit, stem, ".mif", mode);
    openFileOfPair(layer.midUnit, stem, ".mid", mode);
}

}  // namespace vantelgis
