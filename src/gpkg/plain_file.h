#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "run/platform.h"

namespace vantelgis::gpkg {

/// A file of bytes. Whatever the system refuses ends the run with the file's name, see `fail`.
class PlainFile {
  public:
    PlainFile(std::string_view name, vantelgis::platform::Access access);
    ~PlainFile();
    PlainFile(const PlainFile&) = delete;
    PlainFile& operator=(const PlainFile&) = delete;

    /// Adds the next piece of the file to `bytes`; false at its end.
    bool read(std::string& bytes);
    void write(std::string_view bytes);
    /// Closes before the object goes, and fails when something could not be written.
    void close();

  private:
    std::string name_;
    vantelgis::platform::FileHandle handle_;
};

/// The whole of a file that is small by its nature; fails for one of more than `most` bytes.
[[nodiscard]] std::string contentsOf(std::string_view name, std::size_t most);

void writeWhole(std::string_view name, std::string_view bytes);

/// Writes the bytes of one file over another one.
void copyFile(std::string_view source, std::string_view target);

}  // namespace vantelgis::gpkg
