#include "gpkg/to_archive/archive_strings_writer.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "archive/writer.h"
#include "gpkg/platform.h"
#include "gpkg/report.h"
#include "run/open_modes.h"
#include "run/unit_writing.h"
#include "run/units.h"
#include "text/characters.h"
#include "text/limits.h"

namespace vantelgis::gpkg {

namespace {

constexpr int kPlaceWidth = 16;
constexpr int kPlaceDecimals = 5;
constexpr int kElevationWidth = 12;
constexpr int kElevationDecimals = 4;
// Sizes that leave no doubt.
constexpr double kSurePlace = 9'999'999.0;
constexpr double kSureElevation = 9'999.0;

// A number that fits its columns; behind another one it must leave a blank, or the two are one.
bool fits(double value, int width, int decimals) {
    char field[kMaxFieldWidth];
    fixedField(field, value, width, decimals);
    return field[0] != '*' && std::isfinite(value);
}

bool surelyFits(const Vertex& vertex) {
    return std::fabs(vertex.x) < kSurePlace && std::fabs(vertex.y) < kSurePlace &&
           !(std::fabs(vertex.z) >= kSureElevation);
}

bool readsAsNull(double z) {
    return std::fabs(static_cast<float>(z) - kWrittenNull) <= 0.001F;
}

// The shortest text that reads as the same number.
class NumberText {
  public:
    explicit NumberText(double value)
        : length_(static_cast<std::size_t>(std::to_chars(text_, text_ + sizeof text_, value).ptr -
                                           text_)) {}
    operator std::string_view() const { return {text_, length_}; }

