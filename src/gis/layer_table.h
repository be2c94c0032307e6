#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "text/limits.h"
#include "text/text.h"

namespace vantelgis {

// The table of open layers. What of a slot concerns one file family alone is a record of that
// family's.

/// The shape families of a layer: a shapefile holds one of them.
enum ShapeFamily : std::uint8_t { kPoints, kLines, kRegions };
inline constexpr int kFamilies = 3;

/// The MapInfo Interchange side of a layer.
struct mifL_ {
    std::string_view rest;  ///< behind the keyword found last; gone with the next read of its unit
    bool lineRead = false;  ///< instead of `rest`, all that its line holds was read:
    double pointX = 0;      ///< the place of a point
    double pointY = 0;
    std::int32_t nNodes = 0;      ///< the count of a polyline
    int mifUnit = 0;              ///< 0 when closed
    int midUnit = 0;              ///< 0 when closed
    std::string_view objectName;  ///< of the object written last, for a message
    int nAttr = 0;                ///< attribute fields in the tables below
    Text<32> attrName[kMaxMifFields];
    Text<24> attrType[kMaxMifFields];  ///< as it stands behind the name, such as Char(254)
};

/// One shapefile of a layer: its units, what its header says, and how far it was read or written.
struct shpL_ {
    int shpUnit = 0;              ///< .shp, little-endian view
    int shpUnitBE = 0;            ///< .shp, big-endian view
    int shxUnit = 0;              ///< .shx, little-endian view
    int shxUnitBE = 0;            ///< .shx, big-endian view
    int prjUnit = 0;              ///< .prj, only while it is written
    std::int32_t shapeType = 0;   ///< of the header
    std::int32_t recordType = 0;  ///< of the current record
    std::int32_t nObjects = 0;    ///< records written so far
    std::int32_t offset = 0;      ///< of the next record, in 16-bit words
    double xMin = 0;
    double yMin = 0;
    double xMax = -1;
    double yMax = -1;
    std::int64_t unread = 0;    ///< bytes of the current record that were not read yet
    bool countAhead = false;    ///< its count of points, and they, are still to come as well
    std::int32_t nParts = 0;    ///< parts of the current record
    std::int32_t nextPart = 0;  ///< the one that is read next, from 0
    std::vector<std::int32_t> partStarts;  ///< their first points, from 0, and the number of points
};

/// The dBase table that belongs to a shapefile.
struct dbfL_ {
    int dbfUnit = 0;
    std::int32_t nRecords = 0;  ///< record count of the header
    std::int32_t recordNo = 0;  ///< records read or written so far
    std::int32_t nFields = 0;
    std::int32_t recordLength = 0;  ///< sum of the field widths
    std::int32_t fieldWidth[kMaxDbfFields] = {};
    std::int32_t fieldDecimals[kMaxDbfFields] = {};
    Text<11> fieldName[kMaxDbfFields];
    char fieldType[kMaxDbfFields] = {};
    Line row;                       ///< the record read last, as a line of text
    std::vector<char> bytes;        ///< the record written last, with its mark
    std::int64_t splitOfBytes = 0;  ///< the split from which its fields behind the first one come
};

enum class GisKind { none = 0, mif = 1, shp = 2 };

/// A slot of the layer table. A layer opened for reading uses only shp[0] and dbf[0].
struct GisLayer {
    GisKind kind = GisKind::none;  ///< none: free
    Path name;                     ///< as it was opened
    bool writing = false;
    mifL_ mif;
    shpL_ shp[kFamilies];  ///< see ShapeFamily
    dbfL_ dbf[kFamilies];
};

/// The slot of a handle from 1 to kMaxLayers; any other is an internal fault that stops the run
/// and names `operation`.
GisLayer& gisLayer(int gisID, std::string_view operation = "gisLayer");

/// The slots that were used so far, from that of handle 1 on.
extern std::unique_ptr<GisLayer> layerSlots[kMaxLayers];

/// The stop of gisLayer and usableLayer.
[[noreturn]] void stopAtHandle(int gisID, std::string_view operation);

/// The same as gisLayer of a layer that is open: one of no kind is such a fault as well.
inline GisLayer& usableLayer(int gisID, std::string_view operation) {
    const bool inTable = gisID >= 1 && gisID <= kMaxLayers;
    GisLayer* const layer = inTable ? layerSlots[gisID - 1].get() : nullptr;
    if (layer == nullptr || layer->kind == GisKind::none) stopAtHandle(gisID, operation);
    return *layer;
}

/// The lowest handle whose slot is free; the slot is brought to its start state. ERROR 0251 when
/// there is none.
int takeFreeLayer();

/// Brings all slots to their start state.
void gisInitialiseLayers();

}  // namespace vantelgis
