#include "gpkg/transcoding.h"

#include <cstddef>
#include <string>

#include "gpkg/plain_file.h"

namespace vantelgis::gpkg {

namespace {

using vantelgis::platform::Access;

constexpr char32_t kMark = 0xFEFF;
constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kBeyondUnit = 0x10000;  // the first character that takes two units

constexpr bool isLeading(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isTrailing(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

class Utf16Decoder {
  public:
    explicit Utf16Decoder(Encoding encoding) : big_(encoding == Encoding::utf16Big) {}

    // Takes the whole units of `bytes` and leaves a byte that is over.
    void decode(std::string& bytes, std::string& text) {
        std::size_t at = 0;
        for (; at + 1 < bytes.size(); at += 2) takeUnit(unitAt(bytes, at), text);
        bytes.erase(0, at);
    }
    // At the end of the file, with the bytes that are over.
    void finish(std::string_view bytes, std::string& text) {
        if (leading_ != 0) replace(text);
        if (!bytes.empty()) replace(text);
    }
    [[nodiscard]] std::int64_t replaced() const { return replaced_; }

  private:
    [[nodiscard]] char32_t unitAt(std::string_view bytes, std::size_t at) const {
        const auto high = static_cast<unsigned char>(bytes[at + (big_ ? 0 : 1)]);
        const auto low = static_cast<unsigned char>(bytes[at + (big_ ? 1 : 0)]);
        return static_cast<char32_t>(high << 8U | low);
    }
    void takeUnit(char32_t unit, std::string& text) {
        const char32_t leading = leading_;
        leading_ = 0;
        if (leading != 0 && isTrailing(unit)) {
            appendUtf8(text, kBeyondUnit + ((leading & 0x3FFU) << 10U | (unit & 0x3FFU)));
            return;
        }
        if (leading != 0) replace(text);
        if (isLeading(unit)) {
            leading_ = unit;
        } else if (isTrailing(unit)) {
            replace(text);
        } else if (!first_ || unit != kMark) {
            appendUtf8(text, unit);
        }
        first_ = false;
    }
    void replace(std::string& text) {
        appendUtf8(text, kReplacement);
        ++replaced_;
    }

    bool big_;
    bool first_ = true;
    char32_t leading_ = 0;  // of a pair whose second unit is still to come
    std::int64_t replaced_ = 0;
};

void appendUnit(std::string& bytes, char32_t unit, bool big) {
    const char high = static_cast<char>(unit >> 8U);
    const char low = static_cast<char>(unit & 0xFFU);
    bytes += big ? high : low;
    bytes += big ? low : high;
}

// False when the spelling doesn't know the character.
bool appendCharacter(std::string& bytes, char32_t character, Encoding encoding) {
    if (encoding == Encoding::windows1252) return appendWindows1252(bytes, character);
    const bool big = encoding == Encoding::utf16Big;
    if (character >= kBeyondUnit) {
        appendUnit(bytes, 0xD800 + ((character - kBeyondUnit) >> 10U), big);
        appendUnit(bytes, 0xDC00 + ((character - kBeyondUnit) & 0x3FFU), big);
    } else {
        appendUnit(bytes, character, big);
    }
    return true;
}

// Takes the whole characters of `text` and, unless more may follow, what is left.
std::int64_t encode(std::string& text, std::string& bytes, Encoding encoding, bool more) {
    constexpr std::size_t kLongest = 4;
    std::int64_t unknown = 0;
    std::size_t at = 0;
    while (at < text.size() && (!more || text.size() - at >= kLongest)) {
        char32_t character = kReplacement;
        const std::size_t end = endOfCharacter(text, at, character);
        at = end == at ? at + 1 : end;
        if (!appendCharacter(bytes, character, encoding)) ++unknown;
    }
    text.erase(0, at);
    return unknown;
}

}  // namespace

Encoding markedEncoding(std::string_view file) {
    std::string bytes;
    static_cast<void>(PlainFile{file, Access::read}.read(bytes));
    if (bytes.starts_with("\xFF\xFE")) return Encoding::utf16Little;
    if (bytes.starts_with("\xFE\xFF")) return Encoding::utf16Big;
    return Encoding::automatic;
}

std::int64_t transcodeToUtf8(std::string_view source, Encoding encoding, std::string_view target) {
    PlainFile in{source, Access::read};
    PlainFile out{target, Access::replace};
    Utf16Decoder decoder{encoding};
    std::string bytes;
    std::string text;
    while (in.read(bytes)) {
        decoder.decode(bytes, text);
        out.write(text);
        text.clear();
    }
    decoder.finish(bytes, text);
    out.write(text);
    out.close();
    return decoder.replaced();
}

std::int64_t transcodeFromUtf8(std::string_view source, Encoding encoding,
                               std::string_view target) {
    PlainFile in{source, Access::read};
    PlainFile out{target, Access::replace};
    std::string text;
    std::string bytes;
    if (encoding != Encoding::windows1252) appendUnit(bytes, kMark, encoding == Encoding::utf16Big);
    std::int64_t unknown = 0;
    bool more = true;
    while (more) {
        more = in.read(text);
        unknown += encode(text, bytes, encoding, more);
        out.write(bytes);
        bytes.clear();
    }
    out.close();
    return unknown;
}

}  // namespace vantelgis::gpkg
