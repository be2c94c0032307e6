#include "batch/batch.h"

#include <chrono>
#include <ctime>

#include "batch/crew.h"
#include "batch/files.h"
#include "batch/inputs/inputs.h"
#include "batch/merge.h"
#include "batch/options.h"
#include "batch/plan/shared_outputs.h"
#include "batch/processes.h"
#include "batch/tell/output.h"
#include "batch/tell/progress_teller.h"
#include "batch/tell/reports.h"
#include "batch/tell/table.h"
#include "batch/worker.h"

namespace vantelgis::batch {

namespace {

constexpr int kSomeFailed = 1;
constexpr int kNothingDone = 2;
constexpr int kSignalStatus = 128;

int refuse(const std::string& words) {
    writeStandardError("vantelgis-batch: " + words + "\n");
    return kNothingDone;
}

std::string utcNow() {
    const std::time_t now = std::time(nullptr);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&now))};
}

// The converter beside this program, or in PATH.
bool findConverter(Options& options, const std::string& ownProgram) {
    const std::string name = std::string(options.toGeoPackage ? "vantelgis-gpkg" : "vantelgis")
                                 .append(programExtension());
    if (options.program.empty()) {
        options.program = inFolder(folderPart(ownProgram), name);
        if (!statusOf(options.program).isFile()) options.program = findProgram(name);
    } else {
        options.program = findProgram(options.program);
    }
    if (!options.program.empty()) options.program = fullName(options.program);
    return statusOf(options.program).isFile();
}

int statusOf(const Options& options, const Summary& summary) {
    if (interruption() != 0) return kSignalStatus + interruption();
    const std::int64_t bad = summary.count(Verdict::failed) + summary.count(Verdict::notRun) +
                             (options.strict ? summary.count(Verdict::suspicious) : 0);
    return bad > 0 ? kSomeFailed : 0;
}

int printCommands(const Crew& crew) {
    for (std::size_t place = 0; place < crew.inputs.size(); ++place)
        printOut(commandText(crew.options.program, planRun(crew.options, jobOf(crew, place))));
    return 0;
}

// Cross-sections are named by what an archive holds: all archives are looked at before the first
// run.
std::string sharedSections(const Crew& crew, ProgressTeller& teller) {
    if (!crew.options.converter.wantXs || crew.inputs.size() < 2) return {};
    SharedOutputs outputs(crew);
    bool apart = outputs.takeAll();
    findSections(crew, teller, [&](std::size_t place, const std::vector<std::string>& names) {
        apart = apart && outputs.take(place, names);
    });
    return outputs.refusal();
}

int runAll(const Crew& crew, Spool& spool) {
    Summary& summary = spool.summary;
    ProgressTeller teller(crew.options, summary);
    const auto start = std::chrono::steady_clock::now();
    summary.started = utcNow();
    watchForInterruption(false);
    teller.begin();
    if (const std::string refusal = sharedSections(crew, teller); !refusal.empty()) {
        teller.end();
        return refuse(refusal);
    }
    const Task task = crew.options.checkOnly ? Task::check : Task::run;
    const bool kept = workThrough(crew, task, spool, teller);
    summary.interrupted = interruption() != 0;
    summary.seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    teller.end();
    if (!kept)
        writeStandardError("vantelgis-batch: the temporary file of the records can't be written\n");
    printTable(crew.options, spool);
    const bool reported = writeReports(crew.options.reports, spool);
    const int status = statusOf(crew.options, summary);
    return status == 0 && !(kept && reported) ? kSomeFailed : status;
}

int startBatch(Options& options, const std::vector<std::string>& arguments) {
    const std::string own = ownProgram(arguments[0]);
    if (!findConverter(options, own) && !options.checkOnly)
        return refuse("there is no converter: name it with --program" +
                      (options.program.empty() ? "" : "; " + options.program + " is none"));
    Inputs inputs = collectInputs(options);
    if (!inputs.refusal.empty()) return refuse(inputs.refusal);
    if (!options.quiet)
        for (const std::string& note : inputs.notes)
            writeStandardError("vantelgis-batch: " + note + "\n");
    if (inputs.items.empty()) return refuse("no input was found");
    std::vector<std::string> forWorkers{"--worker"};
    forWorkers.insert(forWorkers.end(), arguments.begin() + 1, arguments.end());
    const Crew all{options, forWorkers, inputs.items, own};
    if (SharedOutputs outputs(all); !outputs.takeAll()) return refuse(outputs.refusal());
    takeShard(options.shard, options.shards, inputs.items);
    if (options.dryRun) return printCommands(all);
    if (!options.logFolder.empty() && !makeFolders(options.logFolder))
        return refuse("the folder " + options.logFolder + " can't be made: " + lastFailure());
    Spool spool;
    spool.summary.inputs = static_cast<std::int64_t>(inputs.items.size());
    spool.summary.shard = options.shard;
    spool.summary.shards = options.shards;
    for (const std::string& argument : arguments)
        spool.summary.command.append(spool.summary.command.empty() ? "" : " ").append(argument);
    return runAll(all, spool);
}

}  // namespace

int runBatch(const std::vector<std::string>& arguments) {
    if (arguments.empty()) return refuse("an argument is no text");
    Options options;
    int status = 0;
    if (!readOptions({arguments.begin() + 1, arguments.end()}, options, status)) return status;
    options.outputFolder = fullName(options.outputFolder);
    options.logFolder = fullName(options.logFolder);
    if (options.worker) {
        findConverter(options, ownProgram(arguments[0]));
        return runWorker(options);
    }
    return options.merge ? mergeReports(options) : startBatch(options, arguments);
}

}  // namespace vantelgis::batch
