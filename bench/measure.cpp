// Runs a command with its output dropped and gives its time and peak memory. A program of its own,
// linked statically: a process inherits the peak of the one that starts it, and this one is smaller
// than anything that is measured here.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

struct Figures {
    double wall = 1e9;
    double cpu = 1e9;
    long peak = 0;
};

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

// One run; the best of it and those before go to `best`. Gives the command's status.
int run(char** command, Figures& best) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) become(command);
    int status = 0;
    rusage usage = {};
    if (wait4(child, &status, 0, &usage) != child) return 1;
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    const double cpu = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    if (wall.count() < best.wall) best.wall = wall.count();
    if (cpu < best.cpu) best.cpu = cpu;
    if (usage.ru_maxrss > best.peak) best.peak = usage.ru_maxrss;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}  // namespace

// Arguments: how many runs, and the command. Prints the least wall seconds, the least user and
// system seconds together, and the largest peak in KiB; ends with the command's status.
int main(int argc, char** argv) {
    if (argc < 3) return 2;
    Figures best;
    for (long left = std::strtol(argv[1], nullptr, 10); left > 0; --left) {
        const int status = run(argv + 2, best);
        if (status != 0) return status;
    }
    std::printf("%.6f %.6f %ld\n", best.wall, best.cpu, best.peak);
    return 0;
}
