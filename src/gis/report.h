#pragma once

#include <cstdint>
#include <string_view>

#include "run/stop.h"
#include "text/joined.h"
#include "text/text.h"

namespace vantelgis {

/// The lines of the next message of the GIS subsystem; a report sets all four.
extern Text<1000> gisMsg[4];

/// Writes `nBlank` empty lines, gisMsg[0], and each of the other lines that is not blank.
void gisReport(int nBlank);

/// Sets the four lines of gisMsg.
void gisSetMessage(std::string_view line1, std::string_view line2 = {}, std::string_view line3 = {},
                   std::string_view line4 = {});

/// One line of a message, made of texts and integers.
using MessageLine = Joined<1000>;

/// Reports a message of one line, made of texts and integers, and stops the run through EXITS.
template <typename... Parts>
[[noreturn]] void gisStop(const Parts&... parts) {
    gisSetMessage(MessageLine(parts...));
    gisReport(1);
    EXITS();
}

/// Closes the file of a unit, if it is above 0. Stops with `failure` when what was written to it
/// may be lost.
void gisCloseFile(int& unit, std::string_view failure);

/// The node limit of every reader: stops with ERROR 0310 when `requested` is above `limit`. `what`
/// is "polyline or region" with the format's own word before it where it has one.
void gisCheckNodes(std::int64_t requested, std::int32_t limit, std::string_view what);

}  // namespace vantelgis
