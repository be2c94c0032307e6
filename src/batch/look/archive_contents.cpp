#include <algorithm>
#include <map>

#include "archive/head.h"
#include "archive/scanner.h"
#include "archive/vertices.h"
#include "batch/files.h"
#include "batch/input_file.h"
#include "batch/look/coordinates.h"
#include "batch/look/guard.h"
#include "batch/look/look.h"
#include "batch/look/reader_stops.h"
#include "batch/look/section_names.h"
#include "batch/pulse.h"
#include "batch/utf8.h"
#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/strings.h"

namespace vantelgis::batch {

namespace {

constexpr std::int64_t kSampleVertices = 200'000;
constexpr std::int64_t kSampleStrings = 20'000;
constexpr std::size_t kHeadBytes = std::size_t{1} << 20;

struct ArchiveLook {
    const RunPlan& plan;
    Look& look;
    CoordinateCheck coordinates;
    SectionNames sections;
    Archive archive;
    D12Object object;
    ArchiveVertices vertices;
    std::int64_t strings = 0;
    std::map<std::string, std::int64_t> ignored;  // by kind
    bool sampled = false;
    bool cut = false;
};

bool isSections(const ArchiveLook& all) {
    return all.plan.conversion == Conversion::sections;
}

void takeVertices(ArchiveLook& all) {
    Expected& expected = all.look.expected;
    const ArchiveVertices& vertices = all.vertices;
    const std::span<const double> x(vertices.x.data(), vertices.size());
    const std::span<const double> y(vertices.y.data(), vertices.size());
    all.coordinates.add(all.strings, x, y);
    all.look.drawing.add(Shown::converted, x, y);
    ++expected.converted;
    expected.lines += vertices.count >= 2 ? 1 : 0;
    expected.vertices += vertices.count;
    for (std::size_t i = 0; i < vertices.size(); ++i)
        expected.points += all.archive.hasElevation(vertices.z[i]) ? 1 : 0;
}

// As the conversion would take it: some strings are ignored, and hip data counts only if asked for.
void takeString(ArchiveLook& all, std::string_view line, bool wantHip) {
    const D12Object& object = all.object;
    if (isSections(all)) all.sections.take(all.object);
    const bool usable =
        isSections(all) ? object.data3d : object.data2d || object.data3d || object.hipData;
    if (!usable) {
        const bool hip = object.hipData;
        ++all.ignored[hip ? "hipdata" : readable(inOwnForm(object.typeText))];
        return d12PassOver(all.archive.unit, line, all.object);
    }
    const bool passed = !isSections(all) && object.hipData && !wantHip;
    if (!d12ReadVertices(all.archive, all.object, kMaxVertices, all.vertices)) return;
    if (passed) {
        ++all.ignored["hipdata"];
        return;
    }
    if (isSections(all)) all.sections.takeFile(all.look);
    takeVertices(all);
}

bool goesOn(ArchiveLook& all) {
    if (!pulse()) {
        all.look.interrupted = true;
        return false;
    }
    const bool enough =
        all.strings >= kSampleStrings || all.look.expected.vertices >= kSampleVertices;
    all.cut = all.sampled && enough;
    return !all.cut;
}

void readArchive(ArchiveLook& all, bool wantHip) {
    d12OpenArchive(all.archive, enterFolderOf(all.plan.input));
    if (!d12BeginData(all.archive)) {
        all.look.find(Find::wouldStop,
                      {"at its start", "WARNING - Problems finding start of data in .12da file"});
        return;
    }
    std::string_view line;
    while (goesOn(all) && d12NextObject(all.archive.unit, line, all.object)) {
        ++all.strings;
        takeString(all, line, wantHip);
    }
}

// The data is searched for from a line that begins with this word on.
bool hasModelLine(InputFile& file, bool sampled) {
    std::string_view line;
    file.startLinesAt(0);
    while (file.nextLine(line)) {
        if (line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);
        if (beginsWith(line, "model")) return true;
        if (sampled && file.linePlace() > static_cast<std::int64_t>(kHeadBytes)) return false;
    }
    return false;
}

// The last line that counts closes a block in every archive that was written to its end.
bool endsWithinString(InputFile& file) {
    constexpr std::int64_t kTail = 65536;
    const std::string_view tail =
        file.bytesAt(std::max<std::int64_t>(0, file.size() - kTail), kTail);
    std::string_view rest = tail;
    while (!rest.empty()) {
        const std::size_t start =
            rest.rfind('\n') == std::string_view::npos ? 0 : rest.rfind('\n') + 1;
        std::string_view line = rest.substr(start);
        if (line.ends_with('\r')) line.remove_suffix(1);
        const std::string_view counting = withoutTrailingBlanks(d12CountingPart(line));
        if (!counting.empty()) return counting.find('}') == std::string_view::npos;
        rest = rest.substr(0, start == 0 ? 0 : start - 1);
    }
    return false;
}

// -hip of the converter, whatever follows these letters, or --hip.
bool isHipOption(std::string_view option) {
    if (!option.starts_with('-')) return false;
    option.remove_prefix(option.starts_with("--") ? 2 : 1);
    return beginsWith(option, "hip");
}

void tellIgnored(const ArchiveLook& all) {
    std::int64_t total = 0;
    std::string kinds;
    for (const auto& [kind, count] : all.ignored) {
        total += count;
        kinds.append(kinds.empty() ? "" : ", ")
            .append(grouped(count))
            .append(" ")
            .append(kind.empty() ? "unnamed" : kind);
    }
    if (all.look.expected.converted == 0 && !all.look.hasError() && !all.cut) {
        all.look.find(Find::nothingToConvert,
                      {isSections(all) ? "3D strings" : "strings with vertices",
                       kinds.empty() ? "no strings at all" : kinds});
    } else if (total > 0) {
        all.look.find(Find::ignoredStrings, {counted(total, "string"), kinds});
    }
}

}  // namespace

void lookAtArchive(const RunPlan& plan, const LookWish& wish, Look& look) {
    ArchiveLook all{plan, look, CoordinateCheck(plan.conversion), {}, {}, {}, {}, 0, {}};
    InputFile file(plan.input);
    // Cross-sections are files of their own, so all their names must be known.
    all.sampled = !wish.full && file.size() > kWholeSize && !isSections(all);
    const std::string_view mark = file.bytesAt(0, 2);
    const bool utf16 = mark == "\xFE\xFF" || mark == "\xFF\xFE";
    if (utf16 && plan.conversion == Conversion::geoPackage) {
        look.whole = false;
        look.leftOut("strings of " + std::string(namePart(plan.input)) +
                     ", which is written in UTF-16");
        return;
    }
    if (!utf16 && !hasModelLine(file, all.sampled)) return look.find(Find::noModel);
    const bool wantHip = std::any_of(plan.arguments.begin(), plan.arguments.end(), isHipOption);
    const ReaderStop stop = guarded([&] { readArchive(all, wantHip); });
    look.expected.objects = all.strings;
    look.box = all.coordinates.box();
    if (stop.stopped) tellReaderStop(stop.message, all.strings, kMaxVertices, look);
    if (look.interrupted || utf16) return;
    if (all.cut) {
        look.whole = false;
        look.notLookedAt = "strings of " + std::string(namePart(plan.input)) +
                           " behind the first " + grouped(all.strings);
    }
    if (!stop.stopped && all.strings > 0 && endsWithinString(file))
        look.find(Find::cutArchive,
                  {all.cut ? "at its end" : readable(inOwnForm(all.object.name))});
    if (isSections(all)) all.sections.tell(look);
    if (all.coordinates.outsideObject() > 0)
        look.find(Find::outsideColumns,
                  {all.coordinates.outside(), grouped(all.coordinates.outsideObject())});
    tellIgnored(all);
}

}  // namespace vantelgis::batch
