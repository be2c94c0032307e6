#include <filesystem>
#include <system_error>

#include "run/platform.h"
#include "run/platform_posix_names.h"

namespace vantelgis::platform {

int makeFolder(std::string_view folder) {
    std::error_code error;
    std::filesystem::create_directories(systemName(folder), error);
    return error ? 1 : 0;
}

int copyFiles(std::string_view source, std::string_view target) {
    namespace fs = std::filesystem;
    const fs::path from = systemName(source);
    const fs::path to = systemName(target);
    const auto options = fs::copy_options::overwrite_existing;
    std::error_code error;
    if (from.extension() != ".*") {
        fs::copy_file(inputName(source), to / from.filename(), options, error);
        return error ? 1 : 0;
    }
    const fs::path folder = from.has_parent_path() ? from.parent_path() : fs::path(".");
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        // "name.*" takes every extension, also none.
        if (entry.is_directory(error) || entry.path().stem() != from.stem()) continue;
        std::error_code failure;
        if (!fs::copy_file(entry.path(), to / entry.path().filename(), options, failure))
            error = failure;
    }
    return error ? 1 : 0;
}

}  // namespace vantelgis::platform
