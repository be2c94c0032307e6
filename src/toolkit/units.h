#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vantelgis {

extern "C" {

/// True when the next read of the unit would meet the end of its file; so is a unit that isn't
/// open.
bool vg_at_end(std::int32_t unit);

void vg_write_line(std::int32_t unit, const char* text, std::size_t text_length);

}  // extern "C"

/// Writes `text` without its trailing blanks as a line, which ends in CR LF. A write that fails, or
/// a unit that isn't open, stops the run with a message.
inline void vg_write_line(std::int32_t unit, std::string_view text) {
    vg_write_line(unit, text.data(), text.size());
}

}  // namespace vantelgis
