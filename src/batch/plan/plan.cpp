#include "batch/plan/plan.h"

#include <algorithm>

#include "batch/files.h"
#include "batch/utf8.h"
#include "text/characters.h"

namespace vantelgis::batch {

namespace {

// The text in `nameTemplate` for each of its fields.
std::string filledTemplate(std::string_view nameTemplate, const Job& job) {
    const std::string_view name = namePart(job.input);
    const std::string_view extension = extensionPart(name);
    const std::pair<std::string_view, std::string> fields[] = {
        {"{stem}", std::string(stemPart(name))},
        {"{ext}", std::string(extension.substr(std::min<std::size_t>(1, extension.size())))},
        {"{number}", std::to_string(job.number)},
    };
    std::string result;
    while (!nameTemplate.empty()) {
        const auto* const field =
            std::find_if(std::begin(fields), std::end(fields),
                         [&](const auto& known) { return nameTemplate.starts_with(known.first); });
        const bool isField = field != std::end(fields);
        result += isField ? field->second : std::string(1, nameTemplate.front());
        nameTemplate.remove_prefix(isField ? field->first.size() : 1);
    }
    return result;
}

bool isLayerName(std::string_view name) {
    const InputKind kind = inputKindOf(name);
    return kind == InputKind::mif || kind == InputKind::shp;
}

// A chosen name with the extension that the converter would give it.
std::string withResultExtension(std::string name, const Options& options, Conversion conversion) {
    if (conversion == Conversion::geoPackage) {
        if (!sameIgnoringCase(extensionPart(name), ".gpkg")) name += ".gpkg";
    } else if (conversion == Conversion::strings || conversion == Conversion::sections) {
        if (!isLayerName(name)) name += options.converter.layerExtension();
    } else if (!sameIgnoringCase(extensionPart(name), ".12da")) {
        name += ".12da";
    }
    return name;
}

// The name that the converter gives by itself.
std::string usualResult(const Options& options, const RunPlan& plan) {
    const std::string_view name = namePart(plan.input);
    switch (plan.conversion) {
        case Conversion::strings:
        case Conversion::sections:
            return std::string(name).append(options.converter.layerExtension());
        case Conversion::geoPackage: return std::string(stemPart(name)) + ".gpkg";
        default: break;
    }
    return std::string(stemPart(plan.secondHasLines ? namePart(plan.second) : name)) + ".12da";
}

// Where the converter takes "\" for a separator and blanks at the end for none.
std::string linkName(std::string_view name) {
    std::string link(name);
    if (!isPathSeparator('\\')) std::replace(link.begin(), link.end(), '\\', '_');
    return link;
}

// As the converter takes a name for a name.
std::string asArgument(const std::string& name) {
    const bool hidden = std::string_view("-/\x96 ").find(name.front()) != std::string_view::npos;
    return hidden ? "./" + name : name;
}

void chooseSecond(const Options& options, const Job& job, RunPlan& plan) {
    const bool pair = !job.second.empty();
    const std::string& named = pair ? job.second : options.converter.second;
    if (named.empty() || plan.conversion == Conversion::geoPackage) return;
    plan.second = absoluteName(named);
    if (plan.second.empty()) plan.second = named;  // the look says that it isn't there
    plan.secondHasLines = plan.conversion == Conversion::breaklines3d;
}

void chooseResult(const Options& options, const Job& job, RunPlan& plan) {
    const bool afterLines = plan.secondHasLines && (!job.second.empty() || job.alone);
    RunPlan named = plan;
    named.secondHasLines = afterLines;
    plan.result = usualResult(options, named);
    plan.targetFolder = afterLines ? folderPart(plan.second) : plan.folder;
    if (!options.outputFolder.empty()) {
        plan.targetFolder = inFolder(options.outputFolder, job.below);
        while (plan.targetFolder.size() > 1 && isPathSeparator(plan.targetFolder.back()))
            plan.targetFolder.pop_back();
    }
    if (!options.nameTemplate.empty()) {
        plan.result = filledTemplate(options.nameTemplate, job);
    } else if (options.converter.haveOutput) {
        plan.result = namePart(options.converter.output);
        if (options.outputFolder.empty())
            plan.targetFolder = fullName(folderPart(options.converter.output));
    }
    plan.result = withResultExtension(plan.result, options, plan.conversion);
    if (plan.targetFolder == plan.folder) return;
    if (const std::string known = absoluteName(inFolder(plan.targetFolder, ".")); !known.empty())
        plan.targetFolder = known;
}

void composeArguments(const Options& options, RunPlan& plan) {
    plan.link1 = linkName(namePart(plan.input));
    plan.arguments = {asArgument(plan.link1)};
    if (!plan.second.empty()) {
        plan.link2 = linkName(namePart(plan.second));
        const bool oneName = nameKey(stemPart(plan.link1)) == nameKey(stemPart(plan.link2));
        if (oneName && plan.second != plan.input) plan.link2 = "2/" + plan.link2;
        plan.arguments.push_back(asArgument(plan.link2));
    }
    const auto& given = options.converter.options;
    plan.arguments.insert(plan.arguments.end(), given.begin(), given.end());
    // As the run would name it, without being told.
    RunPlan byHand = plan;
    byHand.secondHasLines = !plan.second.empty() && plan.conversion != Conversion::strings;
    if (usualResult(options, byHand) == plan.result && !plan.link2.starts_with("2/")) return;
    const bool package = plan.conversion == Conversion::geoPackage;
    plan.arguments.insert(plan.arguments.end(),
                          {package ? "--out" : "-out", linkName(plan.result)});
}

// The files of a layer by its main name.
void addLayer(std::string_view main, std::string_view families, std::vector<std::string>& files) {
    const std::string stem(stemPart(main));
    if (inputKindOf(main) == InputKind::mif) {
        files.insert(files.end(), {stem + ".mif", stem + ".mid"});
        return;
    }
    for (const char family : families) {
        for (const char* const extension : {".shp", ".shx", ".dbf", ".prj"})
            files.push_back(stem + "_" + family + extension);
    }
}

// Inputs come folder by folder. The current folder is always the one that names are meant from.
std::string absoluteFolder(const std::string& folder) {
    static std::string last;
    static std::string absolute;
    if (folder != last) {
        last = folder;
        absolute = absoluteName(inFolder(folder, "."));
    }
    return absolute;
}

}  // namespace

RunPlan planRun(const Options& options, const Job& job) {
    RunPlan plan;
    const InputKind kind = inputKindOf(job.input);
    plan.conversion = options.converter.conversionOf(kind);
    if (options.toGeoPackage)
        plan.conversion = kind == InputKind::archive ? Conversion::geoPackage : Conversion::none;
    plan.folder = absoluteFolder(folderPart(job.input));
    if (plan.folder.empty()) {
        plan.input = fullName(job.input);
        return plan;
    }
    plan.input = inFolder(plan.folder, namePart(job.input));
    chooseSecond(options, job, plan);
    chooseResult(options, job, plan);
    composeArguments(options, plan);
    return plan;
}

std::vector<std::string> resultFiles(const RunPlan& plan) {
    std::vector<std::string> files;
    if (plan.conversion == Conversion::strings || plan.conversion == Conversion::sections) {
        const bool sections = plan.conversion == Conversion::sections;
        addLayer(plan.result, "LP", files);
        if (sections && inputKindOf(plan.result) == InputKind::mif)
            addLayer(std::string(stemPart(plan.result)) + "_Pts.mif", "", files);
        return files;
    }
    files.push_back(plan.result);
    if (plan.conversion != Conversion::breaklines3d) return files;
    const std::string_view lines = namePart(plan.secondHasLines ? plan.second : plan.input);
    const std::string stem(stemPart(lines));
    addLayer(std::string(stem).append("_dangles").append(extensionPart(lines)), "L", files);
    addLayer(std::string(stem).append("_unsnapped_points").append(extensionPart(plan.input)), "P",
             files);
    return files;
}

std::string commandText(const std::string& program, const RunPlan& plan) {
    const auto quoted = [](const std::string& text) {
        static constexpr std::string_view kPlain = "-_./:=+,@%";
        const bool plain = !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
            return isLetter(c) || isDigit(c) || kPlain.find(c) != std::string_view::npos;
        });
        if (plain) return text;
        std::string result = "'";
        for (const char c : text) result += c == '\'' ? "'\\''" : std::string(1, c);
        return result + "'";
    };
    std::string command = "cd " + quoted(plan.folder) + " && " + quoted(program);
    for (const std::string& argument : plan.arguments) {
        if (argument == asArgument(plan.link2) && !plan.second.empty()) {
            command += " " + quoted(plan.second);
        } else {
            command += " " + quoted(argument);
        }
    }
    return readable(command) += '\n';
}

std::string templateFault(std::string_view nameTemplate) {
    if (nameTemplate.empty()) return {};
    if (std::any_of(nameTemplate.begin(), nameTemplate.end(), isPathSeparator))
        return "--name may not name a folder: use --output-folder";
    const std::string probe = filledTemplate(nameTemplate, Job{1, "a.b", "", "", false});
    if (probe.find('{') != std::string::npos || probe.find('}') != std::string::npos)
        return "--name knows {stem}, {ext} and {number}";
    return {};
}

}  // namespace vantelgis::batch
