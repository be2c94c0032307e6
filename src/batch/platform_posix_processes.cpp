#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
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
#include "batch/processes.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves it to the program

namespace vantelgis::batch {

namespace {

using vantelgis::platform::FileHandle;
using vantelgis::platform::kNoFile;
using Clock = std::chrono::steady_clock;

constexpr int kSignalStatus = 128;  // what a shell adds to the number of a signal
constexpr std::chrono::milliseconds kTick{250};
constexpr std::chrono::seconds kGrace{2};  // between asking a process group to end and killing it
constexpr std::size_t kReadSize = 65536;
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

int statusFrom(int waited) {
    if (WIFSIGNALED(waited)) return kSignalStatus + WTERMSIG(waited);
    return WEXITSTATUS(waited);
}

// The signals of a new process are as its program expects them.
class SpawnAttributes {
  public:
    SpawnAttributes() {
        sigset_t none;
        sigset_t changed;
        sigemptyset(&none);
        sigemptyset(&changed);
        for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGCHLD, SIGPIPE, SIGXFSZ})
            sigaddset(&changed, number);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &changed);
        posix_spawnattr_setpgroup(&attributes_, 0);
        posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
        posix_spawn_file_actions_init(&actions_);
    }
    ~SpawnAttributes() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;

    void lead(int stream, int file) { posix_spawn_file_actions_adddup2(&actions_, file, stream); }
    void leadToNothing(int stream) {
        posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDONLY, 0);
    }
    // 0 when the process could not be started.
    pid_t start(const std::string& program, const std::vector<std::string>& arguments) {
        std::vector<char*> values{const_cast<char*>(program.c_str())};
        for (const std::string& argument : arguments)
            values.push_back(const_cast<char*>(argument.c_str()));
        values.push_back(nullptr);
        pid_t process = 0;
        errno =
            posix_spawn(&process, program.c_str(), &actions_, &attributes_, values.data(), environ);
        return errno == 0 ? process : 0;
    }

  private:
    posix_spawnattr_t attributes_{};
    posix_spawn_file_actions_t actions_{};
};

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

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// The next line of a stream, of which `received` holds what was read and not yet taken.
bool readLineFrom(int file, std::string& received, std::size_t& taken, std::string& line) {
    std::size_t searched = taken;
    for (;;) {
        const std::size_t end = received.find('\n', searched);
        if (end != std::string::npos) {
            line.assign(received, taken, end - taken);
            taken = end + 1;
            return true;
        }
        received.erase(0, taken);
        taken = 0;
        searched = received.size();
        received.resize(searched + kReadSize);
        const ssize_t count = read(file, received.data() + searched, kReadSize);
        received.resize(searched + static_cast<std::size_t>(count > 0 ? count : 0));
        if (count < 0 && errno == EINTR && interruption() == 0) continue;
        if (count <= 0) return false;
    }
}

void closeHandle(FileHandle& file) {
    if (file != kNoFile) close(static_cast<int>(file));
    file = kNoFile;
}

}  // namespace

ProcessEnd runProgramToItsEnd(const std::string& program, const std::vector<std::string>& arguments,
                              FileHandle console, std::int64_t timeoutSeconds, void (*tick)()) {
    SpawnAttributes attributes;
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
    end.status = statusFrom(waited);
    return end;
}

WorkerProcess::~WorkerProcess() {
    if (running()) finish();
}

bool WorkerProcess::start(const std::string& program, const std::vector<std::string>& arguments) {
    int jobs[2];
    int answers[2];
    if (pipe2(jobs, O_CLOEXEC) != 0) return false;
    if (pipe2(answers, O_CLOEXEC) != 0) {
        close(jobs[0]);
        close(jobs[1]);
        return false;
    }
    SpawnAttributes attributes;
    attributes.lead(STDIN_FILENO, jobs[0]);
    attributes.lead(STDOUT_FILENO, answers[1]);
    process_ = attributes.start(program, arguments);
    const int reason = errno;
    close(jobs[0]);
    close(answers[1]);
    jobs_ = jobs[1];
    answers_ = answers[0];
    if (!running()) finish();
    errno = reason;
    return running();
}

bool WorkerProcess::send(std::string_view line) {
    return writeAll(static_cast<int>(jobs_), std::string(line) += '\n');
}

bool WorkerProcess::receive(std::string& line) {
    return readLineFrom(static_cast<int>(answers_), received_, taken_, line);
}

void WorkerProcess::interrupt() const {
    if (running()) kill(static_cast<pid_t>(process_), SIGTERM);
}

int WorkerProcess::finish() {
    closeHandle(jobs_);
    int waited = 0;
    if (running()) {
        while (waitpid(static_cast<pid_t>(process_), &waited, 0) < 0 && errno == EINTR) {
        }
    }
    closeHandle(answers_);
    process_ = 0;
    received_.clear();
    taken_ = 0;
    return statusFrom(waited);
}

bool receiveJob(std::string& line) {
    static std::string received;
    static std::size_t taken = 0;
    return readLineFrom(STDIN_FILENO, received, taken, line);
}

bool sendAnswer(std::string_view line) {
    return writeAll(STDOUT_FILENO, std::string(line) += '\n');
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
    static_cast<void>(writeAll(STDERR_FILENO, text));
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
        const std::string file = inFolder(path.substr(start, end - start), name);
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
