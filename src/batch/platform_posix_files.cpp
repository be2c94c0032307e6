#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "batch/files.h"

namespace vantelgis::batch {

namespace {

using vantelgis::platform::FileHandle;
using vantelgis::platform::kNoFile;

constexpr mode_t kFileMode = 0666;
constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

int descriptor(FileHandle file) {
    return static_cast<int>(file);
}

// Closes it in any case, and says whether all went well until then.
bool closeDescriptor(int file, bool wellSoFar) {
    const int reason = errno;
    const bool closed = close(file) == 0;
    if (!wellSoFar) errno = reason;
    return wellSoFar && closed;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool syncPath(const std::string& path, int flags) {
    const int file = open(path.c_str(), flags | O_CLOEXEC);
    return file >= 0 && closeDescriptor(file, fsync(file) == 0);
}

bool isFolderItself(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string resolved(const std::string& path) {
    char* const name = realpath(path.c_str(), nullptr);
    if (name == nullptr) return {};
    std::string result(name);
    std::free(name);
    return result;
}

}  // namespace

FileStatus statusOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return {};
    FileStatus result;
    result.kind = S_ISREG(status.st_mode)   ? FileStatus::Kind::file
                  : S_ISDIR(status.st_mode) ? FileStatus::Kind::folder
                                            : FileStatus::Kind::other;
    result.size = status.st_size;
    result.changed = status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec;
    return result;
}

std::string behindLinks(const std::string& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return path;
    const std::string target = resolved(path);
    return target.empty() ? path : target;
}

bool visitFolder(const std::string& folder, const std::function<void(FolderEntry&&)>& take) {
    DIR* const opened = opendir(folder.c_str());
    if (opened == nullptr) return false;
    while (const dirent* const entry = readdir(opened)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        FolderEntry found{std::string(name), entry->d_type == DT_DIR, entry->d_type == DT_LNK};
        if (entry->d_type == DT_UNKNOWN) found.isFolder = isFolderItself(inFolder(folder, name));
        take(std::move(found));
    }
    closedir(opened);
    return true;
}

bool makeFolder(const std::string& path) {
    if (mkdir(path.c_str(), 0777) == 0) return true;
    if (errno != EEXIST) return false;
    if (statusOf(path).isFolder()) return true;
    errno = ENOTDIR;
    return false;
}

bool removeFile(const std::string& path) {
    return unlink(path.c_str()) == 0;
}

bool removeEmptyFolder(const std::string& path) {
    return rmdir(path.c_str()) == 0;
}

bool renameFile(const std::string& from, const std::string& to) {
    return rename(from.c_str(), to.c_str()) == 0;
}

bool linkSecondName(const std::string& file, const std::string& name) {
    return link(file.c_str(), name.c_str()) == 0;
}

bool linkForReading(const std::string& file, const std::string& name) {
    return symlink(file.c_str(), name.c_str()) == 0;
}

bool isLinkTo(const std::string& name, const std::string& file) {
    std::string said(file.size() + 1, '\0');
    const ssize_t length = readlink(name.c_str(), said.data(), said.size());
    said.resize(static_cast<std::size_t>(length > 0 ? length : 0));
    return said == file;
}

bool copyPermissions(const std::string& model, const std::string& file) {
    struct stat status {};
    return stat(model.c_str(), &status) == 0 &&
           chmod(file.c_str(), status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO)) == 0;
}

bool syncFile(const std::string& path) {
    return syncPath(path, O_RDONLY);
}

bool syncFolder(const std::string& path) {
    return syncPath(path, O_RDONLY | O_DIRECTORY);
}

bool writeWholeFile(const std::string& path, std::string_view bytes) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kFileMode);
    return file >= 0 && closeDescriptor(file, writeAll(file, bytes));
}

FileHandle openInput(const std::string& path) {
    return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // no pipe may hold it up
}

FileHandle openConsoleFile(const std::string& path) {
    return open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, kFileMode);
}

FileHandle openNamelessFile() {
    const char* const folder = std::getenv("TMPDIR");
    std::string name = inFolder(folder == nullptr ? "/tmp" : folder, "vantelgis-batch-XXXXXX");
    const int file = mkostemp(name.data(), O_CLOEXEC);
    if (file < 0) return memfd_create("vantelgis-batch", MFD_CLOEXEC);
    unlink(name.c_str());
    return file;
}

std::int64_t freeSpace(const std::string& folder) {
    struct statvfs space {};
    if (statvfs(folder.c_str(), &space) != 0) return -1;
    return static_cast<std::int64_t>(space.f_bavail) * static_cast<std::int64_t>(space.f_frsize);
}

std::string absoluteName(const std::string& path) {
    const std::string_view name = namePart(path);
    if (name.empty() || name == "." || name == "..") return resolved(path);
    const std::string folder = resolved(folderPart(path));
    return folder.empty() ? folder : inFolder(folder, name);
}

bool changeFolder(const std::string& folder) {
    return chdir(folder.c_str()) == 0;
}

void leaveFolder() {}  // nobody minds

bool isWritable(const std::string& folder) {
    return access(folder.c_str(), W_OK | X_OK) == 0;
}

bool LockFile::create(const std::string& path, std::string_view text) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kFileMode);
    if (file < 0) return false;
    path_ = path;
    file_ = file;
    // Whoever cleans up may have met the file before it was locked, and have removed it.
    const bool own = flock(file, LOCK_EX | LOCK_NB) == 0 && statusOf(path).isFile();
    if (own && writeAll(file, text)) return true;
    removeAndRelease();
    return false;
}

bool LockFile::take(const std::string& path) {
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0) return false;
    path_ = path;
    file_ = file;
    if (flock(file, LOCK_EX | LOCK_NB) == 0 && statusOf(path).isFile()) return true;
    release();
    return false;
}

void LockFile::removeAndRelease() {
    removeFile(path_);
    release();
}

void LockFile::release() {
    if (file_ != kNoFile) close(descriptor(file_));
    file_ = kNoFile;
}

std::string lastFailure() {
    return std::strerror(errno);
}

bool isPathSeparator(char c) {
    return c == '/';
}

char pathSeparator() {
    return '/';
}

bool namesIgnoreCase() {
    return false;
}

std::string inOwnForm(std::string_view text) {
    return std::string(text);
}

std::string nameKey(std::string_view name) {
    return std::string(name);
}

}  // namespace vantelgis::batch
