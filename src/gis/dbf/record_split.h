#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "gis/fields.h"
#include "gis/layer_table.h"
#include "text/text.h"

namespace vantelgis {

/// An item of a record line.
using RecordItem = Text<256>;

/// The items of the line split last. Rows that follow one another often differ in their first item
/// alone: the rest of the line is kept, so that an equal one need not be split again.
struct RecordItems {
    RecordItem items[kMaxDbfFields];
    Line rest;                          ///< of the line, behind its first item
    std::span<RecordItem> itemsOfRest;  ///< what it was split into
    std::int64_t nSplits = 0;           ///< how often a rest was split
    bool firstIsNumber = false;         ///< blanks in front of the first item don't belong to it
};

/// Splits a record line into the first `n` of the items. Commas or blanks separate; quotes hold
/// blanks, commas and slashes together, and a doubled quote in them stands for one; `n*` repeats
/// the item behind it n times; a slash ends the line. Items that the line leaves empty or does not
/// reach keep their text. False for a line that makes no sense, which is a repeat count of 0.
bool dbfSplitRecord(std::string_view line, std::size_t n, RecordItems& items);

/// Takes the number of a row as first item, if the rest of the row is the one that was split last,
/// also into `n` items: the split comes to no more than that. False leaves the items as they are.
bool dbfTakeNumber(const NumberRow& row, std::size_t n, RecordItems& items);

}  // namespace vantelgis
