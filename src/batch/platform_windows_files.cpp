#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>

#include "batch/files.h"
#include "run/platform_windows_names.h"

namespace vantelgis::batch {

namespace {

using vantelgis::platform::FileHandle;
using vantelgis::platform::kNoFile;
using vantelgis::platform::systemName;
using vantelgis::platform::utf8Text;
using vantelgis::platform::wideText;

constexpr DWORD kAllShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kLongestCurrent = MAX_PATH - 2;      // folder that somebody works in
constexpr std::int64_t kTicksTo1970 = 116444736000000000;  // of 100 nanoseconds, from 1601

HANDLE handleOf(FileHandle file) {
    return reinterpret_cast<HANDLE>(file);
}

FileHandle openAs(const std::string& path, DWORD rights, DWORD shared, DWORD disposition,
                  DWORD flags) {
    const HANDLE file =
        CreateFileW(systemName(path).c_str(), rights, shared, nullptr, disposition, flags, nullptr);
    return reinterpret_cast<FileHandle>(file);
}

void closeHandle(FileHandle file) {
    if (file != kNoFile) CloseHandle(handleOf(file));
}

std::int64_t joined(DWORD high, DWORD low) {
    return static_cast<std::int64_t>(std::uint64_t{high} << 32 | low);
}

// In UTF-8, without the mark of long names.
std::string withoutMark(std::wstring name) {
    if (name.starts_with(LR"(\\?\UNC\)")) name.replace(0, 8, LR"(\\)");
    if (name.starts_with(LR"(\\?\)")) name.erase(0, 4);
    return utf8Text(name);
}

// The full form of a name as it is said.
std::string fullAsSaid(const std::string& path) {
    const std::wstring said = wideText(path);
    std::wstring full(GetFullPathNameW(said.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(said.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return withoutMark(std::move(full));
}

// The name of an open file or folder in full; empty where the system doesn't tell it.
std::string finalName(FileHandle file) {
    std::wstring name(GetFinalPathNameByHandleW(handleOf(file), nullptr, 0, FILE_NAME_NORMALIZED),
                      L'\0');
    name.resize(GetFinalPathNameByHandleW(handleOf(file), name.data(),
                                          static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED));
    return withoutMark(std::move(name));
}

}  // namespace

FileStatus statusOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    FileStatus status;
    if (!GetFileAttributesExW(systemName(path).c_str(), GetFileExInfoStandard, &data))
        return status;
    const bool folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    status.kind = folder ? FileStatus::Kind::folder : FileStatus::Kind::file;
    status.size = joined(data.nFileSizeHigh, data.nFileSizeLow);
    const FILETIME& time = data.ftLastWriteTime;
    status.changed = (joined(time.dwHighDateTime, time.dwLowDateTime) - kTicksTo1970) * 100;
    return status;
}

std::string behindLinks(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(systemName(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const FileHandle file = openAs(path, 0, kAllShared, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    if (file == kNoFile) return path;
    const std::string name = finalName(file);
    closeHandle(file);
    return name.empty() ? path : name;
}

bool visitFolder(const std::string& folder, const std::function<void(FolderEntry&&)>& take) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(systemName(inFolder(folder, "*")).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    do {
        const std::string name = utf8Text(found.cFileName);
        if (name == "." || name == "..") continue;
        const DWORD attributes = found.dwFileAttributes;
        const bool link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        take({name, !link && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0, link});
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return true;
}

bool makeFolder(const std::string& path) {
    if (CreateDirectoryW(systemName(path).c_str(), nullptr)) return true;
    return GetLastError() == ERROR_ALREADY_EXISTS && statusOf(path).isFolder();
}

bool copyPermissions(const std::string& /*model*/, const std::string& /*file*/) {
    return true;  // a file has those of its folder
}

bool syncFile(const std::string& path) {
    const FileHandle file =
        openAs(path, GENERIC_WRITE, kAllShared, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    if (file == kNoFile) return false;
    const bool flushed = FlushFileBuffers(handleOf(file)) != 0;
    closeHandle(file);
    return flushed;
}

bool syncFolder(const std::string& /*path*/) {
    return true;  // the file system keeps a journal of its own
}

bool writeWholeFile(const std::string& path, std::string_view bytes) {
    const FileHandle file =
        openAs(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    if (file == kNoFile) return false;
    const bool written = vantelgis::platform::writeFile(file, bytes.data(), bytes.size());
    return CloseHandle(handleOf(file)) != 0 && written;
}

FileHandle openInput(const std::string& path) {
    return openAs(path, GENERIC_READ, kAllShared, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
}

FileHandle openConsoleFile(const std::string& path) {
    return openAs(path, GENERIC_READ | GENERIC_WRITE, kAllShared, CREATE_ALWAYS,
                  FILE_ATTRIBUTE_NORMAL);
}

FileHandle openNamelessFile() {
    wchar_t folder[MAX_PATH + 1];
    wchar_t name[MAX_PATH + 1];
    if (GetTempPathW(MAX_PATH, folder) == 0 || GetTempFileNameW(folder, L"vgb", 0, name) == 0)
        return kNoFile;
    return reinterpret_cast<FileHandle>(
        CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
}

std::int64_t freeSpace(const std::string& folder) {
    ULARGE_INTEGER bytes;
    if (!GetDiskFreeSpaceExW(systemName(folder).c_str(), &bytes, nullptr, nullptr)) return -1;
    return static_cast<std::int64_t>(bytes.QuadPart);
}

std::string absoluteName(const std::string& path) {
    const std::string_view name = namePart(path);
    const bool isFolder = name.empty() || name == "." || name == "..";
    // Behind the mark of long names a dot would be a name like others.
    const std::string folder = isFolder && name != "." ? path : folderPart(path);
    const FileHandle opened =
        openAs(folder, 0, kAllShared, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (opened == kNoFile) return {};
    std::string full = finalName(opened);
    closeHandle(opened);
    if (full.empty()) full = fullAsSaid(folder);
    return isFolder ? full : inFolder(full, name);
}

bool changeFolder(const std::string& folder) {
    std::wstring name = wideText(folder);
    if (name.size() > kLongestCurrent) {
        std::wstring shortName(GetShortPathNameW(systemName(folder).c_str(), nullptr, 0), L'\0');
        shortName.resize(GetShortPathNameW(systemName(folder).c_str(), shortName.data(),
                                           static_cast<DWORD>(shortName.size())));
        if (shortName.starts_with(LR"(\\?\)")) shortName.erase(0, 4);
        name = shortName;
    }
    return !name.empty() && SetCurrentDirectoryW(name.c_str()) != 0;
}

void leaveFolder() {
    wchar_t folder[MAX_PATH + 1];
    if (GetTempPathW(MAX_PATH, folder) != 0) SetCurrentDirectoryW(folder);
}

bool isWritable(const std::string& folder) {
    const DWORD attributes = GetFileAttributesW(systemName(folder).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES;
}

std::string lastFailure() {
    const DWORD error = GetLastError();
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, error, 0, text, 512, nullptr);
    std::string words = utf8Text(std::wstring(text, length));
    while (!words.empty() && (words.back() == '\n' || words.back() == '\r' || words.back() == '.'))
        words.pop_back();
    return words.empty() ? "error " + std::to_string(error) : words;
}

bool isPathSeparator(char c) {
    return c == '\\' || c == '/';
}

char pathSeparator() {
    return '\\';
}

bool namesIgnoreCase() {
    return true;
}

std::string inOwnForm(std::string_view text) {
    return utf8Text(text);
}

std::string nameKey(std::string_view name) {
    std::wstring wide = wideText(name);
    CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
    std::string key = utf8Text(wide);
    std::replace(key.begin(), key.end(), '\\', '/');
    return key;
}

}  // namespace vantelgis::batch
