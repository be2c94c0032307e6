#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

#include "support/rows.h"
#include "text/number_field.h"

namespace vantelgis {
namespace {

template <typename Number>
Number valueOf(std::string_view text) {
    Number value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

// Width, decimals and value.
std::string field(std::string_view row) {
    const auto [widthText, decimals, value] = partsOf(row);
    const int width = valueOf<int>(widthText);
    char columns[kMaxFieldWidth + 1];
    columns[width] = '|';  // what stands behind the field must stay
    EXPECT_EQ(fixedField(columns, valueOf<double>(value), width, valueOf<int>(decimals)),
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
std::string_view generalField(char (&text)[512], double value, int width, int decimals) {
    char* begin = text + kMaxFieldWidth;
    char* end = std::to_chars(begin, text + 512, value, std::chars_format::fixed, decimals).ptr;
    if (decimals == 0) *end++ = '.';
    const int digit = std::signbit(value) ? 1 : 0;
    if (end - begin == width + 1 && begin[digit] == '0' && decimals > 0) {
        begin[digit] = '-';
        ++begin;
    }
    const auto columns = static_cast<std::size_t>(width);
    if (end - begin > width) {
        std::memset(text, '*', columns);
        return {text, columns};
    }
    std::memset(text, ' ', kMaxFieldWidth);
    return {end - width, columns};
}

TEST(FixedField, EqualsTheGeneralAlgorithm) {
    std::mt19937_64 random(20240229);  // the same values in every run
    int count = 0;
    int faults = 0;
    const auto compare = [&](double value, int width, int decimals) {
        ++count;
        char columns[kMaxFieldWidth];
        char text[512];
        fixedField(columns, value, width, decimals);
        const std::string_view found(columns, static_cast<std::size_t>(width));
        const std::string_view expected = generalField(text, value, width, decimals);
        if (found == expected || ++faults > 10) return;
        ADD_FAILURE() << 'F' << width << '.' << decimals << " of " << std::hexfloat << value
                      << " is \"" << found << "\", not \"" << expected << '"';
    };
    for (int i = 0; i < 1'000'000; ++i) {
        const std::uint64_t bits = random();
        const int decimals = static_cast<int>(random() % 20);
        const double sign = (bits & 1) != 0 ? -1.0 : 1.0;

        // Any bit pattern, those of ordinary size more often.
        const std::uint64_t ordinary = (bits & ~(0x7FFULL << 52)) | (943 + bits % 160) << 52;
        double value;
        std::memcpy(&value, i % 8 == 0 ? &bits : &ordinary, sizeof value);
        if (std::isfinite(value)) compare(value, 1 + i % 40, decimals);

        // Coordinates as files hold them, in the fields that the program writes.
        const double coordinate = static_cast<double>(static_cast<std::int64_t>(bits) >> 24) / 1e5;
        compare(coordinate, 20, 5);
        compare(coordinate, 15, 3);
        compare(static_cast<float>(coordinate), 20, i % 7);

        // Exact ties and their neighbours.
        const int places = 1 + i % 12;
        const double tie = sign * std::ldexp(static_cast<double>((bits >> 24) | 1), -places);
        for (const double near : {tie, std::nextafter(tie, 0.0), std::nextafter(tie, tie * 2)})
            compare(near, 24, places - 1);

        // Borders of the width, and of what 64 bits hold.
        const double power = std::pow(10.0, i % 24 - 4);
        const double border = power - std::pow(10.0, -(i % 9)) * (i % 3) / 2;
        compare(sign * border, 6 + i % 18, i % 9);
        const double limit = std::ldexp(1.0, 61 + i % 4) / std::pow(10.0, decimals);
        compare(sign * limit * (1 + (i % 5 - 2) * 1e-16), 22, decimals);

        // Values that round to 0 or nearly so.
        compare(sign * std::pow(10.0, -decimals) * (i % 101) / 100, decimals + 1 + i % 3, decimals);
        compare(sign * static_cast<double>(bits % 4096) * 5e-324, 21, decimals);
    }
    EXPECT_GT(count, 10'000'000);
}

}  // namespace
}  // namespace vantelgis
