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

#include "run/console.h"
#include "run/opener.h"
#include "run/platform.h"
#include "run/units.h"
#include "support/fresh_start.h"

namespace vantelgis {

namespace {

// A standard stream and the scratch file to which it leads for as long as a run takes.
class ScratchStream {
  public:
    explicit ScratchStream(int stream)
        : stream_(stream),
          original_(dup(stream)),
          name_((std::filesystem::temp_directory_path() / "vantelgis-test-XXXXXX").string()),
          scratch_(mkstemp(name_.data())) {
        if (scratch_ < 0) throw std::runtime_error("no scratch file");
    }
    ~ScratchStream() {
        close(scratch_);
        std::remove(name_.c_str());
    }
    ScratchStream(const ScratchStream&) = delete;
    ScratchStream& operator=(const ScratchStream&) = delete;

    void redirect(std::string_view text) const {
        lseek(scratch_, 0, SEEK_SET);
        const auto size = static_cast<unsigned>(text.size());
        if (ftruncate(scratch_, 0) != 0 ||
            std::cmp_not_equal(write(scratch_, text.data(), size), size))
            throw std::runtime_error("scratch file not written");
        lseek(scratch_, 0, SEEK_SET);
        dup2(scratch_, stream_);
    }
    [[nodiscard]] std::string restore() const {
        dup2(original_, stream_);
        const auto size = static_cast<unsigned>(lseek(scratch_, 0, SEEK_END));
        std::string text(size, '\0');
        lseek(scratch_, 0, SEEK_SET);
        if (std::cmp_not_equal(read(scratch_, text.data(), size), size))
            throw std::runtime_error("scratch file not read");
        return text;
    }

  private:
    int stream_;
    int original_;
    std::string name_;
    int scratch_;
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
    static const ScratchStream output{STDOUT_FILENO};
    static const ScratchStream input{STDIN_FILENO};
    output.redirect({});
    input.redirect(typed);
    RunResult result;
    freshStart();
    try {
        body();
    } catch (const ProcessEnd&) {
        result.ended = true;
    }
    consoleFlush();
    consoleReset();
    result.console = withPlainLineEnds(output.restore());
    (void)input.restore();
    initialiseUnits(1000);  // closes what a body that returned left open
    return result;
}

RunResult runOnFile(std::string_view bytes, std::string_view mode,
                    const std::function<void(int)>& body) {
    const WorkFolder folder;
    writeFile("in", bytes);
    return runInProcess([&] {
        int unit = 0;
        openUnit(unit, mode, "in");
        body(unit);
    });
}

WorkFolder::WorkFolder() : before_(std::filesystem::current_path()) {
    // In memory where there is such a folder: a disk can take milliseconds for each file.
    const std::filesystem::path memory = "/dev/shm";
    const bool inMemory = std::getenv("TMPDIR") == nullptr && is_directory(memory);
    const auto base = inMemory ? memory : std::filesystem::temp_directory_path();
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
