#include "batch/converter_arguments.h"

#include "batch/files.h"
#include "text/characters.h"

namespace vantelgis::batch {

namespace {

enum class Expects { nothing, model, output };

struct Option {
    std::string_view text;
    std::size_t compared;  // characters by which the converter knows it
    bool ConverterArguments::*flag;
    Expects next;
};
constexpr Option kOptions[] = {
    {"xs", 2, &ConverterArguments::wantXs, Expects::nothing},
    {"zln", 3, &ConverterArguments::wantZln, Expects::nothing},
    {"hip", 3, &ConverterArguments::wantHip, Expects::nothing},
    {"mif", 3, &ConverterArguments::wantMif, Expects::nothing},
    {"shp", 3, &ConverterArguments::wantShp, Expects::nothing},
    {"model", 5, &ConverterArguments::haveModel, Expects::model},
    {"results", 7, &ConverterArguments::wantResults, Expects::nothing},
    {"out", 3, &ConverterArguments::haveOutput, Expects::output},
};

// The minus sign, the slash, and the en dash of the Windows code page. A file below the root begins
// with a slash as well; the converter would not see it, but it is linked under its bare name.
bool isOption(const std::string& argument) {
    if (argument.empty()) return false;
    if (argument.front() == '/') return !statusOf(argument).exists();
    return argument.front() == '-' || argument.front() == '\x96';
}

Expects applyOption(std::string_view text, ConverterArguments& result) {
    for (const Option& option : kOptions) {
        if (!sameIgnoringCase(text.substr(0, option.compared), option.text)) continue;
        result.*option.flag = true;
        return option.next;
    }
    return Expects::nothing;
}

}  // namespace

std::string_view conversionName(Conversion conversion) {
    constexpr std::string_view kNames[] = {"none",      "2D breaklines",    "3D breaklines",
                                           "results",   "lines and points", "cross-sections",
                                           "GeoPackage"};
    return kNames[static_cast<std::size_t>(conversion)];
}

InputKind inputKindOf(std::string_view name) {
    const std::string_view extension = extensionPart(namePart(name));
    if (sameIgnoringCase(extension, ".mif")) return InputKind::mif;
    if (sameIgnoringCase(extension, ".shp")) return InputKind::shp;
    const bool archive =
        sameIgnoringCase(extension, ".12da") || sameIgnoringCase(extension, ".4da");
    return archive ? InputKind::archive : InputKind::other;
}

bool ConverterArguments::takesArchives() const {
    return wantMif || wantShp || wantXs || wantHip || !layerExtension().empty();
}

std::string_view ConverterArguments::layerExtension() const {
    const InputKind named = inputKindOf(output);
    if (named == InputKind::mif) return ".mif";
    if (named == InputKind::shp) return ".shp";
    return wantMif ? ".mif" : wantShp ? ".shp" : "";
}

Conversion ConverterArguments::conversionOf(InputKind kind) const {
    if (kind == InputKind::other) return Conversion::none;
    if (kind != InputKind::archive) {
        const bool both = kind == InputKind::mif ? wantShp : wantMif;
        if (both) return Conversion::none;
        if (wantZln) return Conversion::breaklines3d;
        return wantResults ? Conversion::results : Conversion::breaklines2d;
    }
    if (layerExtension().empty() || (wantMif && wantShp)) return Conversion::none;
    return wantXs ? Conversion::sections : Conversion::strings;
}

ConverterArguments readConverterArguments(const std::vector<std::string>& arguments) {
    ConverterArguments result;
    Expects expected = Expects::nothing;
    for (const std::string& argument : arguments) {
        const Expects now = expected;
        expected = Expects::nothing;
        if (now == Expects::output) {
            result.output = argument;
        } else if (now == Expects::model) {
            result.options.push_back(argument);
        } else if (!isOption(argument)) {
            if (result.second.empty()) result.second = argument;
        } else {
            expected = applyOption(std::string_view(argument).substr(1), result);
            if (expected != Expects::output) result.options.push_back(argument);
        }
    }
    return result;
}

ConverterArguments packageArguments(const std::vector<std::string>& arguments) {
    ConverterArguments result;
    for (const std::string& argument : arguments)
        result.options.push_back(statusOf(argument).isFile() ? fullName(argument) : argument);
    return result;
}

}  // namespace vantelgis::batch
