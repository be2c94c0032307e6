#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vantelgis {

/// 10 to the power of `n`, which is 0 to 19.
constexpr std::uint64_t powerOfTen(int n) {
    std::uint64_t power = 1;
    for (; n > 0; --n) power *= 10;
    return power;
}

/// Widest number field that `fixedField` writes.
inline constexpr int kMaxFieldWidth = 64;

/// Writes `value` in fixed-point form with `decimals` (0 to 19) digits behind its point,
/// right-justified in exactly `width` (1 to kMaxFieldWidth) columns at `out`, and returns the place
/// behind them. The stored binary value is rounded to the nearest, exact ties to even. A negative
/// value that rounds to 0 keeps its minus; the zero before the point gives way when the width is
/// one short; non-finite values are the words NaN, Infinity, -Infinity; what does not fit fills the
/// columns with asterisks.
char* fixedField(char* out, double value, int width, int decimals);

/// Writes `value` right-justified in `width` (1 to kMaxFieldWidth) columns, asterisks if it does
/// not fit, and returns the place behind them.
char* integerField(char* out, std::int64_t value, int width);

/// The text of a number in a buffer of its own, to be put into a line by value.
class NumberText {
  public:
    operator std::string_view() const { return {text_, length_}; }

  protected:
    NumberText() = default;
    void end(const char* behind) { length_ = static_cast<std::size_t>(behind - text_); }

    char text_[kMaxFieldWidth];
    std::size_t length_ = 0;
};

/// A fixed-point field, see fixedField.
class FixedText : public NumberText {
  public:
    FixedText(double value, int width, int decimals) {
        end(fixedField(text_, value, width, decimals));
    }
};

/// An integer in its shortest form, or right-justified in a field, see integerField.
class IntegerText : public NumberText {
  public:
    explicit IntegerText(std::int64_t value);
    IntegerText(std::int64_t value, int width) { end(integerField(text_, value, width)); }
};

/// An integer with leading zeros up to `digits` (held between 1 and 20) digits; a negative one in
/// its shortest form.
class ZeroPaddedText : public NumberText {
  public:
    ZeroPaddedText(std::int64_t value, int digits);
};

}  // namespace vantelgis
