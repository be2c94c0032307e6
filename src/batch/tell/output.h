#pragma once

#include <string_view>

namespace vantelgis::batch {

enum class ReportKind { none, csv, json, html };
/// By the extension of its file.
ReportKind reportKindOf(std::string_view file);

/// Writes to standard output. Once somebody has closed it, nothing more is written.
void printOut(std::string_view text);

/// Colours are wanted where they can be seen, unless NO_COLOR is set.
bool outputHasColours();
bool errorHasColours();

}  // namespace vantelgis::batch
