#pragma once

#include <cstddef>

namespace vantelgis {

// The layout of a dBase III table: a header, a descriptor for each field, a terminator, and records
// that begin with a mark each.

inline constexpr std::size_t kTableHeaderBytes = 32;
inline constexpr std::size_t kRecordCountOffset = 4;  // in the header

inline constexpr std::size_t kDescriptorBytes = 32;
inline constexpr std::size_t kFieldNameBytes = 11;  // of a descriptor; zeros fill them up

inline constexpr char kTerminator = 13;
inline constexpr char kEndMark = 26;  // behind the last record: Ctrl+Z, as texts of the time ended

}  // namespace vantelgis
