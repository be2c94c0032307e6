#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "bare/files.h"

// Values and sizes of shapefiles. A machine of little-endian words is taken for granted.
namespace bench {

inline constexpr std::size_t kShapeHead = 100;

template <typename Number>
Number littleAt(const char* from) {
    Number value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

template <typename Number>
char* putLittle(char* out, Number value) {
    std::memcpy(out, &value, sizeof value);
    return out + sizeof value;
}

inline char* putBig(char* out, std::int32_t value) {
    return putLittle(out, __builtin_bswap32(static_cast<std::uint32_t>(value)));
}

// The size of a table's row as its head says; the rows follow.
inline std::size_t rowSizeBehindHead(Input& table) {
    const char* head = table.take(32);
    if (head == nullptr) giveUp("no table");
    const std::size_t rowSize = littleAt<std::uint16_t>(head + 10);
    table.take(static_cast<std::size_t>(littleAt<std::uint16_t>(head + 8)) - 32);
    return rowSize;
}

}  // namespace bench
