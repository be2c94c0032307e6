#pragma once

#include <optional>
#include <string>
#include <vector>

#include "gpkg/encoding.h"

namespace vantelgis::gpkg {

/// A field of a layer that stands for an attribute of strings.
struct FieldChoice {
    std::string attribute;
    std::string field;
};

/// What the command line says.
struct Options {
    std::vector<std::string> inputs;
    std::string output;  ///< empty: named after the input
    bool quiet = false;
    Encoding encoding = Encoding::automatic;

    // Archives to a package.
    bool append = false;
    bool replace = false;
    bool vertices = false;
    bool hip = false;
    bool check = false;
    std::optional<double> nullZ;
    std::string crs;

    // A package to an archive.
    std::vector<std::string> layers;
    std::vector<FieldChoice> fields;
    std::string where;
    std::string sortField;
    std::string model;
    bool degrees = false;
    bool prj = false;
};

enum class Direction { toPackage, toArchive };

/// Which way the inputs go, by their extensions. Fails when that can't be told.
[[nodiscard]] Direction directionOf(const Options& options);

/// Reads the command line (without the program's own name) into `options`. Gives nothing when the
/// run may begin, else the status with which the program ends: 0 behind help or version, 2 behind a
/// message on what is wrong.
[[nodiscard]] std::optional<int> readCommandLine(std::vector<std::string> arguments,
                                                 Options& options);

}  // namespace vantelgis::gpkg
