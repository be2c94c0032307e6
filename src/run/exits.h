#pragma once

namespace vantelgis {

/// The orderly stop: closes all file units without a line on the console, then an empty line, the
/// prompt "Press Enter to Close", and the end of the process.
extern "C" [[noreturn]] void EXITS();

}  // namespace vantelgis
