#include "batch/look/attributes.h"

#include <cstdio>

#include "batch/files.h"
#include "batch/utf8.h"
#include "text/free_format.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kLongestName = 100;  // of a string in an archive
constexpr std::size_t kMostShown = 40;

std::string_view wishedFor(AttributeCheck::Wish wish) {
    constexpr std::string_view kNames[] = {"attribute", "name", "elevation", "value",
                                           "value or angle"};
    return kNames[static_cast<std::size_t>(wish)];
}

// Numbers between these have room in the columns of the result.
struct Range {
    float least;
    float most;
};
constexpr Range kElevations = {-1e6F, 1e7F};
constexpr Range kValues = {-1e4F, 1e5F};
constexpr Range kAngles = {-99.995F, 999.995F};

bool isWithin(const Range& range, float number) {
    return number > range.least && number < range.most;
}

std::string withArticle(std::string_view name) {
    const bool vowel = std::string_view("aeiou").find(name.front()) != std::string_view::npos;
    return std::string(vowel ? "an " : "a ").append(name);
}

// What stands behind the item that was taken, up to the next: of a text with a quote in it, which
// ended the item, all the rest.
bool wasEndedByQuote(std::string_view record, const FreeFormat& list) {
    const std::string_view behind = list.rest().substr(0, list.rest().find(','));
    return record.starts_with('"') && behind.find('"') != std::string_view::npos;
}

}  // namespace

void AttributeCheck::add(std::int64_t object, std::string_view record) {
    if (wish_ == Wish::none) return;
    if (wish_ == Wish::name)
        addName(object, record);
    else
        addNumbers(object, record);
}

void AttributeCheck::addName(std::int64_t object, std::string_view record) {
    Text<1000> name;
    FreeFormat list{record};
    const Item item = takeWord(list, name);
    if (item == Item::end && firstBlank_ == 0) firstBlank_ = object;
    if (item == Item::unchanged) ++kept_;
    if (name.size() > kLongestName) ++longNames_;
    if (name.view().find('"') != std::string_view::npos || wasEndedByQuote(record, list))
        ++quotedNames_;
}

void AttributeCheck::addNumbers(std::int64_t object, std::string_view record) {
    FreeFormat list{record};
    for (int i = 0; i < (wish_ == Wish::valueAndAngle ? 2 : 1); ++i) {
        float number = 0;
        const Item item = takeReal(list, number);
        if (item == Item::unchanged) ++kept_;
        if (item == Item::end && firstBlank_ == 0) firstBlank_ = object;
        const Range& range = wish_ == Wish::elevation ? kElevations : i == 0 ? kValues : kAngles;
        if (item == Item::value && !isWithin(range, number)) addLongNumber(object, number);
        if (taken(item)) continue;
        if (item == Item::bad) {
            if (notNumbers_++ == 0) {
                firstNotNumber_ = object;
                notNumber_ = shortened(readable(inOwnForm(list.rest())), kMostShown);
            }
        }
        return;
    }
}

void AttributeCheck::addLongNumber(std::int64_t object, float number) {
    if (longNumbers_++ > 0) return;
    firstLongNumber_ = object;
    longNumber_ = number;
}

void AttributeCheck::tell(Look& look) const {
    const std::string name(wishedFor(wish_));
    if (firstBlank_ > 0) look.find(Find::blankRecord, {grouped(firstBlank_), withArticle(name)});
    if (notNumbers_ > 0) {
        look.find(Find::notANumber, {counted(notNumbers_, "object"), withArticle(name),
                                     grouped(firstNotNumber_), notNumber_});
    }
    if (longNumbers_ > 0) {
        char text[32];
        std::snprintf(text, sizeof text, "%.10g", static_cast<double>(longNumber_));
        look.find(Find::longNumber, {counted(longNumbers_, "object"), withArticle(name),
                                     grouped(firstLongNumber_), text});
    }
    const bool becomesZero = wish_ == Wish::value || wish_ == Wish::valueAndAngle;
    if (kept_ > 0)
        look.find(becomesZero ? Find::emptyValue : Find::keptValue,
                  {counted(kept_, "object"), withArticle(name)});
    if (longNames_ > 0) look.find(Find::longName, {counted(longNames_, "name")});
    if (quotedNames_ > 0) look.find(Find::quotedName, {counted(quotedNames_, "name")});
}

}  // namespace vantelgis::batch
