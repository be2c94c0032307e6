#include "batch/run/scratch.h"

#include <chrono>
#include <random>

#include "batch/processes.h"
#include "batch/run/placing.h"

namespace vantelgis::batch {

namespace {

constexpr std::string_view kBaseName = ".vantelgis-batch";
constexpr std::string_view kLockExtension = ".lock";
constexpr std::size_t kMostOwnerText = 4096;

std::string newName() {
    static std::mt19937_64 numbers(std::random_device{}());
    constexpr std::string_view kDigits = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::string name;
    for (int i = 0; i < 12; ++i) name += kDigits[numbers() % kDigits.size()];
    return name;
}

std::string baseOf(const std::string& target) {
    return inFolder(target, kBaseName);
}

bool isFresh(const std::string& file) {
    constexpr std::int64_t kHour = std::int64_t{3600} * 1'000'000'000;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::nanoseconds(now).count() - statusOf(file).changed < kHour;
}

// The lock stays where something of the folder does: the next one that comes finds it by that.
void removeWithLock(const std::string& folder, LockFile& lock) {
    if (!statusOf(folder).exists() || removeTree(folder))
        lock.removeAndRelease();
    else
        lock.release();
}

// One folder that somebody left, by its lock.
void cleanOne(const std::string& target, const std::string& lockName,
              std::vector<std::string>& notes) {
    const std::string lockPath = inFolder(baseOf(target), lockName);
    const std::string folder(lockPath.substr(0, lockPath.size() - kLockExtension.size()));
    const std::string owner = readWholeFile(lockPath, kMostOwnerText).value_or("");
    const std::string host = owner.substr(0, owner.find('\n'));
    if (!host.empty() && host != hostName()) {
        if (isFresh(lockPath)) return;  // a share of this batch may run there
        notes.push_back(folder + " belongs to a batch on the host " + host +
                        ": it is left alone; remove it if none runs there");
        return;
    }
    LockFile lock;
    if (!lock.take(lockPath)) return;  // its owner lives
    if (recoverPlacing(folder, target) == Placed::halfway) {
        notes.push_back(folder + " holds old results that can't be put back: " + lastFailure());
        return;
    }
    removeWithLock(folder, lock);
}

}  // namespace

void cleanAbandoned(const std::string& target, std::vector<std::string>& notes) {
    std::vector<FolderEntry> entries;
    if (!listFolder(baseOf(target), entries)) return;
    for (const FolderEntry& entry : entries) {
        if (!entry.isFolder && entry.name.ends_with(kLockExtension))
            cleanOne(target, entry.name, notes);
    }
    removeEmptyFolder(baseOf(target));
}

bool Scratch::open(const std::string& target, std::vector<std::string>& notes,
                   std::string& failure) {
    if (!folder_.empty() && target == target_) return true;
    close();
    if (makeFolders(target) && openHere(target, notes)) return true;
    failure = lastFailure();
    close();
    return false;
}

bool Scratch::openHere(const std::string& target, std::vector<std::string>& notes) {
    cleanAbandoned(target, notes);
    constexpr int kTries = 16;  // others may be removing the base, or have the name
    for (int i = 0; i < kTries; ++i) {
        const std::string name = newName();
        const std::string base = baseOf(target);
        if (!makeFolder(base)) return false;
        if (!lock_.create(inFolder(base, name).append(kLockExtension),
                          hostName() + "\n" + std::to_string(processNumber()) + "\n"))
            continue;
        target_ = target;
        base_ = base;
        folder_ = inFolder(base, name);
        if (!makeFolder(folder_) || !makeFolder(runFolder())) return false;
        console_ = openConsoleFile(consoleName());
        return console_ != vantelgis::platform::kNoFile;
    }
    return false;
}

bool Scratch::emptyRunFolder(const std::function<bool(const std::string&)>& isKept) {
    std::vector<FolderEntry> entries;
    if (!listFolder(runFolder(), entries)) return false;
    bool emptied = true;
    for (const FolderEntry& entry : entries) {
        if (entry.isLink && isKept(entry.name)) continue;
        const std::string name = inFolder(runFolder(), entry.name);
        const bool gone = entry.isFolder ? removeTree(name)
                          : entry.isLink ? putAside(name)
                                         : removeFile(name);
        if (!gone) emptied = false;
    }
    return emptied && vantelgis::platform::emptyFile(console_);
}

// Links are removed many at a time: a file system without a journal searches long for a place for a
// new one when others were removed in the minute before.
bool Scratch::putAside(const std::string& link) {
    constexpr int kMostAside = 10'000;
    const std::string aside = inFolder(folder_, "used");
    if (aside_ == kMostAside) {
        removeTree(aside);
        aside_ = 0;
    }
    if (aside_ == 0 && !makeFolder(aside)) return false;
    return renameFile(link, inFolder(aside, std::to_string(aside_++)));
}

void Scratch::abandon() {
    if (console_ != vantelgis::platform::kNoFile)
        static_cast<void>(vantelgis::platform::closeFile(console_));
    console_ = vantelgis::platform::kNoFile;
    lock_.release();
    folder_.clear();
}

void Scratch::close() {
    if (folder_.empty()) return;
    leaveFolder();
    aside_ = 0;
    if (console_ != vantelgis::platform::kNoFile)
        static_cast<void>(vantelgis::platform::closeFile(console_));
    console_ = vantelgis::platform::kNoFile;
    removeWithLock(folder_, lock_);
    removeEmptyFolder(base_);
    folder_.clear();
}

}  // namespace vantelgis::batch
