#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <string>

#include "run/platform.h"
#include "run/platform_posix_names.h"

namespace vantelgis::platform {

namespace {

// A file that is to be replaced is cut once it is known that nobody else is writing it.
int openFlags(Access access) {
    switch (access) {
        case Access::read: return O_RDONLY;
        case Access::replace:
        case Access::keep: return O_WRONLY | O_CREAT;
        case Access::append: return O_WRONLY | O_CREAT | O_APPEND;
        case Access::readWrite: return O_RDWR | O_CREAT;
    }
    return O_RDONLY;
}

int descriptor(FileHandle file) {
    return static_cast<int>(file);
}

FileIdentity identityOf(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

bool writeAll(int file, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = write(file, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

ssize_t readOnce(int file, char* out, std::size_t size) {
    ssize_t count;
    do {
        count = read(file, out, size);
    } while (count < 0 && errno == EINTR);
    return count;
}

// A signal that the program takes no notice of can interrupt an open on a slow file system.
int openRetried(const std::string& path, int flags) {
    int file;
    do {
        file = open(path.c_str(), flags | O_CLOEXEC, 0666);
    } while (file < 0 && errno == EINTR);
    return file;
}

bool isRegular(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

// Only a lock that another program holds counts; where there are no locks the file goes without.
bool lockedByAnother(int file) {
    int result;
    do {
        result = flock(file, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result != 0 && errno == EWOULDBLOCK;
}

// What has to be done to a file that was opened for output; false when it can't be had.
bool prepareOutput(int file, Access access, Sharing sharing) {
    if (!isRegular(file)) return true;
    if (sharing != Sharing::full && lockedByAnother(file)) return false;
    return access != Access::replace || ftruncate(file, 0) == 0;
}

// Where the program was started with a standard stream closed, the first file gets that stream's
// number, and what is meant for the console would land in the file.
int behindStandardStreams(int file) {
    if (file < 0 || file > STDERR_FILENO) return file;
    const int moved = fcntl(file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(file);
    return moved;
}

}  // namespace

void bringToOneForm(Path& /*a*/, Path& /*b*/) {}

FileHandle openFile(std::string_view name, Access access, Sharing sharing) {
    const std::string path = access == Access::read ? inputName(name) : systemName(name);
    const int file = behindStandardStreams(openRetried(path, openFlags(access)));
    if (file < 0 || access == Access::read || prepareOutput(file, access, sharing)) return file;
    close(file);
    return kNoFile;
}

FileHandle duplicateHandle(FileHandle file) {
    return fcntl(descriptor(file), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}

bool closeFile(FileHandle file) {
    return close(descriptor(file)) == 0;
}

std::int64_t readFile(FileHandle file, char* out, std::size_t size) {
    return readOnce(descriptor(file), out, size);
}

bool writeFile(FileHandle file, const char* bytes, std::size_t size) {
    return writeAll(descriptor(file), bytes, size);
}

bool seekFile(FileHandle file, std::int64_t position) {
    return lseek(descriptor(file), position, SEEK_SET) == position;
}

bool emptyFile(FileHandle file) {
    return ftruncate(descriptor(file), 0) == 0 && seekFile(file, 0);
}

std::int64_t fileSize(FileHandle file) {
    struct stat status {};
    return fstat(descriptor(file), &status) == 0 ? status.st_size : -1;
}

bool fileExists(std::string_view name) {
    return isFile(systemName(name));
}

bool inputExists(std::string_view name) {
    return isFile(inputName(name));
}

bool identify(std::string_view name, FileIdentity& identity) {
    struct stat status {};
    if (stat(systemName(name).c_str(), &status) != 0) return false;
    identity = identityOf(status);
    return true;
}

bool identifyInput(std::string_view name, FileIdentity& identity) {
    return identify(inputName(name), identity);
}

bool identify(FileHandle file, FileIdentity& identity) {
    struct stat status {};
    if (fstat(descriptor(file), &status) != 0) return false;
    identity = identityOf(status);
    return true;
}

bool takeArguments(int count, char** values, std::vector<std::string>& arguments) {
    arguments.assign(values, values + count);
    return true;
}

std::size_t readStandardInput(char* out, std::size_t size) {
    const ssize_t count = readOnce(STDIN_FILENO, out, size);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void writeStandardOutput(const char* bytes, std::size_t size) {
    static_cast<void>(writeAll(STDOUT_FILENO, bytes, size));
}

void outliveRefusedWrites() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void outliveTerminal() {
    std::signal(SIGHUP, SIG_IGN);
}

bool standardOutputIsTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

std::string_view consoleLineEnd() {
    return "\n";
}

Date localDate() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::optional<int> messageBox(std::string_view /*caption*/, std::string_view /*text*/,
                              unsigned /*type*/) {
    return std::nullopt;
}

void exitProcess() {
    _exit(0);
}

}  // namespace vantelgis::platform
