// Runs a command with its output dropped and tells its time and peak memory. A program of its own,
// since a process inherits the peak of the one that starts it, and a Python process is larger than
// what is measured here.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace {

[[noreturn]] void become(char** command) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
    execvp(command[0], command);
    std::perror(command[0]);
    _exit(127);
}

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

}  // namespace

// Prints the wall seconds, the user and system seconds, and the peak in KiB.
int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) become(argv + 1);
    int status = 0;
    rusage usage = {};
    if (wait4(child, &status, 0, &usage) != child) return 1;
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    std::printf("%.6f %.6f %ld\n", wall.count(), seconds(usage.ru_utime) + seconds(usage.ru_stime),
                usage.ru_maxrss);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
