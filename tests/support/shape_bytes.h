#pragma once

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "run/byte_order.h"

// The bytes of shapefiles and dBase tables, put together as their published layouts draw them.
namespace vantelgis {

template <typename Number>
std::string little(Number value) {
    const auto bytes = bytesOf(value, std::endian::little);
    return {bytes.data(), bytes.size()};
}

inline std::string big(std::int32_t value) {
    const auto bytes = bytesOf(value, std::endian::big);
    return {bytes.data(), bytes.size()};
}

template <typename Number>
std::string allLittle(std::initializer_list<Number> values) {
    std::string bytes;
    for (const Number value : values) bytes += little(value);
    return bytes;
}
constexpr auto integers = allLittle<std::int32_t>;
constexpr auto doubles = allLittle<double>;

/// A main header; its length counts 16-bit words.
inline std::string shpHeader(std::int32_t words, std::int32_t type,
                             std::initializer_list<double> box) {
    return big(9994) + std::string(20, '\0') + big(words) + integers({1000, type}) + doubles(box) +
           std::string(32, '\0');
}

/// A record of a .shp around its content, which begins with the shape type.
inline std::string shpRecord(std::int32_t number, const std::string& content) {
    return big(number) + big(static_cast<std::int32_t>(content.size() / 2)) + content;
}

struct DbfField {
    std::string_view name;
    char type;
    int width;
    int decimals = 0;
};

/// The header of a table with its date left 0.
inline std::string dbfHeader(std::int32_t records, const std::vector<DbfField>& fields) {
    std::string descriptors;
    int length = 1;
    for (const DbfField& field : fields) {
        std::string name{field.name};
        name.resize(11, '\0');
        descriptors += name + field.type + std::string(4, '\0') + static_cast<char>(field.width) +
                       static_cast<char>(field.decimals) + std::string(14, '\0');
        length += field.width;
    }
    const int size = 33 + 32 * static_cast<int>(fields.size());
    return std::string("\3\0\0\0", 4) + little(records) + little(static_cast<std::int16_t>(size)) +
           little(static_cast<std::int16_t>(length)) + std::string(20, '\0') + descriptors + '\r';
}

}  // namespace vantelgis
