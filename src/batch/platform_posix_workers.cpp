#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "batch/platform_posix_spawn.h"
#include "batch/processes.h"

namespace vantelgis::batch {

namespace {

using vantelgis::platform::FileHandle;
using vantelgis::platform::kNoFile;

constexpr std::size_t kReadSize = 65536;

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
    Spawning attributes;
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

bool WorkerProcess::send(std::string_view line) {  // NOLINT: what it writes to is the worker
    const std::string text = std::string(line) + '\n';
    return writeBytes(static_cast<int>(jobs_), text.data(), text.size());
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
    return exitStatusIn(waited);
}

bool receiveJob(std::string& line) {
    static std::string received;
    static std::size_t taken = 0;
    return readLineFrom(STDIN_FILENO, received, taken, line);
}

bool sendAnswer(std::string_view line) {
    const std::string text = std::string(line) + '\n';
    return writeBytes(STDOUT_FILENO, text.data(), text.size());
}

}  // namespace vantelgis::batch
