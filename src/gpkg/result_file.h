#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "gpkg/platform.h"

namespace vantelgis::gpkg {

/// A result that appears whole or not at all. It is made under a scratch name beside its target
/// (the target's name and ".part") and takes the target's place when it is finished; until then,
/// and when it comes to nothing, what stood there before stays.
class ResultFile {
  public:
    /// Begins an empty scratch file. Fails when that can't be made, when another run is making the
    /// same result, and when the target is there but is no file.
    explicit ResultFile(std::string_view target);
    ~ResultFile();
    ResultFile(const ResultFile&) = delete;
    ResultFile& operator=(const ResultFile&) = delete;

    [[nodiscard]] const std::string& target() const { return target_; }
    [[nodiscard]] const std::string& scratchName() const { return scratch_; }

    /// Brings the scratch file, which nobody has open any more, to the disk and gives it the name
    /// of the target.
    void publish();

  private:
    std::string target_;
    std::string scratch_;
    platform::LockedFile file_;
    bool published_ = false;
};

/// A file of this run alone, beside its result, that goes with the object.
class ScratchFile {
  public:
    explicit ScratchFile(std::string name) : name_(std::move(name)) {}
    ~ScratchFile() { platform::removeFile(name_); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    [[nodiscard]] const std::string& name() const { return name_; }

  private:
    std::string name_;
};

/// Fails, before anything is written, when a package can't be replaced: another program has it
/// open, or one has left its write-ahead log or journal beside it. A rename would then show its
/// readers old rows, or take rows away that were never written into the file itself.
void refusePackageInUse(std::string_view package);

}  // namespace vantelgis::gpkg
