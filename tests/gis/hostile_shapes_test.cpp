#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "support/in_process_run.h"
#include "support/shape_bytes.h"

namespace vantelgis {
namespace {

// One object of each kind that is read. Coordinates are made of `@`, which no count holds: to
// change them changes nothing else.
std::string goodShapes() {
    const std::string box(32, '@');
    const auto points = [](std::size_t n) { return std::string(16 * n, '@'); };
    return shpHeader(240, 3, {}) + box +
           shpRecord(1, integers({3}) + box + integers({2, 10, 0, 4}) + points(10)) +
           shpRecord(2, integers({5}) + box + integers({2, 10, 0, 5}) + points(10)) +
           shpRecord(3, integers({8}) + box + integers({2}) + points(2)) +
           shpRecord(4, integers({0})) +
           shpRecord(5, integers({3}) + box + integers({1, 2, 0}) + points(2)) +
           shpRecord(6, integers({1}) + points(1));
}

std::string goodTable() {
    return dbfHeader(6, {{"NAME", 'C', 4}, {"Z", 'N', 3}}) +
           " weir1.5*gone  1 a   ***     2.5 b   7.5 c   8.5 d   9.5\x1a";
}

// Takes in what a layer holds; unless `wanted`, its objects are passed over as a conversion does.
void readLayer(bool wanted) {
    static GisObject object;
    static ObjectNodes nodes{100};
    int layer = gisOpenLayer("a.shp", {}, "I ");
    gisReadHeader(layer);
    while (!gisAtEnd(layer)) {
        if (!gisObjectType(layer, object)) continue;
        Line record;
        gisReadRecord(layer, object, record);
        const bool inSections = object.plineMultiple || object.multiPoint;
        const std::int32_t reads = inSections ? object.nSections : object.found() ? 1 : 0;
        for (std::int32_t i = 0; wanted && i < reads; ++i) gisReadObject(layer, object, nodes);
    }
    gisCloseLayer(layer);
    consoleLine("Finished.");
}

// Every prefix of the file `name`, and every one of its bytes set to the values at the borders of a
// number, has to end the run in order or let it pass.
void attack(const char* name, const std::string& good) {
    const auto attempt = [&](const std::string& bytes) {
        writeFile(name, bytes);
        for (const bool wanted : {true, false}) {
            const auto run = runInProcess([wanted] { readLayer(wanted); });
            const std::string_view needed = run.ended ? "\nERROR 0" : "\nFinished.\n";
            ASSERT_NE(run.console.find(needed), std::string::npos) << run.console;
        }
    };
    attempt(good);
    EXPECT_FALSE(runInProcess([] { readLayer(true); }).ended);
    for (std::size_t size = 0; size < good.size(); ++size) attempt(good.substr(0, size));
    for (std::size_t at = 0; at < good.size(); ++at) {
        if (good[at] == '@') continue;
        for (const char value : {'\x00', '\x7f', '\x80', '\xff'}) {
            std::string changed = good;
            changed[at] = value;
            attempt(changed);
        }
    }
}

TEST(HostileShapes, EndInOrder) {
    const WorkFolder folder;
    writeFile("a.dbf", goodTable());
    attack("a.shp", goodShapes());
    writeFile("a.shp", goodShapes());
    attack("a.dbf", goodTable());
}

}  // namespace
}  // namespace vantelgis
