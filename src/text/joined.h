#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <string_view>

#include "text/number_field.h"

namespace vantelgis {

/// Texts and integers one behind the other, blanks and all, cut at N characters.
template <std::size_t N>
class Joined {
  public:
    template <typename... Parts>
    explicit Joined(const Parts&... parts) {
        (add(parts), ...);
    }
    operator std::string_view() const { return {buffer_, length_}; }

    void add(std::string_view text) {
        const std::size_t n = std::min(text.size(), N - length_);
        std::copy_n(text.data(), n, buffer_ + length_);  // also fine with no text at all
        length_ += n;
    }
    void add(std::integral auto value) { add(std::string_view(IntegerText(value))); }

    /// Puts `text` over what stands at place `at` (from 0); the length stays.
    void overwrite(std::size_t at, std::string_view text) {
        if (at < length_)
            std::copy_n(text.data(), std::min(text.size(), length_ - at), buffer_ + at);
    }

  private:
    char buffer_[N];
    std::size_t length_ = 0;
};

}  // namespace vantelgis