  private:
    char text_[32];
    std::size_t length_;
};

// Output of this program alone: nobody is asked about it, and its failures are reported here.
int openOutput(const std::string& name) {
    const vantelgis::platform::FileHandle handle = vantelgis::platform::openFile(
        name, vantelgis::platform::Access::replace, vantelgis::platform::Sharing::full);
    if (handle == vantelgis::platform::kNoFile)
        fail("can't write ", name, ": ", platform::lastRefusal());
    initialiseUnits(0);
    Unit* const unit = freeUnit();
    unit->used = true;
    attachFile(*unit, handle, *findOpenMode("O "), name);
    ownerReportsWriteFailures(unit->number);
    return unit->number;
}

}  // namespace

ArchiveStringsWriter::ArchiveStringsWriter(std::string_view file, std::string_view package)
    : file_(file), package_(package), unit_(openOutput(file_)) {
    d12WriteNull(unit_);
}

ArchiveStringsWriter::~ArchiveStringsWriter() {
    closeAllUnits();
}

void ArchiveStringsWriter::requireWritten() const {
    if (writeFailed(unit_)) fail("can't write ", file_, ": ", platform::lastRefusal());
}

void ArchiveStringsWriter::close() {
    const bool written = flushUnit(unit_);
    if (!written) fail("can't write ", file_, ": ", platform::lastRefusal());
    closeAllUnits();
}

void ArchiveStringsWriter::failAt(const Feature& feature, std::string_view reason) const {
    fail(package_, ", layer ", feature.layer->table, ", feature ", feature.number, ": ", reason,
         ". Nothing was written");
}

void ArchiveStringsWriter::beginModel(std::string_view model) {
    d12WriteModel(unit_, cleanText(model, name_, counts_.changes));
    ++counts_.models;
}

void ArchiveStringsWriter::write(const Feature& feature) {
    if (feature.shape.partEnds.empty()) {
        ++counts_.empty;
        return;
    }
    const std::string_view type = feature.text(Attribute::type);
    const bool says2d = sameIgnoringCase(type, "2d");
    const bool is3d = sameIgnoringCase(type, "3d") || (feature.shape.hasZ && !says2d);
    takeTexts(feature);
    const std::span<const Vertex> vertices = feature.shape.vertices;
    std::size_t start = 0;
    for (const std::size_t end : feature.shape.partEnds) {
        writePart(feature, vertices.subspan(start, end - start), is3d);
        start = end;
    }
    if (feature.shape.hasZ && says2d) ++counts_.droppedZ;
    requireWritten();
}

void ArchiveStringsWriter::writePart(const Feature& feature, std::span<const Vertex> vertices,
                                     bool is3d) {
    if (vertices.size() > static_cast<std::size_t>(kMaxVertices))
        failAt(feature,
               "it has more than 1000000 vertices in one line, the most that readers of "
               "archives take");
    OutputLine line{unit_, kLinesRoom};
    writeHead(line, feature, is3d);
    writeVertices(line, feature, vertices, is3d);
    d12EndString(line);
    ++counts_.strings;
}

std::string_view ArchiveStringsWriter::attribute(const Feature& feature, Attribute which,
                                                 std::string_view otherwise, Value& value) {
    if (!feature.layer->has(which)) return otherwise;
    const std::string_view text = feature.text(which);
    if (text.empty() || text == value.plain) return text;
    const std::string_view written = attributeValue(text, value.changed, counts_.changes);
    if (written.data() == text.data()) value.plain = text;
    return written;
}

// Once for all parts of a feature, of which there may be many.
void ArchiveStringsWriter::takeTexts(const Feature& feature) {
    texts_ = {};
    texts_.name = cleanText(feature.text(Attribute::name), name_, counts_.changes);
    texts_.breakline = attribute(feature, Attribute::breakline, texts_.breakline, breakline_);
    texts_.colour = attribute(feature, Attribute::colour, texts_.colour, colour_);
    texts_.style = attribute(feature, Attribute::style, texts_.style, style_);
}

void ArchiveStringsWriter::writeHead(OutputLine& line, const Feature& feature, bool is3d) {
    D12StringHead head = texts_;
    head.type = is3d ? "3d" : "2d";
    const NumberText chainage{feature.chainage.value_or(0)};
    if (feature.chainage) head.chainage = chainage;
    if (!feature.chainage && feature.layer->has(Attribute::chainage)) head.chainage = {};
    std::optional<NumberText> level;
    if (!is3d && feature.level) {
        if (std::fabs(*feature.level) > static_cast<double>(std::numeric_limits<float>::max()))
            failAt(feature, "its z is too large for an archive");
        if (readsAsNull(*feature.level)) ++counts_.nullLike;
        head.level = level.emplace(*feature.level);
    }
    d12BeginString(line, head);
}

void ArchiveStringsWriter::requireFit(const Feature& feature, const Vertex& vertex,
                                      bool is3d) const {
    const bool whole =
        fits(vertex.x, kPlaceWidth, kPlaceDecimals) &&
        fits(vertex.y, kPlaceWidth - 1, kPlaceDecimals) &&
        (!is3d || !hasElevation(vertex) || fits(vertex.z, kElevationWidth - 1, kElevationDecimals));
    if (!whole)
        failAt(feature, joined("the vertex ", NumberText(vertex.x), " ", NumberText(vertex.y), " ",
                               hasElevation(vertex) ? NumberText(vertex.z) : NumberText(0),
                               " doesn't fit into the columns of an archive"));
}

void ArchiveStringsWriter::writeVertices(OutputLine& line, const Feature& feature,
                                         std::span<const Vertex> vertices, bool is3d) {
    for (const Vertex& vertex : vertices) {
        if (!surelyFits(vertex)) requireFit(feature, vertex, is3d);
        d12AddVertex(line, vertex.x, vertex.y);
        if (is3d) {
            if (readsAsNull(vertex.z)) ++counts_.nullLike;
            line.fixed<kElevationWidth, kElevationDecimals>(
                hasElevation(vertex) ? vertex.z : static_cast<double>(kWrittenNull));
        }
        line.end();
    }
}

}  // namespace vantelgis::gpkg
