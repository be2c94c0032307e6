#include "batch/messages.h"

#include <algorithm>
#include <vector>

#include "text/text.h"

namespace vantelgis::batch {

extern const std::string_view kMessagesPage;  // docs/messages.md, from the build

namespace {

// The texts between the bars of a table row.
std::vector<std::string_view> cellsOf(std::string_view row) {
    std::vector<std::string_view> cells;
    row.remove_prefix(1);
    for (std::size_t bar; (bar = row.find('|')) != std::string_view::npos;
         row.remove_prefix(bar + 1)) {
        std::string_view cell = row.substr(0, bar);
        while (cell.starts_with(' ')) cell.remove_prefix(1);
        cells.push_back(withoutTrailingBlanks(cell));
    }
    return cells;
}

std::string withoutCodeMarks(std::string_view text) {
    std::string plain(text);
    plain.erase(std::remove(plain.begin(), plain.end(), '`'), plain.end());
    return plain;
}

// The rows of the page that explain a message. The first cell holds it between code marks.
const std::vector<MessageHelp>& messageTable() {
    static const std::vector<MessageHelp> table = [] {
        std::vector<MessageHelp> rows;
        std::string_view page = kMessagesPage;
        while (!page.empty()) {
            const std::size_t end = std::min(page.find('\n'), page.size() - 1);
            const std::string_view line = page.substr(0, end);
            page.remove_prefix(end + 1);
            if (!line.starts_with("| `")) continue;
            const std::vector<std::string_view> cells = cellsOf(line);
            if (cells.size() < 3) continue;
            const std::string_view message = cells[0].substr(1, cells[0].find('`', 1) - 1);
            rows.push_back({message, withoutCodeMarks(cells[1]), withoutCodeMarks(cells[2])});
        }
        return rows;
    }();
    return table;
}

// The page shows what differs from run to run as "...".
bool fits(std::string_view line, std::string_view message) {
    return line.starts_with(message.substr(0, message.find("...")));
}

const MessageHelp* findHelp(std::string_view line) {
    const MessageHelp* best = nullptr;
    for (const MessageHelp& row : messageTable()) {
        const bool longer = best == nullptr || row.message.size() > best->message.size();
        if (longer && fits(line, row.message)) best = &row;
    }
    return best;
}

}  // namespace

MessageHelp helpForMessage(std::string_view line) {
    const MessageHelp* const found = findHelp(line);
    return found == nullptr ? MessageHelp{} : *found;
}

std::size_t findErrorMessage(std::string_view line) {
    // The one message that stands behind other text in its line.
    constexpr std::string_view kBehindNames = ", ERROR - XS ID exceeds 12 characters.";
    if (line.ends_with(kBehindNames)) return line.size() - kBehindNames.size() + 2;
    if (!line.starts_with("ERROR")) return std::string_view::npos;
    return findHelp(line) == nullptr ? std::string_view::npos : 0;
}

}  // namespace vantelgis::batch
