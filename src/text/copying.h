#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

/// Puts the characters of `s` that are `wanted(c)` into `out`, up to its capacity. `s` may lie in
/// `out`: the copy runs forward and never writes ahead of its reading.
template <typename Wanted>
void copyWanted(TextRef out, std::string_view s, Wanted wanted) {
    std::size_t length = 0;
    for (const char c : s) {
        if (!wanted(c)) continue;
        if (length == out.capacity) break;
        out.data[length++] = c;
    }
    out.setLength(length);
}

/// Puts the characters of `s`, each as `change(c)`, into `out`, up to its capacity. `s` may be the
/// text of `out`.
template <typename Change>
void copyChanged(TextRef out, std::string_view s, Change change) {
    s = s.substr(0, out.capacity);
    for (std::size_t i = 0; i < s.size(); ++i) out.data[i] = change(s[i]);
    out.setLength(s.size());
}

}  // namespace vantelgis
