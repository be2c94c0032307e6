#include "toolkit/lines.h"

#include <algorithm>

#include "text/characters.h"
#include "text/strings.h"
#include "toolkit/line_pieces.h"
#include "toolkit/strings.h"

namespace vantelgis {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

// `line` holds `command`, one blank and `key`.
bool holdsCommand(std::string_view line, std::string_view command, std::string_view key) {
    line = cutLine(line);
    key = cutLine(key);
    if (key.empty()) return findIgnoringCase(line, command) != kNone;
    for (std::size_t at; (at = findIgnoringCase(line, command)) != kNone;) {
        line.remove_prefix(at + command.size());
        if (!line.empty() && line.front() == ' ' && beginsWith(line.substr(1), key)) return true;
    }
    return false;
}

struct SplitLine {
    std::string_view left;
    std::string_view value;
    bool atSeparator = false;
};

SplitLine splitLine(std::string_view line, std::string_view separator, std::int32_t column) {
    if (!separator.empty()) {
        const std::size_t at = line.find(separator);
        if (at != kNone) return {line.substr(0, at), line.substr(at + separator.size()), true};
    }
    if (column == 0) return separator.empty() ? SplitLine{{}, line} : SplitLine{line, {}};
    const auto leftSize = static_cast<std::size_t>(std::max(column, 0));
    return {line.substr(0, leftSize), fromColumn(line, leftSize + 1)};
}

}  // namespace

bool FLAGEXISTSRET(std::string_view line, std::string_view flag, TextRef rest) {
    line = cutLine(line);
    flag = cutLine(flag);
    const std::size_t at = findIgnoringCase(line, flag);
    const bool found = at != kNone;
    rest.assign(found ? line.substr(at + flag.size()) : std::string_view{});
    return found;
}

bool READGIS(std::string_view line, std::string_view key) {
    return holdsCommand(line, "Read MI", key) || holdsCommand(line, "Read GIS", key);
}

bool WRITEGIS(std::string_view line, std::string_view key) {
    return holdsCommand(line, "Write MI", key) || holdsCommand(line, "Write GIS", key);
}

bool READROWCOL(std::string_view line, std::string_view key) {
    return holdsCommand(line, "Read MID", key) || holdsCommand(line, "Read RowCol", key);
}

bool NUMBERLINE(TextRef s) {
    TRIMF(s, s.view());
    const std::string_view text = s.view();
    return text.empty() || isDigit(text.front()) || text.front() == '-' || text.front() == '.';
}

bool POSITIVEINTEGERNUMBER(TextRef s) {
    TRIMF(s, s.view());
    const std::string_view text = s.view();
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

bool COMMENTLINE(TextRef line) {
    const std::string_view text = withoutLeadingBlanks(cutLine(line.view()));
    line.assign(text.substr(0, text.find_first_of("#!")));
    return line.view().empty();
}

bool CHECKLINE(std::string_view line, std::string_view key, std::string_view separator,
               std::int32_t column, TextRef value, TextRef left) {
    const SplitLine split = splitLine(cutLine(line), withoutTrailingBlanks(separator), column);
    const bool mayBeBlank = column == 0 && !split.atSeparator;
    const bool wanted = FLAGEXISTS(split.left, key) || withoutTrailingBlanks(key) == "*";
    const bool leftIsBlank = withoutTrailingBlanks(split.left).empty();
    left.assign(split.left);
    value.assign(split.value);
    return wanted && (!leftIsBlank || mayBeBlank);
}

}  // namespace vantelgis
