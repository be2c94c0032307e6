#include "batch/worker.h"

#include <algorithm>

#include "batch/files.h"
#include "batch/input_file.h"
#include "batch/json.h"
#include "batch/judge/console_text.h"
#include "batch/judge/verdict.h"
#include "batch/look/look.h"
#include "batch/processes.h"
#include "batch/pulse.h"
#include "batch/run/converter_run.h"
#include "batch/tell/output.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kMostPlanBytes = 24'000;

// What the ticks of a long job tell of.
struct Current {
    std::string_view stage = "look";
    std::string result;  // the file that grows, in the scratch folder
    std::string console;
};
Current current;

void tick() {
    std::string line;
    JsonWriter json(line);
    json.begin('{');
    json.key(kProgressMember).begin('{');
    json.key("stage").text(current.stage);
    if (!current.result.empty()) {
        json.key("bytes").integer(statusOf(current.result).size);
        InputFile console(current.console);
        constexpr std::size_t kTail = 400;
        const std::string_view tail = console.bytesAt(
            std::max<std::int64_t>(0, console.size() - static_cast<std::int64_t>(kTail)), kTail);
        const std::int64_t count = numberBehindLast(tail, "Polyline ");
        if (count > 0) json.key("count").integer(count);
    }
    json.end('}');
    json.end('}');
    sendAnswer(line);
}

void sendNote(const std::string& note) {
    std::string line;
    JsonWriter json(line);
    json.begin('{');
    json.key(kNoteMember).text(note);
    json.end('}');
    sendAnswer(line);
}

bool sendRecord(const Record& record) {
    std::string line;
    JsonWriter json(line);
    json.begin('{');
    json.key(kRecordMember).begin('{');
    writeMembers(record, json, true);
    json.end('}');
    json.end('}');
    return sendAnswer(line);
}

bool sendSections(const Look& look) {
    std::string line;
    JsonWriter json(line);
    json.begin('{');
    json.key(kSectionsMember).begin('[');
    for (const std::string& name : look.sections) json.text(name);
    json.end(']');
    json.end('}');
    return sendAnswer(line);
}

class Worker {
  public:
    explicit Worker(const Options& options) : options_(options) {
        const auto isHtml = [](const std::string& report) {
            return reportKindOf(report) == ReportKind::html;
        };
        wish_.full = options.lookFull;
        wish_.drawing = std::any_of(options.reports.begin(), options.reports.end(), isHtml);
    }

    bool work(Task task, const Job& job) {
        current = {};
        changeFolder(start_);  // the one that relative names are meant from
        const RunPlan plan = planRun(options_, job);
        Look look = lookAt(options_, plan, wish_);
        if (task == Task::sections) return sendSections(look);
        Record record = startRecord(job, plan, look);
        if (look.interrupted) return false;
        const bool runs = record.verdict != Verdict::notRun && task == Task::run;
        if (runs && !runOne(job, plan, look, record)) return false;
        record.plan = look.drawing.text(kMostPlanBytes);
        return sendRecord(record);
    }

  private:
    Record startRecord(const Job& job, const RunPlan& plan, const Look& look) const {
        Record record;
        record.number = job.number;
        record.input = job.input;
        record.second = job.second;
        record.kind = conversionName(plan.conversion);
        if (!plan.result.empty()) record.output = inFolder(plan.targetFolder, plan.result);
        record.findings = look.findings;
        record.notLookedAt = look.notLookedAt;
        record.objects = look.expected.objects;
        record.converted = look.expected.converted;
        record.vertices = look.expected.vertices;
        record.box = look.box;
        record.verdict = Verdict::ready;
        const bool forbidden = look.hasError() && (!options_.anyway || look.neverRun);
        const Level level = forbidden || look.hasError() ? Level::error : Level::warning;
        const auto found =
            std::find_if(look.findings.begin(), look.findings.end(),
                         [level](const Finding& finding) { return finding.level == level; });
        if (found != look.findings.end()) {
            record.reason = found->words;
            record.cure = found->cure;
        }
        if (forbidden) record.verdict = Verdict::notRun;
        return record;
    }

    // False when it was interrupted, and all is as it was before.
    bool runOne(const Job& job, const RunPlan& plan, Look& look, Record& record) {
        std::vector<std::string> notes;
        std::string failure;
        const bool opened = scratch_.open(plan.targetFolder, notes, failure);
        for (const std::string& note : notes) sendNote(note);
        record.reason.clear();
        record.cure.clear();
        if (!opened) {
            record.verdict = Verdict::failed;
            record.reason =
                "No scratch folder can be made in " + plan.targetFolder + ": " + failure;
            return true;
        }
        current = {"run", inFolder(scratch_.runFolder(), plan.result), scratch_.consoleName()};
        const RunOutcome outcome = runConverter(options_, plan, look, scratch_, tick);
        current.stage = "judge";
        if (interruption() != 0) return false;
        judgeRun(plan, look, outcome, scratch_, options_.timeout, record);
        drawCheckLayers(plan, outcome, scratch_, look.drawing);
        if (interruption() != 0) return false;
        keepLog(job, record);
        place(outcome, record);
        return true;
    }

    void keepLog(const Job& job, Record& record) const {
        if (options_.logFolder.empty()) return;
        std::string number = std::to_string(job.number);
        number.insert(0, number.size() < 4 ? 4 - number.size() : 0, '0');
        const std::string name = number + "-" + std::string(namePart(job.input)) + ".log";
        if (!copyConsole(scratch_, inFolder(options_.logFolder, name)))
            sendNote("the log of " + record.input + " can't be written: " + lastFailure());
    }

    [[nodiscard]] bool isGood(const Record& record) const {
        return record.verdict == Verdict::well ||
               (record.verdict == Verdict::suspicious && !options_.strict);
    }

    void place(const RunOutcome& outcome, Record& record) {
        if (isGood(record)) {
            std::string failure;
            const Placed placed = placeAll(outcome, failure);
            if (placed == Placed::all) {
                for (const Move& result : outcome.results)
                    record.files.push_back(inFolder(scratch_.target(), result.to));
                return;
            }
            record.verdict = Verdict::failed;
            record.reason = "The result can't be put in its place: " + failure;
            record.cure = "Close the old result in other programs, or choose another folder.";
            if (placed == Placed::halfway) return leaveHalfway(record);
        }
        if (options_.keep) record.files = keepFailed(scratch_, outcome.results);
    }

    Placed placeAll(const RunOutcome& outcome, std::string& failure) const {
        for (const Move& result : outcome.results) {
            if (result.to.find('/') == std::string::npos) continue;
            if (makeFolders(inFolder(scratch_.target(), folderPart(result.to)))) continue;
            failure = lastFailure();
            return Placed::none;
        }
        return placeResults(scratch_.folder(), scratch_.target(), outcome.results, failure);
    }

    void leaveHalfway(Record& record) {
        record.reason += "; what was there before is kept in " + scratch_.folder();
        record.cure = "Run the batch again: it puts the old results back or finishes the new ones.";
        scratch_.abandon();
    }

    const Options& options_;
    const std::string start_ = absoluteName(".");
    LookWish wish_;
    Scratch scratch_;
};

}  // namespace

int runWorker(const Options& options) {
    watchForInterruption(true);
    setPulse(tick);
    Worker worker(options);
    std::string line;
    while (interruption() == 0 && receiveJob(line)) {
        Task task = Task::run;
        Job job;
        if (!readJobLine(line, task, job) || !worker.work(task, job)) break;
    }
    return 0;
}

}  // namespace vantelgis::batch
