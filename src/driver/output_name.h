#pragma once

#include "convert/run_settings.h"

namespace vantelgis {

/// Works out `outputFile` of a conversion to an archive.
void nameArchive(RunSettings& run);

/// Works out `outputFile` of a conversion to a layer, and so the layer's format, and says what it
/// does about a name that was given. Stops the run when no format is known.
void nameLayer(RunSettings& run);

}  // namespace vantelgis
