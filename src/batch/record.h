#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "batch/json.h"

/// What is known of one input at the end: the row of every table and report.
namespace vantelgis::batch {

enum class Level { note, warning, error };

/// What a look found, in words.
struct Finding {
    std::string name;  ///< stable
    Level level = Level::note;
    std::string words;
    std::string cure;
};

enum class Verdict {
    ready,  ///< looked at only, and nothing forbids the run
    well,
    suspicious,
    notRun,  ///< for an error that the look found
    failed,
};
inline constexpr int kVerdicts = 5;
std::string_view verdictName(Verdict verdict);
std::string_view levelName(Level level);

/// Extent of the coordinates; none as long as the minimum is above the maximum.
struct Box {
    double xMin = 1, yMin = 1, xMax = 0, yMax = 0;
    [[nodiscard]] bool empty() const { return xMin > xMax; }
    void add(double x, double y);
};

struct Record {
    std::int64_t number = 0;  ///< place among the inputs, from 1
    std::string input;        ///< as it was named
    std::string second;       ///< the lines of a pair
    std::string output;       ///< the main file of the result
    std::string kind;         ///< what the conversion makes
    Verdict verdict = Verdict::failed;
    std::string reason;  ///< why the verdict isn't better
    std::string cure;
    double seconds = 0;
    std::int64_t objects = 0;    ///< of the input
    std::int64_t converted = 0;  ///< strings, sections or symbols of the result
    std::int64_t vertices = 0;   ///< of what is converted
    std::int64_t exitStatus = 0;
    std::string notLookedAt;
    Box box;
    std::vector<Finding> findings;
    std::vector<std::pair<std::string, std::int64_t>> counts;  ///< such as {"dangling lines", 3}
    std::vector<std::string> files;  ///< that the run left, absolute names
    std::string plan;                ///< paths for a drawing, when one is wanted

    void addCount(std::string_view name, std::int64_t value);
};

/// Appends the members of a record to an object that the caller has begun.
void writeMembers(const Record& record, JsonWriter& json, bool withPlan);
/// Takes a member; false when it is none of a record.
bool readMember(std::string_view name, JsonReader& json, Record& record);
/// A record alone.
std::string recordLine(const Record& record, bool withPlan);
bool readRecord(std::string_view line, Record& record);

}  // namespace vantelgis::batch
