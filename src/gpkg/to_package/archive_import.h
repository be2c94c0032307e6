#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "archive/head.h"
#include "archive/scanner.h"
#include "archive/vertices.h"
#include "gpkg/encoding.h"
#include "gpkg/package/string_layers.h"
#include "gpkg/to_package/string_header.h"
#include "gpkg/to_package/string_measures.h"

namespace vantelgis::gpkg {

/// What of an archive goes into the package, and how.
struct ImportChoices {
    bool includeHip = false;
    Encoding encoding = Encoding::automatic;
};

struct ImportCounts {
    std::int64_t strings = 0;
    std::int64_t points = 0;
    std::int64_t ignored = 0;
};

/// Puts the strings of one archive into the layers of a package, in the order of the file: each
/// data block that the converter would take is a feature, with the vertices that the same reader
/// gives; what gives none is listed with its reason.
class ArchiveImport {
  public:
    ArchiveImport(StringLayers& layers, const ImportChoices& choices)
        : layers_(layers), choices_(choices) {}

    /// Reads `file`, which messages call `name`. Fails with the line and its text where the
    /// converter would stop.
    ImportCounts run(std::string_view file, std::string_view name);

  private:
    void readAll(std::string_view file);
    void takeFirstModel();
    bool findBlock(std::string_view& line);
    void takeLine(std::string_view line);
    void takeBlock(std::string_view line);
    void takeString();
    void fillRow();
    void ignore(std::string_view type, std::string_view reason);
    [[nodiscard]] std::string whereInString() const;
    void decodeInto(std::string& text, std::string_view bytes) const;

    StringLayers& layers_;
    ImportChoices choices_;
    Archive archive_;
    D12Object object_;
    StringHeader header_;
    std::int64_t outerLine_ = 0;  // of a string without data, inside of which the present one began
    std::string model_;           // of the last `model` line between strings
    ArchiveVertices read_;
    MeasuredString measured_;
    StringRow row_;
    ImportCounts counts_;
};

}  // namespace vantelgis::gpkg
