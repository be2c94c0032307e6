#pragma once

#include <cstdint>
#include <string_view>

#include "run/stop.h"
#include "text/joined.h"
#include "text/text.h"

namespace vantelgis {

/// One line of a message, made of texts and integers.
using MessageLine = Joined<1000>;

/// Reports a message of one line, made of texts and integers, behind an empty line and stops the
/// run.
template <typename... Parts>
[[noreturn]] void gisStop(const Parts&... parts) {
    stopWith("", MessageLine(parts...));
}

/// Closes the file of a unit, if it is above 0. Stops with `failure` when what was written to it
/// may be lost.
void gisCloseFile(int& unit, std::string_view failure);

/// The node limit of every reader: stops with ERROR 0310 when `requested` is above `limit`. `what`
/// is "polyline or region" with the format's own word before it where it has one.
void gisCheckNodes(std::int64_t requested, std::int32_t limit, std::string_view what);

}  // namespace vantelgis
