#pragma once

#include <cstdint>
#include <string_view>

#include "gis/report.h"
#include "text/free_format.h"

namespace vantelgis {

/// Stops the run at a failed read of a number: ERROR 0309 where the text ran out, ERROR 0308 where
/// there is something else than a number.
inline void requireNumber(Item item) {
    if (item == Item::end) gisStop("ERROR 0309 - Unexpected end of .mif file encountered.");
    if (item == Item::bad)
        gisStop("ERROR 0308 - Reading .mif file.  Check file format is not corrupted.");
}

/// The count at the start of the text, or the one before if the text leaves it out.
inline std::int32_t takeCount(std::string_view text, std::int32_t countBefore) {
    FreeFormat list{text};
    requireNumber(takeInteger(list, countBefore));
    return countBefore;
}

}  // namespace vantelgis
