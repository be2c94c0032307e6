#include "gpkg/to_package/elevation.h"

#include <charconv>
#include <cmath>

namespace vantelgis::gpkg {

namespace {

double shortestByText(float value) {
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value);
    double result = value;
    std::from_chars(text, written.ptr, result);
    return result;
}

}  // namespace

// Elevations have few decimals: the first count of decimals at which the rounded number reads as
// the same float is the shortest. Numerator and power are exact, so that their quotient is rounded
// once, as a reader of the decimal would.
double shortestDecimal(float value) {
    constexpr float kLargestWithDecimals = 16'777'216.0F;  // from 2^24 on floats are whole
    if (!(std::fabs(value) < kLargestWithDecimals)) return shortestByText(value);
    constexpr double kPowers[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
    for (const double power : kPowers) {
        const double candidate = std::nearbyint(static_cast<double>(value) * power) / power;
        if (static_cast<float>(candidate) == value) return candidate;
    }
    return shortestByText(value);
}

}  // namespace vantelgis::gpkg
