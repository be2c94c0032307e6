#include <algorithm>

#include "batch/files.h"
#include "batch/look/look.h"
#include "batch/look/sisters.h"

namespace vantelgis::batch {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;  // in nanoseconds
// Files of one save are written one behind the other; a copy of them takes its time by their size.
constexpr std::int64_t kOneSave = 120 * kSecond;
constexpr std::int64_t kBytesPerSecond = 1'000'000;

std::string timeSpan(std::int64_t nanoseconds) {
    constexpr struct {
        std::int64_t seconds;
        std::string_view name;
    } kUnits[] = {{86400, " days"}, {3600, " hours"}, {60, " minutes"}};
    const std::int64_t seconds = nanoseconds / kSecond;
    for (const auto& unit : kUnits) {
        if (seconds >= 2 * unit.seconds) return grouped(seconds / unit.seconds).append(unit.name);
    }
    return grouped(seconds) + " seconds";
}

// Opens a file as the run would, to learn whether it may.
bool isReadable(const std::string& file) {
    const auto handle = openInput(file);
    char byte;
    const bool readable = handle != vantelgis::platform::kNoFile &&
                          vantelgis::platform::readFile(handle, &byte, 1) >= 0;
    if (handle != vantelgis::platform::kNoFile)
        static_cast<void>(vantelgis::platform::closeFile(handle));
    return readable;
}

bool lookAtMainFile(const std::string& named, const std::string& path, Look& look) {
    const FileStatus status = statusOf(path);
    if (!status.exists()) {
        look.find(Find::missing, {named});
    } else if (status.kind != FileStatus::Kind::file) {
        look.find(Find::unreadable, {named, "it is no file"});
    } else if (!isReadable(path)) {
        look.find(Find::unreadable, {named, lastFailure()});
    } else {
        return true;
    }
    look.neverRun = true;
    return false;
}

void lookAtAge(const std::string& layer, const std::string& sister, Look& look) {
    const FileStatus main = statusOf(layer);
    const std::int64_t older = main.changed - statusOf(sister).changed;
    if (older <= kOneSave + main.size / kBytesPerSecond * kSecond) return;
    look.find(Find::sisterOlder, {namePart(sister), timeSpan(older), namePart(layer)});
}

// The files of a layer, each under the name by which the converter asks for it.
void lookAtSet(const std::string& path, const std::string& link, Look& look) {
    look.links.push_back({path, link});
    const std::string folder = link.starts_with("2/") ? "2/" : "";
    for (const std::string_view extension : extensionsOfSet(path)) {
        if (extension == extensionsOfSet(path).front()) continue;
        const std::string wanted = std::string(stemPart(namePart(link))).append(extension);
        const Sister sister = findSister(path, extension);
        if (sister.ambiguous) {
            look.find(Find::sisterCase, {wanted});
        } else if (sister.file.empty()) {
            look.find(Find::sisterMissing, {wanted});
        } else if (!isReadable(sister.file)) {
            look.find(Find::sisterUnreadable, {wanted, lastFailure()});
        } else {
            lookAtAge(path, sister.file, look);
            look.links.push_back({sister.file, folder + wanted});
        }
    }
}

void lookAtFile2(const RunPlan& plan, Look& look) {
    if (plan.second.empty() || !lookAtMainFile(plan.second, plan.second, look)) return;
    if (plan.secondHasLines) return lookAtSet(plan.second, plan.link2, look);
    look.links.push_back({plan.second, plan.link2});
}

// The results must not take the place of what the run reads, there or in the folder of the run.
void lookAtTargets(const RunPlan& plan, Look& look) {
    for (const std::string& result : resultFiles(plan)) {
        const std::string target = nameKey(absoluteName(inFolder(plan.targetFolder, result)));
        const bool taken =
            std::any_of(look.links.begin(), look.links.end(), [&](const FileLink& link) {
                return nameKey(link.name) == nameKey(result) ||
                       nameKey(absoluteName(link.file)) == target;
            });
        if (!taken) continue;
        look.find(Find::resultIsInput, {result});
        look.neverRun = true;
        return;
    }
    const FileStatus before = statusOf(inFolder(plan.targetFolder, plan.result));
    if (!before.exists()) return;
    const bool newer = before.changed > statusOf(plan.input).changed;
    look.find(newer ? Find::resultIsNewer : Find::resultIsOlder, {plan.result});
}

void lookAtTargetFolder(const RunPlan& plan, Look& look) {
    std::string folder = plan.targetFolder;
    while (!statusOf(folder).exists() && folderPart(folder) != folder) folder = folderPart(folder);
    if (statusOf(folder).isFolder() && isWritable(folder)) return;
    look.find(Find::folderNotWritable, {folder});
    look.neverRun = true;
}

}  // namespace

std::int64_t sizeWithSisters(const std::string& path) {
    std::int64_t size = statusOf(path).size;
    for (const std::string_view extension : extensionsOfSet(path)) {
        if (extension != extensionsOfSet(path).front())
            size += statusOf(findSister(path, extension).file).size;
    }
    return size;
}

void lookAtFiles(const Options& options, const RunPlan& plan, Look& look) {
    if (plan.conversion == Conversion::none) {
        if (!statusOf(plan.input).exists())
            look.find(Find::missing, {plan.input});
        else
            look.find(Find::unfitKind);
        look.neverRun = true;
        return;
    }
    if (!lookAtMainFile(plan.input, plan.input, look)) return;
    lookAtSet(plan.input, plan.link1, look);
    lookAtFile2(plan, look);
    if (look.neverRun) return;
    if (look.hasError())
        look.neverRun = look.has(Find::sisterMissing) || look.has(Find::sisterCase);
    lookAtTargets(plan, look);
    if (!options.checkOnly) lookAtTargetFolder(plan, look);
}

}  // namespace vantelgis::batch
