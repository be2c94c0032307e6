#include "run/platform_windows_names.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>

#include "run/platform.h"

namespace vantelgis::platform {

namespace {

constexpr unsigned char kEnDash = 0x96;  // leads an option
constexpr unsigned char kBackslash = 0x5C;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 128; });
}

std::wstring decoded(std::string_view text, UINT page, DWORD flags) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(page, flags, text.data(), size, wide.data(), size)));
    return wide;
}

std::string encoded(const std::wstring& wide, UINT page, DWORD flags, BOOL* replaced) {
    const int size = static_cast<int>(wide.size());
    constexpr std::size_t kMostBytes = 4;
    std::string text(kMostBytes * wide.size(), '\0');
    text.resize(static_cast<std::size_t>(
        WideCharToMultiByte(page, flags, wide.data(), size, text.data(),
                            static_cast<int>(text.size()), nullptr, replaced)));
    return text;
}

// Bytes that the program would take for something else than a part of a name.
bool isMisread(std::string_view ansi) {
    if (static_cast<unsigned char>(ansi.front()) == kEnDash && IsDBCSLeadByte(kEnDash)) return true;
    for (std::size_t i = 0; i < ansi.size(); ++i) {
        if (!IsDBCSLeadByte(static_cast<BYTE>(ansi[i]))) continue;
        if (++i < ansi.size() && static_cast<unsigned char>(ansi[i]) == kBackslash) return true;
    }
    return isBeyondAsciiUtf8(ansi);
}

// The text in the ANSI page, blank when it can't be said there.
std::string ansiText(const std::wstring& wide) {
    if (GetACP() == CP_UTF8) return {};
    BOOL replaced = FALSE;
    std::string ansi = encoded(wide, CP_ACP, WC_NO_BEST_FIT_CHARS, &replaced);
    const bool same = !replaced && !ansi.empty() && decoded(ansi, CP_ACP, 0) == wide;
    return same && !isMisread(ansi) ? ansi : std::string{};
}

std::wstring fullName(const std::wstring& name) {
    std::wstring full(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

}  // namespace

bool isBeyondAsciiUtf8(std::string_view text) {
    if (text.empty() || isAscii(text)) return false;
    return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                               static_cast<int>(text.size()), nullptr, 0) > 0;
}

std::wstring wideText(std::string_view text) {
    return decoded(text, isBeyondAsciiUtf8(text) ? CP_UTF8 : CP_ACP, 0);
}

std::optional<std::string> narrowText(const std::wstring& wide) {
    if (wide.empty()) return std::string{};
    if (std::string ansi = ansiText(wide); !ansi.empty()) return ansi;
    std::string utf8 = encoded(wide, CP_UTF8, WC_ERR_INVALID_CHARS, nullptr);
    if (utf8.empty()) return std::nullopt;
    return utf8;
}

std::string utf8Text(std::string_view text) {
    return utf8Text(wideText(text));
}

std::string utf8Text(const std::wstring& wide) {
    return encoded(wide, CP_UTF8, 0, nullptr);
}

std::wstring systemName(std::string_view name) {
    const std::wstring wide = wideText(name);
    const std::wstring full = fullName(wide);
    if (full.size() < MAX_PATH || full.starts_with(LR"(\\?\)")) return wide;
    if (full.starts_with(LR"(\\)")) return LR"(\\?\UNC\)" + full.substr(2);
    return LR"(\\?\)" + full;
}

void bringToOneForm(Path& a, Path& b) {
    if (isBeyondAsciiUtf8(a)) b = utf8Text(b);
    if (isBeyondAsciiUtf8(b)) a = utf8Text(a);
}

}  // namespace vantelgis::platform
