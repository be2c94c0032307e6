#pragma once

#include <string>
#include <string_view>

#include "batch/options.h"
#include "batch/plan/plan.h"

/// The process that looks at inputs, runs the converter on them and judges what came out: one input
/// after the other, as the batch hands them out. Several work side by side; each has the
/// converter's readers, which know one run at a time, for itself, and one that a hostile file
/// brings down takes no other with it.
namespace vantelgis::batch {

/// What a worker is asked for, as a line of JSON.
enum class Task { run, check, sections };
std::string jobLine(Task task, const Job& job);
bool readJobLine(std::string_view line, Task& task, Job& job);

/// What it answers: any number of notes and of progress, then a record, or the names of sections.
/// Each is an object with one member of these names.
inline constexpr std::string_view kNoteMember = "note";
inline constexpr std::string_view kProgressMember = "progress";
inline constexpr std::string_view kRecordMember = "record";
inline constexpr std::string_view kSectionsMember = "sections";

/// Works until there are no more jobs. Gives the exit status.
int runWorker(const Options& options);

}  // namespace vantelgis::batch
