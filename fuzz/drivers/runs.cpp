#include "drivers/runs.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "memory/memory_run.h"

namespace vantelgis::fuzz {

using memory::system;

namespace {

// Bytes that are no text show as their numbers.
void show(std::string_view title, std::string_view text) {
    std::fprintf(stderr, "--- %.*s:\n", static_cast<int>(title.size()), title.data());
    for (const char c : text) {
        const bool plain = c == '\n' || (c >= ' ' && c <= '~');
        std::fprintf(stderr, plain ? "%c" : "\\x%02X", static_cast<unsigned char>(c));
    }
    std::fputc('\n', stderr);
}

}  // namespace

Input split(std::string_view bytes) {
    if (bytes.empty()) return {};
    const auto mode = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    const std::size_t divider = bytes.find(kDivider);
    if (divider == std::string_view::npos) return {mode, bytes, {}};
    return {mode, bytes.substr(0, divider), bytes.substr(divider + kDivider.size())};
}

Arguments layerArguments(unsigned mode, std::string_view layer) {
    switch (mode % 8) {
        case 1: return {"-b", "-zln", layer};
        case 2: return {"-b", "-zln", layer, layer};
        case 3:
        case 4: return {"-b", "-results", layer};
        default: return {"-b", layer};
    }
}

Arguments archiveArguments(unsigned mode, std::string_view archive) {
    Arguments arguments{"-b", archive};
    arguments.push_back((mode & 1U) != 0 ? "-shp" : "-mif");
    if ((mode & 2U) != 0) arguments.push_back("-xs");
    if ((mode & 4U) != 0) arguments.push_back("-hip");
    return arguments;
}

Outcome outcomeOf(memory::Files files, const Arguments& arguments, std::string_view typed,
                  std::size_t mostPerRead) {
    constexpr std::size_t kDisk = std::size_t{64} * 1024 * 1024;
    system = {};
    system.files = std::move(files);
    system.typed = typed;
    system.diskSize = kDisk;
    system.mostPerRead = mostPerRead;
    memory::runProgramInMemory(arguments);
    return {std::move(system.console), std::move(system.files)};
}

void stopAtDifference(std::string_view why, const Outcome& one, const Outcome& other) {
    show(why, {});
    show("console", one.console);
    show("other console", other.console);
    for (const auto& [name, bytes] : one.files) {
        const auto found = other.files.find(name);
        if (found != other.files.end() && found->second == bytes) continue;
        show(name, bytes);
        show("the other", found == other.files.end() ? "(missing)" : found->second);
    }
    std::abort();
}

}  // namespace vantelgis::fuzz
