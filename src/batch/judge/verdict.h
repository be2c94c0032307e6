#pragma once

#include "batch/look/look.h"
#include "batch/record.h"
#include "batch/run/converter_run.h"

namespace vantelgis::batch {

/// Judges a run by its console and by what its results hold, and puts verdict, reason, cure and
/// counts into the record. The results are still in the scratch folder.
void judgeRun(const RunPlan& plan, const Look& look, const RunOutcome& outcome,
              const Scratch& scratch, std::int64_t timeout, Record& record);

/// Adds what the check layers of 3D breaklines show to a drawing: lines that dangle, their ends
/// that found no point, and points that no line took.
void drawCheckLayers(const RunPlan& plan, const RunOutcome& outcome, const Scratch& scratch,
                     Drawing& drawing);

/// The place in the scratch folder of a result with this name; empty when the run left none.
std::string resultInScratch(const RunOutcome& outcome, const Scratch& scratch,
                            std::string_view name);

}  // namespace vantelgis::batch
