#include "support/in_process_run.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "driver/program.h"
#include "run/console.h"
#include "run/units.h"
#include "support/fresh_start.h"

namespace vantelgis {

namespace support {

namespace {

// An open scratch file without a name.
class ScratchFile {
  public:
    ScratchFile() {
        char name[] = "/tmp/vantelgis-test-XXXXXX";
        descriptor_ = mkstemp(name);
        if (descriptor_ < 0) throw std::runtime_error("no scratch file");
        unlink(name);
    }
    ~ScratchFile() { close(descriptor_); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    void set(std::string_view text) const {
        if (ftruncate(descriptor_, 0) != 0 ||
            pwrite(descriptor_, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
            throw std::runtime_error("scratch file not written");
        lseek(descriptor_, 0, SEEK_SET);
    }
    [[nodiscard]] std::string get() const {
        std::string text(static_cast<std::size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
        if (pread(descriptor_, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
            throw std::runtime_error("scratch file not read");
        return text;
    }
    [[nodiscard]] int descriptor() const { return descriptor_; }

  private:
    int descriptor_;
};

// A standard stream that leads to a scratch file for as long as the object lives.
class Redirection {
  public:
    Redirection(int stream, const ScratchFile& file) : stream_(stream), original_(dup(stream)) {
        dup2(file.descriptor(), stream);
    }
    ~Redirection() {
        dup2(original_, stream_);
        close(original_);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

  private:
    int stream_;
    int original_;
};

}  // namespace

RunResult runInProcess(const std::function<void()>& body, std::string_view typed) {
    static const ScratchFile output;
    static const ScratchFile input;
    output.set({});
    input.set(typed);
    RunResult result;
    {
        const Redirection out{STDOUT_FILENO, output};
        const Redirection in{STDIN_FILENO, input};
        freshStart();
        try {
            body();
        } catch (const ProcessEnd&) {
            result.ended = true;
        }
        consoleFlush();
        consoleReset();
    }
    FILESINIT(1000);  // closes what a body that returned left open
    result.console = output.get();
    return result;
}

RunResult runProgramInProcess(std::initializer_list<std::string_view> arguments,
                              std::string_view typed) {
    std::vector<std::string_view> all{"vantelgis"};
    all.insert(all.end(), arguments);
    return runInProcess([&all] { runProgram(all); }, typed);
}

WorkFolder::WorkFolder() : before_(std::filesystem::current_path()) {
    // In memory where there is such a folder: a disk can take milliseconds for each file.
    const std::filesystem::path memory = "/dev/shm";
    const auto base = is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    std::string name = (base / "vantelgis-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no work folder");
    folder_ = name;
    std::filesystem::current_path(folder_);
}

WorkFolder::~WorkFolder() {
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(folder_);
}

void writeFile(const std::filesystem::path& name, std::string_view bytes) {
    std::ofstream{name, std::ios::binary} << bytes;
}

std::string readFile(const std::filesystem::path& name) {
    std::ostringstream text;
    text << std::ifstream{name, std::ios::binary}.rdbuf();
    return text.str();
}

}  // namespace support

}  // namespace vantelgis
