#include "batch/files.h"
#include "batch/platform_windows_spawn.h"
#include "batch/processes.h"

namespace vantelgis::batch {

namespace {

using vantelgis::platform::FileHandle;
using vantelgis::platform::kNoFile;

constexpr std::size_t kReadSize = 65536;

// What a worker has of a process.
struct WorkerHandles {
    HANDLE process;
    HANDLE job;
    DWORD number;
};

WorkerHandles* handlesOf(std::int64_t process) {
    return reinterpret_cast<WorkerHandles*>(process);
}

bool readLineFrom(HANDLE file, std::string& received, std::size_t& taken, std::string& line) {
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
        DWORD count = 0;
        const BOOL read = ReadFile(file, received.data() + searched, kReadSize, &count, nullptr);
        received.resize(searched + count);
        if (!read || count == 0) return false;
    }
}

void closeHandle(FileHandle& file) {
    if (file != kNoFile) CloseHandle(reinterpret_cast<HANDLE>(file));
    file = kNoFile;
}

bool writeLine(HANDLE file, std::string_view line) {
    const std::string text = std::string(line) + '\n';
    return vantelgis::platform::writeFile(reinterpret_cast<FileHandle>(file), text.data(),
                                          text.size());
}

}  // namespace

WorkerProcess::~WorkerProcess() {
    if (running()) finish();
}

bool WorkerProcess::start(const std::string& program, const std::vector<std::string>& arguments) {
    HANDLE jobs[2];
    HANDLE answers[2];
    if (!CreatePipe(&jobs[0], &jobs[1], nullptr, 0)) return false;
    if (!CreatePipe(&answers[0], &answers[1], nullptr, 0)) {
        CloseHandle(jobs[0]);
        CloseHandle(jobs[1]);
        return false;
    }
    const Spawned spawned =
        spawn(program, arguments, jobs[0], answers[1], GetStdHandle(STD_ERROR_HANDLE));
    CloseHandle(jobs[0]);
    CloseHandle(answers[1]);
    jobs_ = reinterpret_cast<FileHandle>(jobs[1]);
    answers_ = reinterpret_cast<FileHandle>(answers[0]);
    if (spawned.process == nullptr) {
        finish();
        return false;
    }
    process_ = reinterpret_cast<std::int64_t>(
        new WorkerHandles{spawned.process, spawned.job, spawned.number});
    return true;
}

bool WorkerProcess::send(std::string_view line) {
    return writeLine(reinterpret_cast<HANDLE>(jobs_), line);
}

bool WorkerProcess::receive(std::string& line) {
    return readLineFrom(reinterpret_cast<HANDLE>(answers_), received_, taken_, line);
}

void WorkerProcess::interrupt() const {
    if (!running()) return;
    const HANDLE event =
        OpenEventW(EVENT_MODIFY_STATE, FALSE, endEventName(handlesOf(process_)->number).c_str());
    if (event == nullptr) return;
    SetEvent(event);
    CloseHandle(event);
}

int WorkerProcess::finish() {
    closeHandle(jobs_);
    DWORD status = 0;
    if (running()) {
        WorkerHandles* const handles = handlesOf(process_);
        WaitForSingleObject(handles->process, INFINITE);
        GetExitCodeProcess(handles->process, &status);
        CloseHandle(handles->process);
        CloseHandle(handles->job);
        delete handles;
    }
    closeHandle(answers_);
    process_ = 0;
    received_.clear();
    taken_ = 0;
    return static_cast<int>(status);
}

bool receiveJob(std::string& line) {
    static std::string received;
    static std::size_t taken = 0;
    return readLineFrom(GetStdHandle(STD_INPUT_HANDLE), received, taken, line);
}

bool sendAnswer(std::string_view line) {
    return writeLine(GetStdHandle(STD_OUTPUT_HANDLE), line);
}

}  // namespace vantelgis::batch
