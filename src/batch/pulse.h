#pragma once

namespace vantelgis::batch {

/// Called in every long loop: says how far things are, now and then. False when this process has
/// been asked to end.
bool pulse();

/// What `pulse` calls four times a second at the most; null for nothing.
void setPulse(void (*tick)());

}  // namespace vantelgis::batch
