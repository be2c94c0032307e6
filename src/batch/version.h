#pragma once

#include <string_view>

namespace vantelgis::batch {

inline constexpr std::string_view kVersion = VANTELGIS_VERSION;
/// Of the reports and the progress events: a member may be added, never changed.
inline constexpr int kSchemaVersion = 1;

}  // namespace vantelgis::batch
