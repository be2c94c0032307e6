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

/// The message record: the lines of the next message, and what is known of those reported so far.
struct DMessages {
    double x = -99999.0;  ///< a location that belongs to the message, for callers that know one
    double y = -99999.0;
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

/// Reports the message in `text1` to `text3`: classifies and counts it by its first word, writes
/// `nBlank` empty lines and then its lines (none of it if `nBlank` is negative), and clears them.
/// Never stops the program; a caller that wants to stop calls EXITS next.
extern "C" void DMESSAGE(std::int32_t nBlank);

}  // namespace vantelgis
