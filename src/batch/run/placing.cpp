#include "batch/run/placing.h"

#include <algorithm>

#include "batch/files.h"
#include "batch/json.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kMostJournal = std::size_t{64} << 20;

// One file on its way.
struct Step {
    std::string from;  // absolute, as all names here
    std::string to;
    std::string backup;  // a second name of what was there before
};

std::vector<Step> stepsOf(const std::string& scratch, const std::string& target,
                          const std::vector<Move>& moves) {
    std::vector<Step> steps;
    for (const Move& move : moves) {
        Step step{inFolder(scratch, move.from), behindLinks(inFolder(target, move.to)), {}};
        step.backup = inFolder(scratch, "before." + std::to_string(steps.size()));
        steps.push_back(std::move(step));
    }
    return steps;
}

std::string journalName(const std::string& scratch) {
    return inFolder(scratch, "journal");
}

// The journal is there whole, by its last rename, or not at all.
bool writeJournal(const std::string& scratch, const std::vector<Move>& moves, bool durable) {
    std::string text;
    JsonWriter json(text);
    json.begin('[');
    for (const Move& move : moves) {
        json.text(move.from);
        json.text(move.to);
    }
    json.end(']');
    const std::string draft = inFolder(scratch, "journal.draft");
    return writeWholeFile(draft, text) && (!durable || syncFile(draft)) &&
           renameFile(draft, journalName(scratch)) && (!durable || syncFolder(scratch));
}

bool readJournal(const std::string& scratch, std::vector<Move>& moves) {
    const auto text = readWholeFile(journalName(scratch), kMostJournal);
    if (!text) return false;
    JsonReader json(*text);
    for (bool open = false; json.nextItem(open);) {
        Move move;
        move.from = json.text();
        if (!json.nextItem(open)) return false;
        move.to = json.text();
        moves.push_back(std::move(move));
    }
    return !json.failed();
}

// The old file keeps a second name for as long as the set is on its way.
bool keepOld(const Step& step) {
    if (!statusOf(step.to).exists() || statusOf(step.backup).exists()) return true;
    return linkSecondName(step.to, step.backup) || renameFile(step.to, step.backup);
}

// Does what is left to be done of each step.
bool finish(const std::vector<Step>& steps) {
    return std::all_of(steps.begin(), steps.end(), [](const Step& step) {
        if (!statusOf(step.from).exists()) return true;  // done before
        return keepOld(step) && renameFile(step.from, step.to);
    });
}

// Backwards: the new file goes back where it was, the old one takes its place again.
bool undo(const std::vector<Step>& steps) {
    bool undone = true;
    // Clang 14 has no view that goes backwards. NOLINTNEXTLINE(modernize-loop-convert)
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        const bool moved = !statusOf(step->from).exists();
        const bool hadOld = statusOf(step->backup).exists();
        if (moved && !hadOld && !renameFile(step->to, step->from)) undone = false;
        if (moved && hadOld && !linkSecondName(step->to, step->from))
            renameFile(step->to, step->from);  // where there are no second names
        if (hadOld && !renameFile(step->backup, step->to)) undone = false;
    }
    return undone;
}

void forget(const std::string& scratch, const std::vector<Step>& steps) {
    removeFile(journalName(scratch));
    for (const Step& step : steps) removeFile(step.backup);
}

Placed finishOrUndo(const std::string& scratch, const std::vector<Step>& steps,
                    std::string& failure) {
    const bool finished = finish(steps);
    if (!finished) {
        failure = lastFailure();
        if (!undo(steps)) return Placed::halfway;
    }
    forget(scratch, steps);
    return finished ? Placed::all : Placed::none;
}

bool makeReady(const std::vector<Step>& steps, bool& replaces) {
    for (const Step& step : steps) {
        if (statusOf(step.backup).exists() && !removeFile(step.backup)) return false;
        if (!statusOf(step.to).exists()) continue;
        replaces = true;
        copyPermissions(step.to, step.from);
    }
    // What takes the place of an old result is on the disk before it does.
    return !replaces || std::all_of(steps.begin(), steps.end(),
                                    [](const Step& step) { return syncFile(step.from); });
}

}  // namespace

Placed placeResults(const std::string& scratch, const std::string& target,
                    const std::vector<Move>& moves, std::string& failure) {
    const std::vector<Step> steps = stepsOf(scratch, target, moves);
    bool replaces = false;
    const bool ready = makeReady(steps, replaces);
    if (ready && steps.size() == 1) {
        if (renameFile(steps[0].from, steps[0].to)) return Placed::all;
    } else if (ready && writeJournal(scratch, moves, replaces)) {
        const Placed placed = finishOrUndo(scratch, steps, failure);
        if (placed == Placed::all && replaces) static_cast<void>(syncFolder(target));
        return placed;
    }
    failure = lastFailure();
    return Placed::none;
}

Placed recoverPlacing(const std::string& scratch, const std::string& target) {
    if (!statusOf(journalName(scratch)).exists()) return Placed::all;
    std::vector<Move> moves;
    if (!readJournal(scratch, moves)) return Placed::halfway;
    std::string failure;
    return finishOrUndo(scratch, stepsOf(scratch, target, moves), failure);
}

}  // namespace vantelgis::batch
