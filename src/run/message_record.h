#pragma once

#include <cstdint>

#include "text/text.h"

namespace vantelgis {

enum class MessageKind : std::int32_t {
    plain = 0,
    error = 1,
    warning = 2,
    check = 3,
    unstable = 4
};

/// What both coordinates of a message are that belongs to no place.
inline constexpr double kNoLocation = -99999.0;

/// The message record: the lines of the next message, and what is known of those reported so far.
struct DMessages {
    double x = kNoLocation;  ///< a location that belongs to the message, for callers that know one
    double y = kNoLocation;
    bool oneLine = false;  ///< all lines of the message go on one console line
    Text<10000> text1;
    Text<10000> text2;
    Text<10000> text3;
    std::int32_t errorCount = 0;
    std::int32_t warningCount = 0;
    std::int32_t checkCount = 0;
    std::int32_t messageNumber = 0;  ///< the number found in the last message, 0 if none
    MessageKind messageKind = MessageKind::plain;  ///< what the last message was
};
extern "C" DMessages DMESSAGES;

}  // namespace vantelgis
