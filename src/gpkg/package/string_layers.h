#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "gpkg/geometry/blob_writer.h"
#include "gpkg/geometry/shape.h"
#include "gpkg/package/database.h"

namespace vantelgis::gpkg {

/// The attributes of one feature of the layers `strings` and `points`. An empty text is stored as
/// NULL, and so is a number that isn't there.
struct StringRow {
    std::string name;
    std::string model;
    std::string type;
    std::string colour;
    std::string style;
    std::string breakline;
    std::optional<double> chainage;
    std::optional<double> level;  ///< of a string whose vertices have no z of their own
    bool closed = false;
    double length2d = 0;
    std::optional<double> length3d;  ///< when every vertex has an elevation
    std::optional<double> zMin;
    std::optional<double> zMax;
    std::int64_t line = 0;  ///< of the archive, from 1
};

/// A string that gives no feature.
struct IgnoredRow {
    std::string_view type;
    std::string_view name;
    std::int64_t line = 0;
    std::string_view reason;
};

/// Takes out what an earlier run took from an archive of this name.
void removeArchive(Database& database, std::string_view archive);

/// Writes the layers `strings`, `points`, `vertices` and the table `ignored` of a package whose
/// layers are there and whose index triggers are not. Each row is a run of one prepared statement.
class StringLayers {
  public:
    StringLayers(Database& database, const BlobForm& form, bool withVertices);

    /// The archive whose strings come next.
    void beginArchive(std::string_view archive);

    /// A string with its vertices in order: a line, or a point when it has only one. `withZ`: at
    /// least one vertex has an elevation that is its own.
    void addString(const StringRow& row, std::span<const Vertex> vertices, const Box& box,
                   bool withZ);
    void addIgnored(const IgnoredRow& row);

    /// Enters extents and styles once all strings are there.
    void finish();

  private:
    void addFeature(Statement& statement, const StringRow& row, std::int64_t vertices);
    void addVertices(const StringRow& row, std::span<const Vertex> vertices, bool withZ);
    void addToIndex(Statement& statement, std::int64_t fid, const Box& box);

    // A layer of features: the statements that add a row and its rectangle.
    struct Layer {
        std::string_view name;
        Statement add;
        Statement index;
        Box extent;
        std::int64_t lastFid = 0;
    };
    Layer layerOf(std::string_view name, std::string_view columns, int parameters);

    Database& database_;
    BlobForm form_;
    Layer strings_;
    Layer points_;
    std::optional<Layer> vertices_;
    Statement ignored_;
    std::string archive_;
    std::string blob_;          // the feature being written
    std::int64_t lastFid_ = 0;  // strings and points share the numbers
};

}  // namespace vantelgis::gpkg
