#include "batch/judge/console_text.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "batch/files.h"
#include "batch/input_file.h"
#include "batch/messages.h"
#include "text/characters.h"

namespace vantelgis::batch {

namespace {

constexpr std::string_view kClosed = "...Closed File Unit:";
constexpr std::size_t kMostWarnings = 3;
constexpr std::size_t kLongestPiece = 500;  // of a line that is kept
constexpr std::size_t kLastPiece = 100;     // of a longer one that comes last
constexpr std::size_t kOverlap = 64;        // a number may be cut where a long line is

std::int64_t numberBehind(std::string_view line, std::string_view word) {
    const std::size_t at = line.find(word);
    std::int64_t number = -1;
    if (at != std::string_view::npos)
        std::from_chars(line.data() + at + word.size(), line.data() + line.size(), number);
    return number;
}

// "WARNING - " or "WARNING 0405 - " at the start, as no name of twelve characters can be.
bool isWarning(std::string_view line) {
    if (!line.starts_with("WARNING ")) return false;
    line.remove_prefix(8);
    if (line.size() > 5 && std::all_of(line.begin(), line.begin() + 4, isDigit))
        line.remove_prefix(5);
    return line.starts_with("- ") && line.size() > 2;
}

class ConsoleReader {
  public:
    void take(std::string_view line) {
        takeCounts(line);
        if (text_.error.empty()) {
            const std::size_t at = findErrorMessage(line);
            if (at != std::string_view::npos)
                text_.error = inOwnForm(line.substr(at, kLongestPiece));
        }
        if (isWarning(line)) takeWarning(line);
        if (!line.empty() && !line.starts_with("Press Enter") && !line.starts_with("Enter command"))
            text_.lastLine =
                line.size() > kLongestPiece ? line.substr(line.size() - kLastPiece) : line;
        std::rotate(lastLines_.begin(), lastLines_.begin() + 1, lastLines_.end());
        lastLines_.back() = line.substr(0, kLongestPiece);
    }

    ConsoleText finish() {
        std::size_t end = lastLines_.size();
        if (lastLines_[end - 1] == "Press Enter to Close" && lastLines_[end - 2].empty()) end -= 2;
        text_.lastLine = inOwnForm(text_.lastLine);
        text_.finished = lastLines_[end - 1] == "Finished." && lastLines_[end - 2].empty() &&
                         closesFiles(lastLines_[end - 3]);
        return std::move(text_);
    }

  private:
    // A line of its own, or behind the last "Polyline" that has no line end.
    static bool closesFiles(std::string_view line) {
        const std::size_t at = line.rfind(kClosed);
        return at != std::string_view::npos &&
               std::all_of(line.begin() + static_cast<std::ptrdiff_t>(at + kClosed.size()),
                           line.end(), isDigit);
    }

    void takeCounts(std::string_view line) {
        const std::int64_t polyline =
            numberBehindLast(before_ + std::string(line.substr(0, kOverlap)), "Polyline ");
        text_.polylines =
            std::max({text_.polylines, polyline, numberBehindLast(line, "Polyline ")});
        before_ = line.size() > kOverlap ? line.substr(line.size() - kOverlap) : "";
        if (line.ends_with("no snapped points - using polyline elevation.")) ++text_.flatLines;
        if (line.starts_with("Found ")) text_.shownPoints = numberBehind(line, "Found ");
        if (line.starts_with("Number of points read from gis file: "))
            text_.shownPoints = numberBehind(line, "file: ");
        if (line.starts_with("Converted ")) {
            text_.converted = numberBehind(line, "Converted ");
            text_.ignored = numberBehind(line, "ignored ");
        }
    }

    void takeWarning(std::string_view line) {
        ++text_.warningCount;
        const std::string_view shown = line.substr(0, std::min(line.find(": "), kLongestPiece));
        const bool known =
            std::find(text_.warnings.begin(), text_.warnings.end(), shown) != text_.warnings.end();
        if (!known && text_.warnings.size() < kMostWarnings)
            text_.warnings.push_back(inOwnForm(shown));
    }

    ConsoleText text_;
    std::array<std::string, 5> lastLines_;
    std::string before_;
};

}  // namespace

std::int64_t numberBehindLast(std::string_view text, std::string_view word) {
    const std::size_t at = text.rfind(word);
    return at == std::string_view::npos ? -1 : numberBehind(text.substr(at), word);
}

ConsoleText readConsole(const std::string& file) {
    InputFile input(file);
    ConsoleReader reader;
    std::string_view line;
    while (input.nextLine(line)) reader.take(line);
    return reader.finish();
}

ConsoleText readPackageConsole(const std::string& file) {
    constexpr std::string_view kFailure = "vantelgis-gpkg: ";
    constexpr std::string_view kWarning = "warning: ";
    constexpr std::string_view kCounts = ".gpkg: ";  // of strings, and behind a comma of points
    InputFile input(file);
    ConsoleText text;
    std::string_view line;
    while (input.nextLine(line)) {
        line = line.substr(0, kLongestPiece);
        if (line.starts_with(kFailure) && text.error.empty())
            text.error = line.substr(kFailure.size());
        if (line.starts_with(kWarning)) {
            ++text.warningCount;
            if (text.warnings.size() < kMostWarnings) text.warnings.emplace_back(line);
        }
        if (const std::size_t at = line.rfind(kCounts); at != std::string_view::npos) {
            text.converted = numberBehind(line.substr(at), kCounts);
            text.shownPoints = std::max<std::int64_t>(0, numberBehind(line.substr(at), ", "));
        }
        if (!line.empty()) text.lastLine = line;
    }
    text.finished = text.converted >= 0;
    return text;
}

}  // namespace vantelgis::batch
