#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "archive/writer.h"
#include "gpkg/geometry/shape.h"
#include "gpkg/to_archive/clean_text.h"
#include "gpkg/to_archive/feature_reader.h"
#include "run/unit_writing.h"

namespace vantelgis::gpkg {

/// What was written, and what of the features the archive can't say.
struct WriteCounts {
    std::int64_t strings = 0;
    std::int64_t models = 0;
    std::int64_t empty = 0;     ///< features without geometry
    std::int64_t droppedZ = 0;  ///< strings of type 2d whose vertices had elevations
    std::int64_t nullLike = 0;  ///< elevations that read as the null of the archive
    TextChanges changes;
};

/// Writes features as strings of an archive, each part of a feature as one, through the converter's
/// writer: x and y in 16 columns with 5 decimals, z in 12 with 4. A number that doesn't fit fails
/// with the feature that has it, and so does a write that the system refuses.
class ArchiveStringsWriter {
  public:
    /// Begins the file; `package` is what messages call the source.
    ArchiveStringsWriter(std::string_view file, std::string_view package);
    ~ArchiveStringsWriter();
    ArchiveStringsWriter(const ArchiveStringsWriter&) = delete;
    ArchiveStringsWriter& operator=(const ArchiveStringsWriter&) = delete;

    /// The strings that follow belong to this model.
    void beginModel(std::string_view model);
    void write(const Feature& feature);
    /// Brings everything to the file.
    void close();

    [[nodiscard]] const WriteCounts& counts() const { return counts_; }

  private:
    // An attribute that is mostly the same in feature after feature.
    struct Value {
        std::string plain;    // the last one that stands in the file as it is
        std::string changed;  // room for one that doesn't
    };
    void writePart(const Feature& feature, std::span<const Vertex> vertices, bool is3d);
    void takeTexts(const Feature& feature);
    void writeHead(OutputLine& line, const Feature& feature, bool is3d);
    void writeVertices(OutputLine& line, const Feature& feature, std::span<const Vertex> vertices,
                       bool is3d);
    void requireFit(const Feature& feature, const Vertex& vertex, bool is3d) const;
    // A layer without the field says what the converter says; a feature without a value says
    // nothing.
    std::string_view attribute(const Feature& feature, Attribute which, std::string_view otherwise,
                               Value& value);
    [[noreturn]] void failAt(const Feature& feature, std::string_view reason) const;
    void requireWritten() const;

    std::string file_;
    std::string package_;
    int unit_ = 0;
    WriteCounts counts_;
    D12StringHead texts_;  // of the feature being written
    std::string name_;     // room for it where it has to be changed
    Value colour_;
    Value style_;
    Value breakline_;
};

}  // namespace vantelgis::gpkg
