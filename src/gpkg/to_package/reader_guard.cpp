#include "gpkg/to_package/reader_guard.h"

#include <algorithm>

#include "gpkg/report.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/opener.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "run/units.h"
#include "text/text.h"

namespace vantelgis::gpkg {

namespace {

struct Stopped {};

// The reader knows one console; so this is one too.
struct Listening {
    std::string text;
    const int* unit = nullptr;
    std::int64_t line = 0;
};
Listening listening;

// Only the last message counts, and none is this long.
constexpr std::size_t kKept = 40'000;

// When the text of a stop comes, the archive is still open; at the end itself it no longer is.
void listen(std::string_view text) {
    if (listening.text.size() > kKept) listening.text.clear();
    listening.text += text;
    if (const std::int64_t line = lineNumber(*listening.unit); line > 0) listening.line = line;
}

[[noreturn]] void leave() {
    throw Stopped{};
}

// The message without what leads to it and what follows, its lines joined.
std::string messageIn(std::string_view text) {
    const std::size_t start = std::min(text.rfind("ERROR - "), text.rfind("WARNING - "));
    if (start == std::string_view::npos) return std::string(text);
    text = text.substr(start);
    text = text.substr(text.find(" - ") + 3);
    text = text.substr(0, text.find("\nPress Enter"));
    std::string message;
    for (const char c : text) {
        const bool blank = c == '\n' || c == ' ';
        if (!blank || (!message.empty() && message.back() != ' ')) message += blank ? ' ' : c;
    }
    message.resize(withoutTrailingBlanks(message).size());
    return message;
}

// Whatever ends the call, the console is the console again and no file stays open.
class Guard {
  public:
    explicit Guard(const int& unit) {
        listening = {{}, &unit, 0};
        setConsoleSink(listen);
        setConsoleUnattended(true);
        setEndHandler(leave);
        initialiseUnits(0);
        clearMessage();
    }
    ~Guard() {
        closeAllUnits();
        setEndHandler(nullptr);
        setConsoleSink(nullptr);
    }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
};

// What the reader says at a stop, and what that means; behind it comes the text of the line.
struct Meaning {
    std::string_view reader;
    std::string_view words;
};
constexpr Meaning kMeanings[] = {
    {"Erroneous line is", "a number can't be read in"},
    {"Unexpected end of .12da file", "too few numbers in"},
    {"Reading data (d12ObjectType)", "the value can't be read, or is missing, in"},
    {"Exceeded number of allowable nodes", "the string has more than 1000000 vertices from"},
    {"finding start of data", "the null elevation can't be read in"},
};

std::string lineOf(std::string_view file, std::int64_t number) {
    int unit = 0;
    std::string text;
    guardReader(unit, [&] {
        openUnit(unit, "I ", file);
        std::string_view line;
        while (lineNumber(unit) < number && readLine(unit, line) == ReadResult::ok) continue;
        text = withoutTrailingBlanks(withoutLeadingBlanks(line)).substr(0, 200);
    });
    return text;
}

}  // namespace

std::string wordsOf(const ReaderStop& stop, std::string_view file) {
    for (const Meaning& meaning : kMeanings)
        if (stop.text.find(meaning.reader) != std::string::npos)
            return joined(meaning.words, " \"", lineOf(file, stop.line), "\"");
    return stop.text;
}

void stopReader() {
    throw Stopped{};
}

ReaderStop guardReader(const int& unit, const std::function<void()>& body) {
    const Guard guard{unit};
    try {
        body();
    } catch (const Stopped&) {
        return {messageIn(listening.text), listening.line, true};
    }
    return {};
}

}  // namespace vantelgis::gpkg
