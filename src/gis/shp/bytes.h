#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "run/byte_order.h"

namespace vantelgis {

/// Places a number at `out`, high or low byte first, or `count` zero bytes; each gives the place
/// behind.
template <typename Number>
char* placeBig(char* out, Number value) {
    const auto bytes = bytesOf(value, std::endian::big);
    std::memcpy(out, bytes.data(), bytes.size());
    return out + bytes.size();
}
template <typename Number>
char* placeLittle(char* out, Number value) {
    const auto bytes = bytesOf(value, std::endian::little);
    std::memcpy(out, bytes.data(), bytes.size());
    return out + bytes.size();
}
inline char* placeZeros(char* out, std::size_t count) {
    return std::fill_n(out, count, '\0');
}

}  // namespace vantelgis
