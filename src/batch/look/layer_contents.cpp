#include <algorithm>
#include <array>

#include "batch/files.h"
#include "batch/input_file.h"
#include "batch/look/attributes.h"
#include "batch/look/coordinate_system.h"
#include "batch/look/coordinates.h"
#include "batch/look/dbf_table.h"
#include "batch/look/guard.h"
#include "batch/look/layer_tables.h"
#include "batch/look/look.h"
#include "batch/look/reader_stops.h"
#include "batch/look/sisters.h"
#include "batch/pulse.h"
#include "gis/layer_table.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "text/limits.h"
#include "text/strings.h"

namespace vantelgis::batch {

namespace {

constexpr std::int64_t kSampleObjects = 20'000;
constexpr std::int64_t kSampleNodes = 200'000;
constexpr int kKinds = static_cast<int>(ObjectKind::multiPoint) + 1;

constexpr std::string_view kKindNames[kKinds] = {
    "unknown object", "empty object",      "point",  "line",
    "polyline",       "multiple polyline", "region", "ellipse",
    "rectangle",      "rounded rectangle", "arc",    "text",
    "multipoint"};

// One walk over a layer: what is wanted of it, and what was met.
struct LayerWalk {
    std::string file;
    bool wantPoints = false;
    bool wantLines = false;
    std::int32_t limit = kMaxNodes2d;
    AttributeCheck::Wish attribute = AttributeCheck::Wish::none;
    std::int64_t objects = 0;
    std::int64_t at = 0;  // the object that is being read, from 1
    std::int64_t nodes = 0;
    std::array<std::int64_t, kKinds> passedOver{};
    bool sampled = false;
    bool cut = false;  // the sample ended before the layer did
    bool stopped = false;
};

// What all walks of a look add up to.
struct LayersLook {
    const RunPlan& plan;
    const LookWish& wish;
    Look& look;
    CoordinateCheck coordinates;
    AttributeCheck attributes{AttributeCheck::Wish::none};
};

ObjectNodes& sharedNodes(std::int32_t limit) {
    static ObjectNodes nodes(kMaxNodes3d);
    nodes.maxNodes = limit;
    return nodes;
}

bool isWanted(const LayerWalk& walk, const GisObject& object) {
    return (walk.wantLines && object.isLineLike()) ||
           (walk.wantPoints && object.kind == ObjectKind::point);
}

// Layers of results may have no type without a width, and their second column may be an angle.
void lookAtColumns(int layer, LayersLook& all, LayerWalk& walk) {
    const GisLayer& open = gisLayer(layer);
    const bool shp = open.kind == GisKind::shp;
    const int count = shp ? open.dbf[0].nFields : open.mif.nAttr;
    const std::string_view second =
        shp ? open.dbf[0].fieldName[1].view() : open.mif.attrName[1].view();
    if (count > 1 && containsIgnoringCase(second, "Angle")) {
        walk.attribute = AttributeCheck::Wish::valueAndAngle;
        all.attributes.wish(walk.attribute);
    }
    for (int i = 0; !shp && i < count; ++i) {
        const std::string_view type = open.mif.attrType[i];
        if (containsIgnoringCase(type, "Float") || columnTypeHasWidth(type)) continue;
        all.look.find(Find::columnType, {open.mif.attrName[i], type});
        return;
    }
}

void takeNodes(LayersLook& all, LayerWalk& walk, const GisObject& object,
               const ObjectNodes& nodes) {
    walk.nodes += nodes.n;
    all.coordinates.add(walk.objects, nodes.xs(), nodes.ys());
    all.look.drawing.add(Shown::converted, nodes.xs(), nodes.ys());
    const bool isPoint = object.kind == ObjectKind::point;
    const bool converts = !isPoint || all.plan.conversion == Conversion::results;
    all.look.expected.converted += converts ? 1 : 0;
    all.look.expected.vertices += converts ? nodes.n : 0;
    all.look.expected.points += isPoint ? 1 : 0;
}

bool goesOn(const LayersLook& all, LayerWalk& walk) {
    if (!pulse()) {
        all.look.interrupted = true;
        return false;
    }
    walk.cut = walk.sampled && (walk.objects >= kSampleObjects || walk.nodes >= kSampleNodes);
    return !walk.cut;
}

void walkLayer(LayersLook& all, LayerWalk& walk) {
    int layer = gisOpenLayer(enterFolderOf(walk.file));
    gisReadHeader(layer);
    if (all.plan.conversion == Conversion::results) lookAtColumns(layer, all, walk);
    ObjectNodes& nodes = sharedNodes(walk.limit);
    GisObject object;
    while (!gisAtEnd(layer) && goesOn(all, walk)) {
        walk.at = walk.objects + 1;
        if (!gisObjectType(layer, object)) continue;
        ++walk.objects;
        const std::string_view record = gisReadRecord(layer, object);
        if (!isWanted(walk, object)) {
            ++walk.passedOver[static_cast<std::size_t>(object.kind)];
            continue;
        }
        const std::int32_t parts = object.kind == ObjectKind::multiPolyline ? object.nParts : 1;
        for (std::int32_t part = 0; part < parts; ++part) {
            gisReadObject(layer, object, nodes);
            takeNodes(all, walk, object, nodes);
        }
        all.attributes.add(walk.objects, record);
    }
    gisCloseLayer(layer);
}

// The objects that are passed over, for the drawing alone: whatever stops here stops no run.
void drawPassedOver(LayersLook& all, const LayerWalk& walk) {
    static_cast<void>(guarded([&] {
        int layer = gisOpenLayer(enterFolderOf(walk.file));
        gisReadHeader(layer);
        ObjectNodes& nodes = sharedNodes(kMaxNodes3d);
        GisObject object;
        std::int64_t left = walk.objects;
        while (!gisAtEnd(layer) && left > 0 && pulse()) {
            if (!gisObjectType(layer, object)) continue;
            --left;
            if (isWanted(walk, object)) continue;
            nodes.n = 0;
            nodes.ringEnds.clear();
            gisReadObject(layer, object, nodes);
            std::size_t start = 0;
            for (const std::int32_t ringEnd : nodes.ringEnds) {
                const auto end = static_cast<std::size_t>(ringEnd);
                if (end > nodes.size() || start >= end) break;
                all.look.drawing.add(Shown::passedOver, nodes.xs().subspan(start, end - start),
                                     nodes.ys().subspan(start, end - start));
                start = end + 1;
            }
            if (nodes.ringEnds.empty())
                all.look.drawing.add(Shown::passedOver, nodes.xs(), nodes.ys());
        }
    }));
}

void tellPassedOver(const LayersLook& all, const LayerWalk& walk) {
    std::int64_t total = 0;
    std::string kinds;
    for (int kind = 0; kind < kKinds; ++kind) {
        const std::int64_t count = walk.passedOver[static_cast<std::size_t>(kind)];
        if (count == 0) continue;
        total += count;
        kinds.append(kinds.empty() ? "" : ", ").append(counted(count, kKindNames[kind]));
    }
    const bool pointsOfPair = walk.wantPoints && all.plan.secondHasLines;
    // Behind a sample of a MIF layer objects of other kinds may stand; a shapefile has one kind.
    const bool known = !walk.cut || inputKindOf(walk.file) == InputKind::shp;
    const bool nothing = walk.objects == total && known && !walk.stopped && !pointsOfPair;
    const std::string_view wanted = walk.wantLines ? "lines or polylines" : "points";
    if (nothing)
        all.look.find(Find::nothingToConvert,
                      {wanted, kinds.empty() ? "no objects at all" : kinds});
    else if (total > 0)
        all.look.find(Find::passedOver, {counted(total, "object"), kinds});
}

void runWalk(LayersLook& all, LayerWalk& walk) {
    walk.sampled = !all.wish.full && sizeWithSisters(walk.file) > kWholeSize;
    all.attributes.wish(walk.attribute);
    const ReaderStop stop = guarded([&] { walkLayer(all, walk); });
    walk.stopped = stop.stopped;
    all.look.expected.objects += walk.objects;
    if (stop.stopped) tellReaderStop(stop.message, walk.at, walk.limit, all.look);
    if (all.look.interrupted) return;
    const TableWish table{
        walk.objects, stop.stopped || walk.cut, all.wish.full,
        walk.attribute == AttributeCheck::Wish::none || walk.attribute == AttributeCheck::Wish::name
            ? 0
            : 1 + static_cast<int>(walk.attribute == AttributeCheck::Wish::valueAndAngle)};
    lookAtTable(walk.file, table, all.look);
    if (walk.cut) {
        all.look.whole = false;
        all.look.leftOut("objects of " + std::string(namePart(walk.file)) + " behind the first " +
                         grouped(walk.objects) + ", but for a sample of their heads");
        lookAtRestOfLayer(walk.file, walk.limit, walk.wantLines, all.look);
    }
    if (all.look.drawing.wanted() && walk.objects > all.look.expected.converted)
        drawPassedOver(all, walk);
    tellPassedOver(all, walk);
}

void tellCoordinates(const LayersLook& all) {
    const CoordinateCheck& check = all.coordinates;
    all.look.box = check.box();
    if (check.outsideObject() > 0)
        all.look.find(Find::outsideColumns, {check.outside(), grouped(check.outsideObject())});
    const InputKind kind = inputKindOf(all.plan.input);
    const std::string source =
        kind == InputKind::mif ? all.plan.input : findSister(all.plan.input, ".prj").file;
    const CoordinateSystem own =
        source.empty() ? CoordinateSystem{} : readCoordinateSystem(source, kind == InputKind::mif);
    const bool geographic = isGeographic(own.line) || own.fault.find("GEOGCS") != std::string::npos;
    if (geographic)
        all.look.find(Find::degrees, {"its coordinate system is of longitudes and latitudes"});
    else if (check.looksLikeDegrees())
        all.look.find(Find::degrees, {"from -180 to 180, with many decimals"});
}

}  // namespace

void lookAtLayers(const RunPlan& plan, const LookWish& wish, Look& look) {
    using Wish = AttributeCheck::Wish;
    LayersLook all{plan, wish, look, CoordinateCheck(plan.conversion)};
    LayerWalk first{plan.input};
    const bool zln = plan.conversion == Conversion::breaklines3d;
    first.wantPoints = zln || plan.conversion == Conversion::results;
    first.wantLines = !first.wantPoints || (zln && plan.second.empty());
    first.limit = zln ? kMaxNodes3d : kMaxNodes2d;
    first.attribute = zln                                      ? Wish::elevation
                      : plan.conversion == Conversion::results ? Wish::value
                                                               : Wish::name;
    runWalk(all, first);
    if (zln && plan.secondHasLines && !look.interrupted) {
        LayerWalk lines = LayerWalk{plan.second};
        lines.wantLines = true;
        lines.limit = kMaxNodes3d;
        lines.attribute = Wish::elevation;
        runWalk(all, lines);
    }
    if (look.expected.points > static_cast<std::int64_t>(kMaxResultPoints))
        look.find(Find::tooManyPoints, {counted(look.expected.points, "point")});
    all.attributes.tell(look);
    tellCoordinates(all);
}

}  // namespace vantelgis::batch
