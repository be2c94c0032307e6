#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>

#include "run/platform.h"
#include "run/platform_windows_names.h"

// The run-time's own way of taking the command line apart, in wide characters; no name with a
// wildcard is replaced by the names that it fits.
extern "C" int __wgetmainargs(int* count, wchar_t*** values, wchar_t*** environment, int wildcards,
                              int* startInfo);

namespace vantelgis::platform {

namespace {

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
    // Half a surrogate pair that was typed is no text; the answer is blank then.
    const std::string bytes = narrowText({wide, count}).value_or("\r\n");
    std::copy(bytes.begin(), bytes.end(), out);
    return bytes.size();
}

// One line: a text in each form can stand in the lines of one output.
void writeConsoleLine(HANDLE console, std::string_view text) {
    const std::wstring wide = wideText(text);
    for (const wchar_t *next = wide.data(), *end = next + wide.size(); next != end;) {
        const auto chunk = std::min<std::ptrdiff_t>(end - next, kConsoleChunk);
        DWORD written = 0;
        if (!WriteConsoleW(console, next, static_cast<DWORD>(chunk), &written, nullptr)) return;
        if (written == 0) return;
        next += written;
    }
}

void writeConsole(HANDLE console, std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        writeConsoleLine(console, text.substr(0, end));
        text.remove_prefix(end);
    }
}

// A command of cmd.exe, which shows no window, asks nothing and prints nothing.
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

bool takeArguments(int /*count*/, char** /*values*/, std::vector<std::string>& arguments) {
    int count = 0;
    int startInfo = 0;
    wchar_t** values = nullptr;
    wchar_t** environment = nullptr;
    if (__wgetmainargs(&count, &values, &environment, 0, &startInfo) != 0) return false;
    for (int i = 0; i < count; ++i) {
        std::optional<std::string> text = narrowText(values[i]);
        if (!text) return false;
        arguments.push_back(*std::move(text));
    }
    return true;
}

std::size_t readStandardInput(char* out, std::size_t size) {
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    if (isConsole(input)) return readConsole(input, out, size);
    const std::int64_t count = readFile(reinterpret_cast<FileHandle>(input), out, size);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void writeStandardOutput(const char* bytes, std::size_t size) {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (isConsole(output)) {
        writeConsole(output, {bytes, size});
    } else {
        static_cast<void>(writeFile(reinterpret_cast<FileHandle>(output), bytes, size));
    }
}

void outliveRefusedWrites() {}  // such a write fails and does no more

void outliveTerminal() {}  // the system ends what runs in a window that is closed

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
    return MessageBoxW(GetDesktopWindow(), wideText(text).c_str(), wideText(caption).c_str(), type);
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
