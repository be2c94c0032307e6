#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <string>

#include "run/platform.h"
#include "run/platform_windows_names.h"

namespace vantelgis::platform {

namespace {

constexpr DWORD kMostAtOnce = DWORD{1} << 30;  // of the bytes that one system call is handed

DWORD atOnce(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, kMostAtOnce));
}

HANDLE handleOf(FileHandle file) {
    return reinterpret_cast<HANDLE>(file);
}

struct Creation {
    DWORD rights;
    DWORD disposition;
};

Creation creationFor(Access access) {
    switch (access) {
        case Access::read: return {GENERIC_READ, OPEN_EXISTING};
        case Access::replace: return {GENERIC_WRITE, CREATE_ALWAYS};
        case Access::keep: return {GENERIC_WRITE, OPEN_ALWAYS};
        // Without the right to write elsewhere the system puts all bytes at the end.
        case Access::append: return {FILE_GENERIC_WRITE & ~DWORD{FILE_WRITE_DATA}, OPEN_ALWAYS};
        case Access::readWrite: return {GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS};
    }
    return {GENERIC_READ, OPEN_EXISTING};
}

bool writeAll(HANDLE file, const char* bytes, std::size_t size) {
    while (size > 0) {
        DWORD written = 0;
        if (!WriteFile(file, bytes, atOnce(size), &written, nullptr) || written == 0) return false;
        bytes += written;
        size -= written;
    }
    return true;
}

// Locks a byte far behind the end of any file: nothing is kept from reading or writing, but the
// next program that wants the same byte knows.
bool lockedByAnother(HANDLE file) {
    OVERLAPPED place{};
    place.OffsetHigh = 0x7FFFFFFF;
    if (LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place))
        return false;
    const DWORD error = GetLastError();
    return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING;
}

bool identifyHandle(HANDLE file, FileIdentity& identity) {
    BY_HANDLE_FILE_INFORMATION information;
    if (!GetFileInformationByHandle(file, &information)) return false;
    const std::uint64_t high = information.nFileIndexHigh;
    identity = {information.dwVolumeSerialNumber, high << 32 | information.nFileIndexLow};
    return identity.index != 0;  // some network shares number no files
}

}  // namespace

FileHandle openFile(std::string_view name, Access access, Sharing sharing) {
    const auto [rights, disposition] = creationFor(access);
    const DWORD others =
        sharing == Sharing::refuseWriters ? FILE_SHARE_READ : FILE_SHARE_READ | FILE_SHARE_WRITE;
    const HANDLE file = CreateFileW(systemName(name).c_str(), rights, others, nullptr, disposition,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE || sharing != Sharing::ownUnits || !lockedByAnother(file))
        return reinterpret_cast<FileHandle>(file);
    CloseHandle(file);
    return kNoFile;
}

FileHandle duplicateHandle(FileHandle file) {
    const HANDLE self = GetCurrentProcess();
    HANDLE twin = INVALID_HANDLE_VALUE;
    if (!DuplicateHandle(self, handleOf(file), self, &twin, 0, FALSE, DUPLICATE_SAME_ACCESS))
        return kNoFile;
    return reinterpret_cast<FileHandle>(twin);
}

bool closeFile(FileHandle file) {
    return CloseHandle(handleOf(file)) != 0;
}

std::int64_t readFile(FileHandle file, char* out, std::size_t size) {
    DWORD count = 0;
    if (ReadFile(handleOf(file), out, atOnce(size), &count, nullptr)) return count;
    return GetLastError() == ERROR_BROKEN_PIPE ? 0 : -1;
}

bool writeFile(FileHandle file, const char* bytes, std::size_t size) {
    return writeAll(handleOf(file), bytes, size);
}

bool seekFile(FileHandle file, std::int64_t position) {
    LARGE_INTEGER distance;
    distance.QuadPart = position;
    return SetFilePointerEx(handleOf(file), distance, nullptr, FILE_BEGIN) != 0;
}

bool emptyFile(FileHandle file) {
    return seekFile(file, 0) && SetEndOfFile(handleOf(file));
}

std::int64_t fileSize(FileHandle file) {
    LARGE_INTEGER size;
    return GetFileSizeEx(handleOf(file), &size) ? size.QuadPart : -1;
}

bool fileExists(std::string_view name) {
    const DWORD attributes = GetFileAttributesW(systemName(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// The system itself forgives the case of letters.
bool inputExists(std::string_view name) {
    return fileExists(name);
}

bool identify(std::string_view name, FileIdentity& identity) {
    // Asking for no right at all gets past those who share the file with nobody.
    const HANDLE file = CreateFileW(systemName(name).c_str(), 0,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    const bool identified = identifyHandle(file, identity);
    CloseHandle(file);
    return identified;
}

bool identifyInput(std::string_view name, FileIdentity& identity) {
    return identify(name, identity);
}

bool identify(FileHandle file, FileIdentity& identity) {
    return identifyHandle(handleOf(file), identity);
}

}  // namespace vantelgis::platform
