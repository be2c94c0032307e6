#include "drivers/drivers.h"
namespace vantelgis::fuzz {
void runRoundTrip(std::string_view) {}
}  // namespace vantelgis::fuzz
