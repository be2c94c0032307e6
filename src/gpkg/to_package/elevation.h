#pragma once

namespace vantelgis::gpkg {

/// The double nearest to the shortest decimal that stands for a number of 32 bits: of the float
/// that 12.3 becomes, 12.3 and not 12.300000190734863. Finite numbers only.
[[nodiscard]] double shortestDecimal(float value);

}  // namespace vantelgis::gpkg
