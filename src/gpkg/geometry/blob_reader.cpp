#include "gpkg/geometry/blob_reader.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>

#include "gpkg/geometry/wkb.h"
#include "run/byte_order.h"

namespace vantelgis::gpkg {

namespace {

struct ResultWords {
    BlobResult result;
    std::string_view words;
};
constexpr ResultWords kWords[] = {
    {BlobResult::notABlob, "its geometry is no GeoPackage geometry"},
    {BlobResult::extended, "its geometry is of a type that only its own program knows"},
    {BlobResult::badHead, "the head of its geometry is damaged"},
    {BlobResult::badByteOrder, "its geometry is damaged: no such byte order"},
    {BlobResult::badType, "its geometry is damaged: no such type"},
    {BlobResult::wrongPart, "its geometry is damaged: a part is of another type than the whole"},
    {BlobResult::cutShort, "its geometry is cut short"},
    {BlobResult::tooLong, "its geometry is damaged: bytes are left behind it"},
    {BlobResult::badNumber, "a coordinate of it is no finite number"},
    {BlobResult::curve,
     "it holds curves. Make lines of them first (QGIS: Processing, \"Segmentize\"; or ogr2ogr -nlt "
     "CONVERT_TO_LINEAR)"},
    {BlobResult::collection,
     "it is a collection. Take it apart first (QGIS: Processing, \"Multipart to singleparts\", "
     "then "
     "\"Extract by expression\"; or ogr2ogr -explodecollections)"},
};

// The bytes not yet read, and their order.
struct Cursor {
    std::string_view bytes;
    std::endian order = std::endian::little;

