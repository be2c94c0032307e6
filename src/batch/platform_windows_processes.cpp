#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <thread>

#include "batch/files.h"
#include "batch/platform_windows_spawn.h"
#include "batch/processes.h"
#include "run/platform_windows_names.h"

namespace vantelgis::batch {

namespace {

using vantelgis::platform::FileHandle;
using vantelgis::platform::utf8Text;
using vantelgis::platform::wideText;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kTick{250};
constexpr DWORD kGrace = 2000;  // milliseconds between asking a process to end and killing it
constexpr int kTerminated = 15;

std::atomic<int> signalSeen = 0;
bool isWorker = false;
HANDLE endEvent = nullptr;

BOOL WINAPI noteEvent(DWORD event) {
    signalSeen = event == CTRL_C_EVENT ? SIGINT : kTerminated;
    if (event == CTRL_CLOSE_EVENT || event == CTRL_SHUTDOWN_EVENT)
        Sleep(INFINITE);  // until all is clean
    return TRUE;
}

bool parentIsGone() {
    DWORD waiting = 0;
    return !PeekNamedPipe(GetStdHandle(STD_INPUT_HANDLE), nullptr, 0, nullptr, &waiting, nullptr) &&
           GetLastError() == ERROR_BROKEN_PIPE;
}

void endAll(const Spawned& spawned) {
    GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, spawned.number);
    if (WaitForSingleObject(spawned.process, kGrace) == WAIT_OBJECT_0) return;
    TerminateJobObject(spawned.job, 1);
    WaitForSingleObject(spawned.process, INFINITE);
}

// Colours and names at a console: what is written is UTF-8.
void prepareConsole() {
    static const bool prepared = [] {
        for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
            DWORD mode = 0;
            const HANDLE console = GetStdHandle(stream);
            if (GetConsoleMode(console, &mode))
                SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
        }
        return SetConsoleOutputCP(CP_UTF8) != 0;
    }();
    static_cast<void>(prepared);
}

bool isTerminal(DWORD stream) {
    DWORD mode = 0;
    if (!GetConsoleMode(GetStdHandle(stream), &mode)) return false;
    prepareConsole();
    return true;
}

}  // namespace

ProcessEnd runProgramToItsEnd(const std::string& program, const std::vector<std::string>& arguments,
                              FileHandle console, std::int64_t timeoutSeconds, void (*tick)()) {
    const HANDLE nowhere = openNowhere();
    const HANDLE output = reinterpret_cast<HANDLE>(console);
    const Spawned spawned = spawn(program, arguments, nowhere, output, output);
    CloseHandle(nowhere);
    ProcessEnd end;
    end.started = spawned.process != nullptr;
    if (!end.started) return end;
    const auto deadline = Clock::now() + std::chrono::seconds(timeoutSeconds);
    for (;;) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        const auto wait = std::clamp(left, std::chrono::milliseconds{0}, kTick);
        if (WaitForSingleObject(spawned.process, static_cast<DWORD>(wait.count())) == WAIT_OBJECT_0)
            break;
        end.timedOut = left <= std::chrono::milliseconds{0};
        if (end.timedOut || interruption() != 0) {
            endAll(spawned);
            break;
        }
        tick();
    }
    DWORD status = 0;
    GetExitCodeProcess(spawned.process, &status);
    CloseHandle(spawned.process);
    CloseHandle(spawned.job);
    end.status = static_cast<int>(status);
    return end;
}

void watchForInterruption(bool asWorker) {
    isWorker = asWorker;
    SetConsoleCtrlHandler(noteEvent, TRUE);
    if (asWorker)
        endEvent = CreateEventW(nullptr, TRUE, FALSE, endEventName(GetCurrentProcessId()).c_str());
}

int interruption() {
    if (signalSeen == 0 && isWorker) {
        const bool asked = endEvent != nullptr && WaitForSingleObject(endEvent, 0) == WAIT_OBJECT_0;
        if (asked || parentIsGone()) signalSeen = kTerminated;
    }
    return signalSeen;
}

bool errorIsTerminal() {
    return isTerminal(STD_ERROR_HANDLE);
}

bool outputIsTerminal() {
    return isTerminal(STD_OUTPUT_HANDLE);
}

int terminalWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info;
    for (const DWORD stream : {STD_ERROR_HANDLE, STD_OUTPUT_HANDLE}) {
        if (GetConsoleScreenBufferInfo(GetStdHandle(stream), &info))
            return info.srWindow.Right - info.srWindow.Left + 1;
    }
    const int columns = std::atoi(environmentText("COLUMNS").c_str());
    return columns > 0 ? columns : 80;
}

void writeStandardError(std::string_view text) {
    static_cast<void>(vantelgis::platform::writeFile(
        reinterpret_cast<FileHandle>(GetStdHandle(STD_ERROR_HANDLE)), text.data(), text.size()));
}

std::vector<std::string> programArguments(int count, char** values) {
    std::vector<std::string> arguments;
    if (!vantelgis::platform::takeArguments(count, values, arguments)) return {};
    for (std::string& argument : arguments) argument = utf8Text(argument);
    return arguments;
}

std::string environmentText(const char* name) {
    const std::wstring wide = wideText(name);
    std::wstring text(GetEnvironmentVariableW(wide.c_str(), nullptr, 0), L'\0');
    text.resize(
        GetEnvironmentVariableW(wide.c_str(), text.data(), static_cast<DWORD>(text.size())));
    return utf8Text(text);
}

std::string ownProgram(const std::string& /*calledAs*/) {
    std::wstring name(32768, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return utf8Text(name);
}

std::string findProgram(const std::string& name) {
    if (std::any_of(name.begin(), name.end(), isPathSeparator)) return name;
    std::wstring found(32768, L'\0');
    found.resize(SearchPathW(nullptr, wideText(name).c_str(), L".exe",
                             static_cast<DWORD>(found.size()), found.data(), nullptr));
    return utf8Text(found);
}

std::string_view programExtension() {
    return ".exe";
}

int processorCount() {
    return static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
}

std::string hostName() {
    wchar_t name[256];
    DWORD size = static_cast<DWORD>(std::size(name));
    const bool known = GetComputerNameExW(ComputerNameDnsHostname, name, &size) != 0;
    return known ? utf8Text(std::wstring(name, size)) : "";
}

std::int64_t processNumber() {
    return static_cast<std::int64_t>(GetCurrentProcessId());
}

}  // namespace vantelgis::batch
