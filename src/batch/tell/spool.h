#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "batch/record.h"
#include "run/platform.h"

/// The records of a batch, kept in a nameless file: a hundred thousand of them take little memory.
namespace vantelgis::batch {

/// What all records come to.
struct Summary {
    std::int64_t inputs = 0;  ///< of this share
    std::array<std::int64_t, kVerdicts> verdicts{};
    double seconds = 0;  ///< by the clock, from begin to end
    int shard = 1;
    int shards = 1;
    std::string started;  ///< UTC, as 2024-05-01T10:20:30Z
    std::string command;
    bool interrupted = false;

    [[nodiscard]] std::int64_t count(Verdict verdict) const {
        return verdicts[static_cast<std::size_t>(verdict)];
    }
    [[nodiscard]] std::int64_t done() const;
};

class Spool {
  public:
    Spool() = default;
    ~Spool();
    Spool(const Spool&) = delete;
    Spool& operator=(const Spool&) = delete;

    /// False when it can't be written.
    bool add(const Record& record);
    /// Each record in the order of its number; until `take` gives false.
    bool each(const std::function<bool(const Record&)>& take);
    /// Only those with this verdict.
    bool each(Verdict verdict, const std::function<bool(const Record&)>& take);

    Summary summary;

  private:
    struct Place {
        std::int64_t number;
        std::int64_t start;
        std::uint32_t length;
        Verdict verdict;
    };
    bool read(const Place& place, Record& record);
    void sort();

    vantelgis::platform::FileHandle file_ = vantelgis::platform::kNoFile;
    std::int64_t end_ = 0;
    std::vector<Place> places_;
    std::string buffer_;
};

}  // namespace vantelgis::batch
