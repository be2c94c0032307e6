#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/plain_decimal.h"
#include "text/text.h"

namespace vantelgis {

/// What a take routine of the free-format list found.
enum class Item {
    value,      ///< an item was read into the target
    unchanged,  ///< an empty item, or one behind a slash: the target keeps what it holds
    end,        ///< the text ran out before an item
    bad,        ///< the item is there but does not convert; the list stays in front of it
};

/// True when the reading may go on: the target holds what it is to hold.
constexpr bool taken(Item item) {
    return item == Item::value || item == Item::unchanged;
}

/// A list of items in free format: separated by blanks or by one comma, ended by a slash. Only the
/// space is a blank. The list can go on with a further line of text (`continueWith`), which counts
/// as a blank between the two.
class FreeFormat {
  public:
    explicit FreeFormat(std::string_view text) { continueWith(text); }

    /// Goes on with the next line once the present text is used up.
    void continueWith(std::string_view text) {
        next_ = text.data();
        end_ = next_ + text.size();
    }
    /// The text that no item has taken yet.
    [[nodiscard]] std::string_view rest() const {
        return {next_, static_cast<std::size_t>(end_ - next_)};
    }

    /// Numbers are decimal, with or without point and exponent (E or D), or hexadecimal floats such
    /// as "-0x1.869f000000000p+16". The words nan and inf are no numbers. An overflow is `bad`, an
    /// underflow 0 or the denormal. A 32-bit target is converted directly.
    template <typename Real>
    friend Item takeReal(FreeFormat& list, Real& target);
    /// An integer is digits, perhaps behind a sign; anything else, or what the target can't hold,
    /// is `bad`.
    friend Item takeInteger(FreeFormat& list, std::int32_t& target);
    friend Item takeInteger(FreeFormat& list, std::int64_t& target);
    /// A character item: in quotes (a doubled quote stands for one; an unclosed one runs to the end
    /// of the text), or up to the next blank, comma or slash. Cut at the target's capacity.
    friend Item takeWord(FreeFormat& list, TextRef target);

  private:
    /// Moves to the next item; `value` when one begins at the position.
    Item findItem();
    /// The item at the position, up to a blank, comma or slash.
    [[nodiscard]] std::string_view wholeItem() const;
    void leaveItem(std::size_t length) {
        next_ += length;
        separatorDue_ = true;
    }
    void skipBlanks() {
        while (next_ != end_ && *next_ == ' ') ++next_;
    }
    /// Moves over blanks and the separator of the item before.
    void skipSeparator() {
        skipBlanks();
        if (!separatorDue_ || next_ == end_ || *next_ != ',') return;
        ++next_;
        separatorDue_ = false;
        skipBlanks();
    }
    template <typename Number>
    friend Item takeNumber(FreeFormat& list, Number& target);

    const char* next_;
    const char* end_;
    bool separatorDue_ = false;  // an item was taken and its separator is still ahead
};

/// Takes the item in quotes with which `text` begins, see takeWord; gives the length taken.
std::size_t takeQuoted(std::string_view text, TextRef target);

/// Any real of the list.
Item takeAnyReal(FreeFormat& list, double& target);
Item takeAnyReal(FreeFormat& list, float& target);

/// A plain decimal behind blanks, as nearly all numbers are, is read here; everything else is left
/// to the general reader.
template <typename Real>
Item takeReal(FreeFormat& list, Real& target) {
    list.skipSeparator();
    if (list.next_ != list.end_) {
        if (const char* end = takePlainDecimal<endsItem>(list.next_, list.end_, target)) {
            list.next_ = end;
            list.separatorDue_ = true;
            return Item::value;
        }
    }
    return takeAnyReal(list, target);
}
Item takeInteger(FreeFormat& list, std::int32_t& target);
Item takeInteger(FreeFormat& list, std::int64_t& target);
Item takeWord(FreeFormat& list, TextRef target);

}  // namespace vantelgis
