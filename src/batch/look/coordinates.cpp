#include "batch/look/coordinates.h"

#include <cmath>
#include <cstdio>

namespace vantelgis::batch {

namespace {

// Between these bounds a number of 16 columns leaves its first one blank: with five decimals in a
// string, with six in a .mif. Results stand apart in 20 columns.
struct Range {
    double least;
    double most;
};
Range rangeOf(Conversion conversion) {
    switch (conversion) {
        case Conversion::results: return {-99999999999999.9999, 999999999999999.9999};
        case Conversion::strings:
        case Conversion::sections: return {-9999999.9999995, 99999999.9999995};
        case Conversion::geoPackage: return {-1e300, 1e300};
        default: return {-99999999.999995, 999999999.999995};
    }
}

// More digits than millimetres, or than a number has at all.
bool isFine(double value) {
    const double thousandths = value * 1000;
    return std::fabs(thousandths - std::nearbyint(thousandths)) > 1e-6;
}

}  // namespace

CoordinateCheck::CoordinateCheck(Conversion conversion)
    : least_(rangeOf(conversion).least), most_(rangeOf(conversion).most) {}

void CoordinateCheck::add(std::int64_t object, std::span<const double> x,
                          std::span<const double> y) {
    for (std::size_t i = 0; i < x.size(); ++i) {
        box_.add(x[i], y[i]);
        for (const double value : {x[i], y[i]}) {
            if (value > least_ && value < most_) continue;
            if (outsideObject_ != 0) continue;
            outsideObject_ = object;
            char text[64];
            std::snprintf(text, sizeof text, "%.15g", value);
            outside_ = text;
        }
        if (!fine_) fine_ = isFine(x[i]) || isFine(y[i]);
    }
}

bool CoordinateCheck::looksLikeDegrees() const {
    return !box_.empty() && fine_ && box_.xMin >= -180 && box_.xMax <= 180 && box_.yMin >= -90 &&
           box_.yMax <= 90;
}

}  // namespace vantelgis::batch
