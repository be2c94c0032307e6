#include "run/units.h"

#include <algorithm>
#include <limits>
#include <list>
#include <utility>
#include <vector>

#include "run/console.h"
#include "run/opener_settings.h"
#include "run/run_inputs.h"
#include "run/stop.h"
#include "run/unit_writing.h"

namespace vantelgis {

Unit tableUnits[kUnitCount];
int firstUnit = 0;

namespace {

constexpr int kLowestBase = 9;

// Made without memory: nothing could be told yet of its lack.
struct UnitTable {
    std::list<Unit> ownUnits;  // under numbers of a host's that the table has none of
    std::vector<std::unique_ptr<OpenFile>> spares;  // closed files whose buffers are used again

    UnitTable() { number(kLowestBase); }
    ~UnitTable();  // what a host leaves open at its end is written out
    UnitTable(const UnitTable&) = delete;
    UnitTable& operator=(const UnitTable&) = delete;

    void number(int from) {
        firstUnit = from + 1;
        for (int k = 0; k < kUnitCount; ++k) tableUnits[k].number = firstUnit + k;
    }
    template <typename Action>
    void forEach(Action action) {
        for (Unit& unit : tableUnits) action(unit);
        for (Unit& unit : ownUnits) action(unit);
    }
};
UnitTable table;

UnitTable::~UnitTable() {
    closeAllUnits();
    consoleFlush();
}

std::unique_ptr<OpenFile> newOpenFile() {
    table.spares.reserve(kUnitCount);  // so that closing a file needs no memory
    if (table.spares.empty()) return std::make_unique_for_overwrite<OpenFile>();
    std::unique_ptr<OpenFile> file = std::move(table.spares.back());
    table.spares.pop_back();
    return file;
}

}  // namespace

OpenerSettings openerSettings;

void initialiseUnits(int base) {
    openerSettings = {};
    forgetInputs();
    table.spares.clear();
    table.forEach([](Unit& unit) {
        static_cast<void>(closeFileOf(unit));
        unit.used = false;
    });
    table.ownUnits.clear();
    table.number(std::clamp(base, kLowestBase, std::numeric_limits<int>::max() - kUnitCount));
}

Unit* freeUnit() {
    Unit* const end = tableUnits + kUnitCount;
    Unit* const found = std::find_if(tableUnits, end, [](const Unit& unit) { return !unit.used; });
    return found == end ? nullptr : found;
}

Unit* findUnit(int unit) {
    const std::int64_t slot = std::int64_t{unit} - firstUnit;
    if (slot >= 0 && slot < kUnitCount) return &tableUnits[slot];
    for (Unit& own : table.ownUnits)
        if (own.number == unit) return &own;
    return nullptr;
}

Unit& addUnit(int unit) {
    if (Unit* const found = findUnit(unit)) return *found;
    table.ownUnits.push_back({unit, false, nullptr});
    return table.ownUnits.back();
}

bool isOpen(int unit) {
    const Unit* const slot = findUnit(unit);
    return slot != nullptr && slot->file && slot->file->handle != platform::kNoFile;
}

int unitOf(const platform::FileIdentity& identity) {
    int found = 0;
    table.forEach([&](const Unit& unit) {
        if (found == 0 && isOpen(unit.number) && unit.file->identity == identity)
            found = unit.number;
    });
    return found;
}

bool openOnSystem(Unit& unit, std::string_view name, const OpenMode& mode) {
    platform::FileIdentity identity;
    const bool known = !mode.input && platform::identify(name, identity);
    const int other = known ? unitOf(identity) : 0;
    const auto sharing = other != 0 ? platform::Sharing::full : mode.sharing;
    const auto handle = platform::openFile(name, mode.access, sharing);
    if (handle == platform::kNoFile) return false;
    attachFile(unit, handle, mode, name);
    if (other == 0) return true;
    const OpenFile& first = fileOf(other);
    const auto holder = first.lock != platform::kNoFile ? first.lock : first.handle;
    unit.file->lock = platform::duplicateHandle(holder);
    return true;
}

void attachFile(Unit& unit, platform::FileHandle handle, const OpenMode& mode,
                std::string_view name) {
    unit.file = newOpenFile();
    OpenFile& file = *unit.file;
    file.handle = handle;
    file.lock = platform::kNoFile;
    file.mode = &mode;
    file.holdsInput = mode.input;
    if (!platform::identify(handle, file.identity)) file.identity = {};
    file.name = name;
    file.begin = file.end = 0;
    file.blockSize = kBufferSize;
    file.bufferStart = file.lineStart = file.lineNumber = 0;
    file.ended = file.failed = file.failureGiven = file.ownerReports = false;
}

void setBlockSize(int unit, int blockSize) {
    if (blockSize > 0)
        fileOf(unit).blockSize = std::min(static_cast<std::size_t>(blockSize), kBufferSize);
}

bool closeFileOf(Unit& unit) {
    if (!unit.file) return true;
    const bool written = closeUnderOwner(unit);
    table.spares.push_back(std::move(unit.file));
    return written;
}

bool closeUnderOwner(Unit& unit) {
    OpenFile& file = *unit.file;
    if (file.handle == platform::kNoFile) return !file.failed;
    const bool written = flushFile(file);
    const bool closed = platform::closeFile(file.handle);
    file.handle = platform::kNoFile;
    if (file.lock != platform::kNoFile) static_cast<void>(platform::closeFile(file.lock));
    file.lock = platform::kNoFile;
    return file.mode->input || (written && closed);
}

void closeAllUnits() {
    table.forEach([](Unit& unit) {
        if (unit.file) {
            const bool reported = unit.file->failed;  // by its owner
            if (!closeFileOf(unit) && !reported)
                consoleLine("\nERROR - Writing file ", table.spares.back()->name);
        }
        unit.used = false;
    });
}

std::string_view unitName(int unit) {
    const Unit* const slot = findUnit(unit);
    return slot != nullptr && slot->file ? slot->file->name.view() : std::string_view{};
}

}  // namespace vantelgis
