#pragma once

#include <cstdint>
#include <string>

// What a benchmark reads. Each recipe fills a folder with about so many vertices (or points) and
// gives how many they are: the same bytes on every machine and in every run.
namespace bench {

using Recipe = std::int64_t(const std::string& folder, std::int64_t vertices);

// lines.mif or lines.shp. Long: polylines of 20 to 60 nodes with a record of two attributes; short:
// of 4 nodes with a record of ten.
Recipe longMifLines, shortMifLines, longShpLines, shortShpLines;

// points.mif or points.shp: results with a magnitude, an angle and two attributes more.
Recipe mifResults, shpResults;

// site.12da. Strings of 50 to 500 vertices with elevations; super strings of as many twice, first
// with a level, then with null words among the elevations; one string of all vertices; strings of 4
// vertices with ten attributes.
Recipe archiveOf3dStrings, archiveOfSuperStrings, archiveOfOneString, archiveOfShortStrings;
// Strings of 40 and of 4 vertices with elevations; beside them lines.mif with the same lines.
Recipe archiveOfForties, archiveOfFours;

// lines.mif, points.mif and, as points that cost nothing, none.mif. One point to five vertices, at
// most a million. Half of the points near a vertex; a point on every vertex; all on one north-south
// line; all in one place; all on the same few centimetres of ground.
Recipe snapNear, snapDense, snapOnLine, snapInOnePlace, snapCrowded;

}  // namespace bench
