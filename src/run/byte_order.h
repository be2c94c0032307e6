#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

namespace vantelgis {

// Numbers as bytes in a stated order, whatever the order of the machine.

template <typename Number>
std::array<char, sizeof(Number)> bytesOf(Number value, std::endian order) {
    auto bytes = std::bit_cast<std::array<char, sizeof(Number)>>(value);
    if (order != std::endian::native) std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

template <typename Number>
Number valueOf(const char* bytes, std::endian order) {
    std::array<char, sizeof(Number)> copy;
    std::memcpy(copy.data(), bytes, sizeof(Number));
    if (order != std::endian::native) std::reverse(copy.begin(), copy.end());
    return std::bit_cast<Number>(copy);
}

template <typename Number>
Number fromLittleEndian(const char* bytes) {
    return valueOf<Number>(bytes, std::endian::little);
}

template <typename Number>
Number fromBigEndian(const char* bytes) {
    return valueOf<Number>(bytes, std::endian::big);
}

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
