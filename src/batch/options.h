#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "batch/converter_arguments.h"

namespace vantelgis::batch {

enum class Progress { automatic, lines, json, none };

/// What the command line asks for.
struct Options {
    std::vector<std::string> inputs;
    bool recursive = false;
    bool zeroBytes = false;  ///< a list on standard input has zero bytes between its names
    std::vector<std::string> include;
    std::vector<std::string> exclude;
    std::vector<std::pair<std::string, std::string>> pairs;  ///< patterns of points and lines
    int shard = 1;
    int shards = 1;

    std::string outputFolder;
    std::string nameTemplate;
    bool toGeoPackage = false;
    bool keep = false;

    bool checkOnly = false;
    bool lookFull = false;
    bool anyway = false;
    bool ownProjection = false;

    int jobs = 1;
    std::int64_t timeout = 3600;  ///< seconds of one run
    bool strict = false;
    std::string program;
    ConverterArguments converter;

    bool quiet = false;
    Progress progress = Progress::automatic;
    std::vector<std::string> reports;
    std::string logFolder;
    bool dryRun = false;

    bool merge = false;   ///< the inputs are reports to be joined
    bool worker = false;  ///< this process takes jobs from another one
};

/// Reads the arguments behind the program's name. When there is nothing more to do (help, version,
/// a usage error) the texts are written and `status` is what to exit with; false then.
bool readOptions(const std::vector<std::string>& arguments, Options& options, int& status);

}  // namespace vantelgis::batch
