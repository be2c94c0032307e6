#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace vantelgis {

/// What a run left behind on the console, and how it came to its end.
struct RunResult {
    std::string console;
    bool ended = false;  ///< it ended the process; false when it returned
};

/// Runs `body` with all state of the program brought to its start, `typed` as standard input and
/// the console captured. What would end the process ends only the call.
RunResult runInProcess(const std::function<void()>& body, std::string_view typed = {});

/// The same with a unit that is open in `mode` on a file of these bytes, in a folder of its own.
RunResult runOnFile(std::string_view bytes, std::string_view mode,
                    const std::function<void(int)>& body);

/// A folder of its own that is the current one until the object goes.
class WorkFolder {
  public:
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

  private:
    std::filesystem::path folder_;
    std::filesystem::path before_;
};

/// Writes and reads a whole file, byte for byte. A file that isn't there reads as empty.
void writeFile(const std::filesystem::path& name, std::string_view bytes);
std::string readFile(const std::filesystem::path& name);

}  // namespace vantelgis
