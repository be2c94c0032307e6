#include "text/strings.h"

#include <algorithm>
#include <cstring>
#include <functional>

#include "text/characters.h"
#include "text/copying.h"

namespace vantelgis {

namespace {

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

bool containsIgnoringCase(std::string_view line, std::string_view word) {
    return beginsWith(line, word) || findIgnoringCase(line, word) != std::string_view::npos;
}

bool looselyEqual(std::string_view a, std::string_view b, LetterCase letters) {
    return letters == LetterCase::kept ? sameText(a, b, std::identity{}) : sameText(a, b, toUpper);
}

void lowerCase(TextRef out, std::string_view s) {
    copyChanged(out, s, toLower);
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

void replacePiece(TextRef text, std::size_t at, std::size_t count, std::string_view by) {
    const std::string_view tail = text.view().substr(at + count);
    by = by.substr(0, text.capacity - at);
    const std::size_t tailAt = at + by.size();
    const std::size_t tailSize = std::min(tail.size(), text.capacity - tailAt);
    if (tailSize > 0) std::memmove(text.data + tailAt, tail.data(), tailSize);
    std::copy(by.begin(), by.end(), text.data + at);
    text.setLength(tailAt + tailSize);
}

}  // namespace vantelgis
