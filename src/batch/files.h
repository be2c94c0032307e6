#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "run/platform.h"

/// What the batch program asks of the file system beyond reading. Names are bytes on POSIX and
/// UTF-8 on Windows. A routine that fails gives false (or nothing) and leaves the system's words
/// for it in `lastFailure`. Nothing here prints.
namespace vantelgis::batch {

struct FileStatus {
    enum class Kind { missing, file, folder, other };
    Kind kind = Kind::missing;
    std::int64_t size = 0;     ///< bytes
    std::int64_t changed = 0;  ///< nanoseconds since 1970

    [[nodiscard]] bool isFile() const { return kind == Kind::file; }
    [[nodiscard]] bool isFolder() const { return kind == Kind::folder; }
    [[nodiscard]] bool exists() const { return kind != Kind::missing; }
};

/// What a name stands for, behind all symbolic links.
FileStatus statusOf(const std::string& path);

/// The name that a symbolic link leads to in the end, as an absolute one; `path` itself if it is no
/// link.
std::string behindLinks(const std::string& path);

struct FolderEntry {
    std::string name;
    bool isFolder = false;  ///< itself, not through a link
    bool isLink = false;
};
/// Gives each entry of a folder but "." and ".." to `take`, in no order.
bool visitFolder(const std::string& folder, const std::function<void(FolderEntry&&)>& take);
/// All of them in the order of their bytes.
bool listFolder(const std::string& folder, std::vector<FolderEntry>& entries);

/// One folder; its parent must be there. It is no failure that it exists.
bool makeFolder(const std::string& path);
/// The folder and those above it.
bool makeFolders(const std::string& path);
bool removeFile(const std::string& path);
bool removeEmptyFolder(const std::string& path);
/// All that is in a folder, and the folder itself. Links are removed, not followed.
bool removeTree(const std::string& path);

/// Gives a file another name on the same file system; what had that name is replaced.
bool renameFile(const std::string& from, const std::string& to);
/// A second name for a file, for as long as it takes to replace it.
bool linkSecondName(const std::string& file, const std::string& name);
/// A name under which a file can be read: a symbolic link; on Windows a hard link, or a copy where
/// that can't be.
bool linkForReading(const std::string& file, const std::string& name);
/// Is `name` a symbolic link that says `file`, word for word?
bool isLinkTo(const std::string& name, const std::string& file);
/// Gives `file` the permissions of `model`.
bool copyPermissions(const std::string& model, const std::string& file);

/// Hands a file's bytes, or a folder's entries, to the disk itself.
bool syncFile(const std::string& path);
bool syncFolder(const std::string& path);

/// A whole small file. Reading gives nothing when it has more than `most` bytes.
bool writeWholeFile(const std::string& path, std::string_view bytes);
std::optional<std::string> readWholeFile(const std::string& path, std::size_t most);

/// Opens a file to read it, exactly as it is named; vantelgis::platform reads and closes it.
vantelgis::platform::FileHandle openInput(const std::string& path);
/// Makes an empty file, or empties one, open for this program to read and for others to append to;
/// vantelgis::platform closes it.
vantelgis::platform::FileHandle openConsoleFile(const std::string& path);
/// A nameless file for reading and writing that is gone with the process.
vantelgis::platform::FileHandle openNamelessFile();

/// Bytes that are free for this user where `folder` lies, -1 when the system can't say.
std::int64_t freeSpace(const std::string& folder);

/// The absolute form of a name with links in its folder resolved; the last part stays as it is.
/// Empty when the folder isn't there.
std::string absoluteName(const std::string& path);
bool changeFolder(const std::string& folder);
/// Leaves a folder that is to be removed.
void leaveFolder();
/// The absolute form of a name that need not be there.
std::string fullName(const std::string& path);
/// May a file be made in the folder?
bool isWritable(const std::string& folder);

/// A file that its holder keeps locked for as long as it lives, whatever ends it.
class LockFile {
  public:
    LockFile() = default;
    ~LockFile() { release(); }
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    /// Makes the file with `text` in it and locks it. False when it is there already.
    bool create(const std::string& path, std::string_view text);
    /// Locks a file that somebody made; false while he lives, or when it is gone.
    bool take(const std::string& path);
    /// Removes the file and unlocks it.
    void removeAndRelease();
    void release();

  private:
    std::string path_;
    vantelgis::platform::FileHandle file_ = vantelgis::platform::kNoFile;
};

/// The words of the system for what failed last.
std::string lastFailure();

/// Path texts. A separator is "/", on Windows "\" as well.
bool isPathSeparator(char c);
char pathSeparator();
/// Whether the file system takes names that differ in case for the same.
bool namesIgnoreCase();
/// `name` in `folder`; `name` alone if the folder is empty.
std::string inFolder(std::string_view folder, std::string_view name);
/// The folder without a separator at its end ("." if there is none), and the name behind it.
std::string folderPart(std::string_view path);
std::string_view namePart(std::string_view path);
/// Name without extension, and extension with its dot. A name's first dot begins no extension.
std::string_view stemPart(std::string_view name);
std::string_view extensionPart(std::string_view name);
/// What a file or the converter's console says, as this program keeps its own texts: UTF-8 on
/// Windows, where other bytes are of the ANSI page; on POSIX any bytes.
std::string inOwnForm(std::string_view text);
/// A name as a key that is equal for all names that the file system takes for the same.
std::string nameKey(std::string_view name);

}  // namespace vantelgis::batch
