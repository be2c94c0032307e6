#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>

#include "gis/layer_table.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "support/memory_calls.h"

namespace vantelgis {

/// What a layer holds: a line for each object with its kind, the parts it speaks of, its nodes (a
/// ";" behind each read), the last vertex of each ring, a centre that the file gives, and its
/// record. Of no object more than `reads` parts are fetched. Ends with the message that stopped the
/// reading.
inline std::string layerText(memory::Files files, std::string_view name, std::int32_t reads = 99,
                             std::int32_t limit = 100) {
    constexpr const char* kKinds[] = {"unknown", "none",   "point",   "line", "pline",
                                      "plines",  "region", "ellipse", "rect", "round",
                                      "arc",     "text",   "points"};
    std::ostringstream text;
    text.precision(9);
    const std::string console = consoleOf(std::move(files), [&] {
        GisObject object;
        ObjectNodes nodes{limit};
        int layer = gisOpenLayer(name);
        gisReadHeader(layer);
        while (!gisAtEnd(layer)) {
            if (!gisObjectType(layer, object)) {
                text << gisLayer(layer).mif.rest;  // none
                continue;
            }
            const std::string_view record = gisReadRecord(layer, object);
            text << kKinds[static_cast<int>(object.kind)] << ' ' << object.nParts << ':';
            const bool parts =
                object.kind == ObjectKind::multiPolyline || object.kind == ObjectKind::multiPoint;
            const int fetched = object.kind == ObjectKind::unknown ? 0 : parts ? object.nParts : 1;
            for (int i = std::min(reads, fetched); i > 0; --i) {
                gisReadObject(layer, object, nodes);
                for (std::size_t n = 0; n < nodes.size(); ++n)
                    text << ' ' << nodes.x[n] << ' ' << nodes.y[n] << ',';
                text << ';';
            }
            if (object.kind == ObjectKind::region)
                for (const std::int32_t end : nodes.ringEnds) text << " e" << end;
            if (nodes.centreRead) text << " c" << nodes.xCentre << ' ' << nodes.yCentre;
            text << " |" << record << '\n';
        }
        gisCloseLayer(layer);
    });
    return text.str() + faultIn(console);
}

}  // namespace vantelgis
