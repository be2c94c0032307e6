#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <conio.h>

#include "drop/system.h"
#include "run/platform.h"
#include "run/platform_windows_names.h"

namespace vantelgis::drop {

namespace {

// A text that the run-time of the program that gets it takes for one argument: backslashes are
// doubled in front of the closing quote. No name and no option has a quote in it.
std::wstring quoted(const std::string& text) {
    std::wstring argument = L"\"" + platform::wideText(text);
    const std::size_t last = argument.find_last_not_of(L'\\');
    argument.append(argument.size() - 1 - last, L'\\');
    return argument + L"\"";
}

// The two ends of a pipe; the other program inherits the one that is read.
struct Pipe {
    HANDLE read = nullptr;
    HANDLE write = nullptr;

    Pipe() {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        if (!CreatePipe(&read, &write, &inherited, 0)) return;
        SetHandleInformation(write, HANDLE_FLAG_INHERIT, 0);
    }
};

// What the other program doesn't read is lost: it has ended and said why.
void send(HANDLE pipe, std::string_view text) {
    DWORD written = 0;
    while (!text.empty() &&
           WriteFile(pipe, text.data(), static_cast<DWORD>(text.size()), &written, nullptr))
        text.remove_prefix(written);
}

}  // namespace

bool isFolder(const std::string& name) {
    const DWORD attributes = GetFileAttributesW(platform::systemName(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::string absoluteName(const std::string& name) {
    const std::wstring wide = platform::wideText(name);
    std::wstring full(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return platform::utf8Text(full);
}

std::string ownProgram() {
    std::wstring name(MAX_PATH, L'\0');
    DWORD size = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    while (size == name.size()) {
        name.resize(2 * name.size());
        size = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    }
    name.resize(size);
    return platform::utf8Text(name);
}

int runProgram(const std::string& program, const Call& call) {
    std::wstring line = quoted(program);
    for (const std::string& option : call.options) line += L" " + quoted(option);
    const Pipe pipe;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = pipe.read;
    start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION child;
    const BOOL started = CreateProcessW(platform::systemName(program).c_str(), line.data(), nullptr,
                                        nullptr, TRUE, 0, nullptr, nullptr, &start, &child);
    CloseHandle(pipe.read);
    if (started) send(pipe.write, call.list);
    CloseHandle(pipe.write);
    if (!started) return kNotStarted;
    WaitForSingleObject(child.hProcess, INFINITE);
    DWORD status = 1;
    GetExitCodeProcess(child.hProcess, &status);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    return static_cast<int>(status);
}

void waitForKey() {
    DWORD mode;
    if (GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode)) {
        static_cast<void>(_getwch());
        return;
    }
    char typed[256];
    while (platform::readStandardInput(typed, sizeof typed) > 0) {
    }
}

}  // namespace vantelgis::drop
