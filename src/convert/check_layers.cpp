#include "convert/check_layers.h"

#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "text/number_field.h"
#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis {

Path checkLayerName(std::string_view linesFile, std::string_view ending,
                    std::string_view formatOf) {
    Path extension;
    lowerCase(extension, extensionOf(formatOf));
    Path name = withoutExtension(linesFile);
    name += ending;
    name += extension;
    return name;
}

CheckLayer::CheckLayer(const Path& name, std::string_view shapeFamily) : name_(name) {
    constexpr FieldDefinition kFields[] = {{"Z", "Float", 0}};
    layer_ = gisCreateLayer(name_, shapeFamily, kFields);
}

void CheckLayer::addLine(const GisObject& object, const ObjectNodes& nodes, float elevation) {
    GisObject line{.name = object.name};
    line.kind = object.kind == ObjectKind::line ? ObjectKind::line : ObjectKind::polyline;
    nodes_.assign(nodes.xs(), nodes.ys());
    const FixedText z(static_cast<double>(elevation), 16, 3);
    gisWriteObject(layer_, line, nodes_, {z, std::string_view(z).size()});
    used_ = true;
}

void CheckLayer::addPoint(double x, double y, float elevation) {
    nodes_.assign({&x, 1}, {&y, 1});
    const FixedText z(static_cast<double>(elevation), 12, 4);
    gisWritePoint(layer_, nodes_, 0, {z, std::string_view(z).size()});
    used_ = true;
}

void CheckLayer::close() {
    gisCloseLayer(layer_);
}

void CheckLayer::warn(std::string_view what) const {
    consoleLine("\nWARNING - Found ", what, ".\n          See ", name_);
}

}  // namespace vantelgis
