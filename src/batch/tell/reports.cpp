#include "batch/tell/reports.h"

#include <algorithm>
#include <cstdio>

#include "batch/files.h"
#include "batch/processes.h"
#include "batch/tell/output.h"
#include "batch/utf8.h"
#include "batch/version.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kBlock = 65536;

std::string quotedForCsv(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += c;
        quoted += c;
    }
    return quoted += '"';
}

}  // namespace

ReportFile::ReportFile(std::string path)
    : path_(std::move(path)),
      draft_(path_ + ".draft-" + std::to_string(processNumber())),
      file_(openConsoleFile(draft_)) {
    failed_ = file_ == vantelgis::platform::kNoFile;
}

ReportFile::~ReportFile() {
    if (file_ == vantelgis::platform::kNoFile) return;
    static_cast<void>(vantelgis::platform::closeFile(file_));
    removeFile(draft_);
}

void ReportFile::put(std::string_view text) {
    size_ += text.size();
    while (!text.empty()) {
        const std::size_t part = std::min(text.size(), kBlock);
        waiting_.append(text.substr(0, part));
        text.remove_prefix(part);
        if (waiting_.size() < kBlock) continue;
        if (!failed_)
            failed_ = !vantelgis::platform::writeFile(file_, waiting_.data(), waiting_.size());
        waiting_.clear();
    }
}

bool ReportFile::finish() {
    if (failed_ || !vantelgis::platform::writeFile(file_, waiting_.data(), waiting_.size()))
        return false;
    const bool closed = vantelgis::platform::closeFile(file_);
    file_ = vantelgis::platform::kNoFile;
    if (closed && syncFile(draft_) && renameFile(draft_, path_)) return true;
    removeFile(draft_);
    return false;
}

void writeSummary(const Summary& summary, JsonWriter& json) {
    json.key("schema").text("vantelgis-batch-report");
    json.key("version").integer(kSchemaVersion);
    json.key("program").text(kVersion);
    json.key("started").text(summary.started);
    json.key("seconds").real(summary.seconds);
    json.key("command").text(summary.command);
    json.key("shard").integer(summary.shard);
    json.key("shards").integer(summary.shards);
    json.key("interrupted").boolean(summary.interrupted);
    json.key("inputs").integer(summary.inputs);
    for (int i = 0; i < kVerdicts; ++i)
        json.key(verdictName(static_cast<Verdict>(i)))
            .integer(summary.verdicts[static_cast<std::size_t>(i)]);
}

// Each run stands on a line of its own, so that a report of any size can be read line by line.
void writeJson(Spool& spool, ReportFile& out) {
    std::string head;
    JsonWriter json(head);
    json.begin('{');
    writeSummary(spool.summary, json);
    json.key("runs").begin('[');
    out.put(head);
    std::string_view before = "\n";
    spool.each([&](const Record& record) {
        out.put(before);
        out.put(recordLine(record, false));
        before = ",\n";
        return true;
    });
    out.put("\n]}\n");
}

void writeCsv(Spool& spool, ReportFile& out) {
    out.put(
        "number,input,second,output,kind,objects,converted,vertices,seconds,verdict,reason,cure,"
        "findings\r\n");
    spool.each([&](const Record& record) {
        std::string names;
        for (const Finding& finding : record.findings)
            names.append(names.empty() ? "" : " ").append(finding.name);
        const std::string& allNames = names;
        char seconds[32];
        std::snprintf(seconds, sizeof seconds, "%.3f", record.seconds);
        std::string row = std::to_string(record.number);
        for (const std::string* const text :
             {&record.input, &record.second, &record.output, &record.kind})
            row.append(",").append(quotedForCsv(*text));
        for (const std::int64_t number : {record.objects, record.converted, record.vertices})
            row.append(",").append(std::to_string(number));
        row.append(",").append(seconds).append(",").append(verdictName(record.verdict));
        for (const std::string* const text : {&record.reason, &record.cure, &allNames})
            row.append(",").append(quotedForCsv(*text));
        out.put(row += "\r\n");
        return true;
    });
}

bool writeReports(const std::vector<std::string>& files, Spool& spool) {
    bool written = true;
    for (const std::string& file : files) {
        ReportFile out(file);
        switch (reportKindOf(file)) {
            case ReportKind::csv: writeCsv(spool, out); break;
            case ReportKind::json: writeJson(spool, out); break;
            default: writeHtml(spool, out); break;
        }
        if (out.finish()) continue;
        writeStandardError("vantelgis-batch: the report " + readable(file) +
                           " can't be written: " + lastFailure() + "\n");
        written = false;
    }
    return written;
}

}  // namespace vantelgis::batch
