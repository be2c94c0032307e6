#pragma once

#include <string>

// The least that a conversion must do: each loop reads the program's input, converts its numbers
// and writes the bytes that the program writes behind the heads of its files. The input is taken to
// be what bench_generate writes; there are no messages and no checks but those that keep a loop
// from running astray. None of them may become slower for the program's sake.
namespace bench {

using Loop = void(const std::string& in, const std::string& out);

// lines.mif or lines.shp to 2D strings.
Loop mifToArchive, shpToArchive;
// site.12da to out.mif with its .mid, or to out_L and out_P with their three files each.
Loop archiveToMif, archiveToShp;
// site.12da to the layer `strings` of out.gpkg with its spatial index, and back.
Loop archiveToPackage, packageToArchive;
// points.mif or points.shp to symbols.
Loop mifResults, shpResults;
// points.mif and lines.mif to 3D strings, the points that no vertex took and the lines that end
// beside them.
Loop snapping;

}  // namespace bench
