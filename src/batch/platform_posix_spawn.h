#pragma once

#include <spawn.h>
#include <sys/types.h>

#include <string>
#include <vector>

namespace vantelgis::batch {

/// A process in a group of its own, with its signals as its program expects them.
class Spawning {
  public:
    Spawning();
    ~Spawning();
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    /// Has one of its standard streams lead to this file, or nowhere.
    void lead(int stream, int file);
    void leadToNothing(int stream);
    /// Starts it; 0 when the system refuses.
    pid_t start(const std::string& program, const std::vector<std::string>& arguments);

  private:
    posix_spawnattr_t attributes_{};
    posix_spawn_file_actions_t actions_{};
};

/// The exit status in what waitpid gives; 128 and the signal when one ended the process.
int exitStatusIn(int waited);

/// Writes all bytes, or gives false.
bool writeBytes(int file, const char* bytes, std::size_t size);

}  // namespace vantelgis::batch
