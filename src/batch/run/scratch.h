#pragma once

#include <functional>
#include <string>
#include <vector>

#include "batch/files.h"

/// The folder of a process in which its runs work, beside their results: on the same file system,
/// so that a result gets its place by a rename. It has a lock that its owner holds; what an owner
/// left who is gone is put in order and removed by the next one that comes.
namespace vantelgis::batch {

class Scratch {
  public:
    Scratch() = default;
    ~Scratch() { close(); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    /// Makes it below `target`, which is made if it isn't there. Nothing is done when it is open
    /// there already. False when it can't be, with the reason in `failure`. What is met there of
    /// others and is worth telling is added to `notes`.
    bool open(const std::string& target, std::vector<std::string>& notes, std::string& failure);
    /// Removes it with all that is in it.
    void close();
    /// Leaves it as it is for the next one that comes.
    void abandon();

    [[nodiscard]] const std::string& target() const { return target_; }
    [[nodiscard]] const std::string& folder() const { return folder_; }
    /// The folder of the run.
    [[nodiscard]] std::string runFolder() const { return inFolder(folder_, "run"); }
    /// Takes out what the run before left in it, but for links for which `isKept` is true.
    bool emptyRunFolder(const std::function<bool(const std::string& name)>& isKept);

    /// What the run writes to the console, from the start of the run on.
    [[nodiscard]] vantelgis::platform::FileHandle console() const { return console_; }
    [[nodiscard]] std::string consoleName() const { return inFolder(folder_, "console"); }

  private:
    bool openHere(const std::string& target, std::vector<std::string>& notes);
    bool putAside(const std::string& link);

    std::string target_;
    std::string base_;  // of all scratch folders there
    std::string folder_;
    LockFile lock_;
    int aside_ = 0;  // links of earlier runs that are still to be removed
    vantelgis::platform::FileHandle console_ = vantelgis::platform::kNoFile;
};

/// Puts in order and removes what owners left below `target` who are gone.
void cleanAbandoned(const std::string& target, std::vector<std::string>& notes);

}  // namespace vantelgis::batch
