#include "batch/look/guard.h"

#include <algorithm>
#include <new>

#include "batch/files.h"
#include "gis/layers.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/stop.h"
#include "run/units.h"

namespace vantelgis::batch {

namespace {

constexpr int kUnitBase = 1000;
constexpr std::size_t kMostText = 8192;  // of the console, from its end

struct RunEnd {};

std::string& consoleEnd() {
    static std::string text;
    return text;
}

void keepConsole(std::string_view text) {
    std::string& kept = consoleEnd();
    kept.append(text);
    if (kept.size() > 2 * kMostText) kept.erase(0, kept.size() - kMostText);
}

[[noreturn]] void leaveRun() {
    throw RunEnd{};
}

void startReaders() {
    initialiseUnits(kUnitBase);
    clearMessage();
    gisInitialise();
}

// The message with which a run stops stands behind the last line that begins with one of these
// words, up to the prompt.
std::string messageAtEnd(const std::string& text) {
    std::size_t start = std::string::npos;
    for (const std::string_view word : {"\nERROR", "\nWARNING", "\n CHECK", "\nCHECK"}) {
        const std::size_t found = text.rfind(word);
        if (found != std::string::npos && (start == std::string::npos || found > start))
            start = found;
    }
    if (start == std::string::npos) return {};
    const std::size_t end = std::min({text.find("\n\n", start), text.find("\nPress Enter", start),
                                      text.find("\nEnter command", start), text.size()});
    return text.substr(start + 1, end - start - 1);
}

}  // namespace

ReaderStop guarded(const std::function<void()>& body) {
    ReaderStop result;
    consoleEnd().clear();
    setConsoleSink(keepConsole);
    setConsoleUnattended(true);
    setEndHandler(leaveRun);
    startReaders();
    try {
        body();
    } catch (const RunEnd&) {
        result.stopped = true;
        result.message = messageAtEnd(consoleEnd());
    } catch (const std::bad_alloc&) {
        result.stopped = true;
        result.message = "ERROR - Out of memory";
    }
    initialiseUnits(kUnitBase);  // closes what a stop left open
    return result;
}

std::string enterFolderOf(const std::string& file) {
    if (!changeFolder(folderPart(file))) return file;
    const std::string name(namePart(file));
    return name.starts_with(' ') ? "./" + name : name;
}

}  // namespace vantelgis::batch
