#include <algorithm>
#include <cmath>
#include <vector>

#include "batch/files.h"
#include "batch/judge/verdict.h"
#include "batch/look/guard.h"
#include "batch/pulse.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "text/limits.h"

namespace vantelgis::batch {

namespace {

constexpr double kSnap = 0.001;  // nearer than that in x and in y a vertex lies on a point

struct End {
    double x, y;
    bool snapped = false;
};

// Every object of a layer, as far as the reader gets.
template <typename Take>
void eachObject(const std::string& file, ObjectKind wanted, Take take) {
    static_cast<void>(guarded([&] {
        static ObjectNodes nodes(kMaxNodes3d);
        int layer = gisOpenLayer(enterFolderOf(file));
        gisReadHeader(layer);
        GisObject object;
        while (!gisAtEnd(layer) && pulse()) {
            if (!gisObjectType(layer, object)) continue;
            if (object.kind != wanted) continue;
            gisReadObject(layer, object, nodes);
            take(nodes);
        }
    }));
}

// The ends that have a point: the ends are sorted by x, so that few have to be compared.
void markSnapped(const std::string& pointsFile, std::vector<End>& ends) {
    std::sort(ends.begin(), ends.end(), [](const End& a, const End& b) { return a.x < b.x; });
    eachObject(pointsFile, ObjectKind::point, [&](const ObjectNodes& nodes) {
        const double x = nodes.x[0];
        const double y = nodes.y[0];
        auto end = std::lower_bound(ends.begin(), ends.end(), x - kSnap,
                                    [](const End& a, double value) { return a.x < value; });
        for (; end != ends.end() && end->x < x + kSnap; ++end)
            if (std::fabs(end->y - y) < kSnap) end->snapped = true;
    });
}

}  // namespace

void drawCheckLayers(const RunPlan& plan, const RunOutcome& outcome, const Scratch& scratch,
                     Drawing& drawing) {
    if (!drawing.wanted() || plan.conversion != Conversion::breaklines3d) return;
    std::vector<End> ends;
    for (const std::string& name : resultFiles(plan)) {
        const InputKind kind = inputKindOf(name);
        if (kind != InputKind::mif && kind != InputKind::shp) continue;
        const bool dangles = name.find("_dangles") != std::string::npos;
        eachObject(
            resultInScratch(outcome, scratch, name),
            dangles ? ObjectKind::polyline : ObjectKind::point, [&](const ObjectNodes& nodes) {
                drawing.add(dangles ? Shown::dangling : Shown::unsnapped, nodes.xs(), nodes.ys());
                if (!dangles || nodes.n < 1) return;
                ends.push_back({nodes.xs().front(), nodes.ys().front()});
                ends.push_back({nodes.xs().back(), nodes.ys().back()});
            });
    }
    markSnapped(plan.input, ends);
    for (const End& end : ends)
        if (!end.snapped) drawing.add(Shown::danglingEnd, {&end.x, 1}, {&end.y, 1});
}

}  // namespace vantelgis::batch
