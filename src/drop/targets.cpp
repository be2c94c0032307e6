#include "drop/targets.h"

#include "text/strings.h"

namespace vantelgis::drop {

namespace {

constexpr std::string_view kLayers = "layers (.mif or .shp) or folders of them";
constexpr std::string_view kArchives = "archives (.12da or .4da) or folders of them";

constexpr Target kTargets[] = {
    {"2D", false, false, "", kLayers},
    {"3D", false, true, "-zln", kLayers},
    {"results", false, false, "-results", kLayers},
    {"cross-sections", true, false, "-xs", kArchives},
    {"layers", true, false, "", kArchives},
};

}  // namespace

const Target* targetNamed(std::string_view program) {
    for (const Target& target : kTargets) {
        if (containsIgnoringCase(program, target.word)) return &target;
    }
    return nullptr;
}

}  // namespace vantelgis::drop
