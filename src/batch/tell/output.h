#pragma once

#include <string>
#include <string_view>

#include "batch/record.h"

namespace vantelgis::batch {

enum class ReportKind { none, csv, json, html };
/// By the extension of its file.
ReportKind reportKindOf(std::string_view file);

/// Writes to standard output. Once somebody has closed it, nothing more is written.
void printOut(std::string_view text);

/// The counts of an input, with "+" behind those of a sample.
std::string objectsShown(const Record& record);
std::string verticesShown(const Record& record);

/// Colours are wanted where they can be seen, unless NO_COLOR is set.
bool outputHasColours();
bool errorHasColours();

}  // namespace vantelgis::batch
