#include "run/unit_reading.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "run/plain_line.h"
#include "support/in_process_run.h"
#include "support/random_inputs.h"
#include "support/rows.h"

namespace vantelgis {
namespace {

void withFile(std::string_view bytes, std::string_view mode, const std::function<void(int)>& body) {
    EXPECT_FALSE(runOnFile(bytes, mode, body).ended);
}

// The next line, shortened to its size and last character when it is a long one.
std::string nextLine(int unit) {
    std::string_view line;
    const ReadResult result = readLine(unit, line);
    if (result != ReadResult::ok) return result == ReadResult::end ? "END" : "FAILED";
    if (line.size() < 100) return std::string(line);
    return std::to_string(line.size()) + line.back();
}

std::string nextTwo(int unit) {
    const std::string first = nextLine(unit);
    return first + nextLine(unit);
}

TEST(UnitReading, LineEnds) {
    withFile("a\n\r\nb\rc\r\r\n\nlast\r", "I ", [](int unit) {
        for (const std::string_view line : {"a", "", "b\rc\r", "", "last"}) {
            EXPECT_FALSE(atEnd(unit));
            EXPECT_EQ(nextLine(unit), line);
        }
        EXPECT_TRUE(atEnd(unit));
        EXPECT_EQ(nextLine(unit), "END");
        EXPECT_TRUE(atEnd(unit));
    });
    withFile("", "I ", [](int unit) { EXPECT_TRUE(atEnd(unit)); });
}

// The border of the buffer falls on every place around a line's end.
TEST(UnitReading, LineEndsAtTheBorderOfTheBuffer) {
    for (std::size_t before = kBufferSize - 4; before <= kBufferSize + 2; ++before) {
        std::string bytes;
        while (bytes.size() + 64 < before) bytes += std::string(63, 'x') + '\n';
        const std::string line(before - bytes.size(), 'y');
        bytes += line + "\r\nnext\r\n";
        withFile(bytes, "I ", [&](int unit) {
            std::string found;
            while ((found = nextLine(unit)).starts_with('x')) continue;
            EXPECT_EQ(found, line);
            EXPECT_EQ(nextLine(unit), "next");
            backspaceUnit(unit);
            EXPECT_EQ(nextLine(unit), "next");
            EXPECT_TRUE(atEnd(unit));
        });
    }
}

// A line of any length stays one line; its first 100,000 characters are kept.
TEST(UnitReading, LongLines) {
    for (const std::size_t size :
         {kLineCapacity - 1, kLineCapacity, kLineCapacity + 1, kBufferSize - 1, kBufferSize,
          kBufferSize + 1, 3 * kBufferSize}) {
        const std::string kept = std::to_string(std::min(size, kLineCapacity));
        const auto readAll = [&](int unit) {
            EXPECT_FALSE(atEnd(unit));  // fills the buffer before the line is read
            EXPECT_EQ(nextTwo(unit), kept + "ynext");
            backspaceUnit(unit);
            EXPECT_EQ(nextTwo(unit), "next" + kept + 'z');
            EXPECT_TRUE(atEnd(unit));
            EXPECT_EQ(lineNumber(unit), 3);
            backspaceUnit(unit);
            EXPECT_EQ(lineNumber(unit), 2);
            EXPECT_EQ(nextLine(unit), kept + 'z');
            rewindUnit(unit);
            EXPECT_EQ(lineNumber(unit), 0);
            EXPECT_EQ(nextLine(unit), kept + 'y');
        };
        withFile(std::string(size, 'y') + "\r\nnext\n" + std::string(size, 'z'), "I ", readAll);
    }
}

TEST(UnitReading, Bytes) {
    std::string bytes = std::string("\x01\x02\x03\x04", 4) + std::string(2 * kBufferSize, '.');
    withFile(bytes + "abcdef", "BI", [&](int unit) {
        char value[4];
        EXPECT_EQ(readBytes(unit, value, sizeof value), ReadResult::ok);
        EXPECT_EQ(std::string(value, sizeof value), bytes.substr(0, sizeof value));
        EXPECT_EQ(skipBytes(unit, 2 * kBufferSize), ReadResult::ok);
        EXPECT_EQ(readSome(unit, 2), "ab");
        EXPECT_EQ(skipBytes(unit, 1), ReadResult::ok);
        EXPECT_EQ(readBytes(unit, value, sizeof value), ReadResult::end);
        EXPECT_TRUE(atEnd(unit));
        EXPECT_EQ(readSome(unit, 1), "");
        rewindUnit(unit);
        EXPECT_EQ(skipBytes(unit, std::numeric_limits<std::int64_t>::max()), ReadResult::end);
        EXPECT_TRUE(atEnd(unit));
        rewindUnit(unit);
        EXPECT_EQ(skipBytes(unit, static_cast<std::int64_t>(bytes.size()) + 6), ReadResult::ok);
        EXPECT_TRUE(atEnd(unit));
    });
}

TEST(UnitReading, PairsGoOnToTheNextLine) {
    withFile("1\n\n 2 dropped\n3,4\n5,\n6x\n7", "I ", [](int unit) {
        double x = 0, y = 0;
        EXPECT_EQ(readPair(unit, x, y, 100), Item::value);
        EXPECT_EQ(x + y, 3);
        EXPECT_EQ(readPair(unit, x, y, 1), Item::value);  // each line by its first column
        EXPECT_EQ(x - y, 3 - 5);
        EXPECT_EQ(readPair(unit, x, y, 100), Item::bad);
        EXPECT_EQ(readPair(unit, x, y, 100), Item::end);
    });
}

// Lines of two numbers, plain ones and others.
std::string linesOfPairs(std::uint64_t seed) {
    constexpr std::string_view kPieces[] = {"1",  "-2.5", "+3.25", "123456.789012", "1e3", ".5",
                                            "7.", "\t",   "x",     "1.2.3",         "/",   ",",
                                            "",   "\r"};
    constexpr std::string_view kGaps[] = {" ", "   ", "", ","};
    constexpr std::string_view kEnds[] = {"\n", "\r\n", " \r\n", " x\n", " \r \n"};
    std::mt19937_64 random(seed);
    const auto one = [&](const auto& of) { return std::string(of[random() % std::size(of)]); };
    std::string lines;
    while (lines.size() < 2 * kBufferSize)
        lines += one(kGaps) + one(kPieces) + one(kGaps) + one(kPieces) + one(kEnds);
    return lines;
}

// What that read routine makes of the lines, and at which line it goes on each time.
std::vector<std::string> pairsIn(const std::string& lines,
                                 Item (*read)(int, double&, double&, std::size_t)) {
    std::vector<std::string> found;
    withFile(lines, "I ", [&](int unit) {
        while (!atEnd(unit)) {
            double x = 77;
            double y = 77;
            const Item item = read(unit, x, y, 20);
            found.push_back(std::to_string(static_cast<int>(item)) + ' ' + std::to_string(x) + ' ' +
                            std::to_string(y) + " up to " + std::to_string(lineNumber(unit)));
            backspaceUnit(unit);
            found.back() += ' ' + nextLine(unit);
        }
    });
    return found;
}

TEST(UnitReading, PlainPairsAreReadAsAnyOther) {
    for (int n = randomInputs(1); n > 0; --n) {
        const std::string lines = linesOfPairs(static_cast<std::uint64_t>(n));
        ASSERT_EQ(pairsIn(lines, readPair), pairsIn(lines, readAnyPair));
    }
}

// What a plain line of two numbers and a third, or `null`, holds, and the line that is read behind
// it; of any other line that line itself.
std::string vertexAndNext(std::string_view bytes) {
    constexpr std::size_t kCapacity = 24;
    std::ostringstream found;
    found.precision(17);
    withFile(bytes, "I ", [&](int unit) {
        EXPECT_FALSE(atEnd(unit));  // fills the buffer
        PlainLine line(unit, kCapacity);
        double x = 0, y = 0, z = 77;
        if (line.number(x) && line.number(y) && (line.number(z) || line.word("null")) && line.end())
            found << x << ' ' << y << ' ' << z << ", " << lineNumber(unit) << ' ';
        found << nextLine(unit);
    });
    return found.str();
}

TEST(UnitReading, PlainLines) {
    checkRows(vertexAndNext, "1 -2.5 +3.\nn -> 1 -2.5 3, 1 n",
              " 1  .2 Null \r\n\n -> 1 0.20000000000000001 77, 1 ", "1 2 3 null\nn -> 1 2 3 null",
              "1 2 nul\nn -> 1 2 nul", "1 2 nulls\nn -> 1 2 nulls", "1 2 3e4\nn -> 1 2 3e4",
              "1 2 -\nn -> 1 2 -", "1 2 .\nn -> 1 2 .", "1 2\n3\n -> 1 2",
              "1 2 3\r4\nn -> 1 2 3\r4", "1 2,3\nn -> 1 2,3", "\t1 2 3\nn -> \t1 2 3",
              "1 2 3 -> 1 2 3", "1 2 3\n -> 1 2 3",
              "1 2 9007199254740992\nn -> 1 2 9007199254740992, 1 n",
              "1 2 9007199254740993\nn -> 1 2 9007199254740993",
              "1 2 .0000000000000000001\nn -> 1 2 .0000000000000000001",
              "1 2 000000000000000003\nn -> 1 2 3, 1 n",
              "1 2 0000000000000000003\nn -> 1 2 0000000000000000003",
              "1 2 3                   \nn -> 1 2 3, 1 n",
              "1 2 3                    \nn -> 1 2 3                    ");
}

// The border of the buffer falls on every place of a line of two numbers.
TEST(UnitReading, PairsAtTheBorderOfTheBuffer) {
    for (std::size_t before = kBufferSize - 12; before < kBufferSize; ++before) {
        withFile(std::string(before, ' ') + "12.5 -3\r\nnext", "I ", [&](int unit) {
            EXPECT_FALSE(atEnd(unit));  // fills the buffer
            EXPECT_EQ(skipBytes(unit, static_cast<std::int64_t>(before)), ReadResult::ok);
            double x = 0, y = 0;
            EXPECT_EQ(readPair(unit, x, y, 100), Item::value);
            EXPECT_EQ(std::to_string(x) + ' ' + std::to_string(y) + nextLine(unit),
                      "12.500000 -3.000000next");
        });
    }
}

}  // namespace
}  // namespace vantelgis
