#include "gpkg/to_package/archive_import.h"

#include "gpkg/report.h"
#include "gpkg/to_package/elevation.h"
#include "gpkg/to_package/reader_guard.h"
#include "run/unit_reading.h"
#include "text/limits.h"

namespace vantelgis::gpkg {

namespace {

// A text that fills what the reader keeps of a name may have lost the rest of its last character.
constexpr std::size_t kNameCapacity = decltype(D12Object::name)::capacity();

}  // namespace

ImportCounts ArchiveImport::run(std::string_view file, std::string_view name) {
    const ReaderStop stop = guardReader(archive_.unit, [&] { readAll(file); });
    if (stop.stopped)
        fail(name, ":", stop.line, ": ", wordsOf(stop, file), whereInString(),
             ". Nothing was written");
    return counts_;
}

void ArchiveImport::readAll(std::string_view file) {
    d12OpenArchive(archive_, file);
    if (!d12BeginData(archive_)) stopReader();
    takeFirstModel();
    std::string_view line;
    while (findBlock(line)) takeBlock(line);
}

// The search for the data leaves the unit behind the first model line.
void ArchiveImport::takeFirstModel() {
    backspaceUnit(archive_.unit);
    std::string_view line;
    if (!d12NextLine(archive_.unit, line)) return;
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (line.starts_with(kMark)) line.remove_prefix(kMark.size());
    takeModelLine(d12CountingPart(line), model_);
}

// Goes on to the next block that may have vertices.
bool ArchiveImport::findBlock(std::string_view& line) {
    const int unit = archive_.unit;
    while (!atEnd(unit)) {
        if (!d12ReadLine(unit, line, kShortLineCapacity)) continue;
        if (object_.dataFollows) {
            header_.line = lineNumber(unit);
            header_.levelled = false;
        }
        const bool further = object_.dataFollows;
        if (!d12BeginObject(line, object_)) {
            takeModelLine(line, model_);
            continue;
        }
        if (!further) header_.begin(lineNumber(unit), object_.typeText);
        outerLine_ = 0;
        while (d12NextAttribute(unit, line, object_)) takeLine(line);
        return true;
    }
    header_.line = 0;
    return false;
}

// The reader looks for data behind a header, whatever lies between: a string without any gives its
// place to the next one.
void ArchiveImport::takeLine(std::string_view line) {
    if (!d12BeginsString(line)) return header_.take(line);
    ignore(header_.type, "it has no data of its own");
    if (outerLine_ == 0) outerLine_ = header_.line;
    header_.begin(lineNumber(archive_.unit), d12TypeText(line));
    object_.name.clear();
}

void ArchiveImport::takeBlock(std::string_view line) {
    if (!object_.data2d && !object_.data3d && !object_.hipData) {
        ignore(header_.type,
               outerLine_ > 0 ? joined("it counts as part of the string in line ", outerLine_,
                                       ", which is of another type")
                              : joined("strings of this type give no line; its data begins with \"",
                                       line, "\""));
        d12PassOver(archive_.unit, line, object_);
        return;
    }
    if (!d12ReadVertices(archive_, object_, kMaxVertices, read_))
        return ignore(header_.type, "the archive ends before its vertices");
    takeString();
}

void ArchiveImport::takeString() {
    const bool closedPolyline = object_.isPolyline && object_.closed;
    if (read_.count == 0 || (closedPolyline && read_.count == 1))
        return ignore(header_.type, "it has no vertices");
    if (object_.hipData && !choices_.includeHip)
        return ignore(header_.type, "its block is hipdata; --hip takes it");
    StringForm form;
    form.ownElevations = object_.data3d || object_.hipData;
    form.backToFirst = object_.isSuper && header_.closed;
    measureString(archive_, read_, form, measured_);
    fillRow();
    row_.closed = closedPolyline || form.backToFirst;
    row_.level.reset();
    if (!form.ownElevations && header_.levelled && archive_.hasElevation(object_.level))
        row_.level = shortestDecimal(object_.level);
    layers_.addString(row_, measured_.vertices, measured_.box, row_.zMin.has_value());
    ++(measured_.vertices.size() > 1 ? counts_.strings : counts_.points);
}

void ArchiveImport::fillRow() {
    decodeInto(row_.name, header_.named ? object_.name.view() : std::string_view{});
    decodeInto(row_.model, header_.model.empty() ? model_ : header_.model);
    decodeInto(row_.type, object_.typeText);
    decodeInto(row_.colour, header_.colour);
    decodeInto(row_.style, header_.style);
    decodeInto(row_.breakline, header_.breakline);
    row_.chainage = header_.chainage;
    row_.line = header_.line;
    row_.length2d = measured_.length2d;
    row_.length3d = measured_.length3d;
    row_.zMin = measured_.zMin;
    row_.zMax = measured_.zMax;
}

void ArchiveImport::ignore(std::string_view type, std::string_view reason) {
    std::string name;
    decodeInto(name, header_.named ? object_.name.view() : std::string_view{});
    std::string typeText;
    decodeInto(typeText, type);
    std::string words;
    decodeInto(words, reason);
    layers_.addIgnored({typeText, name, header_.line, words});
    ++counts_.ignored;
}

std::string ArchiveImport::whereInString() const {
    if (header_.line == 0) return {};
    std::string name;
    decodeInto(name, header_.named ? object_.name.view() : std::string_view{});
    if (name.empty()) return joined(" (in the string that begins in line ", header_.line, ")");
    return joined(" (in the string \"", name, "\", which begins in line ", header_.line, ")");
}

void ArchiveImport::decodeInto(std::string& text, std::string_view bytes) const {
    decode(text, bytes, choices_.encoding, bytes.size() == kNameCapacity);
}

}  // namespace vantelgis::gpkg