    template <typename Number>
    bool take(Number& value) {
        if (bytes.size() < sizeof value) return false;
        value = valueOf<Number>(bytes.data(), order);
        bytes.remove_prefix(sizeof value);
        return true;
    }
};

// What the start of a geometry, or of a part of one, says.
struct GeometryHead {
    WkbType type = WkbType::point;
    bool hasZ = false;
    bool hasM = false;
    [[nodiscard]] std::size_t vertexSize() const {
        return (2 + std::size_t{hasZ} + std::size_t{hasM}) * sizeof(double);
    }
};

// Some writers mark Z and M by the two highest bits, as was done before the numbers were agreed on.
bool splitType(std::uint32_t code, GeometryHead& head) {
    constexpr std::uint32_t kZBit = 0x80000000U;
    constexpr std::uint32_t kMBit = 0x40000000U;
    const std::uint32_t number = code & ~(kZBit | kMBit);
    const std::uint32_t dimensions = number / kZOffset;
    head.type = static_cast<WkbType>(number % kZOffset);
    head.hasZ = (code & kZBit) != 0 || (dimensions & 1U) != 0;
    head.hasM = (code & kMBit) != 0 || (dimensions & 2U) != 0;
    constexpr std::uint32_t kLastType = 17;
    return dimensions <= 3 && number % kZOffset - 1 < kLastType;
}

BlobResult takeHead(Cursor& cursor, GeometryHead& head) {
    std::uint8_t order = 0;
    if (!cursor.take(order)) return BlobResult::cutShort;
    if (order != kLittleEndianWkb && order != kBigEndianWkb) return BlobResult::badByteOrder;
    cursor.order = order == kLittleEndianWkb ? std::endian::little : std::endian::big;
    std::uint32_t code = 0;
    if (!cursor.take(code)) return BlobResult::cutShort;
    return splitType(code, head) ? BlobResult::taken : BlobResult::badType;
}

Vertex vertexAt(const char* bytes, std::endian order, bool hasZ) {
    constexpr std::size_t kSize = sizeof(double);
    return {valueOf<double>(bytes, order), valueOf<double>(bytes + kSize, order),
            hasZ ? valueOf<double>(bytes + 2 * kSize, order) : kNoElevation};
}

// As many vertices as there is room for; their bytes are there. Most are stored as memory has them.
void placeVertices(const Cursor& cursor, const GeometryHead& head, std::span<Vertex> vertices) {
    const char* bytes = cursor.bytes.data();
    if (cursor.order == std::endian::native && head.hasZ && !head.hasM) {
        static_assert(sizeof(Vertex) == 3 * sizeof(double));
        if (!vertices.empty()) std::memcpy(vertices.data(), bytes, vertices.size_bytes());
        return;
    }
    for (Vertex& vertex : vertices) {
        vertex = vertexAt(bytes, cursor.order, head.hasZ);
        bytes += head.vertexSize();
    }
}

// A finite number less itself is 0, any other is not a number; z may be that, but not infinite.
bool areFinite(std::span<const Vertex> vertices) {
    double nothing = 0;
    bool infinite = false;
    for (const Vertex& vertex : vertices) {
        nothing += (vertex.x - vertex.x) + (vertex.y - vertex.y);
        infinite |= std::fabs(vertex.z) > std::numeric_limits<double>::max();
    }
    return nothing == 0 && !infinite;
}

void endPart(Shape& shape, const GeometryHead& head) {
    const std::size_t start = shape.partEnds.empty() ? 0 : shape.partEnds.back();
    if (shape.vertices.size() == start) return;
    shape.partEnds.push_back(shape.vertices.size());
    shape.hasZ = shape.hasZ || head.hasZ;
}

// A point without coordinates is how an empty one is stored.
BlobResult takePoint(Cursor& cursor, const GeometryHead& head, Shape& shape) {
    if (cursor.bytes.size() < head.vertexSize()) return BlobResult::cutShort;
    const Vertex vertex = vertexAt(cursor.bytes.data(), cursor.order, head.hasZ);
    cursor.bytes.remove_prefix(head.vertexSize());
    if (std::isnan(vertex.x) && std::isnan(vertex.y)) return BlobResult::taken;
    if (!areFinite({&vertex, 1})) return BlobResult::badNumber;
    shape.vertices.push_back(vertex);
    endPart(shape, head);
    return BlobResult::taken;
}

BlobResult takeVertices(Cursor& cursor, const GeometryHead& head, Shape& shape) {
    std::uint32_t count = 0;
    const std::size_t size = head.vertexSize();
    if (!cursor.take(count) || cursor.bytes.size() < std::uint64_t{count} * size)
        return BlobResult::cutShort;
    const std::size_t start = shape.vertices.size();
    shape.vertices.resize(start + count);
    const std::span<Vertex> vertices = std::span(shape.vertices).subspan(start);
    placeVertices(cursor, head, vertices);
    cursor.bytes.remove_prefix(count * size);
    return areFinite(vertices) ? BlobResult::taken : BlobResult::badNumber;
}

BlobResult takeLine(Cursor& cursor, const GeometryHead& head, Shape& shape) {
    const BlobResult result = takeVertices(cursor, head, shape);
    endPart(shape, head);
    return result;
}

BlobResult takeRing(Cursor& cursor, const GeometryHead& head, Shape& shape) {
    const std::size_t start = shape.vertices.size();
    const BlobResult result = takeVertices(cursor, head, shape);
    if (result == BlobResult::taken && shape.vertices.size() > start) {
        const Vertex first = shape.vertices[start];
        const Vertex& last = shape.vertices.back();
        if (first.x != last.x || first.y != last.y) shape.vertices.push_back(first);
    }
    endPart(shape, head);
    return result;
}

BlobResult takePolygon(Cursor& cursor, const GeometryHead& head, Shape& shape) {
    std::uint32_t rings = 0;
    if (!cursor.take(rings)) return BlobResult::cutShort;
    BlobResult result = BlobResult::taken;
    for (; rings > 0 && result == BlobResult::taken; --rings)
        result = takeRing(cursor, head, shape);
    return result;
}

using TakePart = BlobResult (*)(Cursor&, const GeometryHead&, Shape&);

BlobResult takeParts(Cursor& cursor, WkbType partType, TakePart take, Shape& shape) {
    std::uint32_t parts = 0;
    if (!cursor.take(parts)) return BlobResult::cutShort;
    for (; parts > 0; --parts) {
        GeometryHead head;
        BlobResult result = takeHead(cursor, head);
        if (result == BlobResult::taken && head.type != partType) result = BlobResult::wrongPart;
        if (result == BlobResult::taken) result = take(cursor, head, shape);
        if (result != BlobResult::taken) return result;
    }
    return BlobResult::taken;
}

BlobResult takeGeometry(Cursor& cursor, Shape& shape) {
    GeometryHead head;
    const BlobResult result = takeHead(cursor, head);
    if (result != BlobResult::taken) return result;
    switch (head.type) {
        case WkbType::point: return takePoint(cursor, head, shape);
        case WkbType::lineString: return takeLine(cursor, head, shape);
        case WkbType::polygon: return takePolygon(cursor, head, shape);
        case WkbType::multiPoint: return takeParts(cursor, WkbType::point, takePoint, shape);
        case WkbType::multiLineString:
            return takeParts(cursor, WkbType::lineString, takeLine, shape);
        case WkbType::multiPolygon: return takeParts(cursor, WkbType::polygon, takePolygon, shape);
        case WkbType::circularString:
        case WkbType::compoundCurve:
        case WkbType::curvePolygon:
        case WkbType::multiCurve:
        case WkbType::multiSurface:
        case WkbType::curve:
        case WkbType::surface: return BlobResult::curve;
        default: return BlobResult::collection;
    }
}

// Passes over the head with its rectangle.
BlobResult passHead(std::string_view& blob) {
    constexpr std::size_t kRectangleSizes[] = {0, 4, 6, 6, 8};  // numbers, by what the flags say
    if (!blob.starts_with(kBlobMagic)) return BlobResult::notABlob;
    if (blob.size() < kBlobHeadSize) return BlobResult::cutShort;
    const auto flags = static_cast<unsigned char>(blob[3]);
    if (static_cast<std::uint8_t>(blob[2]) != kBlobVersion) return BlobResult::badHead;
    if ((flags & kExtendedBlob) != 0) return BlobResult::extended;
    const std::size_t rectangle = (flags >> 1U) & 7U;
    if (rectangle >= std::size(kRectangleSizes)) return BlobResult::badHead;
    const std::size_t size = kBlobHeadSize + kRectangleSizes[rectangle] * sizeof(double);
    if (blob.size() < size) return BlobResult::cutShort;
    blob.remove_prefix(size);
    return BlobResult::taken;
}

}  // namespace

std::string_view wordsOf(BlobResult result) {
    for (const ResultWords& row : kWords)
        if (row.result == result) return row.words;
    return {};
}

BlobResult readBlob(std::string_view blob, Shape& shape) {
    shape.clear();
    BlobResult result = passHead(blob);
    if (result != BlobResult::taken) return result;
    Cursor cursor{blob};
    result = takeGeometry(cursor, shape);
    if (result == BlobResult::taken && !cursor.bytes.empty()) return BlobResult::tooLong;
    return result;
}

}  // namespace vantelgis::gpkg
