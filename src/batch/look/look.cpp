#include "batch/look/look.h"

#include <algorithm>

#include "batch/files.h"

namespace vantelgis::batch {

namespace {

constexpr std::int64_t kMegabyte = 1'000'000;

// Bytes of the result for each vertex, and of a point with its row.
std::int64_t resultBytes(const RunPlan& plan, const Look& look) {
    constexpr std::int64_t kPerVertex = 60;
    constexpr std::int64_t kPerPoint = 120;
    if (look.whole) return look.expected.vertices * kPerVertex + look.expected.points * kPerPoint;
    return sizeWithSisters(plan.input);
}

void lookAtRoom(const RunPlan& plan, Look& look) {
    const std::int64_t room = freeSpace(plan.targetFolder);
    const std::int64_t wanted = resultBytes(plan, look);
    if (room < 0 || wanted <= room) return;
    look.find(Find::noRoom,
              {grouped(wanted / kMegabyte + 1), grouped(room / kMegabyte), plan.targetFolder});
}

// 3D breaklines are of points and lines, in one layer or in two.
void lookForBothSides(Look& look) {
    const Expected& expected = look.expected;
    if (!look.whole || look.hasError() || look.has(Find::nothingToConvert)) return;
    if (expected.converted == 0)
        look.find(Find::nothingToConvert,
                  {"lines or polylines", counted(expected.points, "point")});
    else if (expected.points == 0)
        look.find(Find::noPoints, {counted(expected.converted, "line")});
}

}  // namespace

void Look::find(Find find, std::initializer_list<std::string_view> seen) {
    findings.push_back(makeFinding(find, seen));
}

void Look::leftOut(std::string_view what) {
    notLookedAt.append(notLookedAt.empty() ? "" : "; ").append(what);
}

bool Look::hasError() const {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.level == Level::error; });
}

bool Look::has(Find find) const {
    const std::string_view name = rowOf(find).name;
    return std::any_of(findings.begin(), findings.end(),
                       [name](const Finding& finding) { return finding.name == name; });
}

Look lookAt(const Options& options, const RunPlan& plan, const LookWish& wish) {
    Look look;
    if (wish.drawing) look.drawing.want();
    lookAtFiles(options, plan, look);
    if (look.neverRun) return look;
    if (plan.conversion != Conversion::geoPackage) lookAtProjection(options, plan, look);
    if (inputKindOf(plan.input) == InputKind::archive) {
        lookAtArchive(plan, wish, look);
    } else {
        lookAtLayers(plan, wish, look);
        if (plan.conversion == Conversion::breaklines3d) lookForBothSides(look);
    }
    lookAtRoom(plan, look);
    return look;
}

std::string grouped(std::int64_t value) {
    std::string digits = std::to_string(value);
    const std::size_t first = value < 0 ? 1 : 0;
    for (std::size_t at = digits.size(); at > first + 3;) digits.insert(at -= 3, 1, ',');
    return digits;
}

std::string counted(std::int64_t value, std::string_view noun) {
    std::string text = grouped(value);
    text.append(" ").append(noun);
    if (value != 1) text += noun.ends_with('x') ? "es" : "s";
    return text;
}

}  // namespace vantelgis::batch
