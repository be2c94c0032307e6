#include "memory/memory_platform.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "run/platform.h"

namespace vantelgis::memory {

System system;

namespace {

struct Stream {
    std::string* bytes = nullptr;  // null: not in use
    std::string name;
    platform::Access access = platform::Access::read;
    std::size_t position = 0;
};
std::vector<Stream> streams;

// Marks what the platform does, in a routine that allocates, as not done by the program.
class Aside {
  public:
    Aside() : programRan_(system.programRuns) { system.programRuns = false; }
    ~Aside() { system.programRuns = programRan_; }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

  private:
    bool programRan_;
};

std::string keyOf(std::string_view name) {
    if (name.starts_with("./") || name.starts_with(".\\")) name.remove_prefix(2);
    std::string key{name};
    std::replace(key.begin(), key.end(), '\\', '/');
    return key;
}

bool folderExists(const std::string& key) {
    const std::size_t slash = key.rfind('/');
    if (slash == std::string::npos) return true;
    const std::string folder = key.substr(0, slash + 1);
    const auto first = system.files.lower_bound(folder);
    return first != system.files.end() && first->first.starts_with(folder);
}

Stream& streamOf(platform::FileHandle file) {
    return streams.at(static_cast<std::size_t>(file));
}

platform::FileHandle addStream(Stream stream) {
    const auto free = std::find_if(streams.begin(), streams.end(),
                                   [](const Stream& other) { return other.bytes == nullptr; });
    if (free == streams.end()) {
        streams.push_back(std::move(stream));
        return std::ssize(streams) - 1;
    }
    *free = std::move(stream);
    return free - streams.begin();
}

// Counts a use and tells whether it is one that fails.
bool fails(Operation operation, const std::string& name, std::size_t place, bool forOutput) {
    const auto position = static_cast<std::int64_t>(place);
    Use& failed = system.failed;
    if (system.uses++ == system.faultAt) {
        system.faultMet = true;
        failed = {operation, name, position, forOutput};
        return true;
    }
    return system.faultMet && system.faultStays && failed.operation == operation &&
           failed.name == name && failed.forOutput == forOutput && position >= failed.position;
}

bool fails(Operation operation, const Stream& stream) {
    return fails(operation, stream.name, stream.position, stream.access != platform::Access::read);
}

// What a system that fails to keep its promise leaves of a file.
void loseHalf(std::string& bytes) {
    bytes.resize(bytes.size() / 2);
}

std::size_t bytesStored() {
    std::size_t sum = 0;
    for (const auto& [name, bytes] : system.files) sum += bytes.size();
    return sum;
}

}  // namespace

void closeAllFiles() {
    streams.clear();
}

}  // namespace vantelgis::memory

