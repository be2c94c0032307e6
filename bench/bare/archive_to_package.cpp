#include <cstdio>
#include <vector>

#include "bare/archive_strings.h"
#include "bare/loops.h"
#include "bare/package.h"

namespace bench {

namespace {

struct Rectangle {
    double minX = 1e300, maxX = -1e300, minY = 1e300, maxY = -1e300;
};

// The vertices of a block, behind a head of the geometry, of which all but two fields stay the
// same.
class Geometry {
  public:
    Geometry() {
        std::memcpy(blob_.data(), "GP\0\3\xa0\x86\1\0", 8);  // in the system 100000
        std::memcpy(blob_.data() + kRectangle + sizeof(Rectangle), "\1\xea\3\0\0", 5);
    }
    void take(DataBlocks& blocks) {
        constexpr std::size_t kVertex = 3 * sizeof(double);
        Rectangle box;
        size_ = kHead;
        double x;
        double y;
        double z;
        while (blocks.vertex(x, y, z)) {
            if (size_ + kVertex > blob_.size()) blob_.resize(2 * blob_.size());
            const double vertex[] = {x, y, z};
            std::memcpy(blob_.data() + size_, vertex, kVertex);
            size_ += kVertex;
            if (x < box.minX) box.minX = x;
            if (x > box.maxX) box.maxX = x;
            if (y < box.minY) box.minY = y;
            if (y > box.maxY) box.maxY = y;
        }
        const auto count = static_cast<std::uint32_t>((size_ - kHead) / kVertex);
        std::memcpy(blob_.data() + kRectangle, &box, sizeof box);
        std::memcpy(blob_.data() + kHead - sizeof count, &count, sizeof count);
        box_ = box;
    }
    [[nodiscard]] const Rectangle& box() const { return box_; }
    [[nodiscard]] const char* bytes() const { return blob_.data(); }
    [[nodiscard]] int size() const { return static_cast<int>(size_); }

  private:
    static constexpr std::size_t kRectangle = 8;
    static constexpr std::size_t kHead = kRectangle + sizeof(Rectangle) + 9;
    std::vector<char> blob_ = std::vector<char>(kBlock);
    std::size_t size_ = 0;
    Rectangle box_;
};

}  // namespace

void archiveToPackage(const std::string& in, const std::string& out) {
    const std::string name = out + ".gpkg";
    std::remove(name.c_str());
    Database package(name, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    package.execute(
        "PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
        "PRAGMA cache_size=-24000; BEGIN;"
        "CREATE TABLE strings (fid INTEGER PRIMARY KEY, geom BLOB);"
        "CREATE VIRTUAL TABLE rtree_strings_geom USING rtree(id, minx, maxx, miny, maxy)");
    sqlite3_stmt* const add = package.prepare("INSERT INTO strings VALUES (?,?)");
    sqlite3_stmt* const index =
        package.prepare("INSERT INTO rtree_strings_geom VALUES (?,?,?,?,?)");
    DataBlocks blocks(in + ".12da");
    Geometry geometry;
    for (sqlite3_int64 fid = 1; blocks.next(); ++fid) {
        geometry.take(blocks);
        sqlite3_bind_int64(add, 1, fid);
        sqlite3_bind_blob(add, 2, geometry.bytes(), geometry.size(), SQLITE_STATIC);
        require(sqlite3_step(add) == SQLITE_DONE, "can't add a feature");
        sqlite3_reset(add);
        const Rectangle& box = geometry.box();
        sqlite3_bind_int64(index, 1, fid);
        sqlite3_bind_double(index, 2, box.minX);
        sqlite3_bind_double(index, 3, box.maxX);
        sqlite3_bind_double(index, 4, box.minY);
        sqlite3_bind_double(index, 5, box.maxY);
        require(sqlite3_step(index) == SQLITE_DONE, "can't add to the index");
        sqlite3_reset(index);
    }
    sqlite3_finalize(add);
    sqlite3_finalize(index);
    package.execute("COMMIT");
}

}  // namespace bench
