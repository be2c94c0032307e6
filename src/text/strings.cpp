#include "text/strings.h"

#include <algorithm>
#include <cstring>
#include <functional>

#include "text/characters.h"

namespace vantelgis {

namespace {

constexpr std::size_t kShortStringCapacity = 256;

void setLength(TextRef out, std::size_t length) {
    *out.length = withoutTrailingBlanks({out.data, length}).size();
}

// The characters of `s` that are wanted. Runs forward and never writes ahead of its reading, so
// that `s` may lie in `out`.
template <typename Wanted>
void copyWanted(TextRef out, std::string_view s, Wanted wanted) {
    std::size_t length = 0;
    for (const char c : s) {
        if (!wanted(c)) continue;
        if (length == out.capacity) break;
        out.data[length++] = c;
    }
    setLength(out, length);
}

template <typename Change>
void copyChanged(TextRef out, std::string_view s, Change change) {
    s = s.substr(0, out.capacity);
    for (std::size_t i = 0; i < s.size(); ++i) out.data[i] = change(s[i]);
    setLength(out, s.size());
}

void fillIfBlank(TextRef out) {
    if (*out.length == 0) out.assign("X");
}

// The characters of a string that count in a comparison, one after the other, and blanks behind
// its end.
class ComparedText {
  public:
    explicit ComparedText(std::string_view s)
        : rest_(withoutTrailingBlanks(s.substr(0, kCompareCapacity))) {
        while (!rest_.empty() && (rest_.front() == ' ' || dropped(rest_.front())))
            rest_.remove_prefix(1);
    }
    [[nodiscard]] bool ended() const { return rest_.empty(); }
    char next() {
        if (rest_.empty()) return ' ';
        const char c = rest_.front();
        do rest_.remove_prefix(1);
        while (!rest_.empty() && dropped(rest_.front()));
        return c;
    }

  private:
    static bool dropped(char c) { return isQuote(c) || c == '\t'; }

    std::string_view rest_;
};

template <typename Fold>
bool sameText(std::string_view a, std::string_view b, Fold fold) {
    ComparedText left(a);
    ComparedText right(b);
    while (!left.ended() || !right.ended())
        if (fold(left.next()) != fold(right.next())) return false;
    return true;
}

// The next place of one character in a search area, asked for again only once it lies behind.
class CharacterFinder {
  public:
    CharacterFinder(char wanted, const char* begin, const char* end)
        : wanted_(wanted), end_(end), found_(find(begin)) {}
    [[nodiscard]] const char* place() const { return found_; }
    void goBehind(const char* place) {
        if (found_ == place) found_ = find(place + 1);
    }

  private:
    [[nodiscard]] const char* find(const char* from) const {
        const void* found = std::memchr(from, wanted_, static_cast<std::size_t>(end_ - from));
        return found != nullptr ? static_cast<const char*>(found) : end_;
    }
    char wanted_;
    const char* end_;
    const char* found_;
};

}  // namespace

std::size_t findIgnoringCase(std::string_view s, std::string_view wanted) {
    if (wanted.empty()) return 0;
    if (wanted.size() > s.size()) return std::string_view::npos;
    const char* const begin = s.data();
    const char* const end = begin + (s.size() - wanted.size() + 1);
    const std::string_view behindFirst = wanted.substr(1);

    CharacterFinder lower(toLower(wanted.front()), begin, end);
    CharacterFinder upper(toUpper(wanted.front()), begin, end);
    for (const char* at; (at = std::min(lower.place(), upper.place())) != end;) {
        if (sameIgnoringCase({at + 1, behindFirst.size()}, behindFirst))
            return static_cast<std::size_t>(at - begin);
        lower.goBehind(at);
        upper.goBehind(at);
    }
    return std::string_view::npos;
}

void replacePiece(TextRef text, std::size_t at, std::size_t count, std::string_view by) {
    const std::string_view tail = text.view().substr(at + count);
    by = by.substr(0, text.capacity - at);
    const std::size_t tailAt = at + by.size();
    const std::size_t tailSize = std::min(tail.size(), text.capacity - tailAt);
    if (tailSize > 0) std::memmove(text.data + tailAt, tail.data(), tailSize);
    std::copy(by.begin(), by.end(), text.data + at);
    setLength(text, tailAt + tailSize);
}

bool containsIgnoringCase(std::string_view line, std::string_view word) {
    return findIgnoringCase(line, word) != std::string_view::npos;
}

bool looselyEqual(std::string_view a, std::string_view b) {
    return sameText(a, b, toUpper);
}

void keepAlphanumerics(TextRef out, std::string_view s, char fill) {
    const auto wanted = [](char c) { return isLetter(c) || isDigit(c); };
    s = withoutTrailingBlanks(s);
    if (fill == '\0')
        copyWanted(out, s, wanted);
    else
        copyChanged(out, s, [=](char c) { return wanted(c) ? c : fill; });
    fillIfBlank(out);
}

void cleanAttributeName(TextRef out, std::string_view s, std::size_t length) {
    copyWanted(out, s.substr(0, length),
               [](char c) { return isLetter(c) || isDigit(c) || c == '_'; });
    fillIfBlank(out);
}

void TRIMF(TextRef out, std::string_view s) {
    out.assign(withoutLeadingBlanks(s));
}

void REMOVETABS(TextRef out, std::string_view s) {
    if (s.find('\t') == std::string_view::npos) return out.assign(s);
    copyWanted(out, s, [](char c) { return c != '\t'; });
}

void REMOVEQUOTES(TextRef out, std::string_view s) {
    copyWanted(out, s, [](char c) { return !isQuote(c); });
}

void REMOVESPACES(TextRef out, std::string_view s) {
    copyWanted(out, s, [](char c) { return c != ' '; });
}

void DOUBLEQUOTE(TextRef out, std::string_view s) {
    out.assign(s);
    std::size_t from = *out.length;
    const auto quotes = std::count(out.data, out.data + from, '"');
    std::size_t to = from + static_cast<std::size_t>(quotes);
    const std::size_t length = std::min(to, out.capacity);
    const auto put = [&](char c) {
        if (--to < out.capacity) out.data[to] = c;
    };
    // From the end on, so that nothing is overwritten before it has been moved.
    while (from != to) {
        const char c = out.data[--from];
        put(c);
        if (c == '"') put(c);
    }
    setLength(out, length);
}

void UPPERCASE(TextRef out, std::string_view s) {
    copyChanged(out, s, toUpper);
}
void LOWERCASE(TextRef out, std::string_view s) {
    copyChanged(out, s, toLower);
}

void ALPHANUMERICONLY(TextRef out, std::string_view s, std::string_view fill) {
    keepAlphanumerics(out, s, fill.empty() ? ' ' : fill.front());
}

void CLEANATTRIBUTENAME(TextRef out, std::string_view s, std::int32_t length) {
    cleanAttributeName(out, s, static_cast<std::size_t>(std::max(length, 0)));
}

void SS256(TextRef out, std::string_view s) {
    out.assign(s.substr(0, kShortStringCapacity));
}

bool BLANK(TextRef s) {
    REMOVETABS(s, s.view());
    return *s.length == 0;
}

bool ASAME(std::string_view a, std::string_view b) {
    return looselyEqual(a, b);
}

bool ASAMECS(std::string_view a, std::string_view b) {
    return sameText(a, b, std::identity{});
}

bool FLAGEXISTS(std::string_view line, std::string_view flag) {
    return containsIgnoringCase(line.substr(0, kLineCapacity), cutLine(flag));
}

}  // namespace vantelgis
