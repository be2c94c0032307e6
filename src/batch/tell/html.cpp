#include <cstdio>

#include "batch/files.h"
#include "batch/tell/output.h"
#include "batch/tell/plan_view.h"
#include "batch/tell/reports.h"
#include "batch/tell/table.h"
#include "batch/utf8.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kMostWithPlans = std::size_t{14} << 20;
constexpr std::size_t kMostBytes = std::size_t{18} << 20;  // a page of 20 MB still opens

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><meta name="viewport" content="width=device-width">
<title>vantelgis-batch</title><style>
body{font:15px/1.4 system-ui,sans-serif;margin:1.5em;color:#222222;background:#fff}
h1{font-size:1.4em}h2{font-size:1.1em}code{overflow-wrap:anywhere}
.tiles span{display:inline-block;padding:.4em .9em;margin:0 .5em .5em 0;border-radius:4px}
details{border-left:6px solid #fff}.well,.ready{border-left:6px solid #2e8b57}
.suspicious{border-left:6px solid #d98e04}.failed,.not-run{border-left:6px solid #c0392b}
.tiles span{background:#f3f3f3}details{border-bottom:1px solid #ddd;padding:.2em .6em}
summary{cursor:pointer;display:grid;gap:.6em;overflow-wrap:anywhere;
grid-template-columns:6em minmax(8em,2fr) minmax(8em,2fr) 8em 5em 5em 5em 3fr}
summary.head{font-weight:600;cursor:default}.n{text-align:right}
ul{margin:.3em 0}.cure{color:#555555}.error{color:#b03024}.warning{color:#855300}
svg.plan{width:640px;max-width:100%;max-height:24em;border:1px solid #ccc;background:#fcfcfa}
path{fill:none;stroke-width:1.5;stroke-linecap:round;stroke-linejoin:round;vector-effect:non-scaling-stroke}
.c{stroke:#1f4e79}.off .c{stroke:#767676}.p{stroke:#8a63c0;stroke-width:4;opacity:.75}
.d{stroke:#d86a00;stroke-width:2.5}.e{stroke:#d00;stroke-width:8}.u{stroke:#c2187f;stroke-width:6}
.legend svg{width:30px;height:10px;margin-right:.4em}.legend span{margin-right:1em;white-space:nowrap}
@media(max-width:1000px){summary{grid-template-columns:6em 1fr 1fr}.n,.k{display:none}.r{grid-column:1/-1}}
</style></head><body>
)";

constexpr std::string_view kTableHead =
    "<details class=\"head\"><summary "
    "class=\"head\"><span>verdict</span><span>input</span><span>output</span>"
    "<span class=\"k\">kind</span><span class=\"n\">objects</span><span "
    "class=\"n\">vertices</span>"
    "<span class=\"n\">seconds</span><span class=\"r\">reason</span></summary></details>\n";

// A cell of the table; its class says what gives way on a narrow page.
std::string cell(std::string_view text, std::string_view kind = {}) {
    std::string html = "<span";
    if (!kind.empty()) html.append(" class=\"").append(kind).append("\"");
    return html.append(">").append(escapedForHtml(text)) + "</span>";
}

std::string className(Verdict verdict) {
    std::string name(verdictName(verdict));
    for (char& c : name)
        if (c == ' ') c = '-';
    return name;
}

std::string headText(const Summary& summary) {
    std::string text = "<h1>" + escapedForHtml(summaryLine(summary)) + "</h1><p class=\"tiles\">";
    for (int i = kVerdicts - 1; i >= 0; --i) {
        const auto verdict = static_cast<Verdict>(i);
        if (summary.count(verdict) == 0) continue;
        text += "<span class=\"" + className(verdict) + "\">" +
                std::to_string(summary.count(verdict)) + " ";
        text.append(verdictName(verdict)).append("</span>");
    }
    text += "</p><p>" + escapedForHtml(summary.started) + " &#183; <code>" +
            escapedForHtml(shortened(readable(summary.command), 400)) + "</code></p>";
    if (summary.interrupted) text += "<p class=\"error\">The batch was interrupted.</p>";
    return text;
}

bool needsEye(const Record& record) {
    return record.verdict >= Verdict::suspicious;
}

std::string rowText(const Record& record) {
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.1f", record.seconds);
    const bool hasOutput = !record.files.empty();
    const std::string second =
        record.second.empty() ? "" : " = " + std::string(namePart(record.second));
    return "<summary>" + cell(verdictName(record.verdict)) + cell(record.input + second) +
           cell(hasOutput ? namePart(record.output) : "-") + cell(record.kind, "k") +
           cell(objectsShown(record), "n") + cell(verticesShown(record), "n") + cell(seconds, "n") +
           cell(record.reason, "r") + "</summary>";
}

std::string findingsText(const Record& record) {
    std::string text;
    const auto item = [&](std::string_view kind, std::string_view words, std::string_view cure) {
        text.append("<li class=\"").append(kind).append("\">").append(escapedForHtml(words));
        if (!cure.empty())
            text.append(" <span class=\"cure\">").append(escapedForHtml(cure)).append("</span>");
        text += "</li>";
    };
    bool told = record.reason.empty();
    for (const Finding& finding : record.findings) {
        item(levelName(finding.level), finding.words, finding.cure);
        told = told || finding.words == record.reason;
    }
    if (!told)
        item(record.verdict == Verdict::failed ? "error" : "warning", record.reason, record.cure);
    for (const auto& [name, value] : record.counts)
        item("note", name + ": " + std::to_string(value), "");
    if (!record.notLookedAt.empty()) item("note", "Not looked at: " + record.notLookedAt, "");
    return text.empty() ? text : "<ul>" + text + "</ul>";
}

}  // namespace

void writeHtml(Spool& spool, ReportFile& out) {
    out.put(kHead);
    out.put(headText(spool.summary));
    std::string runs;
    runs.reserve(kMostBytes);  // growing would hold it twice
    Overview overview;
    std::int64_t left = 0;
    int opened = 10;  // of those that need an eye
    // What needs an eye stands first.
    for (int i = kVerdicts - 1; i >= 0; --i) {
        spool.each(static_cast<Verdict>(i), [&](const Record& record) {
            if (runs.size() + overview.size() > kMostBytes) {
                ++left;
                return true;
            }
            const bool withPlan = runs.size() + overview.size() < kMostWithPlans;
            runs += "<details class=\"" + className(record.verdict) + "\"" +
                    (needsEye(record) && opened-- > 0 ? " open>" : ">") + rowText(record) +
                    findingsText(record);
            if (withPlan) {
                runs += planView(record);
                overview.add(record);
            }
            runs += "</details>\n";
            return true;
        });
    }
    if (const std::string all = overview.view(); !all.empty())
        out.put("<h2>Where they lie</h2>" + all);
    out.put(planLegend());
    out.put(kTableHead);
    out.put(runs);
    if (left > 0)
        out.put("<p>" + std::to_string(left) +
                " more runs are not shown here; a report in .csv or .json has them all.</p>");
    out.put("</body></html>\n");
}

}  // namespace vantelgis::batch
