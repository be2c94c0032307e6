#include "gpkg/encoding.h"

#include <algorithm>
#include <iterator>

#include "text/characters.h"

namespace vantelgis::gpkg {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct EncodingName {
    std::string_view name;
    Encoding encoding;
};
constexpr EncodingName kNames[] = {
    {"auto", Encoding::automatic},           {"utf-8", Encoding::utf8},
    {"windows-1252", Encoding::windows1252}, {"utf-16le", Encoding::utf16Little},
    {"utf-16be", Encoding::utf16Big},
};

// What Windows-1252 has in place of the control characters 80 to 9F (hexadecimal) of Latin-1. The
// five places that it leaves open stay control characters.
constexpr char32_t kWindows1252[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
constexpr unsigned char kFirstOther = 0x80;
constexpr unsigned char kFirstSame = 0xA0;

char32_t fromWindows1252(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    if (code < kFirstOther || code >= kFirstSame) return code;
    return kWindows1252[code - kFirstOther];
}

// Text of characters below 80 (hexadecimal), without the zero byte, is the same in all spellings.
bool isAscii(std::string_view bytes) {
    unsigned others = 0;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        others |= (code - 1U) | code;
    }
    return (others & 0x80U) == 0;
}

// What the first byte of a character of UTF-8 says: bytes that follow, bits of its own, the
// smallest character that needs so many.
struct Lead {
    unsigned char mask, value;
    std::size_t following;
    char32_t smallest;
};
constexpr Lead kLeads[] = {
    {0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};

const Lead* leadOf(unsigned char byte) {
    for (const Lead& lead : kLeads)
        if ((byte & lead.mask) == lead.value) return &lead;
    return nullptr;
}

// The start of a character at the end of `text` whose last bytes are missing, else its size.
std::size_t startOfCutCharacter(std::string_view text) {
    constexpr std::size_t kMostFollowing = 3;
    const std::size_t from = text.size() - std::min(text.size(), kMostFollowing);
    for (std::size_t at = from; at < text.size(); ++at) {
        const Lead* const lead = leadOf(static_cast<unsigned char>(text[at]));
        if (lead != nullptr && at + lead->following >= text.size()) return at;
    }
    return text.size();
}

}  // namespace

bool encodingFromName(std::string_view name, Encoding& encoding) {
    for (const EncodingName& row : kNames) {
        if (!sameIgnoringCase(name, row.name)) continue;
        encoding = row.encoding;
        return true;
    }
    return false;
}

std::size_t endOfCharacter(std::string_view text, std::size_t at, char32_t& character) {
    const auto byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const Lead* const lead = leadOf(byteAt(at));
    if (lead == nullptr || text.size() - at <= lead->following) return at;
    char32_t found = byteAt(at) & static_cast<unsigned char>(~lead->mask);
    for (std::size_t i = at + 1; i <= at + lead->following; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80U) return at;
        found = (found << 6U) | (byteAt(i) & 0x3FU);
    }
    const bool surrogate = found >= 0xD800 && found <= 0xDFFF;
    if (found < lead->smallest || found > 0x10FFFF || surrogate) return at;
    character = found;
    return at + lead->following + 1;
}

bool isUtf8(std::string_view text) {
    char32_t character = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = endOfCharacter(text, at, character);
        if (end == at) return false;
        at = end;
    }
    return true;
}

void appendUtf8(std::string& text, char32_t character) {
    const auto last = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | (character >> 6U));
        last(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0U | (character >> 12U));
        last(6);
        last(0);
    } else {
        text += static_cast<char>(0xF0U | (character >> 18U));
        last(12);
        last(6);
        last(0);
    }
}

void decode(std::string& text, std::string_view bytes, Encoding encoding, bool cut) {
    if (isAscii(bytes)) {
        text = bytes;
        return;
    }
    text.clear();
    const std::string_view whole = cut ? bytes.substr(0, startOfCutCharacter(bytes)) : bytes;
    const bool utf8 =
        encoding == Encoding::automatic ? isUtf8(whole) : encoding != Encoding::windows1252;
    if (!utf8) {
        for (const char byte : bytes)
            appendUtf8(text, byte == '\0' ? kReplacement : fromWindows1252(byte));
        return;
    }
    for (std::size_t at = 0; at < whole.size();) {
        char32_t character = 0;
        const std::size_t end = endOfCharacter(whole, at, character);
        if (end == at || character == 0) {
            appendUtf8(text, kReplacement);
            ++at;
        } else {
            text += whole.substr(at, end - at);
            at = end;
        }
    }
}

bool appendWindows1252(std::string& bytes, char32_t character) {
    if (character < kFirstOther || (character >= kFirstSame && character <= 0xFF)) {
        bytes += static_cast<char>(character);
        return true;
    }
    const auto* const found =
        std::find(std::begin(kWindows1252), std::end(kWindows1252), character);
    const bool known = found != std::end(kWindows1252);
    bytes += known ? static_cast<char>(kFirstOther + (found - std::begin(kWindows1252))) : '?';
    return known;
}

std::string_view cutUtf8(std::string_view text, std::size_t size) {
    if (text.size() <= size) return text;
    while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U) --size;
    return text.substr(0, size);
}

}  // namespace vantelgis::gpkg
