#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "gpkg/platform.h"
#include "run/platform_posix_names.h"

namespace vantelgis::gpkg::platform {

namespace {

using vantelgis::platform::systemName;

int descriptor(const LockedFile& file) {
    return static_cast<int>(file.handle);
}

// The name may have been given to another file between opening and locking.
bool stillNamed(int file, const std::string& name) {
    struct stat opened {};
    struct stat named {};
    return fstat(file, &opened) == 0 && stat(name.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// The handler may use nothing but what is in place.
char unfinished[PATH_MAX];

void removeUnfinished(int number) {
    unlink(unfinished);
    std::signal(number, SIG_DFL);
    raise(number);
}

// An empty name: a signal ends the run as it always does. What was ignored from the start on, as
// under nohup, stays so.
void removeWhenStopped(const std::string& name) {
    const bool removes = !name.empty() && name.size() < sizeof unfinished;
    if (removes) std::memcpy(unfinished, name.c_str(), name.size() + 1);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        if (std::signal(number, removes ? removeUnfinished : SIG_DFL) == SIG_IGN)
            std::signal(number, SIG_IGN);
}

void copyRights(int file, std::string_view modelFile) {
    struct stat status {};
    if (stat(systemName(modelFile).c_str(), &status) == 0)
        static_cast<void>(fchmod(file, status.st_mode & 07777));
}

// SQLite's locks lie on these bytes of a database, whatever its size.
bool databaseLocked(int file) {
    struct flock wanted {};
    wanted.l_type = F_WRLCK;
    wanted.l_whence = SEEK_SET;
    wanted.l_start = 0x40000000;
    wanted.l_len = 512;
    return fcntl(file, F_GETLK, &wanted) == 0 && wanted.l_type != F_UNLCK;
}

// A lease is given only on a file that nobody else has open. File systems without leases, and
// other people's files, give another refusal, which says nothing.
bool openByOthers(int file) {
#ifdef F_SETLEASE
    if (fcntl(file, F_SETLEASE, F_WRLCK) == 0) {
        static_cast<void>(fcntl(file, F_SETLEASE, F_UNLCK));
        return false;
    }
    return errno == EAGAIN;
#else
    return false && file >= 0;
#endif
}

// So that the new name is on the disk as well; a file system that can't is no failure.
void syncFolderOf(const std::string& path) {
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    const int opened = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (opened < 0) return;
    static_cast<void>(fsync(opened));
    close(opened);
}

}  // namespace

Locking createLocked(LockedFile& file, std::string_view name, std::string_view modelFile) {
    const std::string path = systemName(name);
    for (;;) {
        const int opened = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (opened < 0) return Locking::refused;
        if (flock(opened, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            close(opened);
            return Locking::heldByAnother;
        }
        if (stillNamed(opened, path)) {
            file.handle = opened;
            break;
        }
        close(opened);
    }
    if (ftruncate(descriptor(file), 0) != 0) {
        const int reason = errno;
        close(descriptor(file));
        errno = reason;
        return Locking::refused;
    }
    copyRights(descriptor(file), modelFile);
    removeWhenStopped(path);
    return Locking::done;
}

bool publishLocked(LockedFile& file, std::string_view name, std::string_view target) {
    if (fsync(descriptor(file)) != 0) return false;
    if (rename(systemName(name).c_str(), systemName(target).c_str()) != 0) return false;
    removeWhenStopped({});
    close(descriptor(file));
    file.handle = -1;
    syncFolderOf(systemName(target));
    return true;
}

void discardLocked(LockedFile& file, std::string_view name) {
    unlink(systemName(name).c_str());
    removeWhenStopped({});
    close(descriptor(file));
    file.handle = -1;
}

std::string linkedName(std::string_view name) {
    std::string path = systemName(name);
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return path;
    char* const resolved = realpath(path.c_str(), nullptr);
    if (resolved == nullptr) return path;
    path = resolved;
    std::free(resolved);
    return path;
}

bool isRegularFile(std::string_view name) {
    struct stat status {};
    return stat(systemName(name).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool somethingExists(std::string_view name) {
    struct stat status {};
    return lstat(systemName(name).c_str(), &status) == 0;
}

bool openElsewhere(std::string_view name) {
    const int file = open(systemName(name).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool elsewhere = databaseLocked(file) || openByOthers(file);
    close(file);
    return elsewhere;
}

bool removeFile(std::string_view name) {
    return unlink(systemName(name).c_str()) == 0;
}

std::string utf8Argument(std::string_view argument) {
    return std::string(argument);
}

std::string databaseName(std::string_view name) {
    return systemName(name);
}

std::string lastRefusal() {
    return std::strerror(errno);
}

void writeStandardError(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace vantelgis::gpkg::platform
