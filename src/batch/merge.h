#pragma once

#include "batch/options.h"

namespace vantelgis::batch {

/// Joins the reports (.json) of shares into one: prints its table and writes the reports that are
/// asked for. Gives the exit status that one batch over all shares would have given.
int mergeReports(const Options& options);

}  // namespace vantelgis::batch
