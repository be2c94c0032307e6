#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

/// Everything that the program asks of the operating system. Names are given in the user's
/// spelling; only this layer turns them into the system's own form. Nothing here prints.
namespace vantelgis::platform {

/// What happens to a file that is opened.
enum class Access {
    read,       ///< must exist; nothing is written
    replace,    ///< emptied, or created
    keep,       ///< kept as it is, or created; written from its start
    append,     ///< kept, or created; written from its end
    readWrite,  ///< kept, or created; both read and written
};

/// Whether others may have the file open meanwhile. An output that another run is writing isn't
/// opened, nor cut: on POSIX an advisory lock keeps the runs apart, where the file is a
/// regular one and its file system has locks.
enum class Sharing {
    full,
    refuseWriters,  ///< on Windows nobody else may write to it
    ownUnits,       ///< no other run, but further units of this program, which open it with `full`
};

using FileHandle = std::intptr_t;
inline constexpr FileHandle kNoFile = -1;

/// Which file a name or handle stands for, whatever its spelling.
struct FileIdentity {
    std::uint64_t volume = 0;
    std::uint64_t index = 0;
    bool operator==(const FileIdentity&) const = default;
};

/// Two names that are going to be joined: where the system's texts have more than one form both get
/// the same.
void bringToOneForm(Path& a, Path& b);

/// Opens a file; kNoFile when the system refuses. With Access::read a name that doesn't exist under
/// its exact spelling stands for the only file of that folder that differs in case alone.
[[nodiscard]] FileHandle openFile(std::string_view name, Access access, Sharing sharing);
[[nodiscard]] bool closeFile(FileHandle file);
/// A second handle that holds whatever lock the first one has, also when that is closed; kNoFile at
/// a failure.
[[nodiscard]] FileHandle duplicateHandle(FileHandle file);

/// Reads at most `size` bytes. Gives their number, 0 at the end of the file, -1 at a failure.
[[nodiscard]] std::int64_t readFile(FileHandle file, char* out, std::size_t size);
/// Writes all `size` bytes, or gives false.
[[nodiscard]] bool writeFile(FileHandle file, const char* bytes, std::size_t size);
/// Moves to a byte position counted from 0.
[[nodiscard]] bool seekFile(FileHandle file, std::int64_t position);
/// Cuts the file to nothing and moves to its start.
[[nodiscard]] bool emptyFile(FileHandle file);
/// The file's length in bytes, -1 when the system doesn't know it.
[[nodiscard]] std::int64_t fileSize(FileHandle file);

/// A file, not a folder, of exactly this name is there.
[[nodiscard]] bool fileExists(std::string_view name);
/// The same for a name that is to be read: the case of its letters is forgiven as in openFile.
[[nodiscard]] bool inputExists(std::string_view name);
/// False when there is no such file.
[[nodiscard]] bool identify(std::string_view name, FileIdentity& identity);
/// The same for a name that is to be read, found as openFile finds it.
[[nodiscard]] bool identifyInput(std::string_view name, FileIdentity& identity);
[[nodiscard]] bool identify(FileHandle file, FileIdentity& identity);

/// The arguments of main, the program's own path first, as its user named them. False when one is
/// no text.
[[nodiscard]] bool takeArguments(int count, char** values, std::vector<std::string>& arguments);

/// Reads at most `size` bytes of standard input: their number, 0 at its end or at a failure.
[[nodiscard]] std::size_t readStandardInput(char* out, std::size_t size);
/// Writes to standard output. What the system refuses is lost: there is nowhere to report it.
void writeStandardOutput(const char* bytes, std::size_t size);
/// Has the process outlive a write that the system refuses: to a standard output that nobody reads
/// any more, as files that are being written must be finished all the same, or to a file at the
/// largest size that is allowed, as that has to be reported. Once, at the start of a program.
void outliveRefusedWrites();
/// Has the process outlive its terminal as well: nobody is left to be asked, but a result that is
/// being written gets its end. Once, at the start of a program that asks and waits.
void outliveTerminal();
[[nodiscard]] bool standardOutputIsTerminal();
/// The line end of the platform's console.
[[nodiscard]] std::string_view consoleLineEnd();

struct Date {
    int year;   ///< such as 2024
    int month;  ///< 1 to 12
    int day;    ///< 1 to 31
};
[[nodiscard]] Date localDate();

/// Shows a message box of a Windows box type in front of everything and gives the number of the
/// button; nothing on a platform that has none. Lines of the text end in CR.
[[nodiscard]] std::optional<int> messageBox(std::string_view caption, std::string_view text,
                                            unsigned type);

/// Makes a folder and the missing ones above it, or copies files; the source's name may end in
/// ".*", the target is a folder. Gives 0, or another number at a failure, which is no reason to
/// stop: whoever opens a file there meets it again. kNotStarted: the system's command, of a
/// platform that needs one, could not be run.
inline constexpr int kNotStarted = -1;
[[nodiscard]] int makeFolder(std::string_view folder);
[[nodiscard]] int copyFiles(std::string_view source, std::string_view target);

/// Ends the process at once with exit status 0.
[[noreturn]] void exitProcess();

}  // namespace vantelgis::platform
