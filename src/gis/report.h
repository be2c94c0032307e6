#pragma once

#include <cstdint>
#include <string_view>

#include "gis/object.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "text/joined.h"
#include "text/text.h"

namespace vantelgis {

/// One line of a message, made of texts and integers.
using MessageLine = Joined<Line::capacity()>;

/// Reports a message of one line, made of texts and integers, behind an empty line and stops the
/// run.
template <typename... Parts>
[[noreturn]] void gisStop(const Parts&... parts) {
    stopWith("", MessageLine(parts...));
}

/// Closes the file of a unit, if it is above 0. Stops with `failure` when what was written to it
/// may be lost.
void gisCloseFile(int& unit, std::string_view failure);

/// Makes room for `count` nodes of one object. ERROR 0310 when these are more than it may have;
/// `what` is "polyline or region" with the format's own word before it where it has one.
void gisMakeRoom(ObjectNodes& nodes, std::int64_t count, std::string_view what);

/// What a failed read stops with: no byte was left, or the system reports a failure.
struct ReadFailures {
    std::string_view end;
    std::string_view failed;
};

/// Goes on if a read gave what it should; stops with one of the messages otherwise.
inline void gisRequireRead(ReadResult result, const ReadFailures& messages) {
    if (result != ReadResult::ok)
        gisStop(result == ReadResult::end ? messages.end : messages.failed);
}

}  // namespace vantelgis
