#include "text/number_field.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

#include "support/random_inputs.h"
#include "support/rows.h"
#include "text/constant_field.h"

namespace vantelgis {
namespace {

// Width, decimals and value.
std::string field(std::string_view row) {
    const auto [widthText, decimals, value] = partsOf(row);
    const int width = numberIn<int>(widthText);
    char columns[kMaxFieldWidth + 1];
    columns[width] = '|';  // what stands behind the field must stay
    EXPECT_EQ(fixedField(columns, numberIn<double>(value), width, numberIn<int>(decimals)),
              columns + width);
    EXPECT_EQ(columns[width], '|');
    return {columns, static_cast<std::size_t>(width)};
}

TEST(FixedField, EdgesOfTheField) {
    checkRows(field, "10|3|10.5 ->     10.500", "4|0|0 ->   0.", "1|0|0 -> *", "4|0|0.5 ->   0.",
              "4|0|1.5 ->   2.", "4|0|2.5 ->   2.", "6|2|0.125 ->   0.12", "6|2|0.375 ->   0.38",
              "7|2|-0.001 ->   -0.00", "5|1|-0 ->  -0.0", "4|2|0.25 -> 0.25", "3|2|0.25 -> .25",
              "4|2|-0.25 -> -.25", "3|2|-0.25 -> ***", "3|2|1.25 -> ***", "3|2|0.999 -> ***",
              "5|2|1e300 -> *****", "10|2|inf ->   Infinity", "10|2|-inf ->  -Infinity",
              "8|2|-inf -> ********", "5|1|nan ->   NaN");
    checkRows(field, "20|19|0.5 -> .5000000000000000000", "21|19|-0.5 -> -.5000000000000000000",
              "20|19|-0.5 -> ********************", "20|0|1e18 -> 1000000000000000000.",
              "20|0|-1e18 -> ********************", "21|0|1e19 -> 10000000000000000000.");
}

// The field by the general algorithm of the standard library.
std::string generalField(double value, int width, int decimals) {
    char text[512];
    std::string field(
        text, std::to_chars(text, text + 512, value, std::chars_format::fixed, decimals).ptr);
    if (decimals == 0) field += '.';
    const auto columns = static_cast<std::size_t>(width);
    const std::size_t digit = std::signbit(value) ? 1 : 0;
    if (field.size() == columns + 1 && field[digit] == '0' && decimals > 0) field.erase(digit, 1);
    if (field.size() > columns) field.assign(columns, '*');
    return std::string(columns - field.size(), ' ') + field;
}

TEST(FixedField, EqualsTheGeneralAlgorithm) {
    std::mt19937_64 random(20240229);  // the same values in every run
    int faults = 0;
    for (int i = 0, n = randomInputs(300'000); i < n && faults < 10; ++i) {
        const std::uint64_t bits = random();
        const int decimals = static_cast<int>(random() % 20);
        const int places = 1 + i % 12;
        const double sign = (bits & 1) != 0 ? -1.0 : 1.0;
        const std::uint64_t ordinary = (bits & ~(0x7FFULL << 52)) | (943 + bits % 160) << 52;
        const double coordinate = static_cast<double>(static_cast<std::int64_t>(bits) >> 24) / 1e5;
        const double tie = sign * std::ldexp(static_cast<double>((bits >> 24) | 1), -places);
        const double power = std::pow(10.0, i % 24 - 4);
        const double limit = std::ldexp(1.0, 61 + i % 4) / std::pow(10.0, decimals);
        const struct {
            double value;
            int width;
            int decimals;
        } cases[] = {
            // Any bit pattern, those of ordinary size more often.
            {std::bit_cast<double>(i % 8 == 0 ? bits : ordinary), 1 + i % 40, decimals},
            // Coordinates as files hold them, in the fields that the program writes.
            {coordinate, 20, 5},
            {coordinate, 15, 3},
            {static_cast<float>(coordinate), 20, i % 7},
            // Exact ties and their neighbours.
            {tie, 24, places - 1},
            {std::nextafter(tie, 0.0), 24, places - 1},
            {std::nextafter(tie, tie * 2), 24, places - 1},
            // Borders of the width, and of what 64 bits hold.
            {sign * (power - std::pow(10.0, -(i % 9)) * (i % 3) / 2), 6 + i % 18, i % 9},
            {sign * limit * (1 + (i % 5 - 2) * 1e-16), 22, decimals},
            // Values that round to 0 or nearly so.
            {sign * std::pow(10.0, -decimals) * (i % 101) / 100, decimals + 1 + i % 3, decimals},
            {sign * static_cast<double>(bits % 4096) * 5e-324, 21, decimals},
        };
        for (const auto& [value, width, digits] : cases) {
            if (!std::isfinite(value)) continue;
            const std::string expected = generalField(value, width, digits);
            if (FixedText(value, width, digits).operator std::string_view() == expected) continue;
            ++faults;
            ADD_FAILURE() << 'F' << width << '.' << digits << " of " << std::hexfloat << value
                          << " is not \"" << expected << '"';
        }
    }
}

template <int Width, int Decimals>
bool knownEqualsAny(double value) {
    char columns[Width];
    const std::string_view known{columns, Width};
    EXPECT_EQ((fixedField<Width, Decimals>(columns, value)), columns + Width);
    return known == FixedText(value, Width, Decimals).operator std::string_view();
}

// The widths that the program writes.
bool knownWidthsEqualAny(double value) {
    return knownEqualsAny<6, 2>(value) && knownEqualsAny<10, 4>(value) &&
           knownEqualsAny<12, 4>(value) && knownEqualsAny<16, 3>(value) &&
           knownEqualsAny<16, 5>(value) && knownEqualsAny<16, 6>(value) &&
           knownEqualsAny<20, 4>(value);
}

TEST(FixedField, KnownWidthsEqualAnyWidth) {
    std::mt19937_64 random(20240301);
    int faults = 0;
    for (int i = 0, n = randomInputs(100'000); i < n && faults < 10; ++i) {
        const std::uint64_t bits = random();
        const double scale = std::pow(10.0, i % 9);
        const double tie = std::ldexp(static_cast<double>(bits >> 37), -(i % 28));
        const double nines = scale - std::pow(10.0, -(i / 9 % 8)) * (i % 5) / 4;
        const double values[] = {
            std::bit_cast<double>(bits),                                // any pattern of bits
            std::ldexp(static_cast<double>(bits >> 11), -26 - i % 40),  // of ordinary size
            static_cast<double>(bits % 100'000'000'000) / scale,        // as files hold them
            tie,
            std::nextafter(tie, 0.0),
            std::nextafter(tie, 1e9),
            nines,
            std::nextafter(nines, 0.0),
            std::nextafter(nines, 1e9),
            0x1p-10,
            std::nextafter(0x1p-10, 0.0),
            0.0,
        };
        for (const double value : values) {
            if (knownWidthsEqualAny(value) && knownWidthsEqualAny(-value)) continue;
            ++faults;
            ADD_FAILURE() << std::hexfloat << value;
        }
    }
}

}  // namespace
}  // namespace vantelgis
