#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What the console of a run says of it.
namespace vantelgis::batch {

struct ConsoleText {
    bool finished = false;  ///< it ends as whole runs do: all files closed, then "Finished."
    std::string error;      ///< the first line of the message with which it stopped, if any
    std::string lastLine;   ///< that says something
    std::vector<std::string> warnings;  ///< the first of each text, without what differs
    std::int64_t warningCount = 0;
    std::int64_t polylines = -1;    ///< the number of the last "Polyline", -1 when there was none
    std::int64_t flatLines = 0;     ///< lines of which no vertex found a point
    std::int64_t shownPoints = -1;  ///< points that were read
    std::int64_t converted = -1;    ///< strings of an archive
    std::int64_t ignored = -1;
};

/// Reads it in pieces, whatever its size.
ConsoleText readConsole(const std::string& file);

/// The same of vantelgis-gpkg: a verdict line, "warning: " and "vantelgis-gpkg: " with a failure.
ConsoleText readPackageConsole(const std::string& file);

/// The number behind the last `word` in `text`, -1 when there is none.
std::int64_t numberBehindLast(std::string_view text, std::string_view word);

}  // namespace vantelgis::batch
