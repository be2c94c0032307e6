#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/platform.h"

/// What the batch program asks of the system about processes, signals and the terminal.
namespace vantelgis::batch {

/// How a process came to its end.
struct ProcessEnd {
    int status = 0;       ///< exit status; 128 and the signal when a signal ended it
    bool started = true;  ///< false when the system could not start it: `lastFailure` says why
    bool timedOut = false;
};

/// Runs a program in the current folder, in a process group of its own, with an empty standard
/// input and with what it writes appended to `console`. Ends the whole group after
/// `timeoutSeconds`, or when this program is interrupted: first in order, then by force. `tick` is
/// called four times a second.
ProcessEnd runProgramToItsEnd(const std::string& program, const std::vector<std::string>& arguments,
                              vantelgis::platform::FileHandle console, std::int64_t timeoutSeconds,
                              void (*tick)());

/// A process of this same program that takes jobs and gives answers, a line each.
class WorkerProcess {
  public:
    WorkerProcess() = default;
    ~WorkerProcess();
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    [[nodiscard]] bool start(const std::string& program, const std::vector<std::string>& arguments);
    [[nodiscard]] bool running() const { return process_ != 0; }
    /// False when it is gone.
    [[nodiscard]] bool send(std::string_view line);
    [[nodiscard]] bool receive(std::string& line);
    /// Has it stop what it does, clean up and end. From any thread, while it runs.
    void interrupt() const;
    /// Has it end behind what it does, and waits for that. Gives its exit status.
    int finish();

  private:
    std::int64_t process_ = 0;
    vantelgis::platform::FileHandle jobs_ = vantelgis::platform::kNoFile;
    vantelgis::platform::FileHandle answers_ = vantelgis::platform::kNoFile;
    std::string received_;
    std::size_t taken_ = 0;
};

/// The other end of it: standard input and output of a worker.
bool receiveJob(std::string& line);
bool sendAnswer(std::string_view line);

/// Has the signals that ask for an end (Control-C, termination, a closed terminal) noted instead of
/// obeyed. `asWorker`: the end of the program that gives the jobs counts as one.
void watchForInterruption(bool asWorker);
/// The number of such a signal, 0 when there was none.
int interruption();

bool errorIsTerminal();
bool outputIsTerminal();
/// Columns of the terminal behind standard error or output, or what COLUMNS says; 80 if unknown.
int terminalWidth();
/// Writes to standard error; what is refused is lost.
void writeStandardError(std::string_view text);

/// The arguments of this process, its own name first, as bytes on POSIX and UTF-8 on Windows; none
/// when one of them is no text.
std::vector<std::string> programArguments(int count, char** values);
/// Text of an environment variable, empty when it isn't set.
std::string environmentText(const char* name);
/// The file of this program, as an absolute name.
std::string ownProgram(const std::string& calledAs);
/// The file that a name without folder stands for in PATH; empty when there is none. A name with a
/// folder stands for itself.
std::string findProgram(const std::string& name);
/// Extension of programs, ".exe" on Windows.
std::string_view programExtension();
int processorCount();
std::string hostName();
std::int64_t processNumber();

}  // namespace vantelgis::batch
