#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "drivers/drivers.h"

// The entries that the fuzzing engine calls. `--driver=NAME` on its command line, which it passes
// over, chooses what its inputs stand for; `--drivers` lists the names.

namespace {

const vantelgis::fuzz::Driver* chosen = nullptr;

[[noreturn]] void listDrivers() {
    for (const vantelgis::fuzz::Driver& driver : vantelgis::fuzz::drivers())
        std::printf("%.*s\n", static_cast<int>(driver.name.size()), driver.name.data());
    std::exit(0);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** values) {
    constexpr std::string_view kOption = "--driver=";
    for (int i = 1; i < *count; ++i) {
        const std::string_view argument = (*values)[i];
        if (argument == "--drivers") listDrivers();
        if (argument.starts_with(kOption))
            chosen = vantelgis::fuzz::findDriver(argument.substr(kOption.size()));
    }
    if (chosen == nullptr) {
        std::fputs("--driver=NAME is missing or names no driver\n", stderr);
        std::exit(2);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    chosen->run({reinterpret_cast<const char*>(data), size});
    return 0;
}
