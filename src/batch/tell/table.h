#pragma once

#include "batch/options.h"
#include "batch/tell/spool.h"

namespace vantelgis::batch {

/// Prints the table of all records, what to do about those that are not well, and what they come
/// to.
void printTable(const Options& options, Spool& spool);

/// "20 inputs: 17 well, 2 suspicious, 1 failed".
std::string summaryLine(const Summary& summary);

}  // namespace vantelgis::batch
