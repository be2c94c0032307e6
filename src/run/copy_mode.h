#pragma once

#include "text/text.h"

namespace vantelgis {

// The copy tree that a host can have made of a run: with copyMode on, every input is copied below
// copyRoot and every output goes there.

/// Copies the input `name` that was just opened, with all files of its base name unless copyExact
/// is set, and sets copyLast. Of a file whose extension begins with .xf, `name` becomes the base
/// name alone. A copy that could not even be begun stops the run (see kNotStarted).
void copyInput(TextRef name);

/// Turns the name of an output into its place in the copy tree, whose folder is made, and sets
/// copyLast. Stops the run as copyInput does.
void redirectOutput(TextRef name);

}  // namespace vantelgis
