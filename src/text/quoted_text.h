#pragma once

#include <cstddef>
#include <string_view>

namespace vantelgis {

/// The place (from 0) of the first `wanted` that stands outside quotes, `npos` if there is none.
/// Either kind of quote opens a quoted text and either kind closes it; a doubled one does neither.
std::size_t findOutsideQuotes(std::string_view text, char wanted);

}  // namespace vantelgis
