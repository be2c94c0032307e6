#pragma once

#include <string_view>

#include "gis/object.h"
#include "text/text.h"

namespace vantelgis {

/// The name of a check layer: `linesFile` without its extension, `ending` ("_dangles"), and the
/// extension of `formatOf`, which gives its format.
Path checkLayerName(std::string_view linesFile, std::string_view ending, std::string_view formatOf);

/// A layer beside the lines of a run that shows what needs the person's eye. Each record is an
/// elevation.
class CheckLayer {
  public:
    /// Makes the layer; `shapeFamily` is P or L.
    CheckLayer(const Path& name, std::string_view shapeFamily);

    /// Writes a line with the elevation of its object, or a point with its own.
    void addLine(const GisObject& object, const ObjectNodes& nodes, float elevation);
    void addPoint(double x, double y, float elevation);

    void close();

    /// Something was written to it.
    [[nodiscard]] bool used() const { return used_; }
    /// Writes the warning that `what` was found, with the layer's name.
    void warn(std::string_view what) const;

  private:
    Path name_;
    int layer_ = 0;
    bool used_ = false;
    OutputNodes nodes_;
};

}  // namespace vantelgis
