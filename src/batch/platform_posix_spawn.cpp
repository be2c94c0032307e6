#include "batch/platform_posix_spawn.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves it to the program

namespace vantelgis::batch {

Spawning::Spawning() {
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

Spawning::~Spawning() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
}

void Spawning::lead(int stream, int file) {
    posix_spawn_file_actions_adddup2(&actions_, file, stream);
}

void Spawning::leadToNothing(int stream) {
    posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDONLY, 0);
}

pid_t Spawning::start(const std::string& program, const std::vector<std::string>& arguments) {
    std::vector<char*> values{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        values.push_back(const_cast<char*>(argument.c_str()));
    values.push_back(nullptr);
    pid_t process = 0;
    errno = posix_spawn(&process, program.c_str(), &actions_, &attributes_, values.data(), environ);
    return errno == 0 ? process : 0;
}

int exitStatusIn(int waited) {
    constexpr int kSignalStatus = 128;  // what a shell adds to the number of a signal
    return WIFSIGNALED(waited) ? kSignalStatus + WTERMSIG(waited) : WEXITSTATUS(waited);
}

bool writeBytes(int file, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = write(file, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace vantelgis::batch
