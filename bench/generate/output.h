#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// Files that are written front to back.
namespace bench {

class Output {
  public:
    explicit Output(const std::string& name) : file_(std::fopen(name.c_str(), "wb")) {
        if (file_ == nullptr) fail(name);
    }
    ~Output() {
        if (std::fclose(file_) != 0) fail("the last bytes");
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    Output& operator<<(std::string_view text) {
        if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) fail("a file");
        return *this;
    }
    Output& operator<<(std::int64_t value) {
        char text[24];
        return *this << std::string_view(text, std::to_chars(text, text + sizeof text, value).ptr);
    }
    // A whole number of the 10^-decimals part of a unit, in that unit.
    Output& decimal(std::int64_t value, int decimals) {
        std::int64_t unit = 1;
        for (int i = 0; i < decimals; ++i) unit *= 10;
        const std::string fraction = std::to_string(unit + value % unit);
        return *this << value / unit << "." << std::string_view(fraction).substr(1);
    }

  private:
    [[noreturn]] static void fail(const std::string& name) {
        std::fprintf(stderr, "Can't write %s\n", name.c_str());
        std::exit(1);
    }

    std::FILE* file_;
};

// The bytes of a number, the lowest first.
template <typename Number>
std::string little(Number value) {
    auto bytes = std::bit_cast<std::array<char, sizeof value>>(value);
    if constexpr (std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
    return {bytes.data(), bytes.size()};
}

// The bytes of a 32-bit number, the highest first.
inline std::string big(std::int64_t value) {
    std::string bytes = little(static_cast<std::int32_t>(value));
    std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

}  // namespace bench
