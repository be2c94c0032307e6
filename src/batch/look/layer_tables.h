#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "batch/look/look.h"

/// The records of a layer as its files hold them, beside what the readers give.
namespace vantelgis::batch {

struct TableWish {
    std::int64_t objects = 0;  ///< of the layer, as far as it was read
    bool partial = false;      ///< it was not read to its end
    bool full = false;         ///< read all records, whatever their size
    int numbers = 0;           ///< first columns that should be numbers
};

/// Deleted rows, line breaks within quotes, more or fewer records than objects, asterisks.
void lookAtTable(const std::string& layer, const TableWish& wish, Look& look);

/// Heads of objects all over a layer of which only the first objects were read: kinds that the
/// converter doesn't take, and lines (if they are wanted) of more than `limit` nodes.
void lookAtRestOfLayer(const std::string& layer, std::int32_t limit, bool lines, Look& look);

/// A type such as Char(254) or Decimal(10,3) has a number behind its parenthesis.
bool columnTypeHasWidth(std::string_view type);

}  // namespace vantelgis::batch
