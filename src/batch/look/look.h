#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "batch/look/drawing.h"
#include "batch/look/findings.h"
#include "batch/plan/plan.h"
#include "batch/record.h"

/// The look at an input before its run: what is wrong with it, what the run has to find in its
/// folder, and what has to come out.
namespace vantelgis::batch {

/// A file that the run reads, and the name under which it finds it.
struct FileLink {
    std::string file;
    std::string name;
};

/// What the content gives to expect of the result. Counts of a sample are of what was seen.
struct Expected {
    std::int64_t objects = 0;    ///< of the input
    std::int64_t converted = 0;  ///< strings, sections or symbols
    std::int64_t vertices = 0;
    std::int64_t points = 0;  ///< of lines and points: those with an elevation
    std::int64_t lines = 0;   ///< the same for lines: strings of two vertices or more
};

struct Look {
    std::vector<Finding> findings;
    std::vector<FileLink> links;
    std::vector<std::pair<std::string, std::string>> ownFiles;  ///< name in the run, and content
    std::vector<std::string> folders;                           ///< to be made for the run
    std::vector<std::string> sections;  ///< files of cross-sections, relative to the result
    Expected expected;
    bool whole = true;        ///< all of it was read
    std::string notLookedAt;  ///< what was not, in words
    Box box;
    Drawing drawing;        ///< of what is converted and passed over, if one is wanted
    bool neverRun = false;  ///< an error that --anyway does not override
    bool interrupted = false;

    void find(Find find, std::initializer_list<std::string_view> seen = {});
    /// Another cure for what was found last, where more is known than in general.
    void cure(std::string words) { findings.back().cure = std::move(words); }
    /// Adds to what was not looked at.
    void leftOut(std::string_view what);
    [[nodiscard]] bool hasError() const;
    [[nodiscard]] bool has(Find find) const;
};

/// Files up to this size are read whole.
inline constexpr std::int64_t kWholeSize = std::int64_t{16} << 20;

struct LookWish {
    bool full = false;     ///< read all, whatever its size
    bool drawing = false;  ///< collect what a drawing needs
};

/// Looks at the input of a plan. The current folder is another one afterwards.
Look lookAt(const Options& options, const RunPlan& plan, const LookWish& wish);

// The steps of it.

/// The files of the input: are they there, whole sets, of one save; what the results replace.
void lookAtFiles(const Options& options, const RunPlan& plan, Look& look);
/// The coordinate system that the run would take.
void lookAtProjection(const Options& options, const RunPlan& plan, Look& look);
/// Objects and records of layers, strings of archives.
void lookAtLayers(const RunPlan& plan, const LookWish& wish, Look& look);
void lookAtArchive(const RunPlan& plan, const LookWish& wish, Look& look);

/// The size of all files of a layer, or of the one file that `path` is.
std::int64_t sizeWithSisters(const std::string& path);

/// A number for people: 16000000 is 16,000,000.
std::string grouped(std::int64_t value);
/// "1 line", "2 lines".
std::string counted(std::int64_t value, std::string_view noun);

}  // namespace vantelgis::batch
