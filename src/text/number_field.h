#pragma once

#include <cstdint>
#include <string_view>

namespace vantelgis {

/// Widest number field that `fixedField` writes.
inline constexpr int kMaxFieldWidth = 64;

/// Writes `value` in fixed-point form with `decimals` (0 to 19) digits behind its point,
/// right-justified in exactly `width` (1 to kMaxFieldWidth) columns at `out`, and returns the place
/// behind them. The stored binary value is rounded to the nearest, exact ties to even. A negative
/// value that rounds to 0 keeps its minus; the zero before the point gives way when the width is
/// one short; non-finite values are the words NaN, Infinity, -Infinity; what does not fit fills the
/// columns with asterisks.
char* fixedField(char* out, double value, int width, int decimals);

/// Writes `value` right-justified in `width` columns, asterisks if it does not fit.
char* integerField(char* out, std::int64_t value, int width);

/// Decimal text of an integer without blanks, in a buffer of its own.
class IntegerText {
  public:
    explicit IntegerText(std::int64_t value);
    operator std::string_view() const { return {text_, length_}; }

  private:
    char text_[24];
    std::size_t length_;
};

}  // namespace vantelgis