namespace vantelgis::platform {

using memory::Operation;
using memory::Stream;
using memory::streamOf;
using memory::system;

FileHandle openFile(std::string_view name, Access access, Sharing /*sharing*/) {
    const memory::Aside aside;
    const std::string key = memory::keyOf(name);
    const bool reads = access == Access::read;
    if (memory::fails(Operation::open, key, 0, !reads)) return kNoFile;
    if (reads ? !fileExists(name) : key.empty() || key.back() == '/' || !memory::folderExists(key))
        return kNoFile;
    std::string& bytes = system.files[key];
    if (access == Access::replace) bytes.clear();
    return memory::addStream({&bytes, key, access, access == Access::append ? bytes.size() : 0});
}

// Nobody else has a file of this system open, so no lock needs to be held.
FileHandle duplicateHandle(FileHandle /*file*/) {
    return kNoFile;
}

void bringToOneForm(Path& /*a*/, Path& /*b*/) {}

bool closeFile(FileHandle file) {
    const memory::Aside aside;
    Stream& stream = streamOf(file);
    const bool failed = memory::fails(Operation::close, stream);
    if (failed && stream.access != Access::read) memory::loseHalf(*stream.bytes);
    stream.bytes = nullptr;
    return !failed;
}

std::int64_t readFile(FileHandle file, char* out, std::size_t size) {
    const memory::Aside aside;
    Stream& stream = streamOf(file);
    if (memory::fails(Operation::read, stream)) return -1;
    const std::size_t start = std::min(stream.position, stream.bytes->size());
    const std::size_t n = std::min({size, system.mostPerRead, stream.bytes->size() - start});
    std::memcpy(out, stream.bytes->data() + start, n);
    stream.position += n;
    return static_cast<std::int64_t>(n);
}

bool writeFile(FileHandle file, const char* bytes, std::size_t size) {
    const memory::Aside aside;
    Stream& stream = streamOf(file);
    if (memory::fails(Operation::write, stream)) return false;
    const std::size_t end = stream.position + size;
    if (end > stream.bytes->size()) {
        const std::size_t growth = end - stream.bytes->size();
        if (growth > system.diskSize - std::min(system.diskSize, memory::bytesStored()))
            return false;
        stream.bytes->resize(end);
    }
    std::memcpy(stream.bytes->data() + stream.position, bytes, size);
    stream.position = end;
    return true;
}

bool seekFile(FileHandle file, std::int64_t position) {
    const memory::Aside aside;
    Stream& stream = streamOf(file);
    if (position < 0 || memory::fails(Operation::seek, stream)) return false;
    stream.position = static_cast<std::size_t>(position);
    return true;
}

bool emptyFile(FileHandle file) {
    Stream& stream = streamOf(file);
    if (memory::fails(Operation::empty, stream)) return false;
    stream.bytes->clear();
    stream.position = 0;
    return true;
}

std::int64_t fileSize(FileHandle file) {
    const Stream& stream = streamOf(file);
    if (memory::fails(Operation::size, stream)) return -1;
    return static_cast<std::int64_t>(stream.bytes->size());
}

bool fileExists(std::string_view name) {
    const memory::Aside aside;
    return system.files.contains(memory::keyOf(name));
}

bool inputExists(std::string_view name) {
    return fileExists(name);
}

// Nodes of the map stay where they are.
bool identify(std::string_view name, FileIdentity& identity) {
    const memory::Aside aside;
    const auto found = system.files.find(memory::keyOf(name));
    if (found == system.files.end()) return false;
    identity.index = reinterpret_cast<std::uintptr_t>(&found->second);
    return true;
}

bool identifyInput(std::string_view name, FileIdentity& identity) {
    return identify(name, identity);
}

bool identify(FileHandle file, FileIdentity& identity) {
    identity.index = reinterpret_cast<std::uintptr_t>(streamOf(file).bytes);
    return true;
}

bool takeArguments(int count, char** values, std::vector<std::string>& arguments) {
    arguments.assign(values, values + count);
    return true;
}

std::size_t readStandardInput(char* out, std::size_t size) {
    const std::size_t n = std::min(size, system.typed.size());
    std::memcpy(out, system.typed.data(), n);
    system.typed.erase(0, n);
    return n;
}

void writeStandardOutput(const char* bytes, std::size_t size) {
    const memory::Aside aside;
    system.console.append(bytes, size);
}

bool standardOutputIsTerminal() {
    return false;
}

std::string_view consoleLineEnd() {
    return "\n";
}

Date localDate() {
    return {2024, 5, 6};
}

std::optional<int> messageBox(std::string_view /*caption*/, std::string_view /*text*/,
                              unsigned /*type*/) {
    return {};
}

// Folders are there when something is in them, but none can be made at the root.
int makeFolder(std::string_view folder) {
    return folder.starts_with('/') ? -1 : 0;
}

int copyFiles(std::string_view /*source*/, std::string_view /*target*/) {
    return -1;
}

// The end of a run is replaced as well: nothing may end the process.
void exitProcess() {
    std::abort();
}

}  // namespace vantelgis::platform
