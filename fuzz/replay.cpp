// Runs every file of some folders through a driver, without the fuzzing engine.
// Usage: replay NAME FOLDER...

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "drivers/drivers.h"

namespace {

std::string contents(const std::filesystem::path& file) {
    std::ostringstream bytes;
    bytes << std::ifstream{file, std::ios::binary}.rdbuf();
    return bytes.str();
}

}  // namespace

int main(int count, char** values) {
    const auto* driver = count > 1 ? vantelgis::fuzz::findDriver(values[1]) : nullptr;
    if (driver == nullptr) {
        std::cerr << "Usage: replay NAME FOLDER...\n";
        return 2;
    }
    int replayed = 0;
    for (int i = 2; i < count; ++i) {
        if (!std::filesystem::is_directory(values[i])) continue;
        for (const auto& entry : std::filesystem::directory_iterator{values[i]}) {
            std::cout << entry.path().string() << std::endl;  // the last one is the one that failed
            driver->run(contents(entry.path()));
            ++replayed;
        }
    }
    std::cout << replayed << " inputs replayed\n";
    return replayed > 0 ? 0 : 1;
}
