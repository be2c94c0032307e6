#include "text/free_format.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

#include "support/random_inputs.h"
#include "support/rows.h"

namespace vantelgis {
namespace {

// The next item as text: a number in its shortest form, "-" for a target left alone, "end" or
// "bad".
template <typename Number>
std::string nextNumber(FreeFormat& list, Item (*take)(FreeFormat&, Number&)) {
    Number value = 77;
    const Item item = take(list, value);
    if (item != Item::value && value != 77) return "changed";
    if (item == Item::end) return "end";
    if (item == Item::bad) return "bad";
    if (item == Item::unchanged) return "-";
    char text[64];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

template <typename Number, Item (*kTake)(FreeFormat&, Number&)>
std::string firstNumber(std::string_view text) {
    FreeFormat list(text);
    return nextNumber(list, kTake);
}

std::string threeReals(std::string_view text) {
    FreeFormat list(text);
    std::string result = nextNumber<double>(list, takeReal);
    for (int i = 0; i < 2; ++i) result += ' ' + nextNumber<double>(list, takeReal);
    return result;
}

// The words of a list, each in brackets, in a target of 20 characters.
std::string words(std::string_view text) {
    FreeFormat list(text);
    std::string result;
    for (Text<20> word("-"); takeWord(list, word) != Item::end && result.size() < 50; word = "-")
        result += '[' + std::string(word.view()) + ']';
    return result;
}

TEST(FreeFormat, RealsOfAnyNumberOfDecimals) {
    for (int n = 1; n < 20; ++n) {
        const std::string text = '.' + std::string(static_cast<std::size_t>(n - 1), '0') + '7';
        FreeFormat longList(text), shortList(text);
        double value = 0;
        float narrow = 0;
        takeReal(longList, value), takeReal(shortList, narrow);
        EXPECT_EQ(value, std::strtod(text.c_str(), nullptr)) << text;
        EXPECT_EQ(narrow, std::strtof(text.c_str(), nullptr)) << text;
    }
}

TEST(FreeFormat, Reals) {
    constexpr auto real = firstNumber<double, takeReal>;
    checkRows(real, "12.5 -> 12.5", "  +5  -> 5", ".5 -> 0.5", "5. -> 5", "-.25, -> -0.25",
              "-7/ -> -7", "1d5 -> 1e+05", "1.5D-2 -> 0.015", "1E+05 -> 1e+05", "0.1 -> 0.1",
              "0x1p3 -> 8", "0X1.8P1 -> 3", "1e-400 -> 0", "-1e-400 -> -0", "0x1p-2000 -> 0",
              "4.9e-324 -> 5e-324", "-0x1p-1074 -> -5e-324", "1e400 -> bad", "-1d309 -> bad",
              "0x1p1024 -> bad", "12.5m -> bad", "\"12.5\" -> bad", "'1' -> bad", ". -> bad",
              "- -> bad", "+-5 -> bad", "--5 -> bad", "1e -> bad", "1e+ -> bad", "1d5e5 -> bad",
              "1.2.3 -> bad", "e5 -> bad", "nan -> bad", "inf -> bad", "-Infinity -> bad",
              "0x -> bad", "0xp1 -> bad", "0xnan -> bad", "0x0x1 -> bad", "3*1.5 -> bad",
              "1\t2 -> bad", "\t5 -> bad");
    checkRows(
        real, "1851355533.4130117 -> 1851355533.4130118", "-0x1.869f000000000p+16 -> -99999",
        "9007199254740993 -> 9007199254740992", "9007199254740993.0000001 -> 9007199254740994",
        "12345678901234567890123 -> 1.2345678901234568e+22", "0.000000000000000000000001 -> 1e-24");
    // By way of a double the first would be rounded twice, to its even neighbour.
    checkRows(firstNumber<float, takeReal>, "4194304.2500000001 -> 4194304.5",
              "4194304.25 -> 4194304", "16777217 -> 16777216", "246906.07 -> 246906.06",
              "0.0000000001 -> 1e-10", "1e-46 -> 0", "1e-45 -> 1e-45", "3.4e38 -> 3.4e+38",
              "3.5e38 -> bad");
}

TEST(FreeFormat, PowersOfTen) {
    for (int exponent = -30; exponent <= 30; ++exponent) {
        for (const char* digits : {"1e", "9007199254740991e", "-12345678.9e"}) {
            const std::string text = digits + std::to_string(exponent);
            double expected = 0, value = 0;
            std::from_chars(text.data(), text.data() + text.size(), expected);
            FreeFormat list(text);
            EXPECT_TRUE(takeReal(list, value) == Item::value && value == expected) << text;
        }
    }
}

TEST(FreeFormat, Integers) {
    checkRows(firstNumber<std::int32_t, takeInteger>, "42 -> 42", "+7, -> 7", "-007 -> -7",
              "-2147483648 -> -2147483648", "2147483648 -> bad");
    checkRows(firstNumber<std::int64_t, takeInteger>, "2147483648 -> 2147483648",
              "9223372036854775807 -> 9223372036854775807", "9223372036854775808 -> bad",
              "2.0 -> bad", "1e3 -> bad", "0x10 -> bad", "+-5 -> bad", "- -> bad", "+ -> bad",
              "2*450 -> bad", "\"1\" -> bad");
}

TEST(FreeFormat, Lists) {
    checkRows(threeReals, "1 2 -> 1 2 end", "1,2 -> 1 2 end", " 1 , 2  -> 1 2 end", "1,,3 -> 1 - 3",
              "1 , , 3 -> 1 - 3", ",2 -> - 2 end", ",,3 -> - - 3", "1, -> 1 end end",
              "1,, -> 1 - end", ", -> - end end", "   -> end end end", "1/2 3 -> 1 - -",
              "1,/ -> 1 - -", "/ -> - - -", "1 2x 3 -> 1 bad bad");
    checkRows(words, "one two,three -> [one][two][three]", "\"a b, c/d\" e -> [a b, c/d][e]",
              "'it''s, ok',3 -> [it's, ok][3]", R"("a ""b"" c" -> [a "b" c])",
              R"('a "b" c' -> [a "b" c])", R"("" x -> [][x])", "\"a\"b -> [a][b]",
              "\"open, to the end -> [open, to the end]", "a\"b c\" -> [a\"b][c\"]",
              "2*450RCP -> [2*450RCP]", ",007 -> [-][007]",
              "abcdefghijklmnopqrstuvwxyz z -> [abcdefghijklmnopqrst][z]",
              "\"1234567890123456789 cut\" z -> [1234567890123456789][z]");
    EXPECT_EQ(words("a/b").substr(0, 9), "[a][-][-]");

    FreeFormat list("1,");
    EXPECT_EQ(nextNumber<double>(list, takeReal), "1");
    EXPECT_EQ(nextNumber<double>(list, takeReal), "end");
    list.continueWith("  2 rest");
    EXPECT_EQ(nextNumber<double>(list, takeReal), "2");
    EXPECT_EQ(list.rest(), " rest");
}

// Digits, signs, points and what ends an item, in any order but mostly as in a number.
std::string randomNumber(std::mt19937_64& random) {
    constexpr std::string_view kAny = "0123456789.-+ ,/ex";
    std::string text(random() % 4 == 0 ? "-" : "");
    const std::uint64_t digits = 1 + random() % (random() % 8 == 0 ? 40 : 18);
    for (std::uint64_t i = 0; i < digits; ++i) text += kAny[random() % 10];
    if (random() % 4 != 0) text.insert(text.begin() + static_cast<long>(random() % digits), '.');
    if (random() % 8 == 0) text[random() % text.size()] = kAny[random() % kAny.size()];
    return text;
}

template <typename Real>
std::string plainAndAnyDiffer(const std::string& text) {
    FreeFormat plain(text);
    FreeFormat any(text);
    Real a = 77;
    Real b = 77;
    const bool same = takeReal(plain, a) == takeAnyReal(any, b) && plain.rest() == any.rest() &&
                      a == b && std::signbit(a) == std::signbit(b);
    return same ? std::string() : text;
}

TEST(FreeFormat, PlainDecimalsAreReadAsAnyOther) {
    std::mt19937_64 random(20240302);
    for (int i = randomInputs(200'000); i > 0; --i) {
        const std::string text = randomNumber(random);
        ASSERT_EQ(plainAndAnyDiffer<double>(text) + plainAndAnyDiffer<float>(text), "");
    }
}

}  // namespace
}  // namespace vantelgis
