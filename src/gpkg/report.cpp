#include "gpkg/report.h"

#include "gpkg/platform.h"
#include "run/platform.h"

namespace vantelgis::gpkg {

namespace {

bool silent = false;

// A file's text may hold anything; a terminal gets no control characters of it.
void writeLine(std::string_view start, std::string_view text) {
    std::string line{start};
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        line += code < 0x20 || code == 0x7f ? ' ' : c;
    }
    line += '\n';
    platform::writeStandardError(line);
}

}  // namespace

void silenceReports() {
    silent = true;
}

void reportFailure(std::string_view text) {
    writeLine("vantelgis-gpkg: ", text);
}

void reportWarning(std::string_view text) {
    if (!silent) writeLine("warning: ", text);
}

void reportNote(std::string_view text) {
    if (!silent) writeLine("note: ", text);
}

void reportVerdict(std::string_view text) {
    if (silent) return;
    const std::string line = joined(text, vantelgis::platform::consoleLineEnd());
    vantelgis::platform::writeStandardOutput(line.data(), line.size());
}

std::string counted(std::int64_t count, std::string_view one, std::string_view several) {
    return joined(count, " ", count == 1 ? one : several);
}

}  // namespace vantelgis::gpkg
