#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "memory/memory_run.h"
#include "run/opener.h"

namespace vantelgis {

/// What `body` says on the console when these files are there; they stay for a later look.
inline std::string consoleOf(memory::Files files, const std::function<void()>& body) {
    memory::system = {};
    memory::system.files = std::move(files);
    memory::callInMemory(body);
    return memory::system.console;
}

/// The same with a unit that is open for reading on a file of these bytes.
inline std::string consoleOfUnit(std::string_view bytes, const std::function<void(int)>& body) {
    return consoleOf({{"in", std::string(bytes)}}, [&body] {
        int unit = 0;
        openUnit(unit, "I ", "in");
        body(unit);
    });
}

/// The last message of a console that ends with the prompt of a stop; nothing of any other.
inline std::string faultIn(const std::string& console) {
    const std::size_t prompt = console.rfind("\n\nPress Enter to Close\n");
    if (prompt == std::string::npos) return {};
    const std::size_t empty = console.rfind("\n\n", prompt - 1);
    const std::size_t start = empty == std::string::npos ? 0 : empty + 2;
    return console.substr(start, prompt - start);
}

}  // namespace vantelgis
