#pragma once

#include <cstddef>
#include <string_view>

#include "bare/fields.h"
#include "bare/files.h"
#include "bare/numbers.h"

// What the loops that read a layer have in common: the first attribute, and the lines of a string.
namespace bench {

// The first attribute of a row, without its quotes.
inline std::string_view firstAttribute(const char* row) {
    const char* end = row;
    if (*row == '"') {
        ++row;
        end = static_cast<const char*>(std::memchr(row, '"', kBlock));
    } else {
        while (*end != ',' && *end != '\n' && *end != '\r') ++end;
    }
    return {row, static_cast<std::size_t>(end - row)};
}

inline void begin2dString(Output& archive, std::string_view name) {
    char* p = putText(archive.room(), "string 2d {\r\n  name      \"");
    p = putText(p, name);
    archive.done(putText(p,
                         "\"\r\n  chainage  0\r\n  breakline line\r\n  colour    red\r\n"
                         "  style     1\r\n\r\n  data {\r\n"));
}

inline void putVertex(Output& archive, double x, double y) {
    char* p = putText(archive.room(), "    ");
    p = putFixed<16, 5>(p, x);
    p = putFixed<16, 5>(p, y);
    archive.done(putText(p, "\r\n"));
}

inline void endString(Output& archive) {
    archive.done(putText(archive.room(), "  }\r\n}\r\n\r\n"));
}

}  // namespace bench
