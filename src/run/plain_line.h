#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>

#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/find_either.h"
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
    /// Those very characters behind blanks; others are left where they are.
    bool exactly(std::string_view wanted) {
        skipBlanks();
        if (sizeLeft() < wanted.size() || std::memcmp(p_, wanted.data(), wanted.size()) != 0)
            return false;
        p_ += wanted.size();
        return true;
    }
    /// A text in double quotes behind blanks that holds neither quote nor slash.
    bool quoted(std::string_view& target) {
        skipBlanks();
        if (*p_ != '"') return false;
        const char* const first = p_ + 1;
        const char* last = first;
        while (*last != '"' && *last != '/' && *last != '\n' && *last != '\0') ++last;
        if (*last != '"') return false;
        target = {first, static_cast<std::size_t>(last - first)};
        p_ = last + 1;
        return true;
    }
    /// True if the line ends here, but for blanks; it is then the one read last, and the next one
    /// is looked at.
    bool end() {
        skipBlanks();
        const bool fits = p_ - start_ <= capacity_;
        if (*p_ == '\r') ++p_;
        if (!fits || *p_ != '\n' || sizeLeft() < 2) return false;
        start_ = ++p_;
        takeLine(file_, static_cast<std::size_t>(p_ - file_.buffer));
        return true;
    }
    /// The line is read whatever it holds, and the next one is looked at; false if it is not in the
    /// buffer with a byte behind it.
    bool passOver() {
        const char* const lineEnd = find('\n', sizeLeft());
        return lineEnd != nullptr && passOverTo(lineEnd);
    }
    /// The same of all lines up to one that holds `c`, or whose first character behind blanks
    /// `counts` is true of.
    template <typename Counts>
    void passOverLinesWithout(char c, Counts counts) {
        const char* const end = p_ + sizeLeft();
        const char* last = nullptr;
        std::int64_t nLines = 0;
        for (const char* found; !counts(*text()); start_ = p_ = found + 1, ++nLines) {
            found = findEither(p_, end, '\n', c);
            if (*found != '\n' || end - found < 2) break;
            last = start_;
        }
        if (nLines == 0) return;
        file_.begin = static_cast<std::size_t>(last - file_.buffer);
        takeLine(file_, static_cast<std::size_t>(start_ - file_.buffer));
        file_.lineNumber += nLines - 1;
    }
    /// What is left of the line, with its end; empty if that is not in the buffer.
    [[nodiscard]] std::string_view rest() const {
        const char* const lineEnd = find('\n', sizeLeft());
        if (lineEnd == nullptr) return {};
        return {p_, static_cast<std::size_t>(lineEnd + 1 - p_)};
    }
    /// The first character behind blanks, if the capacity reaches so far, is that one.
    bool begins(char c) {
        skipBlanks();
        return *p_ == c && p_ - start_ < capacity_;
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
