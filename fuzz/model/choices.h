#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vantelgis::fuzz {

/// Turns bytes into decisions, one behind the other. When they are used up all that is left to
/// decide comes out as 0.
class Choices {
  public:
    explicit Choices(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool ended() const { return bytes_.empty(); }

    /// From 0 to before `n`, which is at most 256.
    unsigned below(unsigned n) { return byte() % n; }
    bool maybe() { return below(2) == 1; }

    std::int32_t integer() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | byte();
        return static_cast<std::int32_t>(value);
    }
    template <typename Item, std::size_t N>
    const Item& oneOf(const Item (&items)[N]) {
        return items[below(N)];
    }

  private:
    unsigned byte() {
        if (bytes_.empty()) return 0;
        const auto value = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return value;
    }

    std::string_view bytes_;
};

/// A number as it stands in a file, and what it means.
struct Number {
    std::string text;
    double value = 0;
};

/// Below 10,000,000 on both sides of zero, in any spelling. A lower one would touch the number
/// before it in a .mif.
Number coordinate(Choices& choices);

/// Below 1,000,000 on both sides of zero. It may have more digits than its 32 bits hold.
Number elevation(Choices& choices);

/// Up to 20 printable characters but braces, which would end a header of an archive.
std::string name(Choices& choices);

/// `value` as it is printed in so many columns: all asterisks if it needs more.
std::string fixed(double value, int width, int decimals);

/// What is read where `fixed` was printed.
double reread(double value, int decimals);

}  // namespace vantelgis::fuzz
