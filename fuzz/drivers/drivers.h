#pragma once

#include <span>
#include <string_view>

namespace vantelgis::fuzz {

/// Makes runs of the whole program out of some bytes. What is wrong with the program ends the
/// process: a sanitizer's report, an exception, a result that is not what it has to be.
struct Driver {
    std::string_view name;
    void (*run)(std::string_view bytes);
};

/// All there are.
std::span<const Driver> drivers();

/// Null if there is none of that name.
const Driver* findDriver(std::string_view name);

/// The bytes are a layer or an archive as they stand: a byte that chooses the conversion, the
/// first file, a divider, the second file.
void runMif(std::string_view bytes);
void runShp(std::string_view bytes);
void runArchive(std::string_view bytes);

/// One argument on each line; behind the divider what is typed.
void runCommand(std::string_view bytes);

/// The same inputs as those of the first three. Some of a file's bytes are shifted over the end of
/// the buffer through which it is read; where they stand makes no difference.
void runBoundaries(std::string_view bytes);

/// The bytes choose a sound layer or archive, and a way to convert it there and back. The files
/// that come out have to be, byte for byte, those that follow from the values that went in.
void runRoundTrip(std::string_view bytes);

/// A byte that chooses what the others are: the geometry of a feature, a whole package, the names,
/// values and geometries of a package that is sound otherwise, or an archive. Archives that come
/// out have to be taken by the reader, and to keep what they say on a further way there and back.
void runGpkg(std::string_view bytes);

}  // namespace vantelgis::fuzz
