#pragma once

#include <span>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

/// An item of a record line.
using RecordItem = Text<256>;

/// Splits a record line into `items`. Commas or blanks separate; quotes hold blanks, commas and
/// slashes together, and a doubled quote in them stands for one; `n*` repeats the item behind it n
/// times; a slash ends the line. Items that the line leaves empty or does not reach keep their
/// text. False for a line that makes no sense, which is a repeat count of 0.
bool dbfSplitRecord(std::string_view line, std::span<RecordItem> items);

}  // namespace vantelgis
