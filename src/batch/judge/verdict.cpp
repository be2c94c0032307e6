#include "batch/judge/verdict.h"

#include <algorithm>

#include "batch/files.h"
#include "batch/judge/console_text.h"
#include "batch/judge/results.h"
#include "batch/messages.h"
#include "batch/utf8.h"

namespace vantelgis::batch {

namespace {

constexpr int kSignalStatus = 128;
constexpr std::string_view kBadStart = "WARNING - Problems finding start of data";

// What a run is judged by.
struct Case {
    const RunPlan& plan;
    const Look& look;
    const RunOutcome& outcome;
    const Scratch& scratch;
    Record& record;
    ConsoleText console;
    ResultFacts facts;
    std::int64_t dangles = 0;
    std::int64_t unsnapped = 0;
};

void fail(Record& record, std::string reason, std::string cure) {
    record.verdict = Verdict::failed;
    record.reason = std::move(reason);
    record.cure = std::move(cure);
}

std::string nameWithExtension(std::string_view name, std::string_view ending) {
    return std::string(stemPart(name)).append(ending);
}

// The files of a layer by its main name, which for a shapefile lacks the letter of its family.
ResultFacts readLayer(const Case& run, std::string_view name, std::string_view family) {
    const auto place = [&](const std::string& file) {
        return resultInScratch(run.outcome, run.scratch, file);
    };
    if (inputKindOf(name) == InputKind::mif)
        return readMifResult(place(nameWithExtension(name, ".mif")),
                             place(nameWithExtension(name, ".mid")));
    const std::string stem = nameWithExtension(name, "_").append(family);
    return readShpResult(place(stem + ".shp"), place(stem + ".shx"), place(stem + ".dbf"));
}

void readLayers(Case& run, std::string_view pointLayer) {
    const std::string_view result = run.plan.result;
    run.facts = readLayer(run, result, "L");
    const bool ownPoints = !pointLayer.empty() || inputKindOf(result) == InputKind::shp;
    if (ownPoints) run.facts.add(readLayer(run, pointLayer.empty() ? result : pointLayer, "P"));
}

void readSections(Case& run) {
    const bool mif = inputKindOf(run.plan.result) == InputKind::mif;
    readLayers(run, mif ? nameWithExtension(run.plan.result, "_Pts.mif") : "");
    for (const Move& result : run.outcome.results) {
        if (nameKey(extensionPart(result.to)) != ".csv" && extensionPart(result.to) != ".CSV")
            continue;
        ResultFacts section = readSectionResult(inFolder(run.scratch.folder(), result.from));
        section.vertices = 0;
        run.facts.add(section);
    }
}

void readCheckLayers(Case& run) {
    for (const std::string& file : resultFiles(run.plan)) {
        const InputKind kind = inputKindOf(file);
        if (kind != InputKind::mif && kind != InputKind::shp) continue;
        const bool dangles = file.find("_dangles") != std::string::npos;
        const std::string_view stem = stemPart(file);
        const std::string main = kind == InputKind::mif
                                     ? file
                                     : std::string(stem.substr(0, stem.size() - 2)).append(".shp");
        const ResultFacts facts = readLayer(run, main, dangles ? "L" : "P");
        (dangles ? run.dangles : run.unsnapped) = facts.strings + facts.points;
        if (run.facts.fault.empty()) run.facts.fault = facts.fault;
    }
}

void readResults(Case& run) {
    const Conversion conversion = run.plan.conversion;
    if (conversion == Conversion::strings) return readLayers(run, "");
    if (conversion == Conversion::sections) return readSections(run);
    if (conversion == Conversion::geoPackage) {
        run.facts.strings = run.console.converted;
        run.facts.points = run.console.shownPoints;
        const bool there =
            statusOf(resultInScratch(run.outcome, run.scratch, run.plan.result)).size > 0;
        if (!there) run.facts.fault = "it left no package";
        return;
    }
    run.facts = readArchiveResult(resultInScratch(run.outcome, run.scratch, run.plan.result),
                                  conversion == Conversion::results);
    if (conversion == Conversion::breaklines3d) readCheckLayers(run);
}

// A difference between what there was to convert and what came out, in words; empty when there is
// none.
std::string difference(const Case& run) {
    const Expected& expected = run.look.expected;
    const auto differs = [](std::string_view what, std::int64_t have, std::int64_t want) {
        return have == want ? std::string()
                            : "the result has " + grouped(have) + " " + std::string(what) +
                                  " where there should be " + grouped(want);
    };
    const ConsoleText& console = run.console;
    std::string words;
    if (run.plan.conversion == Conversion::geoPackage) return words;
    if (run.plan.conversion == Conversion::strings || run.plan.conversion == Conversion::sections) {
        if (!run.look.whole) return words;
        words = differs("strings", console.converted, expected.converted);
        const bool sections = run.plan.conversion == Conversion::sections;
        if (words.empty())
            words =
                differs("lines", run.facts.strings, sections ? expected.converted : expected.lines);
        if (words.empty() && !sections)
            words = differs("points", run.facts.points, expected.points);
        return words;
    }
    const bool results = run.plan.conversion == Conversion::results;
    const std::int64_t said =
        results ? console.shownPoints : std::max<std::int64_t>(0, console.polylines);
    const std::string_view what = results ? "points" : "strings";
    words = differs(what, run.facts.strings, said);
    if (words.empty() && run.look.whole)
        words = differs(what, run.facts.strings, expected.converted);
    return words;
}

// A full disk has no room for the console's last words either.
bool failedByFullDisk(const Case& run) {
    constexpr std::int64_t kNoRoom = 65536;
    const std::int64_t room = freeSpace(run.scratch.target());
    if (room < 0 || room > kNoRoom || !run.console.error.empty()) return false;
    fail(run.record, "There is no room left on the disk of " + run.scratch.target() + ".",
         std::string(rowOf(Find::noRoom).cure));
    return true;
}

bool failedByConsole(Case& run, std::int64_t timeout) {
    const ProcessEnd& end = run.outcome.end;
    const ConsoleText& console = run.console;
    const auto badStart =
        std::find_if(console.warnings.begin(), console.warnings.end(),
                     [](const std::string& line) { return line.starts_with(kBadStart); });
    if (!run.outcome.failure.empty()) {
        fail(run.record, run.outcome.failure, "");
    } else if (end.timedOut) {
        fail(run.record, "It took longer than " + counted(timeout, "second") + " and was ended.",
             "Give it more time with --timeout.");
    } else if (end.status >= kSignalStatus) {
        fail(
            run.record,
            "The converter was ended by signal " + std::to_string(end.status - kSignalStatus) + ".",
            "Run it again; if it happens again, send the input to support.");
    } else if (badStart != console.warnings.end()) {
        fail(run.record, *badStart, helpForMessage(*badStart).cure + ".");
    } else if (!console.finished || end.status != 0) {
        if (failedByFullDisk(run)) return true;
        const std::string& line = console.error.empty() ? console.lastLine : console.error;
        const MessageHelp help = helpForMessage(line);
        fail(run.record, line.empty() ? "The converter said nothing." : readable(line),
             help.cure.empty() ? "" : help.cure + ".");
    } else {
        return false;
    }
    return true;
}

void takeCounts(Case& run) {
    Record& record = run.record;
    const Conversion conversion = run.plan.conversion;
    const bool fromArchive = conversion >= Conversion::strings;
    record.converted =
        fromArchive ? std::max<std::int64_t>(0, run.console.converted) : run.facts.strings;
    if (run.facts.vertices > 0) record.vertices = run.facts.vertices;
    record.addCount("lines with a number of asterisks", run.facts.asterisks);
    record.addCount("lines with numbers that touch", run.facts.touching);
    record.addCount("warnings", run.console.warningCount);
    record.addCount("lines without a snapped point", run.console.flatLines);
    record.addCount("dangling lines", run.dangles);
    record.addCount("unsnapped points", run.unsnapped);
}

// The first thing that makes the result doubtful, in words; empty when there is none.
std::string doubt(const Case& run, std::string& cure) {
    if (run.facts.empty()) {
        cure = "Look whether it is the right layer, and the right conversion.";
        return "The result is empty.";
    }
    if (run.facts.asterisks + run.facts.touching > 0) {
        cure = rowOf(Find::outsideColumns).cure;
        return counted(run.facts.asterisks + run.facts.touching, "line") +
               " of the result with numbers too long for their columns.";
    }
    const auto found = std::find_if(
        run.look.findings.begin(), run.look.findings.end(), [](const Finding& finding) {
            return finding.level != Level::note || rowNamed(finding.name).doubt == Doubt::yes;
        });
    if (found != run.look.findings.end()) {
        cure = found->cure;
        return found->words;
    }
    if (run.dangles + run.unsnapped > 0) {
        cure = "Look at the check layers _dangles and _unsnapped_points beside the result.";
        return counted(run.dangles, "dangling line") + ", and " + counted(run.unsnapped, "point") +
               " that no line took.";
    }
    if (run.console.flatLines > 0) {
        cure = "Look whether the points belong to these lines.";
        return counted(run.console.flatLines, "line") +
               " found no point to take an elevation from.";
    }
    if (run.console.warnings.empty()) return {};
    cure = helpForMessage(run.console.warnings.front()).cure;
    return run.console.warnings.front();
}

}  // namespace

std::string resultInScratch(const RunOutcome& outcome, const Scratch& scratch,
                            std::string_view name) {
    const auto found =
        std::find_if(outcome.results.begin(), outcome.results.end(),
                     [name](const Move& result) { return nameKey(result.to) == nameKey(name); });
    return inFolder(scratch.folder(), found == outcome.results.end() ? name : found->from);
}

void judgeRun(const RunPlan& plan, const Look& look, const RunOutcome& outcome,
              const Scratch& scratch, std::int64_t timeout, Record& record) {
    Case run{plan, look, outcome, scratch, record, {}, {}};
    const bool package = plan.conversion == Conversion::geoPackage;
    run.console =
        package ? readPackageConsole(scratch.consoleName()) : readConsole(scratch.consoleName());
    record.seconds = outcome.seconds;
    record.exitStatus = outcome.end.status;
    if (failedByConsole(run, timeout)) return;
    readResults(run);
    takeCounts(run);
    if (const std::string words = run.facts.fault.empty() ? difference(run) : run.facts.fault;
        !words.empty())
        return fail(record, "Though the converter finished, " + words + ".",
                    "Run it again; then send the input to support.");
    record.reason = doubt(run, record.cure);
    record.verdict = record.reason.empty() ? Verdict::well : Verdict::suspicious;
}

}  // namespace vantelgis::batch
