#include <filesystem>
#include <fstream>
#include <string>

#include "gis/layer_table.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/units.h"
#include "support/in_process_run.h"
#include "support/rows.h"
#include "support/shape_bytes.h"

// Files that are larger than 32 bits can count; most of each is a hole.
namespace vantelgis {
namespace {

constexpr FieldDefinition kOneField[] = {{"Z", "Integer", 0}};

TEST(LargeFiles, AreReadToTheirEnd) {
    constexpr std::int32_t kCount = 0x7fffffff;  // points of 34 GB
    const std::string head =
        shpHeader(0, 8, {0, 0, 0, 0}) +
        shpRecord(1, integers({8}) + std::string(32, '\0') + integers({kCount}));
    const WorkFolder folder;
    writeFile("a.shp", head);
    writeFile("a.dbf", dbfHeader(2, {{"N", 'N', 1}}) + " 1 2");
    std::filesystem::resize_file("a.shp", head.size() + std::uintmax_t{16} * kCount);
    std::ofstream("a.shp", std::ios::binary | std::ios::app)
        << shpRecord(2, integers({1}) + doubles({1, 2}));
    ObjectNodes nodes{2};
    const RunResult run = runInProcess([&] {
        GisObject object;
        const int layer = gisOpenLayer("a.shp");
        gisReadHeader(layer);
        ASSERT_TRUE(gisObjectType(layer, object) && gisObjectType(layer, object));
        gisReadObject(layer, object, nodes);
        EXPECT_TRUE(object.kind == ObjectKind::point && gisAtEnd(layer));
    });
    EXPECT_EQ(nodes.x[0], 1.0) << run.console;
}

TEST(LargeFiles, AreFinishedAtTheirHeader) {
    constexpr std::int64_t kHole = 5'000'000'000;
    const WorkFolder folder;
    runInProcess([] {
        const double place[] = {1};
        OutputNodes nodes{place, place};
        int layer = gisCreateLayer("out.shp", "P", kOneField);
        ASSERT_TRUE(platform::seekFile(fileOf(gisLayer(layer).dbf[0].dbfUnit).handle, kHole));
        gisWriteObject(layer, {ObjectKind::point}, nodes, {"1"});
        gisCloseLayer(layer);
    });
    EXPECT_EQ(std::filesystem::file_size("out_P.dbf"), kHole + 10U);
    std::filesystem::resize_file("out_P.dbf", 65);
    EXPECT_EQ(readFile("out_P.dbf").replace(1, 3, 3, '\0'), dbfHeader(1, {{"Z", 'N', 8}}));
}

}  // namespace
}  // namespace vantelgis
