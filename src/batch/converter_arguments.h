#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// What stands behind "--": options and File 2 of the converter, read as it reads them.
namespace vantelgis::batch {

enum class Conversion {
    none,  ///< the options fit no file of this kind
    breaklines2d,
    breaklines3d,
    results,
    strings,   ///< of an archive, to lines and points
    sections,  ///< of an archive
    geoPackage,
};
/// What the conversion makes, in words.
std::string_view conversionName(Conversion conversion);

enum class InputKind { other, mif, shp, archive };
/// By the extension, in any case of its letters.
InputKind inputKindOf(std::string_view name);

struct ConverterArguments {
    bool wantMif = false;
    bool wantShp = false;
    bool wantXs = false;
    bool wantZln = false;
    bool wantHip = false;
    bool wantResults = false;
    bool haveOutput = false;
    bool haveModel = false;
    std::string output;                ///< value of -out
    std::string second;                ///< File 2
    std::vector<std::string> options;  ///< all others as they were given, for every run

    /// The inputs that a folder or a wildcard stands for are archives; otherwise they are layers.
    [[nodiscard]] bool takesArchives() const;
    /// What is done with an input of this kind.
    [[nodiscard]] Conversion conversionOf(InputKind kind) const;
    /// ".mif" or ".shp", the format that an archive is converted to; empty if none was chosen.
    [[nodiscard]] std::string_view layerExtension() const;
};

ConverterArguments readConverterArguments(const std::vector<std::string>& arguments);

/// The same for vantelgis-gpkg, whose options go to every run as they are; a file among them gets
/// its full name.
ConverterArguments packageArguments(const std::vector<std::string>& arguments);

}  // namespace vantelgis::batch
