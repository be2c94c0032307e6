#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace vantelgis {

// The records that pass between the conversions and the format families, and the tables behind
// them. Arrays here start at index 0; the numbers kept in them (layers, nodes, parts) count from 1.

inline constexpr int kMaxLayers = 100;
inline constexpr int kMaxMifFields = 256;
inline constexpr int kMaxDbfFields = 128;
inline constexpr int kMaxParts = 10000;
inline constexpr int kFamilies = 3;  ///< shape families of a layer: points, lines, regions

/// Most nodes of one object that can be written: a full string and its closing node.
inline constexpr std::int32_t kMaxWrittenNodes = 1'000'001;

/// The MapInfo Interchange side of a layer.
struct mifL_ {
    Line line;        ///< last line read by the object scanner, as read
    Line rest;        ///< what follows the keyword on that line
    int mifUnit = 0;  ///< 0 when closed
    int midUnit = 0;  ///< 0 when closed
    int nAttr = 0;    ///< attribute fields in the tables below
    Text<32> attrName[kMaxMifFields];
    Text<24> attrType[kMaxMifFields];  ///< as it stands behind the name, such as Char(254)
};

/// One shapefile of a layer: its units, what its header says, and where its next record goes.
struct shpL_ {
    int shpUnit = 0;    ///< .shp, little-endian view
    int shpUnitBE = 0;  ///< .shp, big-endian view
    int shxUnit = 0;    ///< .shx, little-endian view
    int shxUnitBE = 0;  ///< .shx, big-endian view
    int prjUnit = 0;    ///< .prj, only while it is written
    std::int32_t fileCode = 0;
    std::int32_t fileLength = 0;  ///< in 16-bit words
    std::int32_t version = 0;
    std::int32_t shapeType = 0;   ///< of the header
    std::int32_t recordType = 0;  ///< of the current record
    std::int32_t nObjects = 0;    ///< records written so far
    std::int32_t offset = 0;      ///< of the next record, in 16-bit words
    double xMin = 0;
    double yMin = 0;
    double xMax = -1;
    double yMax = -1;
    std::int64_t unread = 0;  ///< bytes of the current record that were not read yet
    bool countAhead = false;  ///< its count of points, and they, are still to come as well
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
};

enum class GisKind { none = 0, mif = 1, shp = 2 };

/// A slot of the layer table. A layer opened for reading uses only shp[0] and dbf[0].
struct GisLayer {
    bool open = false;
    GisKind kind = GisKind::none;
    Path name;           ///< as gisOpenLayer received it
    bool atEnd = false;  ///< the next read of the handle used last would meet the end of its file
    bool writing = false;
    mifL_ mif;
    shpL_ shp[kFamilies];  ///< points, lines, regions
    dbfL_ dbf[kFamilies];
};

/// The layer table; gisID 1 is gisLayer(1).
GisLayer& gisLayer(int gisID);

/// What the current object is. Exactly one of the flags but `center` is set behind a successful
/// gisObjectType; for writing the caller sets one.
struct GisObject {
    bool none = false;  ///< object without geometry
    bool point = false;
    bool line = false;           ///< of two points
    bool pline = false;          ///< polyline of one section
    bool plineMultiple = false;  ///< polyline of several sections
    bool region = false;
    bool ellipse = false;    ///< no coordinates kept
    bool rect = false;       ///< two corners
    bool roundRect = false;  ///< two corners
    bool arc = false;        ///< no coordinates kept
    bool center = false;     ///< the line read last gives a region's centre
    bool text = false;
    bool multiPoint = false;
    std::int32_t nSections = 1;  ///< of a plineMultiple; points of a multiPoint
    std::int32_t nr = 1;  ///< polygons of a region; when writing, sections of a plineMultiple
    /// Part table. Writing: ir[i] is the node (from 1) at which part i starts, rising strictly.
    /// Read from a region: the node of the polygon's last vertex.
    std::array<std::int32_t, kMaxParts> ir = {1};
    Text<24> objName;  ///< keyword or shape name, for messages

    /// All flags false, one section, one part that starts at node 1, no name; the other entries of
    /// the part table stay.
    void clear();
    /// A flag other than `center` is set.
    [[nodiscard]] bool found() const;
};

/// The attribute fields of a layer that is to be made.
struct GisAttributes {
    std::int32_t n = 0;                      ///< fields, up to kMaxMifFields
    std::int32_t width[kMaxMifFields] = {};  ///< below 1: no width is written
    Text<32> name[kMaxMifFields];
    Text<24> type[kMaxMifFields];  ///< Char, Float, Integer, Decimal or Logical
    std::int32_t nRecords = 0;     ///< record count that a new .dbf header starts with
};

/// One field of such a table.
struct FieldDefinition {
    std::string_view name;
    std::string_view type;
    std::int32_t width;
};

/// The object, the attribute fields and the coordinates and record of the writing direction, shared
/// by all conversions.
extern GisObject gisO_;
extern GisAttributes gisA_;
extern std::int32_t gisN;         ///< nodes of the object to write
extern std::vector<double> gisX;  ///< node 1 at index 0
extern std::vector<double> gisY;
extern Text<1000> gisDataLine;  ///< attribute record to write; the line of a text object

/// Coordinate-system texts of the output: the CoordSys line of a .mif, the line of a .prj.
extern Text<1000> gisMifCoordSys;
extern Text<1000> gisShpProjCS;

/// Makes room for `n` nodes in gisX and gisY; nodes already there stay.
void gisReserveNodes(std::int32_t n);

/// Sets gisA_ to these fields and a record count of 0.
template <std::size_t N>
void gisSetFields(const FieldDefinition (&fields)[N]) {
    gisA_.n = static_cast<std::int32_t>(N);
    gisA_.nRecords = 0;
    for (std::size_t i = 0; i < N; ++i) {
        gisA_.name[i] = fields[i].name;
        gisA_.type[i] = fields[i].type;
        gisA_.width[i] = fields[i].width;
    }
}

/// The coordinates of one object as gisReadObject gives them. The arrays are never cleared between
/// objects, so that what a kind leaves as it was is defined.
struct ObjectNodes {
    /// `limit` (at least 2) is the most nodes that one object, or section of one, may have.
    explicit ObjectNodes(std::int32_t limit)
        : maxNodes(limit), x(static_cast<std::size_t>(limit)), y(static_cast<std::size_t>(limit)) {}

    std::int32_t maxNodes;
    std::int32_t n = 0;     ///< nodes of this object
    std::vector<double> x;  ///< node 1 at index 0
    std::vector<double> y;
    double xc = 0;  ///< its centre or mid-point
    double yc = 0;
    float angle = 0;   ///< direction of a line there, degrees from -180 to 180
    float length = 0;  ///< of a line
};

}  // namespace vantelgis
