#include "batch/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "batch/completion.h"
#include "batch/help.h"
#include "batch/option_values.h"
#include "batch/plan/plan.h"
#include "batch/processes.h"
#include "batch/tell/output.h"
#include "command_line/nearest_option.h"

namespace vantelgis::batch {

namespace {

constexpr int kUsage = 2;
constexpr int kMostJobs = 1000;

bool refuse(const std::string& words, int& status) {
    writeStandardError("vantelgis-batch: " + words + "\n");
    status = kUsage;
    return false;
}

// What is not a value by itself, as it stands on the command line.
struct Texts {
    std::vector<std::string> pairs;
    std::string shard = "1/1";
    std::string look = "sample";
    std::string to;
    std::string progress = "auto";
    std::string completion;
    bool help = false, helpAll = false, version = false, findings = false;
};

void addInputOptions(CLI::App& app, Options& options, Texts& texts) {
    const std::string group = "Inputs";
    app.add_flag("-r,--recursive", options.recursive, "Take the subfolders of folders as well")
        ->group(group);
    app.add_option("--include", options.include, "Of folders, take only files whose name fits GLOB")
        ->option_text("GLOB")
        ->allow_extra_args(false)
        ->take_all()
        ->group(group);
    app.add_option("--exclude", options.exclude, "Leave out files and subfolders that fit GLOB")
        ->option_text("GLOB")
        ->allow_extra_args(false)
        ->take_all()
        ->group(group);
    app.add_flag("-0,--null", options.zeroBytes,
                 "The list on standard input has zero bytes between names")
        ->group(group);
    app.add_option("--pair", texts.pairs,
                   "Points and lines in two files for -zln, as {stem}_points.shp={stem}_lines.shp")
        ->option_text("POINTS=LINES")
        ->allow_extra_args(false)
        ->take_all()
        ->group(group);
    app.add_option("--shard", texts.shard, "Take the K-th of N equal shares of the inputs")
        ->option_text("K/N")
        ->group(group);
}

void addOutputOptions(CLI::App& app, Options& options, Texts& texts) {
    const std::string group = "Outputs";
    app.add_option("--output-folder", options.outputFolder,
                   "Put the results there, subfolders kept apart; else beside each input")
        ->option_text("DIR")
        ->group(group);
    app.add_option("--name", options.nameTemplate,
                   "Name each result, as {stem}_{ext}.12da; {number} is the input's place")
        ->option_text("TEMPLATE")
        ->group(group);
    app.add_option("--to", texts.to, "gpkg: make a GeoPackage of each archive with vantelgis-gpkg")
        ->option_text("FORMAT")
        ->group(group);
    app.add_flag("--keep", options.keep, "Keep the results of failed runs as NAME.failed-TIME")
        ->group(group);
}

void addRunOptions(CLI::App& app, Options& options, Texts& texts) {
    const std::string looks = "Looking before the run";
    app.add_flag("--check", options.checkOnly, "Look at the inputs and run nothing")->group(looks);
    app.add_option("--look", texts.look,
                   "full: read all of files above 16 MB; else a sample of them")
        ->option_text("HOW")
        ->group(looks);
    app.add_flag("--anyway", options.anyway, "Run inputs in which an error was found as well")
        ->group(looks);
    app.add_flag("--own-projection", options.ownProjection,
                 "Give each layer its own coordinate system in place of Header or Projection")
        ->group(looks);
    const std::string group = "Runs";
    app.add_option("-j,--jobs", options.jobs, "Runs at a time; as many as there are processors")
        ->option_text("N")
        ->group(group);
    app.add_option("--timeout", options.timeout, "Seconds after which a run is ended; 3600")
        ->option_text("SECONDS")
        ->group(group);
    app.add_flag("--strict", options.strict, "Suspicious results count as failed")->group(group);
    app.add_option("--program", options.program,
                   "The converter; else the one beside this program, or in PATH")
        ->option_text("FILE")
        ->group(group);
}

void addTellOptions(CLI::App& app, Options& options, Texts& texts) {
    const std::string group = "Telling";
    app.add_flag("-q,--quiet", options.quiet, "No progress")->group(group);
    app.add_option("--progress", texts.progress,
                   "auto, lines, json (an event a line) or none, on standard error")
        ->option_text("HOW")
        ->group(group);
    app.add_option("--report", options.reports, "Write a report: .html, .json or .csv")
        ->option_text("FILE")
        ->allow_extra_args(false)
        ->take_all()
        ->group(group);
    app.add_option("--log", options.logFolder, "Keep what each run wrote to the console there")
        ->option_text("DIR")
        ->group(group);
    app.add_flag("--dry-run", options.dryRun, "Print the commands and run nothing")->group(group);
    app.add_flag("--list-findings", texts.findings, "Print what a look can find, and the cures")
        ->group(group);
    app.add_option("--completion", texts.completion, "Print the completion for a shell: bash")
        ->option_text("SHELL")
        ->group(group);
    app.add_flag("-h,--help", texts.help, "Print the usual options and examples")->group(group);
    app.add_flag("--help-all", texts.helpAll, "Print all options")->group(group);
    app.add_flag("--version", texts.version, "Print the version")->group(group);
    app.add_flag("--worker", options.worker)->group("");
}

bool takeInputs(const CLI::App& app, Options& options, int& status) {
    for (const std::string& argument : app.remaining()) {
        if (argument.size() > 1 && argument.front() == '-') {
            const std::string nearest = nearestOption(app, argument);
            return refuse("there is no option " + argument +
                              (nearest.empty() ? "; a file of that name is ./" + argument
                                               : "; did you mean " + nearest + "?"),
                          status);
        }
        options.inputs.push_back(argument);
    }
    return true;
}

bool takeTexts(const Texts& texts, Options& options, int& status) {
    if (!takeShard(texts.shard, options))
        return refuse("--shard needs K/N with K from 1 to N, such as 3/10", status);
    for (const std::string& pair : texts.pairs) {
        if (!takePair(pair, options))
            return refuse("--pair needs POINTS=LINES, such as {stem}_points.shp={stem}_lines.shp",
                          status);
    }
    if (!takeProgress(texts.progress, options))
        return refuse("--progress is one of auto, lines, json, none", status);
    if (texts.look != "full" && texts.look != "sample")
        return refuse("--look is full or sample", status);
    options.lookFull = texts.look == "full";
    if (!texts.to.empty() && texts.to != "gpkg") return refuse("--to knows only gpkg", status);
    options.toGeoPackage = !texts.to.empty();
    return true;
}

bool checkValues(const Options& options, int& status) {
    if (options.jobs < 1 || options.jobs > kMostJobs)
        return refuse("-j needs a number from 1 to " + std::to_string(kMostJobs), status);
    if (options.timeout < 1) return refuse("--timeout needs a number of seconds above 0", status);
    for (const std::string& report : options.reports) {
        if (reportKindOf(report) == ReportKind::none)
            return refuse("a report ends in .html, .json or .csv: " + report, status);
    }
    if (const std::string fault = templateFault(options.nameTemplate); !fault.empty())
        return refuse(fault, status);
    if (options.inputs.empty() && options.pairs.empty() && !options.worker)
        return refuse("no input is named; --help shows examples", status);
    if (options.ownProjection && !options.converter.second.empty() && !options.converter.wantZln)
        return refuse("--own-projection and a File 2 behind \"--\" both name the projection",
                      status);
    if (!options.pairs.empty() && !options.converter.wantZln)
        return refuse("--pair is for -zln: put \"-- -zln\" behind the inputs", status);
    return true;
}

// True when one of the options that only print was given.
bool printWanted(const CLI::App& app, const Texts& texts, int& status) {
    status = 0;
    if (texts.help)
        printOut(shortHelp());
    else if (texts.helpAll)
        printOut(longHelp(app.help()));
    else if (texts.version)
        printOut(versionLine());
    else if (texts.findings)
        printOut(findingsTable());
    else if (texts.completion == "bash")
        printOut(bashCompletion(app));
    else if (!texts.completion.empty())
        return !refuse("--completion knows only bash", status);
    else
        return false;
    return true;
}

}  // namespace

bool readOptions(const std::vector<std::string>& arguments, Options& options, int& status) {
    const auto divide = std::find(arguments.begin(), arguments.end(), "--");
    std::vector<std::string> own(arguments.begin(), divide);
    options.merge = !own.empty() && own.front() == "merge";
    if (options.merge) own.erase(own.begin());
    options.jobs = processorCount();

    CLI::App app;
    Texts texts;
    app.set_help_flag();
    app.allow_extras();
    app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    addInputOptions(app, options, texts);
    addOutputOptions(app, options, texts);
    addRunOptions(app, options, texts);
    addTellOptions(app, options, texts);
    try {
        std::reverse(own.begin(), own.end());  // the order in which the parser takes them
        app.parse(own);
    } catch (const CLI::ParseError& error) {
        return refuse(error.what(), status);
    }
    if (printWanted(app, texts, status)) return false;
    const std::vector<std::string> passed(divide == arguments.end() ? divide : divide + 1,
                                          arguments.end());
    if (!takeInputs(app, options, status) || !takeTexts(texts, options, status)) return false;
    options.converter =
        options.toGeoPackage ? packageArguments(passed) : readConverterArguments(passed);
    return checkValues(options, status);
}

}  // namespace vantelgis::batch
