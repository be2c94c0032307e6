#pragma once

#include <string_view>

#include "run/platform.h"

namespace vantelgis {

// The files that a run reads, so that no output replaces one of them under another name: through a
// link, another spelling or another folder's name. Files are compared, not spellings. Nothing is
// held against a host that declares no input.

/// The run reads the file of this name, now or later. A file that isn't there is none.
void declareInput(std::string_view name);

/// It may be replaced after all.
void withdrawInput(std::string_view name);

/// Starts a new run.
void forgetInputs();

/// A file was opened to be read: it belongs to the inputs of a run that has declared some.
void noteInput(const platform::FileIdentity& identity);

/// The run has read the file, or is going to.
[[nodiscard]] bool isInputOfRun(const platform::FileIdentity& identity);

/// The run has declared what it reads.
[[nodiscard]] bool inputsAreDeclared();

}  // namespace vantelgis
