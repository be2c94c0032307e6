#include "gpkg/geometry/blob_writer.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "gpkg/geometry/wkb.h"
#include "run/byte_order.h"

namespace vantelgis::gpkg {

namespace {

// Fills a blob of the right size from its start.
class Filler {
  public:
    explicit Filler(std::string& blob) : next_(blob.data()) {}

    template <typename Number>
    void put(Number value) {
        const auto bytes = bytesOf(value, std::endian::little);
        std::memcpy(next_, bytes.data(), bytes.size());
        next_ += bytes.size();
    }
    void putHead(unsigned flags, std::int32_t srsId) {
        for (const char c : kBlobMagic) put(c);
        put(kBlobVersion);
        put(static_cast<std::uint8_t>(flags | kLittleEndianHead));
        put(srsId);
    }
    void putType(WkbType type, bool withZ) {
        put(kLittleEndianWkb);
        put(static_cast<std::uint32_t>(type) + (withZ ? kZOffset : 0));
    }
    void putVertices(std::span<const Vertex> vertices, bool withZ, double nullZ) {
        for (const Vertex& vertex : vertices) {
            put(vertex.x);
            put(vertex.y);
            if (withZ) put(hasElevation(vertex) ? vertex.z : nullZ);
        }
    }

  private:
    char* next_;
};

constexpr std::size_t kWkbHeadSize = 1 + sizeof(std::uint32_t);

constexpr std::size_t vertexSize(bool withZ) {
    return (withZ ? 3 : 2) * sizeof(double);
}

}  // namespace

void composeLine(std::string& blob, std::span<const Vertex> vertices, const Box& box, bool withZ,
                 const BlobForm& form) {
    blob.resize(kBlobHeadSize + 4 * sizeof(double) + kWkbHeadSize + sizeof(std::uint32_t) +
                vertices.size() * vertexSize(withZ));
    Filler out{blob};
    out.putHead(kRectangleXy, form.srsId);
    for (const double bound : {box.minX, box.maxX, box.minY, box.maxY}) out.put(bound);
    out.putType(WkbType::lineString, withZ);
    out.put(static_cast<std::uint32_t>(vertices.size()));
    out.putVertices(vertices, withZ, form.nullZ);
}

void composePoint(std::string& blob, const Vertex& vertex, bool withZ, const BlobForm& form) {
    blob.resize(kBlobHeadSize + kWkbHeadSize + vertexSize(withZ));
    Filler out{blob};
    out.putHead(0, form.srsId);
    out.putType(WkbType::point, withZ);
    out.putVertices({&vertex, 1}, withZ, form.nullZ);
}

}  // namespace vantelgis::gpkg
