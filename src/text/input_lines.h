#pragma once

#include "text/text.h"

namespace vantelgis {

/// Reads the next line of `unit`, without its tabs and its comment (see COMMENTLINE). True when
/// something is left. At the end of the file, or when the read fails, it reports that and stops.
extern "C" bool READLINE(int unit, TextRef line);

}  // namespace vantelgis
