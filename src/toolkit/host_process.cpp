// Part of the shared library alone: there the console is the host's standard streams, and the end
// of a run is the ordinary end of the host's process.

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "run/console.h"
#include "run/stop.h"

namespace vantelgis {

namespace {

// A host's std::cout may have a buffer of its own, in front of which nothing may stand.
void writeToHost(std::string_view text) {
    std::cout.flush();
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void flushHost() {
    std::fflush(stdout);
}

// Not a byte beyond the line is taken, or the host would miss it.
std::size_t readFromHost(char* out, std::size_t size) {
    std::size_t length = 0;
    while (length < size) {
        const int c = std::getc(stdin);
        if (c == EOF) break;
        out[length++] = static_cast<char>(c);
        if (c == '\n') break;
    }
    return length;
}

constexpr HostStreams kStreams{writeToHost, flushHost, readFromHost};

// The host's exit handlers run and its open files are written out.
void endHost() {
    std::exit(0);
}

struct Guest {
    Guest() {
        setHostStreams(&kStreams);
        setProcessEnd(endHost);
    }
};
const Guest guest;

}  // namespace

}  // namespace vantelgis
