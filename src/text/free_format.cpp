#include "text/free_format.h"

#include <charconv>
#include <cstdlib>
#include <limits>
#include <string>
#include <type_traits>

#include "text/characters.h"

namespace vantelgis {

namespace {

constexpr bool endsItem(char c) {
    return c == ' ' || c == ',' || c == '/';
}

// The exact powers of ten of each width; within them one division rounds correctly.
constexpr double kExactDoubles[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                    1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr float kExactFloats[] = {1e0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F,
                                  1e6F, 1e7F, 1e8F, 1e9F, 1e10F};

// Reads "[-+]digits[.digits]" whose digits are an exact number of the target's width: one exact
// division then gives the nearest value. Returns the place behind it, or null when the item is of
// another form and needs the general conversion.
template <typename Real>
const char* takePlainDecimal(const char* p, const char* end, Real& target) {
    constexpr bool isDouble = std::is_same_v<Real, double>;
    constexpr std::uint64_t kMaxMantissa = std::uint64_t{1} << std::numeric_limits<Real>::digits;
    constexpr int kMaxDigits = isDouble ? 18 : 10;

    const bool negative = *p == '-';
    if (negative || *p == '+') ++p;
    std::uint64_t mantissa = 0;
    const char* const first = p;
    while (p != end && isDigit(*p))
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*p++ - '0');
    auto digits = p - first;
    std::ptrdiff_t decimals = 0;
    if (p != end && *p == '.') {
        const char* const point = ++p;
        while (p != end && isDigit(*p))
            mantissa = mantissa * 10 + static_cast<std::uint64_t>(*p++ - '0');
        decimals = p - point;
        digits += decimals;
    }
    if (digits == 0 || digits > kMaxDigits || mantissa > kMaxMantissa) return nullptr;
    if (p != end && !endsItem(*p)) return nullptr;
    Real value;
    if constexpr (isDouble) {
        value = static_cast<double>(mantissa) / kExactDoubles[decimals];
    } else {
        value = static_cast<float>(mantissa) / kExactFloats[decimals];
    }
    target = negative ? -value : value;
    return p;
}

// An item out of the range of from_chars, which has one error for both overflow and underflow.
template <typename Real>
bool convertExtreme(const std::string& item, Real& target) {
    Real value;
    if constexpr (std::is_same_v<Real, double>) {
        value = std::strtod(item.c_str(), nullptr);
    } else {
        value = std::strtof(item.c_str(), nullptr);
    }
    if (value > std::numeric_limits<Real>::max() || value < std::numeric_limits<Real>::lowest())
        return false;
    target = value;
    return true;
}

constexpr bool beginsDigits(char c, bool hexadecimal) {
    return isDigit(c) || c == '.' || (hexadecimal && toLower(c) >= 'a' && toLower(c) <= 'f');
}

template <typename Real>
bool convertReal(std::string_view item, Real& target) {
    static std::string work;  // keeps its room from call to call
    const bool negative = item.front() == '-';
    std::string_view digits = item;
    if (negative || item.front() == '+') digits.remove_prefix(1);
    const bool hexadecimal = beginsWith(digits, "0x");
    if (hexadecimal) digits.remove_prefix(2);
    // from_chars would take a second sign and the words inf and nan.
    if (digits.empty() || !beginsDigits(digits.front(), hexadecimal)) return false;

    if (!hexadecimal && digits.find_first_of("dD") != std::string_view::npos) {
        work = digits;
        work[work.find_first_of("dD")] = 'e';
        digits = work;
    }
    Real value;
    const auto form = hexadecimal ? std::chars_format::hex : std::chars_format::general;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, form);
    if (end != digits.data() + digits.size() || error == std::errc::invalid_argument) return false;
    if (error == std::errc::result_out_of_range) {
        const std::string whole = (hexadecimal ? "0x" : "") + std::string(digits);
        if (!convertExtreme(whole, value)) return false;
    }
    target = negative ? -value : value;
    return true;
}

template <typename Integer>
bool convertInteger(std::string_view item, Integer& target) {
    if (item.front() == '+') {
        item.remove_prefix(1);
        if (item.empty() || !isDigit(item.front())) return false;  // from_chars would take "+-5"
    }
    Integer value;
    const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), value);
    if (error != std::errc{} || end != item.data() + item.size()) return false;
    target = value;
    return true;
}

// Takes a quoted item from the start of `text`; returns the length taken.
std::size_t takeQuoted(std::string_view text, TextRef target) {
    const char quote = text.front();
    target.clear();
    std::size_t length = 0;  // counts inner blanks, which `append` would drop
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == quote) {
            if (i + 1 == text.size() || text[i + 1] != quote) {
                target.assign({target.data, length});
                return i + 1;
            }
            ++i;
        }
        if (length < target.capacity) target.data[length++] = text[i];
    }
    target.assign({target.data, length});
    return text.size();
}

}  // namespace

Item FreeFormat::findItem() {
    const auto skipBlanks = [this] {
        while (position_ < text_.size() && text_[position_] == ' ') ++position_;
    };
    skipBlanks();
    if (separatorDue_ && position_ < text_.size() && text_[position_] == ',') {
        ++position_;
        separatorDue_ = false;
        skipBlanks();
    }
    if (position_ == text_.size()) return Item::end;
    if (text_[position_] == '/')
        return Item::unchanged;  // stays here: all that follows is unchanged
    if (text_[position_] == ',') {
        separatorDue_ = true;
        return Item::unchanged;
    }
    return Item::value;
}

std::string_view FreeFormat::wholeItem() const {
    const std::string_view text = rest();
    std::size_t n = 0;
    while (n < text.size() && !endsItem(text[n])) ++n;
    return text.substr(0, n);
}

template <typename Number>
Item takeNumber(FreeFormat& list, Number& target) {
    const Item found = list.findItem();
    if (found != Item::value) return found;
    if constexpr (std::is_floating_point_v<Number>) {
        const std::string_view text = list.rest();
        if (const char* end = takePlainDecimal(text.data(), text.data() + text.size(), target)) {
            list.leaveItem(static_cast<std::size_t>(end - text.data()));
            return Item::value;
        }
    }
    const std::string_view item = list.wholeItem();
    bool converted;
    if constexpr (std::is_floating_point_v<Number>) {
        converted = convertReal(item, target);
    } else {
        converted = convertInteger(item, target);
    }
    if (!converted) return Item::bad;
    list.leaveItem(item.size());
    return Item::value;
}

Item takeReal(FreeFormat& list, double& target) {
    return takeNumber(list, target);
}
Item takeReal(FreeFormat& list, float& target) {
    return takeNumber(list, target);
}
Item takeInteger(FreeFormat& list, std::int32_t& target) {
    return takeNumber(list, target);
}
Item takeInteger(FreeFormat& list, std::int64_t& target) {
    return takeNumber(list, target);
}

Item takeWord(FreeFormat& list, TextRef target) {
    const Item found = list.findItem();
    if (found != Item::value) return found;
    const std::string_view text = list.rest();
    if (isQuote(text.front())) {
        list.leaveItem(takeQuoted(text, target));
    } else {
        const std::string_view item = list.wholeItem();
        target.assign(item);
        list.leaveItem(item.size());
    }
    return Item::value;
}

}  // namespace vantelgis
