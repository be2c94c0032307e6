#include "text/free_format.h"

#include <charconv>
#include <cstdlib>
#include <limits>
#include <string>
#include <type_traits>

#include "text/characters.h"
#include "text/plain_decimal.h"

namespace vantelgis {

namespace {

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

// `number` with its exponent letter D as an e; a view that is valid until the next call.
std::string_view withExponentE(std::string_view number, std::size_t letter) {
    thread_local std::string work;  // keeps its room from call to call
    work = number;
    work[letter] = 'e';
    return work;
}

template <typename Real>
bool convertReal(std::string_view item, Real& target) {
    const bool negative = item.front() == '-';
    std::string_view digits = item;
    if (negative || item.front() == '+') digits.remove_prefix(1);
    const bool hexadecimal = beginsWith(digits, "0x");
    if (hexadecimal) digits.remove_prefix(2);
    // from_chars would take a second sign and the words inf and nan.
    if (digits.empty() || !beginsDigits(digits.front(), hexadecimal)) return false;

    const std::size_t letter = hexadecimal ? std::string_view::npos : digits.find_first_of("dD");
    if (letter != std::string_view::npos) digits = withExponentE(digits, letter);
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

}  // namespace

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

Item FreeFormat::findItem() {
    skipSeparator();
    if (next_ == end_) return Item::end;
    if (*next_ == '/') return Item::unchanged;  // stays here: all that follows is unchanged
    if (*next_ == ',') {
        separatorDue_ = true;
        return Item::unchanged;
    }
    return Item::value;
}

std::string_view FreeFormat::wholeItem() const {
    const char* p = next_;
    while (p != end_ && !endsItem(*p)) ++p;
    return {next_, static_cast<std::size_t>(p - next_)};
}

template <typename Number>
Item takeNumber(FreeFormat& list, Number& target) {
    const Item found = list.findItem();
    if (found != Item::value) return found;
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

Item takeAnyReal(FreeFormat& list, double& target) {
    return takeNumber(list, target);
}
Item takeAnyReal(FreeFormat& list, float& target) {
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
