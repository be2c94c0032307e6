#include "gpkg/options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <iterator>

#include "command_line/nearest_option.h"
#include "gpkg/help.h"
#include "gpkg/report.h"
#include "run/platform.h"
#include "text/characters.h"
#include "text/joined.h"
#include "text/paths.h"

namespace vantelgis::gpkg {

namespace {

constexpr int kWrongUsage = 2;

// What can be wrong with a command line; caught in readCommandLine.
struct UsageFault {
    std::string text;
};

template <typename... Parts>
[[noreturn]] void refuse(const Parts&... parts) {
    throw UsageFault{joined(parts...)};
}

// What the command line says before it is understood.
struct RawOptions {
    std::string encoding = "auto";
    std::string nullZ;
    std::vector<std::string> fields;
    bool help = false;
    bool version = false;
};

constexpr const char* kPackageOptions[] = {"--append", "--replace", "--crs",  "--vertices",
                                           "--hip",    "--null-z",  "--check"};
constexpr const char* kArchiveOptions[] = {"--layer", "--field", "--where",  "--sort",
                                           "--model", "--prj",   "--degrees"};

void describe(CLI::App& app, Options& options, RawOptions& raw) {
    app.set_help_flag();
    app.add_option("files", options.inputs);
    app.add_option("-o,--out", options.output);
    app.add_option("--encoding", raw.encoding);
    app.add_flag("-q,--quiet", options.quiet);
    app.add_flag("-h,--help", raw.help);
    app.add_flag("--version", raw.version);
    app.add_flag("--append", options.append);
    app.add_flag("--replace", options.replace);
    app.add_flag("--vertices", options.vertices);
    app.add_flag("--hip", options.hip);
    app.add_flag("--check", options.check);
    app.add_option("--null-z", raw.nullZ);
    app.add_option("--crs", options.crs);
    app.add_option("--layer", options.layers)->allow_extra_args(false);
    app.add_option("--field", raw.fields)->allow_extra_args(false);
    app.add_option("--where", options.where);
    app.add_option("--sort", options.sortField);
    app.add_option("--model", options.model);
    app.add_flag("--degrees", options.degrees);
    app.add_flag("--prj", options.prj);
}

std::string withNearest(const CLI::App& app, const std::string& wrong) {
    const std::string nearest = nearestOption(app, wrong);
    if (nearest.empty()) return joined("there is no option ", wrong);
    return joined("there is no option ", wrong, "; did you mean ", nearest, "?");
}

void parse(CLI::App& app, std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::ExtrasError&) {
        refuse(withNearest(app, app.remaining().front()));
    } catch (const CLI::ParseError& error) {
        refuse(error.what());
    }
}

void takeFields(const std::vector<std::string>& texts, Options& options) {
    constexpr std::string_view kAttributes[] = {"name",      "model",    "colour", "style",
                                                "breakline", "chainage", "z",      "type"};
    for (const std::string& text : texts) {
        const std::size_t equals = text.find('=');
        const std::string attribute = text.substr(0, equals);
        const auto* const known =
            std::find_if(std::begin(kAttributes), std::end(kAttributes),
                         [&](std::string_view each) { return sameIgnoringCase(each, attribute); });
        if (equals == std::string::npos || known == std::end(kAttributes))
            refuse(
                "--field wants an attribute and the name of its field, such as name=ROADNAME; \"",
                text,
                "\" isn't that (attributes are name, model, colour, style, breakline, "
                "chainage, z, type)");
        options.fields.push_back({std::string(*known), text.substr(equals + 1)});
    }
}

void takeNullZ(const std::string& text, Options& options) {
    if (text.empty()) return;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(number))
        refuse("--null-z wants a number, not \"", text, "\"");
    options.nullZ = number;
}

bool isArchiveName(std::string_view name) {
    return hasExtension(name, ".12da") || hasExtension(name, ".4da");
}

bool isPackageName(std::string_view name) {
    return hasExtension(name, ".gpkg");
}

// Names behind a package can only be further names of --layer.
void moveLayerNames(Options& options) {
    if (options.layers.empty() || options.inputs.empty() || !isPackageName(options.inputs.front()))
        return;
    options.layers.insert(options.layers.end(), options.inputs.begin() + 1, options.inputs.end());
    options.inputs.resize(1);
}

void refuseOthers(const CLI::App& app, Direction direction) {
    const bool toPackage = direction == Direction::toPackage;
    for (const char* const name : kPackageOptions)
        if (!toPackage && app.count(name) > 0)
            refuse(name, " has a meaning only where an archive becomes a package");
    for (const char* const name : kArchiveOptions)
        if (toPackage && app.count(name) > 0)
            refuse(name, " has a meaning only where a package becomes an archive");
}

void checkFiles(const CLI::App& app, const Options& options) {
    if (options.inputs.empty()) refuse("no file is named");
    for (const std::string& input : options.inputs)
        if (!isArchiveName(input) && !isPackageName(input))
            refuse(input, " is neither an archive (.12da, .4da) nor a package (.gpkg)");
    const Direction direction = directionOf(options);
    const bool toPackage = direction == Direction::toPackage;
    for (const std::string& input : options.inputs)
        if (isArchiveName(input) != toPackage) refuse("archives and packages are named together");
    if (!toPackage && options.inputs.size() > 1)
        refuse("one package at a time; further layers are named with --layer");
    if (toPackage && options.inputs.size() > 1 && options.output.empty())
        refuse("name the package of several archives with --out");
    if (toPackage ? isArchiveName(options.output) : isPackageName(options.output))
        refuse(options.output, " is the name of an input's kind; --out names the result");
    if (options.append && options.replace) refuse("--append and --replace exclude each other");
    refuseOthers(app, direction);
}

}  // namespace

Direction directionOf(const Options& options) {
    return isPackageName(options.inputs.front()) ? Direction::toArchive : Direction::toPackage;
}

std::optional<int> readCommandLine(std::vector<std::string> arguments, Options& options) {
    CLI::App app;
    RawOptions raw;
    describe(app, options, raw);
    try {
        parse(app, std::move(arguments));
        if (raw.help || raw.version) {
            const std::string_view text =
                raw.help ? kHelp : "vantelgis-gpkg " VANTELGIS_VERSION "\n";
            vantelgis::platform::writeStandardOutput(text.data(), text.size());
            return 0;
        }
        if (!encodingFromName(raw.encoding, options.encoding))
            refuse("--encoding knows auto, utf-8, windows-1252, utf-16le and utf-16be, not \"",
                   raw.encoding, "\"");
        takeNullZ(raw.nullZ, options);
        takeFields(raw.fields, options);
        moveLayerNames(options);
        checkFiles(app, options);
    } catch (const UsageFault& fault) {
        reportFailure(fault.text + " (--help shows how it goes)");
        return kWrongUsage;
    }
    return std::nullopt;
}

}  // namespace vantelgis::gpkg
