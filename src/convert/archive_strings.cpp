#include "convert/archive_strings.h"

#include "gis/operations.h"
#include "text/limits.h"

namespace vantelgis {

bool ArchiveStrings::readVertices() {
    if (!d12ReadVertices(archive, object, kMaxVertices, vertices)) return false;
    const std::size_t n = vertices.size();
    nodes.assign({vertices.x.data(), n}, {vertices.y.data(), n});
    return true;
}

void writePolyline(ArchiveStrings& run, int layer, const NumberRow& row) {
    gisWriteObject(layer, {.kind = ObjectKind::polyline}, run.nodes, row);
}

}  // namespace vantelgis
