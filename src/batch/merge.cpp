#include "batch/merge.h"

#include <set>

#include "batch/files.h"
#include "batch/input_file.h"
#include "batch/inputs/globs.h"
#include "batch/json.h"
#include "batch/processes.h"
#include "batch/tell/reports.h"
#include "batch/tell/spool.h"
#include "batch/tell/table.h"
#include "batch/utf8.h"
#include "batch/version.h"

namespace vantelgis::batch {

namespace {

constexpr int kUnusable = 2;

int refuse(const std::string& words) {
    writeStandardError("vantelgis-batch: " + words + "\n");
    return kUnusable;
}

// The head of a report, up to its runs; false when it is none.
bool readHead(std::string_view line, Summary& summary) {
    const std::string closed = std::string(line) + "]}";
    JsonReader json(closed);
    std::string name;
    std::string schema;
    std::int64_t version = 0;
    for (bool open = false; json.nextMember(open, name);) {
        if (name == "schema")
            schema = json.text();
        else if (name == "version")
            version = json.integer();
        else if (name == "started")
            summary.started = json.text();
        else if (name == "seconds")
            summary.seconds = json.real();
        else if (name == "command")
            summary.command = json.text();
        else if (name == "shard")
            summary.shard = static_cast<int>(json.integer());
        else if (name == "shards")
            summary.shards = static_cast<int>(json.integer());
        else if (name == "interrupted")
            summary.interrupted = json.boolean();
        else if (name == "inputs")
            summary.inputs = json.integer();
        else
            json.skip();
    }
    return !json.failed() && schema == "vantelgis-batch-report" && version == kSchemaVersion;
}

class Joiner {
  public:
    // What is wrong with a report, in words; empty when it was taken whole.
    std::string take(const std::string& path) {
        InputFile file(path);
        if (!file.isOpen()) return "it can't be read";
        std::string_view line;
        Summary head;
        if (!file.nextLine(line) || !readHead(line, head)) return "it is no report of this program";
        if (shards_ != 0 && head.shards != shards_)
            return "it is of " + std::to_string(head.shards) + " shares, and others are of " +
                   std::to_string(shards_);
        shards_ = head.shards;
        if (!seen_.insert(head.shard).second) return "its share was given before";
        addHead(head);
        while (file.nextLine(line) && line != "]}") {
            if (line.ends_with(',')) line.remove_suffix(1);
            Record record;
            if (!readRecord(line, record)) return "it is damaged";
            if (!spool.add(record)) return "the temporary file can't be written";
        }
        return line == "]}" ? "" : "its end is missing";
    }

    [[nodiscard]] std::string missingShares() const {
        std::string missing;
        for (int shard = 1; shard <= shards_; ++shard)
            if (!seen_.contains(shard))
                missing.append(missing.empty() ? "" : ", ").append(std::to_string(shard));
        return missing;
    }

    Spool spool;

  private:
    void addHead(const Summary& head) {
        Summary& all = spool.summary;
        const bool earlier = all.started.empty() || head.started < all.started;
        if (earlier) {
            all.started = head.started;
            all.command = head.command;
        }
        all.inputs += head.inputs;
        all.seconds = std::max(all.seconds, head.seconds);
        all.interrupted = all.interrupted || head.interrupted;
    }

    int shards_ = 0;
    std::set<int> seen_;
};

std::vector<std::string> namedReports(const std::vector<std::string>& names) {
    std::vector<std::string> reports;
    for (const std::string& name : names) {
        if (statusOf(name).exists() || !isWildcard(name)) {
            reports.push_back(name);
            continue;
        }
        const std::vector<std::string> found = expandWildcard(name);
        reports.insert(reports.end(), found.begin(), found.end());
    }
    return reports;
}

}  // namespace

int mergeReports(const Options& options) {
    Joiner joiner;
    for (const std::string& path : namedReports(options.inputs))
        if (const std::string fault = joiner.take(path); !fault.empty())
            return refuse("the report " + readable(path) + " can't be joined: " + fault);
    printTable(options, joiner.spool);
    const bool written = writeReports(options.reports, joiner.spool);
    const std::string missing = joiner.missingShares();
    if (!missing.empty())
        writeStandardError("vantelgis-batch: the reports of these shares are missing: " + missing +
                           "\n");
    const Summary& summary = joiner.spool.summary;
    const std::int64_t bad = summary.count(Verdict::failed) + summary.count(Verdict::notRun) +
                             (options.strict ? summary.count(Verdict::suspicious) : 0);
    return bad == 0 && missing.empty() && written && summary.done() == summary.inputs ? 0 : 1;
}

}  // namespace vantelgis::batch
