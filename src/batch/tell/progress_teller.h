#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "batch/options.h"
#include "batch/record.h"
#include "batch/tell/spool.h"

/// Tells how far a batch is, on standard error: one line that is written over and over at a
/// terminal, a line for each verdict elsewhere, events for programs. Calls come from one thread at
/// a time.
namespace vantelgis::batch {

class ProgressTeller {
  public:
    ProgressTeller(const Options& options, const Summary& summary);

    void begin();
    void begun(std::int64_t number, const std::string& input);
    /// What a worker says of its input: an object of JSON.
    void progress(std::int64_t number, std::string_view json);
    void verdict(const Record& record);
    void note(std::string_view text);
    /// To be called several times a second.
    void tick();
    void end();

  private:
    using Clock = std::chrono::steady_clock;
    struct Running {
        std::string input;
        std::string progress;
    };

    void event(std::string_view name, std::int64_t number, std::string_view members);
    void line(std::string_view text);
    void drawLive();
    void clearLive();
    [[nodiscard]] std::string timeLeft() const;

    const Summary& summary_;
    Progress how_;
    bool colours_ = false;
    bool live_ = false;  // a line stands there that has to be written over
    Clock::time_point start_ = Clock::now();
    Clock::time_point told_;
    std::map<std::int64_t, Running> running_;
};

}  // namespace vantelgis::batch
