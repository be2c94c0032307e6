#pragma once

#include <string_view>

#include "text/limits.h"
#include "text/text.h"

namespace vantelgis {

/// An archive being read and what its head says of the data.
struct Archive {
    int unit = 0;
    bool nullKeyword = false;          ///< a missing elevation is written as the word `null`
    bool hexFloats = false;            ///< numbers are written as hexadecimal floats
    float nullValue = kNullElevation;  ///< the elevation that stands for none

    /// An elevation within a thousandth of the null value is none.
    [[nodiscard]] bool hasElevation(float z) const;
};

/// Opens an archive, reads the comment lines of its head, shows what they say on the console, and
/// goes back to the start of the file.
void d12OpenArchive(Archive& archive, std::string_view path);

/// Says that the search for objects begins and runs d12FindData.
bool d12BeginData(Archive& archive);

/// True when the file begins with the UTF-8 byte order mark; the mark of UTF-16 stops the run,
/// and so does a read that fails. The file is opened a second time for the test, the position of
/// `unit` stays.
bool d12CheckEncoding(int unit);

/// The value of a keyword in the comment lines at the top of the file, blank when it isn't there
/// (what stands in double quotes comes without them). `unit` is left wherever the search stopped.
Text<100> d12HeaderValue(int unit, std::string_view keyword);

Text<100> d12ArchiveVersion(int unit);
bool d12NullKeyword(int unit);
bool d12HexFloats(int unit);

/// Moves behind the `model` line, or to the end of the file if there is none, and takes the null
/// elevation on the way. False, with a warning that waits for Enter, when a line can't be read.
bool d12FindData(int unit, float& nullValue, bool nullKeyword);

}  // namespace vantelgis
