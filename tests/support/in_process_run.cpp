#include "support/in_process_run.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

#include "driver/program.h"
#include "run/console.h"
#include "run/opener.h"
#include "run/platform.h"
#include "run/units.h"
#include "support/fresh_start.h"

namespace vantelgis {

namespace {

// An open scratch file.
class ScratchFile {
  public:
    ScratchFile()
        : name_((std::filesystem::temp_directory_path() / "vantelgis-test-XXXXXX").string()),
          descriptor_(mkstemp(name_.data())) {
        if (descriptor_ < 0) throw std::runtime_error("no scratch file");
    }
    ~ScratchFile() {
        close(descriptor_);
        std::remove(name_.c_str());
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    void set(std::string_view text) const {
        lseek(descriptor_, 0, SEEK_SET);
        const auto size = static_cast<unsigned>(text.size());
        if (ftruncate(descriptor_, 0) != 0 ||
            std::cmp_not_equal(write(descriptor_, text.data(), size), size))
            throw std::runtime_error("scratch file not written");
        lseek(descriptor_, 0, SEEK_SET);
    }
    [[nodiscard]] std::string get() const {
        const auto size = static_cast<unsigned>(lseek(descriptor_, 0, SEEK_END));
        std::string text(size, '\0');
        lseek(descriptor_, 0, SEEK_SET);
        if (std::cmp_not_equal(read(descriptor_, text.data(), size), size))
            throw std::runtime_error("scratch file not read");
        return text;
    }
    [[nodiscard]] int descriptor() const { return descriptor_; }

  private:
    std::string name_;
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

// The console's lines with the line end that the tests write.
std::string withPlainLineEnds(std::string text) {
    const std::string_view lineEnd = platform::consoleLineEnd();
    for (std::size_t at = 0; (at = text.find(lineEnd, at)) != std::string::npos; ++at)
        text.erase(at, lineEnd.size() - 1);
    return text;
}

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
    result.console = withPlainLineEnds(output.get());
    return result;
}

RunResult runOnFile(std::string_view bytes, std::string_view mode,
                    const std::function<void(int)>& body) {
    const WorkFolder folder;
    writeFile("in", bytes);
    return runInProcess([&] {
        int unit = 0;
        FILEOPEN(unit, mode, "in");
        body(unit);
    });
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
    do {
        folder_ = base / "vantelgis-test-";
        folder_ += std::to_string(std::random_device{}());
    } while (!create_directory(folder_));
    std::filesystem::current_path(folder_);
}

WorkFolder::~WorkFolder() {
    std::filesystem::current_path(before_);
    std::error_code inUse;  // then it stays: better than an end of all tests
    std::filesystem::remove_all(folder_, inUse);
}

void writeFile(const std::filesystem::path& name, std::string_view bytes) {
    std::ofstream{name, std::ios::binary} << bytes;
}

std::string readFile(const std::filesystem::path& name) {
    std::ostringstream text;
    text << std::ifstream{name, std::ios::binary}.rdbuf();
    return text.str();
}

}  // namespace vantelgis
