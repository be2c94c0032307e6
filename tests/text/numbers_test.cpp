#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

#include "text/number_checks.h"
#include "text/rows.h"
#include "text/short_numbers.h"

namespace vantelgis {
namespace {

template <typename Number>
Number valueOf(std::string_view text) {
    Number value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

template <typename Number, void (*kRoutine)(TextRef, Number)>
std::string shortest(std::string_view text) {
    Text<30> out;
    kRoutine(out, valueOf<Number>(text));
    return std::string(out.view());
}

// The number, a "|", and the digits or decimals.
template <typename Number, void (*kRoutine)(TextRef, Number, std::int32_t)>
std::string edited(std::string_view row) {
    const std::size_t bar = row.find('|');
    Text<30> out;
    kRoutine(out, valueOf<Number>(row), valueOf<std::int32_t>(row.substr(bar + 1)));
    return std::string(out.view());
}

TEST(ShortNumbers, Integers) {
    checkRows(shortest<std::int32_t, AINTEGER>,
              {"-7 -> -7", "0 -> 0", "-2147483648 -> -2147483648"});
    checkRows(shortest<std::int64_t, AINTEGER8>, {"-9223372036854775808 -> -9223372036854775808"});
    checkRows(edited<std::int32_t, AINTEGERPREC0>,
              {"12|6 -> 000012", "0|3 -> 000", "-12|6 -> -12"});
    checkRows(edited<std::int64_t, AINTEGER8PREC0>,
              {"1234|3 -> 1234", "5|1 -> 5", "5|-4 -> 5", "5|20 -> 00000000000000000005",
               "5|99 -> 00000000000000000005", "9000000000|12 -> 009000000000"});
    Text<4> narrow;
    AINTEGER(narrow, 123456);
    EXPECT_EQ(narrow.view(), "1234");
}

TEST(ShortNumbers, Reals) {
    checkRows(
        shortest<float, AREAL>,
        {"0.005 -> 0.005", "0.0000001 -> 0.", "9.9996 -> 10.", "-0.5 -> -0.5", "1.5 -> 1.5",
         "2 -> 2.", "100 -> 100.", "1234.6 -> 1235.", "0 -> 0.", "0.01 -> 0.01",
         "0.0123456 -> 0.01235", "0.123456 -> 0.1235", "12.3456 -> 12.35", "123.456 -> 123.5",
         "999.96 -> 1000.", "2500 -> 2500.", "-0.0000001 -> -0.", "3e19 -> ********************"});
    checkRows(
        shortest<double, AREAL8>,
        {"1 -> 1.", "1e12 -> 1000000000000.", "1e30 -> ********************",
         "1234567.891 -> 1234567.891", "0.25 -> 0.25", "5 -> 5.", "0.12345678905 -> 0.1234567891",
         "9.87654321987 -> 9.87654322", "-123456789.96 -> -123456790.",
         "12345678.126 -> 12345678.13", "1000000000.6 -> 1000000001.", "nan -> NaN"});
    checkRows(
        edited<double, AREALD8>,
        {"2.5|3 -> 2.500", "2.5|0 -> 2.", "2.5|-3 -> 2.", "0.5|19 -> .5000000000000000000",
         "0.5|20 -> ********************", "1e15|5 -> ********************", "-0.25|1 -> -0.2"});
    checkRows(edited<float, AREALD>, {"0.1|9 -> 0.100000001"});
}

TEST(NumberChecks, Days) {
    // 20 * 365 days are 7300, and the days in front of February are 28.
    checkRows(
        [](std::string_view date) { return std::to_string(NUMBEROFDAYS(date)); },
        {"20000101 -> 1", "20200228 -> 7356", "20200230 -> 7356", "20011231 -> 730",
         "20010331 -> 455", "2000 1 2 -> 2", "2000x101 -> -1", "20000001 -> -1", "20001301 -> -1",
         "200001 -> -1", "2000011, -> -1", " -> -1", "20000101 12:00 -> 1"});
}

// What the two checks say of a text, "-" when it is no integer of their size.
std::string integers(std::string_view text) {
    std::int32_t narrow = 77;
    std::int64_t wide = 77;
    const bool isNarrow = CHECKINT(text, narrow);
    const bool isWide = CHECKINT8(text, wide);
    EXPECT_EQ(CHECKINT4(text, narrow), isNarrow);
    EXPECT_TRUE((isNarrow || narrow == 77) && (isWide || wide == 77)) << text;
    return (isNarrow ? std::to_string(narrow) : "-") + ' ' + (isWide ? std::to_string(wide) : "-");
}

TEST(NumberChecks, Integers) {
    checkRows(integers, {" 12, x -> 12 12", "-5 6 -> -5 -5", "3000000000 -> - 3000000000",
                         "   -> - -", "/ -> - -", ",5 -> - -", "2.0 -> - -", "x -> - -"});
}

}  // namespace
}  // namespace vantelgis
