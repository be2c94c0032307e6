#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vantelgis {

/// An attribute field of a layer that is to be made.
struct FieldDefinition {
    std::string_view name;  ///< a table keeps its letters, digits and underscores, at most 10
    std::string_view type;  ///< Char, Float, Integer, Decimal or Logical
    std::int32_t width;     ///< of a Char or Decimal; below 1: none is written
};
using FieldDefinitions = std::span<const FieldDefinition>;

/// An attribute row that begins with a number field: one word with no more than blanks before it.
/// The rest of the row begins with its comma, or there is none. Rows that follow one another are
/// written fastest when they have the same rest. Any other row has a number of no width.
struct NumberRow {
    std::string_view text;
    std::size_t numberWidth = 0;
    [[nodiscard]] std::string_view number() const { return text.substr(0, numberWidth); }
    [[nodiscard]] std::string_view rest() const { return text.substr(numberWidth); }
};

}  // namespace vantelgis
