#include "batch/look/reader_stops.h"

#include <algorithm>
#include <string>

#include "batch/files.h"
#include "batch/messages.h"
#include "batch/utf8.h"

namespace vantelgis::batch {

namespace {

struct KnownStop {
    std::string_view begin;
    Find find;
};
constexpr KnownStop kKnownStops[] = {
    {"ERROR 0254", Find::fewRecords},
    {"ERROR 0408", Find::fewRecords},
    {"ERROR 0303", Find::collection},
    {"ERROR 0310", Find::tooManyNodes},
    {"ERROR 0401", Find::tooManyFields},
    {"ERROR 0421", Find::tooManyParts},
    {"ERROR 0422", Find::tooManyParts},
    {"ERROR 0423", Find::shapesWithZ},
    {"ERROR - Source 12da is encoded using UTF-16", Find::utf16},
};

// The name of the shape type at the message's end, such as "PolyLineZ [13]".
std::string_view shapeName(std::string_view message) {
    constexpr std::string_view kBefore = "object type ";
    const std::size_t at = message.find(kBefore);
    return at == std::string_view::npos ? message : message.substr(at + kBefore.size());
}

}  // namespace

void tellReaderStop(std::string_view message, std::int64_t object, std::int32_t limit, Look& look) {
    const std::string_view first = message.substr(0, message.find('\n'));
    const auto* const known =
        std::find_if(std::begin(kKnownStops), std::end(kKnownStops),
                     [first](const KnownStop& stop) { return first.starts_with(stop.begin); });
    if (known == std::end(kKnownStops)) {
        std::string shown(message);
        std::replace(shown.begin(), shown.end(), '\n', ' ');
        look.find(Find::wouldStop, {object > 0 ? "at object " + grouped(object) : "at its start",
                                    readable(inOwnForm(shown))});
        const MessageHelp help = helpForMessage(first);
        if (!help.cure.empty()) look.findings.back().cure = help.cure + ".";
        return;
    }
    switch (known->find) {
        case Find::fewRecords:
            return look.find(Find::fewRecords, {"at least " + counted(object, "object"),
                                                counted(object - 1, "record")});
        case Find::tooManyNodes:
            return look.find(Find::tooManyNodes, {grouped(object), grouped(limit)});
        case Find::shapesWithZ: return look.find(Find::shapesWithZ, {shapeName(first)});
        default: return look.find(known->find, {grouped(object)});
    }
}

}  // namespace vantelgis::batch
