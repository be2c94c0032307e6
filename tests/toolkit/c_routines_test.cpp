#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "support/fresh_start.h"
#include "support/in_process_run.h"
#include "support/random_inputs.h"
#include "toolkit/c/vantelgis.h"
#include "toolkit/geometry.h"
#include "toolkit/lines.h"
#include "toolkit/numbers.h"
#include "toolkit/paths.h"
#include "toolkit/strings.h"

namespace vantelgis {
namespace {

// Each routine for C against the one in capitals behind it, over random arguments.

std::mt19937 dice{20240501};

int roll(int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(dice);
}

template <typename Number>
void rollInto(Number& value) {
    if constexpr (std::is_floating_point_v<Number>)
        value = static_cast<Number>(roll(0, 9) == 0 ? roll(-2000000, 2000000) / 1e4
                                                    : roll(-8, 8) / 2.0);
    else
        value = static_cast<Number>(roll(-3, 12));
}

void rollInto(Text<30>& text) {
    constexpr std::string_view kPieces = "  \t,,;;''\"\"==#!ab1A2.-+e_\\\\//::..0\xE4";
    text.clear();
    for (int n = roll(0, 34); n > 0; --n)
        text += kPieces.substr(static_cast<std::size_t>(roll(0, int{kPieces.size()} - 1)), 1);
}

constexpr std::size_t kMostValues = 16;  // above any count that is rolled

// What a parameter is given in the call of either routine, and whether the same came out.
template <typename Type>
struct Given {
    Type value;
    Given() { rollInto(value); }
    Type capital() { return value; }
    auto c() { return std::tuple(value); }
    bool same() { return true; }
};
template <typename Number>
struct Given<Number&> {
    Number first{}, second{};
    Number& capital() { return first; }
    auto c() { return std::tuple(&second); }
    bool same() { return std::memcmp(&first, &second, sizeof first) == 0; }
};
template <typename Number>
struct Given<Number*> {
    std::array<std::remove_const_t<Number>, kMostValues> first, second;
    Given() {
        for (auto& value : first) rollInto(value);
        second = first;
    }
    Number* capital() { return first.data(); }
    auto c() { return std::tuple<Number*>(second.data()); }
    bool same() { return std::memcmp(first.data(), second.data(), sizeof first) == 0; }
};
template <>
struct Given<std::string_view> {
    Text<30> text;
    Given() { rollInto(text); }
    std::string_view capital() { return text; }
    auto c() { return std::tuple<const char*, std::size_t>(text.data(), text.size()); }
    bool same() { return true; }
};
template <>
struct Given<TextRef> {
    Text<30> first;
    char second[30];
    std::size_t capacity = static_cast<std::size_t>(roll(0, 30)), length;
    Given() {
        rollInto(first);
        first = std::string(first.view().substr(0, capacity));
        length = first.size();
        std::memcpy(second, first.data(), length);
    }
    TextRef capital() { return {first.data(), capacity, first.ref().length}; }
    auto c() { return std::tuple<char*, std::size_t, std::size_t*>(second, capacity, &length); }
    bool same() {
        const bool ends = length == capacity || second[length] == '\0';
        return ends && first.view() == std::string_view{second, length};
    }
};

template <typename Result, typename... Parameters>
Result resultOf(Result (*)(Parameters...));
template <typename Routine>
using LengthOf = decltype(resultOf(std::declval<Routine>()));

enum class Outcome { same, stopped, different };

// Whether the results of both calls are the same; both may also have stopped the run.
template <typename Capital, typename OfC>
Outcome outcome(Capital capital, OfC ofC) {
    const auto result = [](auto call) {
        using Result = decltype(call());
        std::optional<std::conditional_t<std::is_void_v<Result>, bool, Result>> given;
        try {
            if constexpr (std::is_void_v<Result>)
                given = (call(), true);
            else
                given = call();
        } catch (const ProcessEnd&) {
        }
        return given;
    };
    const auto a = result(capital);
    const auto b = result(ofC);
    if (!a && !b) return Outcome::stopped;
    const bool same = a && b && std::memcmp(&*a, &*b, sizeof *a) == 0;
    return same ? Outcome::same : Outcome::different;
}

template <typename Result, typename... Parameters, typename OfC>
void compareOnce(Result (*capital)(Parameters...), OfC ofC, int pair) {
    std::tuple<Given<Parameters>...> given;
    const auto callCapital = [&] {
        return std::apply([&](auto&... g) { return capital(g.capital()...); }, given);
    };
    const auto arguments = std::apply([](auto&... g) { return std::tuple_cat(g.c()...); }, given);
    Outcome came;
    if constexpr (std::is_void_v<Result> && std::is_same_v<LengthOf<OfC>, std::size_t>) {
        // Its result is the length of the text that comes out first.
        const auto callC = [&] {
            std::get<0>(given).length =
                std::apply([&](char* out, std::size_t capacity, std::size_t*,
                               auto... rest) { return ofC(out, capacity, rest...); },
                           arguments);
        };
        came = outcome(callCapital, callC);
    } else {
        came = outcome(callCapital, [&] { return std::apply(ofC, arguments); });
    }
    const bool sameTexts = std::apply([](auto&... g) { return (g.same() && ...); }, given);
    EXPECT_TRUE(came == Outcome::stopped || (came == Outcome::same && sameTexts))
        << "pair " << pair;
}

// Takes the routines in pairs.
void compare(int /*pair*/) {}
template <typename Capital, typename OfC, typename... More>
void compare(int pair, Capital capital, OfC ofC, More... more) {
    for (int n = randomInputs(500); n > 0 && !testing::Test::HasFailure(); --n)
        compareOnce(capital, ofC, pair);
    compare(pair + 1, more...);
}

TEST(RoutinesForC, GiveWhatTheCapitalOnesGive) {
    runInProcess([] {
        compare(1, TRIMF, vg_trimf, REMOVETABS, vg_removetabs, REMOVEQUOTES, vg_removequotes,
                REMOVESPACES, vg_removespaces, DOUBLEQUOTE, vg_doublequote, UPPERCASE, vg_uppercase,
                LOWERCASE, vg_lowercase, ALPHANUMERICONLY, vg_alphanumericonly, CLEANATTRIBUTENAME,
                vg_cleanattributename, SS256, vg_ss256, BLANK, vg_blank, ASAME, vg_asame, ASAMECS,
                vg_asamecs, FLAGEXISTS, vg_flagexists, FILEEXT, vg_fileext, FILEEXTKC, vg_fileextkc,
                FILE___EXT, vg_file___ext, FILENAME, vg_filename, FILENAMEEXT, vg_filenameext,
                FILENAMENO_, vg_filenameno_, FILENAMEPATH, vg_filenamepath, FILENAMEPATHNO_,
                vg_filenamepathno_, FILEFOLDERPATH, vg_filefolderpath, ADDFOLDER, vg_addfolder,
                REMOVEDOTDOT, vg_removedotdot, CLEANPATH, vg_cleanpath, FLAGEXISTSRET,
                vg_flagexistsret, READGIS, vg_readgis, WRITEGIS, vg_writegis, READROWCOL,
                vg_readrowcol, NUMBERLINE, vg_numberline, POSITIVEINTEGERNUMBER,
                vg_positiveintegernumber, COMMENTLINE, vg_commentline, CHECKLINE, vg_checkline,
                REPLACE, vg_replace, REPLACEALL, vg_replaceall, CSVCOLUMN, vg_csvcolumn, CSVVALUE,
                vg_csvvalue, EXTRACTSTRING, vg_extractstring, EXTRACTSTRINGREM, vg_extractstringrem,
                EXTRACTINTEGER, vg_extractinteger, EXTRACTREAL, vg_extractreal, NEXTTOKEN,
                vg_nexttoken, NUMBEROFSUBSTRINGS, vg_numberofsubstrings, SUBSTRING, vg_substring,
                NUMBEROFNUMBERS, vg_numberofnumbers, AINTEGER, vg_ainteger, AINTEGER8, vg_ainteger8,
                AINTEGERPREC0, vg_aintegerprec0, AINTEGER8PREC0, vg_ainteger8prec0, AREAL, vg_areal,
                AREAL8, vg_areal8, AREALD, vg_areald, AREALD8, vg_areald8, NUMBEROFDAYS,
                vg_numberofdays, CHECKINT, vg_checkint, CHECKINT4, vg_checkint4, CHECKINT8,
                vg_checkint8, DISTANCE, vg_distance, DISTANCE_8, vg_distance_8, VECTOR_MAGNITUDE,
                vg_vector_magnitude, SAME_POINT, vg_same_point, SAME_POINT_8, vg_same_point_8,
                ANGLE2D, vg_angle2d, SAME_SIDE, vg_same_side, SAME_SIDE_8, vg_same_side_8,
                INTERSECT_POINT, vg_intersect_point, INTERSECT_LINE, vg_intersect_line,
                INTERSECT_LINE_8, vg_intersect_line_8, INTERSECT_LINE_V2, vg_intersect_line_v2,
                INTERSECT_LINE_V2_8, vg_intersect_line_v2_8, INTERSECTION_POINT,
                vg_intersection_point, INTERSECTION_POINT_8, vg_intersection_point_8,
                INSIDE_POLYGON, vg_inside_polygon, INSIDE_POLYGON_8, vg_inside_polygon_8,
                INTERPOLATE_TRIANGLE, vg_interpolate_triangle, INTERPOLATE_TRIANGLE_8,
                vg_interpolate_triangle_8, INTERPOLATE_ELEMENT_8, vg_interpolate_element_8,
                GEO_SHIFT, vg_geo_shift, SET_SUB_GRID_AREA, vg_set_sub_grid_area, CIRCLE_WIDTH,
                vg_circle_width, HYD_PARAM, vg_hyd_param, HYD_PARAM2, vg_hyd_param2);
    });
}

}  // namespace
}  // namespace vantelgis
