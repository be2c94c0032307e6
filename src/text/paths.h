#pragma once

#include <string_view>

#include "text/text.h"

namespace vantelgis {

// Taking paths apart and joining them: pure text work under the rules of Windows, whatever the
// platform. A separator is "\" or "/". Trailing blanks never count. What is given back as a view
// lies in the argument and is empty when there is none; nothing is cut but at the capacity of a
// Path.

/// The extension with its dot, in its own case; empty if the last dot, if any, lies in front of the
/// last separator.
std::string_view extensionOf(std::string_view path);

/// The extension is `extension`, given with its dot, without regard to case.
bool hasExtension(std::string_view path, std::string_view extension);

/// The name without folder and extension. A name that begins with its only dot is kept whole behind
/// a separator, and is empty without one.
std::string_view baseNameOf(std::string_view path);

/// The name with its extension, without folder.
std::string_view fileNameOf(std::string_view path);

/// Folder and base name. A path that is nothing but an extension stays whole.
std::string_view withoutExtension(std::string_view path);

/// The folder with its closing separator.
std::string_view folderOf(std::string_view path);

/// `name` joined onto `folder`, then resolved. A name that holds ":" or "\\" is absolute and stays
/// alone; "." if both are blank.
Path joinedPath(std::string_view folder, std::string_view name);

/// `path` without leading blanks, with "\..\" and "\.\" worked out and doubled "\" removed. One
/// that begins in column 1 or 2 is a network prefix: it stays, and so do all behind it. Knows "\"
/// only, never "/".
Path resolvedPath(std::string_view path);

/// Removes leading blanks and doubled separators of `path` in place. A doubled separator in column
/// 1 stays, and hides further ones of its kind.
void cleanPath(TextRef path);

/// A path turned into one that can stand below another folder: "c:\data" becomes "C Drive\data",
/// "\\srv\data" becomes "URL\srv\data"; a relative one stays.
Path driveAsFolder(std::string_view path);

}  // namespace vantelgis
