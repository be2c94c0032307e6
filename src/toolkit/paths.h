#pragma once

#include <string_view>

#include "text/text.h"

namespace vantelgis {

// Taking paths apart and joining them: pure text work under the rules of Windows, whatever the
// platform. A separator is "\" or "/". Paths are cut at 1000 characters, and trailing blanks never
// count. An output may be the input's own string; what does not fit in it is cut. Nothing here
// fails or looks at the disk.

extern "C" {

/// The extension with its dot, in lower case (FILEEXT) or with its case kept (FILEEXTKC). Blank if
/// the last dot, if any, lies in front of the last separator.
void FILEEXT(TextRef out, std::string_view path);
void FILEEXTKC(TextRef out, std::string_view path);

/// The end of the base name from its last "_" on, in lower case; blank if it has none.
void FILE___EXT(TextRef out, std::string_view path);

/// The base name: no folder, no extension. A name that begins with its only dot is kept whole
/// behind a separator, and is blank without one.
void FILENAME(TextRef out, std::string_view path);

/// The name with its extension, no folder.
void FILENAMEEXT(TextRef out, std::string_view path);

/// The base name up to its last "_", without it.
void FILENAMENO_(TextRef out, std::string_view path);

/// Folder and base name, no extension.
void FILENAMEPATH(TextRef out, std::string_view path);

/// Folder and base name up to its last "_", without it. A base name that begins with its only "_"
/// is kept whole where no folder stands before it.
void FILENAMEPATHNO_(TextRef out, std::string_view path);

/// The folder with its closing separator; blank if there is none.
void FILEFOLDERPATH(TextRef out, std::string_view path);

/// `name` joined onto `folder` and passed through REMOVEDOTDOT. A name that holds ":" or "\\" is
/// absolute and stays alone; "." if both are blank.
void ADDFOLDER(TextRef out, std::string_view folder, std::string_view name);

/// `path` without leading blanks, with "\..\" and "\.\" worked out and doubled "\" removed. One
/// that begins in column 1 or 2 is a network prefix: it stays, and so do all behind it. Knows "\"
/// only, never "/".
void REMOVEDOTDOT(TextRef out, std::string_view path);

/// Removes leading blanks and doubled separators, in `path` as well as in `out`. A doubled
/// separator in column 1 stays, and hides further ones of its kind.
void CLEANPATH(TextRef out, TextRef path);

}  // extern "C"

}  // namespace vantelgis
