#include "run/console.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

#include "run/platform.h"

namespace vantelgis {

namespace {

constexpr std::size_t kOutputSize = 32768;
constexpr std::size_t kInputSize = 4096;

struct Console {
    char output[kOutputSize] = {};
    std::size_t outputLength = 0;
    char input[kInputSize] = {};
    std::size_t inputBegin = 0;
    std::size_t inputEnd = 0;
    void (*sink)(std::string_view) = nullptr;
    const HostStreams* host = nullptr;
    bool unattended = false;
};
constinit Console console;  // there before any part of a host prints

void handOver() {
    const std::size_t length = std::exchange(console.outputLength, 0);
    if (length == 0) return;
    const std::string_view text{console.output, length};
    if (console.sink != nullptr) return console.sink(text);
    if (console.host != nullptr) return console.host->write(text);
    platform::writeStandardOutput(text.data(), text.size());
}

void buffer(std::string_view text) {
    while (!text.empty()) {
        if (console.outputLength == kOutputSize) handOver();
        const std::size_t n = std::min(text.size(), kOutputSize - console.outputLength);
        std::memcpy(console.output + console.outputLength, text.data(), n);
        console.outputLength += n;
        text.remove_prefix(n);
    }
}

// The next byte of standard input; false at its end.
bool nextInput(char& c) {
    if (console.unattended) return false;
    if (console.inputBegin == console.inputEnd) {
        console.inputBegin = 0;
        console.inputEnd = console.host != nullptr
                               ? console.host->read(console.input, kInputSize)
                               : platform::readStandardInput(console.input, kInputSize);
        if (console.inputEnd == 0) return false;
    }
    c = console.input[console.inputBegin++];
    return true;
}

}  // namespace

void consolePut(std::string_view text) {
    static const bool terminal = platform::standardOutputIsTerminal();
    const bool passedOn = console.sink != nullptr || console.host != nullptr;
    for (std::size_t end; (end = text.find('\n')) != std::string_view::npos;
         text.remove_prefix(end + 1)) {
        buffer(text.substr(0, end));
        buffer(passedOn ? "\n" : platform::consoleLineEnd());
    }
    buffer(text);
    if (terminal || passedOn) handOver();
}

void consoleFlush() {
    handOver();
    if (console.host != nullptr) console.host->flush();
}

bool consoleReadLine(TextRef line) {
    consoleFlush();
    std::size_t length = 0;
    bool carriageReturn = false;  // held back: it is text unless the line ends behind it
    const auto store = [&](char c) {
        if (length < line.capacity) line.data[length++] = c;
    };
    bool any = false;
    char c;
    while (nextInput(c)) {
        any = true;
        if (c == '\n') break;
        if (carriageReturn) store('\r');
        carriageReturn = c == '\r';
        if (!carriageReturn) store(c);
    }
    line.assign({line.data, length});
    return any;
}

bool consolePause(std::string_view text) {
    consoleLine(text.empty() ? "Enter command<CR> or <CR> to continue." : text);
    Text<1> dropped;
    return consoleReadLine(dropped);
}

void consoleReset() {
    console.outputLength = 0;
    console.inputBegin = 0;
    console.inputEnd = 0;
}

void setConsoleSink(void (*sink)(std::string_view)) {
    consoleFlush();
    console.sink = sink;
}

void setHostStreams(const HostStreams* streams) {
    consoleFlush();
    console.host = streams;
}

void setConsoleUnattended(bool unattended) {
    console.unattended = unattended;
}

}  // namespace vantelgis
