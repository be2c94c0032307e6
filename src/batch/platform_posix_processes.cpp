#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "batch/files.h"
#include "batch/platform_posix_spawn.h"
#include "batch/processes.h"

namespace vantelgis::batch {

namespace {

using vantelgis::platform::FileHandle;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kTick{250};
constexpr std::chrono::seconds kGrace{2};  // between asking a process group to end and killing it
constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t signalSeen = 0;
bool isWorker = false;

void noteSignal(int number) {
    signalSeen = number;
}

void ignoreSignal(int /*number*/) {}

bool parentIsGone() {
    pollfd input{STDIN_FILENO, 0, 0};
    return poll(&input, 1, 0) > 0 && (input.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

// Sleeps until the process ends, a signal comes, or `longest` is over. Says whether it has ended.
bool waitFor(pid_t process, Clock::duration longest, int& waited) {
    if (waitpid(process, &waited, WNOHANG) == process) return true;
    if (longest <= Clock::duration::zero()) return false;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(longest);
    const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(longest - seconds);
    const timespec duration{seconds.count(), rest.count()};
    sigset_t whileWaiting;
    sigprocmask(SIG_SETMASK, nullptr, &whileWaiting);
    sigdelset(&whileWaiting, SIGCHLD);
    ppoll(nullptr, 0, &duration, &whileWaiting);
    return waitpid(process, &waited, WNOHANG) == process;
}

int endGroup(pid_t process) {
    int waited = 0;
    kill(-process, SIGTERM);
    for (const auto end = Clock::now() + kGrace; Clock::now() < end;) {
        if (waitFor(process, kTick, waited)) return waited;
    }
    kill(-process, SIGKILL);
    while (waitpid(process, &waited, 0) < 0 && errno == EINTR) {
    }
    return waited;
}

}  // namespace

ProcessEnd runProgramToItsEnd(const std::string& program, const std::vector<std::string>& arguments,
                              FileHandle console, std::int64_t timeoutSeconds, void (*tick)()) {
    Spawning attributes;
    attributes.leadToNothing(STDIN_FILENO);
    attributes.lead(STDOUT_FILENO, static_cast<int>(console));
    attributes.lead(STDERR_FILENO, static_cast<int>(console));
    const pid_t process = attributes.start(program, arguments);
    ProcessEnd end;
    if (process == 0) {
        end.started = false;
        return end;
    }
    const auto deadline = Clock::now() + std::chrono::seconds(timeoutSeconds);
    int waited = 0;
    for (;;) {
        const Clock::duration left = deadline - Clock::now();
        if (waitFor(process, std::min<Clock::duration>(left, kTick), waited)) break;
        end.timedOut = left <= Clock::duration::zero();
        if (end.timedOut || interruption() != 0) {
            waited = endGroup(process);
            break;
        }
        tick();
    }
    end.status = exitStatusIn(waited);
    return end;
}

void watchForInterruption(bool asWorker) {
    isWorker = asWorker;
    struct sigaction action {};
    action.sa_handler = noteSignal;
    for (const int number : kEndingSignals) {
        struct sigaction before {};
        sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_IGN) sigaction(number, &action, nullptr);  // as under nohup
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    if (!asWorker) return;
    action.sa_handler = ignoreSignal;
    sigaction(SIGCHLD, &action, nullptr);
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGCHLD);
    sigprocmask(SIG_BLOCK, &ends, nullptr);
}

int interruption() {
    if (signalSeen == 0 && isWorker && parentIsGone()) signalSeen = SIGTERM;
    return signalSeen;
}

bool errorIsTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

bool outputIsTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

int terminalWidth() {
    winsize size{};
    for (const int stream : {STDERR_FILENO, STDOUT_FILENO}) {
        if (ioctl(stream, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    }
    const int columns = std::atoi(environmentText("COLUMNS").c_str());
    return columns > 0 ? columns : 80;
}

void writeStandardError(std::string_view text) {
    static_cast<void>(writeBytes(STDERR_FILENO, text.data(), text.size()));
}

std::vector<std::string> programArguments(int count, char** values) {
    return {values, values + count};
}

std::string environmentText(const char* name) {
    const char* const text = std::getenv(name);
    return text == nullptr ? "" : text;
}

std::string ownProgram(const std::string& calledAs) {
    std::array<char, 4096> name{};
    const ssize_t length = readlink("/proc/self/exe", name.data(), name.size());
    if (length > 0) return {name.data(), static_cast<std::size_t>(length)};
    return absoluteName(findProgram(calledAs));
}

std::string findProgram(const std::string& name) {
    if (name.find('/') != std::string::npos) return name;
    const std::string path = environmentText("PATH");
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find(':', start), path.size());
        std::string file = inFolder(path.substr(start, end - start), name);
        if (statusOf(file).isFile() && access(file.c_str(), X_OK) == 0) return file;
        start = end + 1;
    }
    return {};
}

std::string_view programExtension() {
    return {};
}

int processorCount() {
    const unsigned count = std::thread::hardware_concurrency();
    return count == 0 ? 1 : static_cast<int>(count);
}

std::string hostName() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::int64_t processNumber() {
    return getpid();
}

}  // namespace vantelgis::batch
