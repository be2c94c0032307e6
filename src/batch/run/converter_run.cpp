#include "batch/run/converter_run.h"

#include <algorithm>
#include <chrono>
#include <ctime>

#include "batch/files.h"
#include "batch/input_file.h"

namespace vantelgis::batch {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::string_view kSecondFolder = "2";  // of a File 2 that has File 1's name

bool isOfTheInput(const Look& look, const std::string& name) {
    const std::string key = nameKey(name);
    return std::any_of(look.links.begin(), look.links.end(),
                       [&](const FileLink& link) { return nameKey(link.name) == key; }) ||
           std::any_of(look.ownFiles.begin(), look.ownFiles.end(),
                       [&](const auto& own) { return nameKey(own.first) == key; });
}

// Everything below `folder` of the run that was not put there.
void findResults(const Scratch& scratch, const Look& look, const std::string& folder,
                 std::vector<Move>& results) {
    std::vector<FolderEntry> entries;
    listFolder(inFolder(scratch.runFolder(), folder), entries);
    for (const FolderEntry& entry : entries) {
        const std::string name = folder.empty() ? entry.name : folder + "/" + entry.name;
        if (entry.isFolder) {
            findResults(scratch, look, name, results);
        } else if (!isOfTheInput(look, name)) {
            const bool second = name.starts_with("2/");
            results.push_back({inFolder("run", name), second ? name.substr(2) : name});
        }
    }
}

bool prepare(const RunPlan& plan, const Look& look, Scratch& scratch) {
    const std::string run = scratch.runFolder();
    // The run before may have had the same Header.
    const auto isThere = [&](const FileLink& link) {
        return isLinkTo(inFolder(run, link.name), link.file);
    };
    const auto isKept = [&](const std::string& name) {
        return std::any_of(look.links.begin(), look.links.end(), [&](const FileLink& link) {
            return link.name == name && isThere(link);
        });
    };
    if (!scratch.emptyRunFolder(isKept)) return false;
    if (plan.link2.starts_with("2/") && !makeFolder(inFolder(run, kSecondFolder))) return false;
    const auto made = [&](const std::string& folder) { return makeFolders(inFolder(run, folder)); };
    const auto linked = [&](const FileLink& link) {
        return isThere(link) || linkForReading(link.file, inFolder(run, link.name));
    };
    const auto written = [&](const auto& own) {
        return writeWholeFile(inFolder(run, own.first), own.second);
    };
    return std::all_of(look.folders.begin(), look.folders.end(), made) &&
           std::all_of(look.links.begin(), look.links.end(), linked) &&
           std::all_of(look.ownFiles.begin(), look.ownFiles.end(), written) && changeFolder(run);
}

std::string timeStamp() {
    const std::time_t now = std::time(nullptr);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", std::gmtime(&now));
    return {text, length};
}

}  // namespace

RunOutcome runConverter(const Options& options, const RunPlan& plan, const Look& look,
                        Scratch& scratch, void (*tick)()) {
    RunOutcome outcome;
    if (!prepare(plan, look, scratch)) {
        outcome.failure = "The folder of the run can't be made ready: " + lastFailure();
        return outcome;
    }
    const Clock::time_point start = Clock::now();
    outcome.end = runProgramToItsEnd(options.program, plan.arguments, scratch.console(),
                                     options.timeout, tick);
    outcome.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    if (!outcome.end.started) outcome.failure = "The converter can't be started: " + lastFailure();
    findResults(scratch, look, "", outcome.results);
    return outcome;
}

std::vector<std::string> keepFailed(const Scratch& scratch, const std::vector<Move>& results) {
    std::vector<std::string> kept;
    const std::string ending = ".failed-" + timeStamp();
    for (const Move& result : results) {
        std::string name = inFolder(scratch.target(), result.to) + ending;
        makeFolders(folderPart(name));
        if (renameFile(inFolder(scratch.folder(), result.from), name))
            kept.push_back(std::move(name));
    }
    return kept;
}

bool copyConsole(const Scratch& scratch, const std::string& logFile) {
    InputFile console(scratch.consoleName());
    std::string text;
    constexpr std::size_t kBlock = std::size_t{1} << 20;
    for (std::int64_t place = 0; place < console.size(); place += kBlock)
        text.append(console.bytesAt(place, kBlock));
    return writeWholeFile(logFile, text);
}

}  // namespace vantelgis::batch
