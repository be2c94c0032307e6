#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

/// A text that goes in.
inline std::string_view view(const char* text, std::size_t length) {
    return {text, length};
}

/// Puts a zero byte behind a text where there is room for one.
inline void endWithZero(char* data, std::size_t capacity, std::size_t length) {
    if (length < capacity) data[length] = '\0';
}

/// A caller's place for a text, for the time of one call.
class OutText {
  public:
    /// A place without a text.
    OutText(char* data, std::size_t capacity, std::size_t* length) : ref_{data, capacity, length} {
        *length = 0;
    }
    /// A place with a text of `used` characters, of which no more than its capacity count.
    static OutText holding(char* data, std::size_t capacity, std::size_t* used) {
        return {data, capacity, used, std::min(*used, capacity)};
    }
    ~OutText() { endWithZero(ref_.data, ref_.capacity, *ref_.length); }
    OutText(const OutText&) = delete;
    OutText& operator=(const OutText&) = delete;

    operator TextRef() const { return ref_; }

  private:
    OutText(char* data, std::size_t capacity, std::size_t* length, std::size_t used)
        : ref_{data, capacity, length} {
        ref_.setLength(used);
    }

    TextRef ref_;
};

/// Calls a routine whose only result is the text in its first argument, and gives that text's
/// length.
template <typename Routine, typename... Arguments>
std::size_t given(Routine routine, char* out, std::size_t capacity, Arguments&&... arguments) {
    std::size_t length = 0;
    routine(TextRef{out, capacity, &length}, static_cast<Arguments&&>(arguments)...);
    endWithZero(out, capacity, length);
    return length;
}

}  // namespace vantelgis
