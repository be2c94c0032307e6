#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "text/limits.h"

namespace vantelgis {

/// `s` up to its last character that is not a blank.
constexpr std::string_view withoutTrailingBlanks(std::string_view s) {
    std::size_t n = s.size();
    while (n > 0 && s[n - 1] == ' ') --n;
    return s.substr(0, n);
}

/// `s` from its first character that is not a blank.
constexpr std::string_view withoutLeadingBlanks(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && s[i] == ' ') ++i;
    return s.substr(i);
}

/// The text of columns `first` (from 1) to the end; empty if `s` ends before.
constexpr std::string_view fromColumn(std::string_view s, std::size_t first) {
    return first - 1 < s.size() ? s.substr(first - 1) : std::string_view{};
}

/// An output argument: somebody's characters, their capacity and where their length is kept.
/// Made from any `Text<N>`. What does not fit is cut; trailing blanks never count.
struct TextRef {
    char* data;
    std::size_t capacity;
    std::size_t* length;

    /// `s` may lie inside the target itself.
    void assign(std::string_view s) const {
        s = withoutTrailingBlanks(s.substr(0, capacity));
        if (!s.empty()) std::memmove(data, s.data(), s.size());
        *length = s.size();
    }
    /// Adds `s` behind the text; `s` must not lie inside the target.
    void append(std::string_view s) const {
        const std::size_t n = std::min(s.size(), capacity - *length);
        if (n > 0) std::memcpy(data + *length, s.data(), n);
        setLength(*length + n);
    }
    /// The first `n` characters of `data`, which somebody has put there, are the text.
    void setLength(std::size_t n) const { *length = withoutTrailingBlanks({data, n}).size(); }
    void clear() const { *length = 0; }
    [[nodiscard]] std::string_view view() const { return {data, *length}; }
};

/// A string of at most N characters without visible trailing blanks. Nothing is ever filled up to
/// N, nothing allocates, and a copy moves only the characters that are there.
template <std::size_t N>
class Text {
  public:
    Text() = default;
    Text(std::string_view s) { *this = s; }
    Text(const char* s) { *this = std::string_view(s); }
    Text(const Text& other) { *this = other.view(); }
    ~Text() = default;

    Text& operator=(const Text& other) { return *this = other.view(); }
    Text& operator=(const char* s) { return *this = std::string_view(s); }
    Text& operator=(std::string_view s) {
        ref().assign(s);
        return *this;
    }

    operator std::string_view() const { return view(); }
    operator TextRef() { return ref(); }

    [[nodiscard]] std::string_view view() const { return {data_, length_}; }
    [[nodiscard]] TextRef ref() { return {data_, N, &length_}; }
    [[nodiscard]] std::size_t size() const { return length_; }
    [[nodiscard]] bool blank() const { return length_ == 0; }
    static constexpr std::size_t capacity() { return N; }

    /// The characters in place, to overwrite what stands there; the length stays.
    [[nodiscard]] char* data() { return data_; }

    void clear() { length_ = 0; }
    Text& operator+=(std::string_view s) {
        ref().append(s);
        return *this;
    }

  private:
    std::size_t length_ = 0;
    char data_[N];
};

template <std::size_t N>
bool operator==(const Text<N>& a, std::string_view b) {
    return a.view() == withoutTrailingBlanks(b);
}

/// A path, a record line or an input line of ordinary capacity.
using Path = Text<kPathCapacity>;
using Line = Text<kShortLineCapacity>;

}  // namespace vantelgis
