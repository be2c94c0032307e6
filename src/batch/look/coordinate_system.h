#pragma once

#include <string>
#include <string_view>

/// The texts that name a coordinate system: the CoordSys line of a MapInfo file, and well-known
/// text (OGC 01-009) of a .prj.
namespace vantelgis::batch {

struct CoordinateSystem {
    std::string line;    ///< the first line with CoordSys or PROJCS, as the converter takes it
    std::string joined;  ///< the whole text on one line; empty when it is of another kind
    std::string fault;   ///< why the converter can't take it, or not whole; empty when it can
};

/// Looks into the first megabyte of a file. `mif`: for a CoordSys line, else for PROJCS.
CoordinateSystem readCoordinateSystem(const std::string& file, bool mif);

/// Two texts on one line name the same system: the same projection with the same parameters, or the
/// same words but for blanks and case.
bool sameCoordinateSystem(std::string_view a, std::string_view b);

/// The text is of a system of longitudes and latitudes.
bool isGeographic(std::string_view text);

}  // namespace vantelgis::batch
