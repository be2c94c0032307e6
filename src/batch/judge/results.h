#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What the files of a result hold.
namespace vantelgis::batch {

struct ResultFacts {
    std::int64_t strings = 0;  ///< of an archive, symbols among them; lines of a layer
    std::int64_t points = 0;   ///< of a layer
    std::int64_t vertices = 0;
    std::int64_t asterisks = 0;  ///< lines or records with a number that is all asterisks
    std::int64_t touching = 0;   ///< lines in which two numbers stand together
    std::string fault;           ///< why it isn't whole; empty when it is

    [[nodiscard]] bool empty() const { return strings == 0 && points == 0; }
    /// Takes the facts of one more file of the same result.
    void add(const ResultFacts& more) {
        strings += more.strings;
        points += more.points;
        vertices += more.vertices;
        asterisks += more.asterisks;
        touching += more.touching;
        if (fault.empty()) fault = more.fault;
    }
};

/// An archive that a conversion wrote.
ResultFacts readArchiveResult(const std::string& path, bool results);

/// A layer: the .mif with its .mid, or the .shp with its .shx and .dbf.
ResultFacts readMifResult(const std::string& mif, const std::string& mid);
ResultFacts readShpResult(const std::string& shp, const std::string& shx, const std::string& dbf);

/// The table of a cross-section.
ResultFacts readSectionResult(const std::string& csv);

}  // namespace vantelgis::batch
