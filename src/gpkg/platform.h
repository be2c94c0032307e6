#pragma once

#include <string>
#include <string_view>

/// What `vantelgis-gpkg` asks of the operating system beyond files that are read or written:
/// results that appear whole or not at all. Names are in the user's spelling. Nothing here prints.
namespace vantelgis::gpkg::platform {

/// A file under construction, locked so that a second run doesn't write it too. Its name stays the
/// same from run to run: what a killed run left is written over.
struct LockedFile {
    long long handle = -1;
};
enum class Locking { done, heldByAnother, refused };

/// Makes an empty file, or empties the one that is there, once it is locked. `heldByAnother`: a run
/// that is still going has it, and it stays as it is. An existing `modelFile` gives its access
/// rights. A run that a signal stops removes the file.
[[nodiscard]] Locking createLocked(LockedFile& file, std::string_view name,
                                   std::string_view modelFile);
/// Has the bytes reach the disk and gives the file the name `target`, whatever has that name. The
/// lock goes with it. False when the system refuses; the file is then still `name`.
[[nodiscard]] bool publishLocked(LockedFile& file, std::string_view name, std::string_view target);
/// Unlocks and removes a file that came to nothing.
void discardLocked(LockedFile& file, std::string_view name);

/// The file that a name leads to when it is a link, else the name itself.
[[nodiscard]] std::string linkedName(std::string_view name);
[[nodiscard]] bool isRegularFile(std::string_view name);
[[nodiscard]] bool somethingExists(std::string_view name);
/// Another program has the file open, or holds a lock on it, as far as the system can tell.
[[nodiscard]] bool openElsewhere(std::string_view name);

/// False when the system refuses, or when there is no such file.
bool removeFile(std::string_view name);

/// An argument of the command line in UTF-8, as everything is spelled from then on.
[[nodiscard]] std::string utf8Argument(std::string_view argument);
/// The spelling that SQLite takes for the file.
[[nodiscard]] std::string databaseName(std::string_view name);

/// What the system said of the last refusal, such as "No space left on device".
[[nodiscard]] std::string lastRefusal();

/// Writes to standard error; what the system refuses is lost.
void writeStandardError(std::string_view text);

}  // namespace vantelgis::gpkg::platform
