#include "toolkit/numbers.h"

#include <cstdint>
#include <string>

#include "support/rows.h"

namespace vantelgis {
namespace {

template <typename Number, void (*kRoutine)(TextRef, Number)>
std::string shortest(std::string_view text) {
    Text<30> out;
    kRoutine(out, numberIn<Number>(text));
    return std::string(out.view());
}

// The number, a "|", and the digits or decimals.
template <typename Number, void (*kRoutine)(TextRef, Number, std::int32_t)>
std::string edited(std::string_view row) {
    const auto [number, digits, none] = partsOf(row);
    Text<30> out;
    kRoutine(out, numberIn<Number>(number), numberIn<std::int32_t>(digits));
    return std::string(out.view());
}

TEST(ShortNumbers, Integers) {
    checkRows(shortest<std::int32_t, AINTEGER>, "-7 -> -7", "0 -> 0", "-2147483648 -> -2147483648");
    checkRows(shortest<std::int64_t, AINTEGER8>, "-9223372036854775808 -> -9223372036854775808");
    checkRows(edited<std::int32_t, AINTEGERPREC0>, "12|6 -> 000012", "0|3 -> 000", "-12|6 -> -12");
    checkRows(edited<std::int64_t, AINTEGER8PREC0>, "1234|3 -> 1234", "5|1 -> 5", "5|-4 -> 5",
              "5|20 -> 00000000000000000005", "5|99 -> 00000000000000000005",
              "9000000000|12 -> 009000000000");
    Text<4> narrow;
    AINTEGER(narrow, 123456);
    EXPECT_EQ(narrow.view(), "1234");
}

TEST(ShortNumbers, Reals) {
    checkRows(shortest<float, AREAL>, "0.005 -> 0.005", "0.0000001 -> 0.", "9.9996 -> 10.",
              "-0.5 -> -0.5", "1.5 -> 1.5", "2 -> 2.", "100 -> 100.", "1234.6 -> 1235.", "0 -> 0.",
              "0.01 -> 0.01", "0.0123456 -> 0.01235", "0.123456 -> 0.1235", "12.3456 -> 12.35",
              "123.456 -> 123.5", "999.96 -> 1000.", "2500 -> 2500.", "-0.0000001 -> -0.",
              "3e19 -> ********************");
    checkRows(shortest<double, AREAL8>, "1 -> 1.", "1e12 -> 1000000000000.",
              "1e30 -> ********************", "1234567.891 -> 1234567.891", "0.25 -> 0.25",
              "5 -> 5.", "0.12345678905 -> 0.1234567891", "9.87654321987 -> 9.87654322",
              "-123456789.96 -> -123456790.", "12345678.126 -> 12345678.13",
              "1000000000.6 -> 1000000001.", "nan -> NaN");
    checkRows(edited<double, AREALD8>, "2.5|3 -> 2.500", "2.5|0 -> 2.", "2.5|-3 -> 2.",
              "0.5|19 -> .5000000000000000000", "0.5|20 -> ********************",
              "1e15|5 -> ********************", "-0.25|1 -> -0.2");
    checkRows(edited<float, AREALD>, "0.1|9 -> 0.100000001");
}

// What a check reads from a text, "none" when it is no integer of its size.
template <typename Integer, bool (*kCheck)(std::string_view, Integer&)>
std::string checkedInteger(std::string_view text) {
    Integer value = 77;
    if (kCheck(text, value)) return std::to_string(value);
    return value == 77 ? "none" : "changed";
}

TEST(NumberChecks, DaysAndIntegers) {
    // 20 * 365 days are 7300, and the days in front of February are 28.
    checkRows([](std::string_view date) { return std::to_string(NUMBEROFDAYS(date)); },
              "20000101 -> 1", "20200228 -> 7356", "20200230 -> 7356", "20011231 -> 730",
              "20010331 -> 455", "2000 1 2 -> 2", "2000x101 -> -1", "20000001 -> -1",
              "20001301 -> -1", "200001 -> -1", "2000011 -> 1", "2000011, -> -1", " -> -1",
              "20000101 12:00 -> 1");
    const auto check = [](auto routine, std::string_view large) {
        checkRows(routine, " 12, x -> 12", "-5 6 -> -5", "   -> none", "/ -> none", ",5 -> none",
                  "2.0 -> none", large);
    };
    check(checkedInteger<std::int32_t, CHECKINT>, "3000000000 -> none");
    check(checkedInteger<std::int32_t, CHECKINT4>, "3000000000 -> none");
    check(checkedInteger<std::int64_t, CHECKINT8>, "3000000000 -> 3000000000");
}

}  // namespace
}  // namespace vantelgis
