#include "gpkg/plain_file.h"

#include <cstdint>

#include "gpkg/platform.h"
#include "gpkg/report.h"

namespace vantelgis::gpkg {

namespace {

namespace system = vantelgis::platform;

constexpr std::size_t kPiece = std::size_t{64} * 1024;

}  // namespace

PlainFile::PlainFile(std::string_view name, system::Access access)
    : name_(name), handle_(system::openFile(name, access, system::Sharing::full)) {
    if (handle_ == system::kNoFile) fail("can't open ", name_, ": ", platform::lastRefusal());
}

PlainFile::~PlainFile() {
    if (handle_ != system::kNoFile) static_cast<void>(system::closeFile(handle_));
}

bool PlainFile::read(std::string& bytes) {
    const std::size_t kept = bytes.size();
    bytes.resize(kept + kPiece);
    const std::int64_t count = system::readFile(handle_, bytes.data() + kept, kPiece);
    if (count < 0) fail("can't read ", name_, ": ", platform::lastRefusal());
    bytes.resize(kept + static_cast<std::size_t>(count));
    return count > 0;
}

void PlainFile::write(std::string_view bytes) {
    if (!system::writeFile(handle_, bytes.data(), bytes.size()))
        fail("can't write ", name_, ": ", platform::lastRefusal());
}

void PlainFile::close() {
    const bool closed = system::closeFile(handle_);
    handle_ = system::kNoFile;
    if (!closed) fail("can't write ", name_, ": ", platform::lastRefusal());
}

std::string contentsOf(std::string_view name, std::size_t most) {
    PlainFile file{name, system::Access::read};
    std::string bytes;
    while (file.read(bytes))
        if (bytes.size() > most) fail(name, " is too large for a file of its kind");
    return bytes;
}

void writeWhole(std::string_view name, std::string_view bytes) {
    PlainFile file{name, system::Access::replace};
    file.write(bytes);
    file.close();
}

void copyFile(std::string_view source, std::string_view target) {
    PlainFile in{source, system::Access::read};
    PlainFile out{target, system::Access::replace};
    std::string piece;
    while (in.read(piece)) {
        out.write(piece);
        piece.clear();
    }
    out.close();
}

}  // namespace vantelgis::gpkg
