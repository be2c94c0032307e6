#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>

#include "run/platform.h"

namespace vantelgis::platform {

namespace {

constexpr DWORD kMostAtOnce = DWORD{1} << 30;  // of the bytes that one system call is handed

DWORD atOnce(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, kMostAtOnce));
}

// Texts of this program, names included, are in the Windows code page, as the arguments of main
// are.
std::wstring wideText(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    return wide;
}

std::wstring fullName(const std::wstring& name) {
    std::wstring full(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

// A name whose full form is longer than the classic limit must be given in full and with a mark.
std::wstring systemName(std::string_view name) {
    const std::wstring wide = wideText(name);
    const std::wstring full = fullName(wide);
    if (full.size() < MAX_PATH || full.starts_with(LR"(\\?\)")) return wide;
    if (full.starts_with(LR"(\\)")) return LR"(\\?\UNC\)" + full.substr(2);
    return LR"(\\?\)" + full;
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

bool isConsole(HANDLE stream) {
    DWORD mode;
    return GetConsoleMode(stream, &mode) != 0;
}

// A console has a code page of its own, seldom that of names and files; so it is read and written
// in wide characters. A pipe or file passes bytes.

constexpr std::size_t kConsoleChunk = 1024;
constexpr std::size_t kMostBytesPerCharacter = 4;
constexpr wchar_t kEndTyped = L'\x1A';  // Ctrl+Z

std::size_t readConsole(HANDLE console, char* out, std::size_t size) {
    wchar_t wide[kConsoleChunk];
    const auto most = static_cast<DWORD>(std::min(size / kMostBytesPerCharacter, kConsoleChunk));
    DWORD count = 0;
    if (!ReadConsoleW(console, wide, most, &count, nullptr)) return 0;
    if (count == 0 || wide[0] == kEndTyped) return 0;
    const int bytes = WideCharToMultiByte(CP_ACP, 0, wide, static_cast<int>(count), out,
                                          static_cast<int>(size), nullptr, nullptr);
    return static_cast<std::size_t>(bytes);
}

void writeConsole(HANDLE console, std::string_view text) {
    std::wstring wide = wideText(text);
    for (const wchar_t *next = wide.data(), *end = next + wide.size(); next != end;) {
        const auto chunk = std::min<std::ptrdiff_t>(end - next, kConsoleChunk);
        DWORD written = 0;
        if (!WriteConsoleW(console, next, static_cast<DWORD>(chunk), &written, nullptr)) return;
        if (written == 0) return;
        next += written;
    }
}

// A command of cmd.exe, which neither shows a window nor asks nor tells anything.
int runCommand(const std::wstring& command) {
    wchar_t folder[MAX_PATH];
    if (GetSystemDirectoryW(folder, MAX_PATH) == 0) return kNotStarted;
    const std::wstring shell = std::wstring(folder) + LR"(\cmd.exe)";
    std::wstring line = L"\"" + shell + L"\" /c " + command;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE nowhere =
        CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    &inherited, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = start.hStdOutput = start.hStdError = nowhere;
    PROCESS_INFORMATION child;
    const BOOL started = CreateProcessW(shell.c_str(), line.data(), nullptr, nullptr, TRUE,
                                        DETACHED_PROCESS, nullptr, nullptr, &start, &child);
    CloseHandle(nowhere);
    if (!started) return kNotStarted;
    WaitForSingleObject(child.hProcess, INFINITE);
    DWORD exitCode = 1;
    GetExitCodeProcess(child.hProcess, &exitCode);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    return static_cast<int>(exitCode);
}

// A slash would begin a switch.
std::wstring quotedName(std::string_view name) {
    std::wstring wide = wideText(name);
    std::replace(wide.begin(), wide.end(), L'/', L'\\');
    return L"\"" + wide + L"\"";
}

// No file has a double quote in its name, and behind one the rest would be a command of its own.
bool isQuotable(std::string_view name) {
    return name.find('"') == std::string_view::npos;
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

std::size_t readStandardInput(char* out, std::size_t size) {
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    if (isConsole(input)) return readConsole(input, out, size);
    DWORD count = 0;
    return ReadFile(input, out, atOnce(size), &count, nullptr) ? count : 0;
}

void writeStandardOutput(const char* bytes, std::size_t size) {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (isConsole(output)) {
        writeConsole(output, {bytes, size});
    } else {
        static_cast<void>(writeAll(output, bytes, size));
    }
}

void outliveRefusedWrites() {}  // such a write fails and does no more

bool standardOutputIsTerminal() {
    return isConsole(GetStdHandle(STD_OUTPUT_HANDLE));
}

std::string_view consoleLineEnd() {
    return "\r\n";
}

Date localDate() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay};
}

std::optional<int> messageBox(std::string_view caption, std::string_view text, unsigned type) {
    return MessageBoxA(GetDesktopWindow(), std::string(text).c_str(), std::string(caption).c_str(),
                       type);
}

int makeFolder(std::string_view folder) {
    return isQuotable(folder) ? runCommand(L"mkdir " + quotedName(folder)) : 1;
}

int copyFiles(std::string_view source, std::string_view target) {
    if (!isQuotable(source) || !isQuotable(target)) return 1;
    SetEnvironmentVariableW(L"COPYCMD", L"/Y");  // replaces older copies without asking
    return runCommand(L"copy " + quotedName(source) + L" " + quotedName(target));
}

void exitProcess() {
    ExitProcess(0);
}

}  // namespace vantelgis::platform
