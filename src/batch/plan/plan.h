#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "batch/options.h"

/// What one run takes, is given and leaves, worked out from names alone.
namespace vantelgis::batch {

/// An input as it goes to the process that looks at it and runs it.
struct Job {
    std::int64_t number = 0;
    std::string input;   ///< as it was named
    std::string second;  ///< the lines of a pair
    std::string below;   ///< its folder below the one that was named
    bool alone = false;  ///< the only input of the batch
};

struct RunPlan {
    Conversion conversion = Conversion::none;
    std::string input;            ///< absolute
    std::string folder;           ///< of the input; empty when it isn\'t there
    std::string second;           ///< File 2, absolute; empty if there is none
    bool secondHasLines = false;  ///< File 2 is the lines of 3D breaklines, not a projection alone
    std::string targetFolder;     ///< where the results go, absolute
    std::string result;           ///< name of the main result, there and in the folder of the run
    std::string link1;            ///< name of File 1 in the folder of the run
    std::string link2;            ///< of File 2; in a folder "2" when both have one name
    std::vector<std::string> arguments;  ///< of the converter
};

RunPlan planRun(const Options& options, const Job& job);

/// The names that the results will have in the target folder, with all files of a layer. Those of
/// cross-sections depend on what the archive holds and are not among them.
std::vector<std::string> resultFiles(const RunPlan& plan);

/// The command as somebody would type it, for one to read.
std::string commandText(const std::string& program, const RunPlan& plan);

/// What a template of --name may not hold, in words; empty when all is well.
std::string templateFault(std::string_view nameTemplate);

}  // namespace vantelgis::batch
