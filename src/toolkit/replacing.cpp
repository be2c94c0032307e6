#include "toolkit/lines.h"

#include <algorithm>

#include "text/strings.h"
#include "toolkit/line_pieces.h"

namespace vantelgis {

namespace {

// The first occurrence of `find` in `text` at or behind `from`; `npos` if there is none.
std::size_t findBehind(std::string_view text, std::string_view find, std::size_t from) {
    const std::size_t at = findIgnoringCase(text.substr(from), find);
    return at == std::string_view::npos ? at : from + at;
}

// A work text of the longest kind that is all matches has no more than that many. Replacements that
// keep bringing about new matches end here.
constexpr std::size_t kMostReplacements = kLineCapacity;

void replaceFirst(TextRef out, std::string_view s, std::string_view find, std::string_view by,
                  std::size_t atMost) {
    find = cutLine(find);
    by = cutLine(by);
    if (find.empty() ||
        findIgnoringCase(s.substr(0, kLineCapacity), find) == std::string_view::npos)
        return out.assign(cutLine(s));
    Text<kLineCapacity> work(s);
    const bool behindReplacement = findIgnoringCase(by, find) != std::string_view::npos;
    std::size_t from = 0;
    for (std::size_t n = 0; n < atMost && from <= work.size(); ++n) {
        const std::size_t at = findBehind(work, find, from);
        if (at == std::string_view::npos) break;
        replacePiece(work, at, find.size(), by);
        // A new match can begin in front of the replacement, but not as far as one whole `find`.
        from = behindReplacement ? at + by.size() : at - std::min(at, find.size() - 1);
    }
    out.assign(work);
}

}  // namespace

void REPLACE(TextRef out, std::string_view s, std::string_view find, std::string_view by) {
    replaceFirst(out, s, find, by, 1);
}

void REPLACEALL(TextRef out, std::string_view s, std::string_view find, std::string_view by) {
    replaceFirst(out, s, find, by, kMostReplacements);
}

}  // namespace vantelgis
