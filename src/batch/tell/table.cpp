#include "batch/tell/table.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "batch/files.h"
#include "batch/processes.h"
#include "batch/tell/output.h"
#include "batch/utf8.h"

namespace vantelgis::batch {

namespace {

enum Column { input, output, kind, objects, vertices, seconds, verdict, reason };
constexpr std::size_t kColumns = 8;
constexpr std::string_view kHeads[kColumns] = {"input",    "output",  "kind",    "objects",
                                               "vertices", "seconds", "verdict", "reason"};
constexpr std::string_view kVerdictColours[] = {"", "\x1B[32m", "\x1B[33m", "\x1B[31m", "\x1B[31m"};
constexpr std::string_view kPlain = "\x1B[0m";

using Row = std::array<std::string, kColumns>;
using Widths = std::array<std::size_t, kColumns>;

bool isNumber(std::size_t column) {
    return column == objects || column == vertices || column == seconds;
}

Row rowOfRecord(const Record& record) {
    char time[32];
    std::snprintf(time, sizeof time, "%.1f", record.seconds);
    const std::string second =
        record.second.empty() ? "" : " = " + std::string(namePart(record.second));
    const bool hasOutput = record.verdict == Verdict::well || record.verdict == Verdict::suspicious;
    return {readable(record.input + second),
            hasOutput ? readable(namePart(record.output)) : "-",
            record.kind,
            objectsShown(record),
            verticesShown(record),
            time,
            std::string(verdictName(record.verdict)),
            readable(record.reason)};
}

void widen(const Row& row, Widths& widths) {
    for (std::size_t column = 0; column < kColumns; ++column)
        widths[column] = std::max(widths[column], columnsOf(row[column]));
}

// At a terminal the names, then the reasons, give way.
void fitTo(std::size_t width, Widths& widths) {
    constexpr std::size_t kLeast = 12;
    constexpr std::size_t kLeastReason = 24;
    const auto total = [&] {
        std::size_t sum = 2 * (kColumns - 1);
        for (const std::size_t column : widths) sum += column;
        return sum;
    };
    widths[reason] = std::min(widths[reason], std::max(kLeastReason, width / 3));
    for (const Column column : {input, output, kind}) {
        const std::size_t all = total();
        if (all > width)
            widths[column] = std::max(std::min(kLeast, widths[column]),
                                      widths[column] - std::min(widths[column], all - width));
    }
    if (const std::size_t all = total(); all > width)
        widths[reason] -= std::min(widths[reason], all - width);
}

std::string rowText(const Row& row, const Widths& widths, std::string_view colour) {
    std::string text;
    for (std::size_t column = 0; column < kColumns; ++column) {
        const std::string cell = shortened(row[column], widths[column]);
        const std::string blanks(widths[column] - std::min(widths[column], columnsOf(cell)), ' ');
        const bool coloured = column == verdict && !colour.empty();
        if (coloured) text += colour;
        text += isNumber(column) ? blanks + cell : column + 1 < kColumns ? cell + blanks : cell;
        if (coloured) text += kPlain;
        if (column + 1 < kColumns) text += "  ";
    }
    while (text.ends_with(' ')) text.pop_back();
    return text += '\n';
}

void printWhatToDo(const Record& record) {
    std::string text = "\n" + readable(record.input) + "\n";
    const auto add = [&](std::string_view level, std::string_view words, std::string_view cure) {
        text.append("  ").append(level).append(": ").append(readable(words)) += '\n';
        if (!cure.empty()) text.append("    ").append(readable(cure)) += '\n';
    };
    const auto same = [&](const Finding& finding) { return finding.words == record.reason; };
    if (!record.reason.empty() &&
        std::none_of(record.findings.begin(), record.findings.end(), same))
        add(verdictName(record.verdict), record.reason, record.cure);
    for (const Finding& finding : record.findings)
        add(levelName(finding.level), finding.words, finding.cure);
    for (const auto& [name, value] : record.counts)
        text.append("  ").append(name).append(": ").append(std::to_string(value)) += '\n';
    if (!record.notLookedAt.empty())
        text.append("  not looked at: ").append(readable(record.notLookedAt)) += '\n';
    printOut(text);
}

// That a result was there before is worth a word only until it is replaced.
bool needsWords(const Record& record) {
    if (record.verdict != Verdict::well) return !record.findings.empty() || !record.reason.empty();
    return !record.notLookedAt.empty() ||
           std::any_of(record.findings.begin(), record.findings.end(), [](const Finding& finding) {
               return !finding.name.starts_with("result-is-");
           });
}

}  // namespace

std::string summaryLine(const Summary& summary) {
    std::string text =
        std::to_string(summary.inputs) + (summary.inputs == 1 ? " input" : " inputs");
    std::string_view before = ": ";
    for (int i = 0; i < kVerdicts; ++i) {
        const auto which = static_cast<Verdict>(i);
        if (summary.count(which) == 0) continue;
        text.append(before)
            .append(std::to_string(summary.count(which)))
            .append(" ")
            .append(verdictName(which));
        before = ", ";
    }
    const std::int64_t missing = summary.inputs - summary.done();
    if (missing > 0) text.append(before).append(std::to_string(missing)).append(" not reached");
    return text;
}

void printTable(const Options& /*options*/, Spool& spool) {
    Widths widths{};
    Row heads;
    std::copy(std::begin(kHeads), std::end(kHeads), heads.begin());
    widen(heads, widths);
    spool.each([&](const Record& record) {
        widen(rowOfRecord(record), widths);
        return true;
    });
    if (outputIsTerminal()) fitTo(static_cast<std::size_t>(terminalWidth()), widths);
    const bool colours = outputHasColours();
    if (spool.summary.done() > 0) printOut(rowText(heads, widths, {}));
    spool.each([&](const Record& record) {
        const auto colour = colours ? kVerdictColours[static_cast<std::size_t>(record.verdict)]
                                    : std::string_view{};
        printOut(rowText(rowOfRecord(record), widths, colour));
        return true;
    });
    spool.each([&](const Record& record) {
        if (needsWords(record)) printWhatToDo(record);
        return true;
    });
    printOut("\n" + summaryLine(spool.summary) + "\n");
}

}  // namespace vantelgis::batch
