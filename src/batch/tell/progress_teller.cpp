#include "batch/tell/progress_teller.h"

#include <algorithm>
#include <cmath>

#include "batch/files.h"
#include "batch/json.h"
#include "batch/processes.h"
#include "batch/tell/output.h"
#include "batch/utf8.h"
#include "batch/version.h"

namespace vantelgis::batch {

namespace {

constexpr std::chrono::milliseconds kBetweenEvents{400};
constexpr std::chrono::milliseconds kBetweenDrawings{100};
constexpr std::string_view kClearLine = "\r\x1B[K";

std::string duration(std::int64_t seconds) {
    const auto two = [](std::int64_t value) {
        return (value < 10 ? "0" : "") + std::to_string(value);
    };
    if (seconds < 3600) return std::to_string(seconds / 60) + ":" + two(seconds % 60);
    return std::to_string(seconds / 3600) + ":" + two(seconds / 60 % 60) + ":" + two(seconds % 60);
}

}  // namespace

ProgressTeller::ProgressTeller(const Options& options, const Summary& summary)
    : summary_(summary), how_(options.progress), colours_(errorHasColours()) {
    if (options.quiet && how_ != Progress::json) how_ = Progress::none;
    if (how_ == Progress::automatic && !errorIsTerminal()) how_ = Progress::lines;
}

void ProgressTeller::event(std::string_view name, std::int64_t number, std::string_view members) {
    std::string text;
    JsonWriter json(text);
    json.begin('{');
    json.key("event").text(name);
    if (number > 0) {
        json.key("number").integer(number);
        if (const auto found = running_.find(number); found != running_.end())
            json.key("input").text(found->second.input);
    }
    json.key("done").integer(summary_.done());
    json.key("inputs").integer(summary_.inputs);
    if (!members.empty()) text.append(",").append(members);
    json.end('}');
    writeStandardError(text += '\n');
}

void ProgressTeller::begin() {
    if (how_ != Progress::json) return;
    std::string members;
    JsonWriter json(members);
    members = "\"schema\":\"vantelgis-batch-progress\"";
    json.key("version").integer(kSchemaVersion);
    event("start", 0, members);
}

void ProgressTeller::begun(std::int64_t number, const std::string& input) {
    running_[number] = {input, {}};
    if (how_ == Progress::json) event("begun", number, {});
}

void ProgressTeller::progress(std::int64_t number, std::string_view json) {
    running_[number].progress = json;
}

void ProgressTeller::verdict(const Record& record) {
    if (how_ == Progress::json) {
        std::string members;
        JsonWriter json(members);
        json.key("record").begin('{');
        writeMembers(record, json, false);
        json.end('}');
        event("verdict", record.number, members.substr(members.find('"')));
    } else if (how_ == Progress::lines) {
        std::string text =
            std::to_string(summary_.done()) + "/" + std::to_string(summary_.inputs) + " ";
        text.append(verdictName(record.verdict)).append("  ").append(readable(record.input));
        if (!record.reason.empty()) text.append(": ").append(readable(record.reason));
        line(text);
    }
    running_.erase(record.number);
}

void ProgressTeller::note(std::string_view text) {
    if (how_ == Progress::json) {
        std::string members;
        JsonWriter json(members);
        json.key("text").text(text);
        event("note", 0, members.substr(members.find('"')));
        return;
    }
    line("vantelgis-batch: " + readable(text));
}

void ProgressTeller::line(std::string_view text) {
    clearLive();
    writeStandardError(std::string(text) += '\n');
}

void ProgressTeller::tick() {
    const Clock::time_point now = Clock::now();
    if (how_ == Progress::automatic && now - told_ >= kBetweenDrawings) {
        told_ = now;
        drawLive();
    }
    if (how_ != Progress::json || now - told_ < kBetweenEvents) return;
    told_ = now;
    for (const auto& [number, running] : running_) {
        // The worker's object without its braces.
        const std::string_view members = running.progress;
        event("progress", number, members.size() > 2 ? members.substr(1, members.size() - 2) : "");
    }
}

std::string ProgressTeller::timeLeft() const {
    const std::int64_t done = summary_.done();
    if (done == 0) return "-:--";
    const double elapsed = std::chrono::duration<double>(Clock::now() - start_).count();
    const double left =
        elapsed / static_cast<double>(done) * static_cast<double>(summary_.inputs - done);
    return duration(std::llround(left));
}

void ProgressTeller::drawLive() {
    const std::int64_t failed = summary_.count(Verdict::failed) + summary_.count(Verdict::notRun);
    std::string text = std::to_string(summary_.done()) + " of " + std::to_string(summary_.inputs);
    std::string failedText = failed > 0 ? ", " + std::to_string(failed) + " failed" : "";
    text += failedText + ", " + timeLeft() + " left";
    for (const auto& [number, running] : running_)
        text.append("  ").append(readable(namePart(running.input)));
    text = shortened(text, static_cast<std::size_t>(std::max(20, terminalWidth() - 1)));
    if (const std::size_t at = text.find(failedText);
        colours_ && failed > 0 && at != std::string::npos) {
        text.insert(at + failedText.size(), "\x1B[0m");
        text.insert(at + 2, "\x1B[31m");
    }
    writeStandardError(std::string(kClearLine) + text);
    live_ = true;
}

void ProgressTeller::clearLive() {
    if (live_) writeStandardError(kClearLine);
    live_ = false;
}

void ProgressTeller::end() {
    clearLive();
    if (how_ != Progress::json) return;
    std::string members;
    JsonWriter json(members);
    for (int verdict = 0; verdict < kVerdicts; ++verdict)
        json.key(verdictName(static_cast<Verdict>(verdict)))
            .integer(summary_.verdicts[static_cast<std::size_t>(verdict)]);
    json.key("interrupted").boolean(summary_.interrupted);
    event("end", 0, members.substr(members.find('"')));
}

}  // namespace vantelgis::batch
