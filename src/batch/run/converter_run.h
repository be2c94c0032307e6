#pragma once

#include <string>
#include <vector>

#include "batch/look/look.h"
#include "batch/plan/plan.h"
#include "batch/processes.h"
#include "batch/run/placing.h"
#include "batch/run/scratch.h"

/// One run of the converter in a scratch folder.
namespace vantelgis::batch {

struct RunOutcome {
    ProcessEnd end;
    double seconds = 0;
    std::string failure;  ///< why there was no run, in words
    std::vector<Move>
        results;  ///< every file that the run left, by its place in the scratch folder
};

/// Puts what the run reads into its folder, runs the converter there and finds what it made.
RunOutcome runConverter(const Options& options, const RunPlan& plan, const Look& look,
                        Scratch& scratch, void (*tick)());

/// Leaves the results beside their places as NAME.failed-TIME. Gives their names.
std::vector<std::string> keepFailed(const Scratch& scratch, const std::vector<Move>& results);

/// A copy of what the run wrote to the console.
bool copyConsole(const Scratch& scratch, const std::string& logFile);

}  // namespace vantelgis::batch
