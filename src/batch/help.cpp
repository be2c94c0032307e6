#include "batch/help.h"

#include <string_view>

#include "batch/look/findings.h"
#include "batch/version.h"

namespace vantelgis::batch {

namespace {

constexpr std::string_view kUsage =
    "Usage: vantelgis-batch [options] INPUT... [-- OPTIONS AND FILE 2 FOR EVERY RUN]\n"
    "       vantelgis-batch merge [--report FILE] REPORT.json...\n";

constexpr std::string_view kExamples = R"(
Converts many files: looks at each before the run, runs the converter on several at a time, judges
what came out, and says for each file what to do.

Examples:
  vantelgis-batch survey/*.mif              2D breaklines of each layer
  vantelgis-batch --check -r survey         only look, subfolders as well
  vantelgis-batch --report all.html survey  and a page that shows them all
  vantelgis-batch --pair '{stem}_p.shp={stem}_l.shp' survey -- -zln
  vantelgis-batch --output-folder gis *.12da -- -mif survey/Header.mif

INPUT is a file, a folder, a wildcard, @LIST (a file of names) or - (names on standard input).
)";

constexpr std::string_view kUsual = R"(
  -r, --recursive        take subfolders as well
  -j N                   runs at a time (default: processors)
  --check                look at the inputs and run nothing
  --anyway               run inputs in which an error was found as well
  --own-projection       each layer's own coordinate system
  --output-folder DIR    put the results there
  --name TEMPLATE        such as '{stem}_{ext}.12da'
  --strict               suspicious results count as failed
  --report FILE          .html, .json or .csv
  --log DIR              keep what each run wrote to the console
  --dry-run              print the commands
  -q                     no progress
  --help-all             all options
)";

constexpr std::string_view kStatus = R"(
Exit status:
  0    all runs are well; suspicious ones are allowed without --strict
  1    a run failed, or was not run for an error; with --check: an error was found
  2    no input was looked at: a usage error, no converter, two inputs with one output
  130, 143   the batch was interrupted or terminated
)";

}  // namespace

std::string shortHelp() {
    return std::string(kUsage).append(kExamples).append(kUsual);
}

std::string longHelp(const std::string& options) {
    const std::size_t start = options.find("\nInputs:");
    return std::string(kUsage)
        .append(kExamples)
        .append(options.substr(start == std::string::npos ? 0 : start))
        .append(kStatus);
}

std::string versionLine() {
    return std::string("vantelgis-batch ").append(kVersion) += '\n';
}

std::string findingsTable() {
    std::string table = "| Finding | Level | What is there | What to do |\n|---|---|---|---|\n";
    for (const FindingRow& row : findingRows()) {
        table.append("| `").append(row.name).append("` | ").append(levelName(row.level));
        table.append(" | ").append(row.words).append(" | ").append(row.cure).append(" |\n");
    }
    return table;
}

}  // namespace vantelgis::batch
