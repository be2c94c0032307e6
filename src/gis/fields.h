#pragma once

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

}  // namespace vantelgis
