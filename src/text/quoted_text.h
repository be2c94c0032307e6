#pragma once

#include <cstddef>
#include <string_view>

namespace vantelgis {

/// Follows quotes along a text. Outside a quoted text either kind of quote opens one; inside, a
/// doubled quote is passed over, and any other quote, of either kind, closes it. Gives the place
/// (from 0) of the first `wanted` at or behind `from` that stands outside quotes, `npos` if there
/// is none.
std::size_t findOutsideQuotes(std::string_view text, char wanted, std::size_t from = 0);

}  // namespace vantelgis
