#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>

#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/plain_decimal.h"

namespace vantelgis {

/// The next line of a unit where it is one of plain decimals, as the lines of vertices nearly all
/// are: read where it stands in the buffer, in one pass over its characters. Nothing is taken from
/// the unit before `end` says true; a line of another form is left to readLine, and so is one that
/// has more than `capacity` characters or is not in the buffer with a byte behind it.
class PlainLine {
  public:
    PlainLine(int unit, std::size_t capacity)
        : file_(readableFile(unit)),
          capacity_(static_cast<std::ptrdiff_t>(capacity)),
          start_(file_.buffer + file_.begin),
          p_(start_) {
        file_.buffer[file_.end] = '\0';  // ends all that is looked for
    }

    /// What follows, behind blanks. Behind a character that is no letter nothing may stand.
    const char* text() {
        skipBlanks();
        return p_;
    }
    /// A number behind blanks; `target` stays as it was if there is none.
    template <typename Real>
    bool number(Real& target) {
        skipBlanks();
        const char* const behind =
            takePlainDecimal<endsItem>(p_, std::unreachable_sentinel, target);
        if (behind != nullptr) p_ = behind;
        return behind != nullptr;
    }
    /// A count of at most nine digits behind blanks; `target` stays as it was if there is none.
    bool count(std::int32_t& target) {
        skipBlanks();
        std::uint64_t value = 0;
        const char* const behind = gatherDigits(p_, std::unreachable_sentinel, value);
        if (behind == p_ || behind - p_ > 9 || !endsItem(*behind)) return false;
        p_ = behind;
        target = static_cast<std::int32_t>(value);
        return true;
    }
    /// A word behind blanks, in any case; another one is left where it is.
    bool word(std::string_view wanted) {
        skipBlanks();
        const char* p = p_;
        for (const char c : wanted)
            if (toLower(*p++) != toLower(c)) return false;
        if (!endsItem(*p)) return false;
        p_ = p;
        return true;
    }
    /// True if the line ends here, but for blanks; it is then the one read last.
    bool end() {
        skipBlanks();
        const bool fits = p_ - start_ <= capacity_;
        if (*p_ == '\r') ++p_;
        if (!fits || *p_ != '\n' || sizeLeft() < 2) return false;
        takeLine(file_, static_cast<std::size_t>(p_ + 1 - file_.buffer));
        return true;
    }
    /// The line is read whatever it holds, and the next one is looked at; false if it is not in the
    /// buffer with a byte behind it.
    bool passOver() {
        const char* const lineEnd = find('\n', sizeLeft());
        return lineEnd != nullptr && passOverTo(lineEnd);
    }
    /// The same of a line that doesn't hold that character.
    bool passOverWithout(char c) {
        const char* const lineEnd = find('\n', sizeLeft());
        return lineEnd != nullptr && find(c, static_cast<std::size_t>(lineEnd - p_)) == nullptr &&
               passOverTo(lineEnd);
    }

  private:
    void skipBlanks() {
        while (*p_ == ' ') ++p_;
    }
    [[nodiscard]] const char* find(char c, std::size_t size) const {
        return static_cast<const char*>(std::memchr(p_, c, size));
    }
    bool passOverTo(const char* lineEnd) {
        p_ = lineEnd;
        if (sizeLeft() < 2) return false;
        start_ = ++p_;
        takeLine(file_, static_cast<std::size_t>(p_ - file_.buffer));
        return true;
    }
    static constexpr bool endsItem(char c) { return c == ' ' || c == '\r' || c == '\n'; }
    [[nodiscard]] std::size_t sizeLeft() const {
        return file_.end - static_cast<std::size_t>(p_ - file_.buffer);
    }

    OpenFile& file_;
    std::ptrdiff_t capacity_;
    const char* start_;
    const char* p_;
};

}  // namespace vantelgis
