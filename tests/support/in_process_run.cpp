#include "support/in_process_run.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "run/console.h"
#include "run/opener.h"
#include "run/units.h"
#include "support/fresh_start.h"

namespace vantelgis {

namespace {

std::string shown;  // on the console since a run began

// Standard input holds a text for as long as this lives.
class Typed {
  public:
    explicit Typed(std::string_view text) : text_(std::tmpfile()), original_(dup(STDIN_FILENO)) {
        if (text_ == nullptr) throw std::runtime_error("no scratch file");
        if (!text.empty()) std::fwrite(text.data(), 1, text.size(), text_);
        std::rewind(text_);
        dup2(fileno(text_), STDIN_FILENO);
    }
    ~Typed() {
        dup2(original_, STDIN_FILENO);
        close(original_);
        std::fclose(text_);
    }
    Typed(const Typed&) = delete;
    Typed& operator=(const Typed&) = delete;

  private:
    std::FILE* text_;
    int original_;
};

}  // namespace

RunResult runInProcess(const std::function<void()>& body, std::string_view typed) {
    const Typed input{typed};
    bool ended = false;
    freshStart();
    shown.clear();
    setConsoleSink([](std::string_view text) { shown += text; });
    try {
        body();
    } catch (const ProcessEnd&) {
        ended = true;
    }
    consoleFlush();
    setConsoleSink(nullptr);
    initialiseUnits(1000);  // closes what a body that returned left open
    return {shown, ended};
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
