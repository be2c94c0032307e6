#include "gis/dbf/record_split.h"

#include <algorithm>

#include "text/characters.h"
#include "text/free_format.h"

namespace vantelgis {

namespace {

void skipBlanks(std::string_view& rest) {
    rest = withoutLeadingBlanks(rest);
}

// Takes `n*`, saturated at `most`; 1 when the text begins otherwise.
std::size_t takeRepeatCount(std::string_view& rest, std::size_t most) {
    std::size_t digits = 0;
    while (digits < rest.size() && isDigit(rest[digits])) ++digits;
    if (digits == 0 || digits == rest.size() || rest[digits] != '*') return 1;
    std::size_t count = 0;
    for (const char digit : rest.substr(0, digits))
        count = std::min(most, count * 10 + static_cast<std::size_t>(digit - '0'));
    rest.remove_prefix(digits + 1);
    return count;
}

void takeWord(std::string_view& rest, RecordItem& item) {
    std::size_t length = 0;
    while (length < rest.size() && !endsItem(rest[length])) ++length;
    item = rest.substr(0, length);
    rest.remove_prefix(length);
}

// Takes what stands behind a repeat count, which may be nothing, into the first of `items` and
// copies it to the others.
void takeItem(std::string_view& rest, std::span<RecordItem> items) {
    if (rest.empty() || endsItem(rest[0])) return;
    if (isQuote(rest[0])) {
        rest.remove_prefix(takeQuoted(rest, items[0]));
    } else {
        takeWord(rest, items[0]);
    }
    std::fill(items.begin() + 1, items.end(), items[0]);
}

// Takes the next item, empty or not, into as many of `items` as its repeat count says, and its
// separator. Gives the items left, or none at the end of the line; false for a count of 0.
bool takeNext(std::string_view& line, std::span<RecordItem>& items) {
    skipBlanks(line);
    if (line.empty() || line[0] == '/') {
        items = {};
        return true;
    }
    std::size_t count = 1;
    if (line[0] != ',') {
        count = takeRepeatCount(line, items.size());
        if (count == 0) return false;
        takeItem(line, items.first(count));
        skipBlanks(line);
    }
    items = items.subspan(count);
    if (line.starts_with(',')) line.remove_prefix(1);
    return true;
}

bool sameItems(std::span<RecordItem> a, std::span<RecordItem> b) {
    return a.data() == b.data() && a.size() == b.size();
}

bool wasSplitLast(std::string_view rest, std::span<RecordItem> left, const RecordItems& items) {
    return sameItems(left, items.itemsOfRest) && items.rest == rest;
}

// Splits what stands behind the first item into those that are left.
bool splitRest(std::string_view rest, std::span<RecordItem> left, RecordItems& items) {
    if (wasSplitLast(rest, left, items)) return true;
    ++items.nSplits;
    items.rest = rest;
    items.itemsOfRest = left;
    while (!left.empty())
        if (!takeNext(rest, left)) return false;
    return true;
}

}  // namespace

bool dbfSplitRecord(std::string_view line, std::size_t n, RecordItems& items) {
    if (items.firstIsNumber) items.items[0] = withoutLeadingBlanks(items.items[0]);
    items.firstIsNumber = false;
    std::span<RecordItem> left{items.items, n};
    return takeNext(line, left) && splitRest(line, left, items);
}

// The number is a word, so that it is the first item as it stands.
bool dbfTakeNumber(const NumberRow& row, std::size_t n, RecordItems& items) {
    std::string_view rest = row.rest();
    if (!rest.empty()) rest.remove_prefix(1);
    if (!wasSplitLast(rest, std::span(items.items, n).subspan(1), items)) return false;
    items.items[0] = row.number();
    items.firstIsNumber = true;
    return true;
}

}  // namespace vantelgis
