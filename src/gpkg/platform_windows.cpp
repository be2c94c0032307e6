#include <windows.h>

#include <algorithm>
#include <optional>

#include "gpkg/platform.h"
#include "run/platform_windows_names.h"

namespace vantelgis::gpkg::platform {

namespace {

using vantelgis::platform::systemName;
using vantelgis::platform::utf8Text;
using vantelgis::platform::wideText;

HANDLE handleOf(const LockedFile& file) {
    return reinterpret_cast<HANDLE>(static_cast<INT_PTR>(file.handle));
}

// Far behind the end of any file, so that the lock keeps nobody from its bytes.
bool lock(HANDLE file) {
    OVERLAPPED place{};
    place.OffsetHigh = 0x40000000;
    return LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) !=
           0;
}

}  // namespace

Locking createLocked(LockedFile& file, std::string_view name, std::string_view /*modelFile*/) {
    HANDLE const opened = CreateFileW(systemName(name).c_str(), GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return Locking::refused;
    if (!lock(opened)) {
        CloseHandle(opened);
        return Locking::heldByAnother;
    }
    file.handle = static_cast<long long>(reinterpret_cast<INT_PTR>(opened));
    return SetEndOfFile(opened) != 0 ? Locking::done : Locking::refused;
}

// A name can be given to another file only once this one is closed.
bool publishLocked(LockedFile& file, std::string_view name, std::string_view target) {
    if (FlushFileBuffers(handleOf(file)) == 0) return false;
    CloseHandle(handleOf(file));
    file.handle = -1;
    return MoveFileExW(systemName(name).c_str(), systemName(target).c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

void discardLocked(LockedFile& file, std::string_view name) {
    if (file.handle != -1) CloseHandle(handleOf(file));
    file.handle = -1;
    DeleteFileW(systemName(name).c_str());
}

std::string linkedName(std::string_view name) {
    const DWORD attributes = GetFileAttributesW(systemName(name).c_str());
    std::string result{name};
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return result;
    HANDLE const file = CreateFileW(systemName(name).c_str(), 0,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return result;
    std::wstring resolved(32768, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(
        file, resolved.data(), static_cast<DWORD>(resolved.size()), FILE_NAME_NORMALIZED);
    CloseHandle(file);
    if (length == 0 || length >= resolved.size()) return result;
    resolved.resize(length);
    return utf8Text(resolved);
}

bool isRegularFile(std::string_view name) {
    const DWORD attributes = GetFileAttributesW(systemName(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
}

bool somethingExists(std::string_view name) {
    return GetFileAttributesW(systemName(name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

// Shared with nobody, a file opens only when nobody else has it.
bool openElsewhere(std::string_view name) {
    HANDLE const file = CreateFileW(systemName(name).c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}

bool removeFile(std::string_view name) {
    return DeleteFileW(systemName(name).c_str()) != 0;
}

std::string utf8Argument(std::string_view argument) {
    return utf8Text(argument);
}

std::string databaseName(std::string_view name) {
    return utf8Text(systemName(name));
}

std::string lastRefusal() {
    wchar_t text[512];
    const DWORD code = GetLastError();
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, code, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::string words = utf8Text(std::wstring(text, length));
    while (!words.empty() && (words.back() == ' ' || words.back() == '.')) words.pop_back();
    return words.empty() ? "error " + std::to_string(code) : words;
}

void writeStandardError(std::string_view text) {
    HANDLE const output = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(output, &mode) != 0) {
        const std::wstring wide = wideText(text);
        WriteConsoleW(output, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
        return;
    }
    WriteFile(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

}  // namespace vantelgis::gpkg::platform
