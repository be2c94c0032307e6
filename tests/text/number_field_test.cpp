#include "text/number_field.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

#include "text/rows.h"

namespace vantelgis {
namespace {

// "F", width, ".", decimals, a blank and the value.
std::string field(std::string_view row) {
    int width = 0;
    int decimals = 0;
    double value = 0;
    const char* const end = row.data() + row.size();
    const char* p = std::from_chars(row.data() + 1, end, width).ptr;
    p = std::from_chars(p + 1, end, decimals).ptr;
    std::from_chars(p + 1, end, value);
    char columns[kMaxFieldWidth + 1];
    columns[width] = '|';  // what stands behind the field must stay
    EXPECT_EQ(fixedField(columns, value, width, decimals), columns + width);
    EXPECT_EQ(columns[width], '|');
    return {columns, static_cast<std::size_t>(width)};
}

TEST(FixedField, EdgesOfTheField) {
    checkRows(field, {"F20.5 10.5 ->             10.50000",
                      "F15.5 -2 ->        -2.00000",
                      "F4.0 0 ->   0.",
                      "F1.0 0 -> *",
                      "F4.0 0.5 ->   0.",
                      "F4.0 1.5 ->   2.",
                      "F4.0 2.5 ->   2.",
                      "F6.2 0.125 ->   0.12",
                      "F6.2 0.375 ->   0.38",
                      "F7.2 -0.001 ->   -0.00",
                      "F5.1 -0 ->  -0.0",
                      "F4.2 0.25 -> 0.25",
                      "F3.2 0.25 -> .25",
                      "F4.2 -0.25 -> -.25",
                      "F3.2 -0.25 -> ***",
                      "F3.2 1.25 -> ***",
                      "F3.2 0.999 -> ***",
                      "F20.19 0.5 -> .5000000000000000000",
                      "F21.19 -0.5 -> -.5000000000000000000",
                      "F20.19 -0.5 -> ********************",
                      "F20.0 1e18 -> 1000000000000000000.",
                      "F20.0 -1e18 -> ********************",
                      "F21.0 1e19 -> 10000000000000000000.",
                      "F5.2 1e300 -> *****",
                      "F10.2 inf ->   Infinity",
                      "F10.2 -inf ->  -Infinity",
                      "F8.2 -inf -> ********",
                      "F5.1 nan ->   NaN"});
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

class Comparison {
  public:
    void compare(double value, int width, int decimals) {
        ++count_;
        char columns[kMaxFieldWidth];
        char text[512];
        fixedField(columns, value, width, decimals);
        const std::string_view found(columns, static_cast<std::size_t>(width));
        const std::string_view expected = generalField(text, value, width, decimals);
        if (found == expected || faults_++ > 10) return;
        ADD_FAILURE() << 'F' << width << '.' << decimals << " of " << std::hexfloat << value
                      << " is \"" << found << "\", not \"" << expected << '"';
    }
    [[nodiscard]] int count() const { return count_; }

  private:
    int count_ = 0;
    int faults_ = 0;
};

TEST(FixedField, EqualsTheGeneralAlgorithm) {
    std::mt19937_64 random(20240229);  // the same values in every run
    Comparison test;
    for (int i = 0; i < 1'000'000; ++i) {
        const std::uint64_t bits = random();
        const int decimals = static_cast<int>(random() % 20);
        const double sign = (bits & 1) != 0 ? -1.0 : 1.0;

        // Any bit pattern, those of ordinary size more often.
        const std::uint64_t ordinary = (bits & ~(0x7FFULL << 52)) | (943 + bits % 160) << 52;
        double value;
        std::memcpy(&value, i % 8 == 0 ? &bits : &ordinary, sizeof value);
        if (std::isfinite(value)) test.compare(value, 1 + i % 40, decimals);

        // Coordinates as files hold them, in the fields that the program writes.
        const double coordinate = static_cast<double>(static_cast<std::int64_t>(bits) >> 24) / 1e5;
        test.compare(coordinate, 20, 5);
        test.compare(coordinate, 15, 3);
        test.compare(static_cast<float>(coordinate), 20, i % 7);

        // Exact ties and their neighbours.
        const int places = 1 + i % 12;
        const double tie = sign * std::ldexp(static_cast<double>((bits >> 24) | 1), -places);
        for (const double near : {tie, std::nextafter(tie, 0.0), std::nextafter(tie, tie * 2)})
            test.compare(near, 24, places - 1);

        // Borders of the width, and of what 64 bits hold.
        const double power = std::pow(10.0, i % 24 - 4);
        const double border = power - std::pow(10.0, -(i % 9)) * (i % 3) / 2;
        test.compare(sign * border, 6 + i % 18, i % 9);
        const double limit = std::ldexp(1.0, 61 + i % 4) / std::pow(10.0, decimals);
        test.compare(sign * limit * (1 + (i % 5 - 2) * 1e-16), 22, decimals);

        // Values that round to 0 or nearly so.
        test.compare(sign * std::pow(10.0, -decimals) * (i % 101) / 100, decimals + 1 + i % 3,
                     decimals);
        test.compare(sign * static_cast<double>(bits % 4096) * 5e-324, 21, decimals);
    }
    EXPECT_GT(test.count(), 10'000'000);
}

}  // namespace
}  // namespace vantelgis
