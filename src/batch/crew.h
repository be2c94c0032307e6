#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/inputs/inputs.h"
#include "batch/options.h"
#include "batch/tell/progress_teller.h"
#include "batch/tell/spool.h"
#include "batch/worker.h"

/// The workers of a batch and what they are given to do.
namespace vantelgis::batch {

struct Crew {
    const Options& options;
    const std::vector<std::string>& arguments;  ///< of this program, for its workers
    const std::vector<Input>& inputs;
    std::string ownProgram;
};

/// The job of the input at a place (from 0).
Job jobOf(const Crew& crew, std::size_t place);

/// Has each input looked at, and run if `task` says so; puts the records into the spool. False when
/// the spool can't be written.
bool workThrough(const Crew& crew, Task task, Spool& spool, ProgressTeller& teller);

/// The names of the cross-sections of each input, given to `take` with the input's place: one call
/// at a time, in any order.
void findSections(const Crew& crew, ProgressTeller& teller,
                  const std::function<void(std::size_t, const std::vector<std::string>&)>& take);

}  // namespace vantelgis::batch
