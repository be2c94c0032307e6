#pragma once

#include <cstddef>
#include <string_view>

#include "archive/head.h"
#include "text/text.h"

namespace vantelgis {

// The reader of what stands behind an archive's `model` line. It goes by lines and looks for words
// in them, in any column and any case; what it doesn't know it passes over.

/// The string being read. A conversion owns one and passes it to every call.
struct D12Object {
    Text<100> header;       ///< the last one; blank if it was longer, or data begin in it too
    bool isString = false;  ///< the line looked at last was a string's header
    bool is2d = false;      ///< the header has a word for strings of two numbers a vertex
    bool is3d = false;      ///< the header has a word for strings of three numbers a vertex
    bool isSuper = false;
    bool isPolyline = false;
    bool data2d = false;   ///< the data block ahead has two numbers a vertex
    bool data3d = false;   ///< the data block ahead has three numbers a vertex
    bool hipData = false;  ///< the data block ahead is a "hipdata" block
    bool dataFollows =
        false;            ///< a further data block of the same super string lies directly ahead
    bool closed = false;  ///< the polyline's first vertex is also its last
    float level = kNullElevation;  ///< value of the `z` line
    Text<100> name;     ///< value of the `name` line; a string without one keeps the last name
    Text<20> typeText;  ///< what the header has between "string" and its brace, or "unknown"
};

/// What counts of a line: its text without leading blanks and without the comment behind it.
std::string_view d12CountingPart(std::string_view line);

/// Reads the next line as it stands. False at the end of the file; a read that the system refuses
/// stops the run.
bool d12NextLine(int unit, std::string_view& line);

/// Reads the next line that is neither blank nor a comment, as a view without leading blanks and
/// without the comment behind it. What lies beyond `capacity` doesn't count. At the end of the file
/// false and a blank line. The view is valid until the next read of the unit.
bool d12ReadLine(int unit, std::string_view& line, std::size_t capacity);

/// A data block begins in the line.
bool d12BeginsData(std::string_view line);

/// A string's header: the words "string" and "{", wherever they stand. Its type text begins in
/// column 8, behind the "string " of a line that begins so, and ends in front of the blank before
/// the brace, which is there or costs the text its last character.
bool d12BeginsString(std::string_view line);
std::string_view d12TypeText(std::string_view line);

/// What d12ObjectType does, one line at a time, for readers that look at every line of a string.
///
/// d12BeginObject: false when no string begins in `line` and no further block of one lies ahead.
/// Otherwise each true of d12NextAttribute gives one more line in `line` (the line with which the
/// data begins is the last one); with its false `object` is filled in.
bool d12BeginObject(std::string_view line, D12Object& object);
bool d12NextAttribute(int unit, std::string_view& line, D12Object& object);

/// Looks at a line that d12ReadLine gave. If a string begins there (or if a further block of a
/// super string does), reads on to the line with which its data begins, which is then in `line`,
/// and gives true with `object` filled in. A `name` or `z` line without a value stops the run.
bool d12ObjectType(int unit, std::string_view& line, D12Object& object);

/// Goes on to the next string, or the next block of a super string, as d12ObjectType gives it: also
/// to one whose data the file doesn't reach. False when no further header was found.
bool d12NextObject(int unit, std::string_view& line, D12Object& object);

}  // namespace vantelgis
