#include "run/open_modes.h"

#include "text/text.h"

namespace vantelgis {

namespace {

using enum platform::Access;
using enum Content;
using enum Manner;
constexpr auto kShared = platform::Sharing::full;
constexpr auto kAlone = platform::Sharing::refuseWriters;
constexpr auto kOwnUnits = platform::Sharing::ownUnits;

constexpr OpenMode kModes[] = {
    {"I ", true, read, kShared, textLines},
    {"UI", true, read, kShared, unformattedRecords},
    {"BI", true, read, kShared, littleEndianBytes},
    {"BE", true, read, kShared, bigEndianBytes},
    {"O ", false, replace, kAlone, textLines, inBlocks},
    {"F ", false, replace, kAlone, textLines, inBlocks},
    {"A ", false, append, kShared, textLines, givesUp},
    {"S ", false, keep, kShared, textLines},
    {"UO", false, replace, kAlone, unformattedRecords},
    {"BO", false, replace, kAlone, littleEndianBytes},
    {"BN", false, replace, kAlone, bigEndianBytes},
    {"AB", false, append, kShared, littleEndianBytes},
    {"SB", false, keep, kOwnUnits, littleEndianBytes},
    {"SE", false, keep, kOwnUnits, bigEndianBytes},
    {"IO", false, readWrite, kShared, textLines, silent},
};

}  // namespace

const OpenMode* findOpenMode(std::string_view code) {
    for (const OpenMode& mode : kModes)
        if (withoutTrailingBlanks(mode.code) == withoutTrailingBlanks(code)) return &mode;
    return nullptr;
}

}  // namespace vantelgis
