#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

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
    explicit FreeFormat(std::string_view text) : text_(text) {}

    /// Goes on with the next line once the present text is used up.
    void continueWith(std::string_view text) {
        text_ = text;
        position_ = 0;
    }
    /// The text that no item has taken yet.
    [[nodiscard]] std::string_view rest() const { return text_.substr(position_); }

    /// Numbers are decimal, with or without point and exponent (E or D), or hexadecimal floats such
    /// as "-0x1.869f000000000p+16". The words nan and inf are no numbers. An overflow is `bad`, an
    /// underflow 0 or the denormal. A 32-bit target is converted directly.
    friend Item takeReal(FreeFormat& list, double& target);
    friend Item takeReal(FreeFormat& list, float& target);
    /// An integer is a sign and digits; anything else, or a value out of range, is `bad`.
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
        position_ += length;
        separatorDue_ = true;
    }
    template <typename Number>
    friend Item takeNumber(FreeFormat& list, Number& target);

    std::string_view text_;
    std::size_t position_ = 0;
    bool separatorDue_ = false;  // an item was taken and its separator is still ahead
};

Item takeReal(FreeFormat& list, double& target);
Item takeReal(FreeFormat& list, float& target);
Item takeInteger(FreeFormat& list, std::int32_t& target);
Item takeInteger(FreeFormat& list, std::int64_t& target);
Item takeWord(FreeFormat& list, TextRef target);

}  // namespace vantelgis
