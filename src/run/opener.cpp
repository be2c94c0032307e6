#include "run/opener.h"

#include "run/copy_mode.h"
#include "run/open_modes.h"
#include "run/opener_dialogues.h"
#include "run/opener_settings.h"
#include "run/run_inputs.h"
#include "run/stop.h"
#include "run/units.h"
#include "text/joined.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

// What one attempt at a name leads to.
enum class Next { askForName, openInput, openOutput };

// One call of openOnUnit: its arguments, and what was found out about the file.
struct Opening {
    int& unit;
    TextRef name;
    std::string_view modeCode;
    const OpenMode* mode;  // null for an unknown code
    bool existed = false;  // at the last attempt
    bool typed = false;    // the name was asked for
};

[[noreturn]] void stopAtInput(std::string_view name) {
    stopWith("", Joined<1100>("ERROR - Output file is also an input of this run: ", name));
}

// A name that a person typed for an input may be that of a file which the run is writing.
void checkTypedInput(std::string_view name) {
    platform::FileIdentity identity;
    if (!inputsAreDeclared() || !platform::identifyInput(name, identity)) return;
    const int openUnit = unitOf(identity);
    if (openUnit != 0 && !fileOf(openUnit).mode->input) stopAtInput(name);
}

// Also of an unknown mode, whose file is looked at before the mode.
bool mayBeOpenTwice(std::string_view modeCode) {
    return modeCode.starts_with('A') || modeCode.starts_with('S');
}

bool isInput(const Opening& opening) {
    return opening.mode != nullptr && opening.mode->input;
}

// What an append adds stands behind what is there.
bool cutsFile(const Opening& opening) {
    return opening.mode != nullptr && opening.mode->access != platform::Access::append;
}

void replaceDrive(const Opening& opening) {
    const char drive = isInput(opening) ? openerSettings.inputDrive : openerSettings.outputDrive;
    if (drive != ' ' && *opening.name.length > 1 && opening.name.data[1] == ':')
        opening.name.data[0] = drive;
}

Next attemptInput(Opening& opening) {
    opening.existed = platform::inputExists(opening.name.view());
    if (opening.existed && opening.typed) checkTypedInput(opening.name.view());
    if (opening.existed) return Next::openInput;
    openerLine(" CHECK 0008 - \"", opening.name.view(), "\" cannot be found");
    return Next::askForName;
}

Next attemptOutput(Opening& opening) {
    opening.existed = platform::fileExists(opening.name.view());
    platform::FileIdentity identity;
    const bool known = platform::identify(opening.name.view(), identity);
    const int openUnit = known ? unitOf(identity) : 0;
    if (openUnit == 0 || mayBeOpenTwice(opening.modeCode)) {
        if (known && cutsFile(opening) && isInputOfRun(identity)) stopAtInput(opening.name.view());
        return Next::openOutput;
    }
    if (!askToClose(opening.name.view())) return Next::askForName;
    if (!closeUnderOwner(*findUnit(openUnit))) stopWithText("  Unable to close file.");
    return Next::openOutput;
}

Next attempt(Opening& opening) {
    if (*opening.name.length == 0) return Next::askForName;
    cleanPath(opening.name);
    replaceDrive(opening);
    openerText(" Trying to open file ", opening.name.view(), "...");
    return isInput(opening) ? attemptInput(opening) : attemptOutput(opening);
}

bool openedByPlatform(const Opening& opening) {
    // A number that the host chose may still have a file, which is complete before the next one
    // takes over.
    const Path before = unitName(opening.unit);
    Unit& unit = addUnit(opening.unit);
    if (!closeFileOf(unit)) stopWritingFile(before);
    if (!openOnSystem(unit, opening.name.view(), *opening.mode)) return false;
    unit.used = true;
    return true;
}

void openInput(const Opening& opening) {
    if (!openedByPlatform(opening)) stopOpeningFile(opening.name.view());
    noteInput(fileOf(opening.unit).identity);
    openerUnitLine("OK. Opened File Unit:", opening.unit);
    if (openerSettings.copyMode) copyInput(opening.name);
}

void openOutput(const Opening& opening) {
    if (opening.mode == nullptr) {
        openerLine("  Unrecognised file type ", opening.modeCode, " file ",
                   opening.name.view().substr(0, 80));
        return;
    }
    const Manner manner = opening.mode->manner;
    if (manner == Manner::silent) {
        openedByPlatform(opening);
        return;
    }
    if (openerSettings.copyMode) redirectOutput(opening.name);
    bool folderMade = false;
    while (!openedByPlatform(opening)) {
        if (manner == Manner::givesUp && opening.existed) {
            openerLine("FAILED.  No File Unit allocated.");
            opening.unit = 0;
            return;
        }
        waitForOutput(opening.name.view(), folderMade);
    }
    if (manner == Manner::inBlocks) setBlockSize(opening.unit, openerSettings.blockSize);
    openerUnitLine("OK.  File Unit:", opening.unit);
}

}  // namespace

void openUnit(int& unit, std::string_view mode, std::string_view name) {
    Path work{withoutLeadingBlanks(name)};
    if (work.blank()) stopForEmptyName();
    Unit* const slot = freeUnit();
    if (slot == nullptr) stopWithText("No free file numbers.");
    unit = slot->number;
    openOnUnit(unit, work, mode, {});
    slot->used = unit != 0;
}

void openOnUnit(int& unit, TextRef name, std::string_view mode, std::string_view label) {
    if (unit < 1) stopOpeningFile(name.view());
    Opening opening{unit, name, mode, findOpenMode(mode)};
    Next next;
    while ((next = attempt(opening)) == Next::askForName) {
        askForName(name, withoutTrailingBlanks(label));
        opening.typed = true;
    }
    if (next == Next::openInput) {
        openInput(opening);
    } else {
        openOutput(opening);
    }
}

void closeUnit(int& unit) {
    const Path name = unitName(unit);
    if (!tryCloseUnit(unit)) stopWritingFile(name);
}

bool tryCloseUnit(int& unit) {
    Unit* const slot = findUnit(unit);
    if (slot == nullptr || !slot->used) return true;
    slot->used = false;
    if (!closeFileOf(*slot)) return false;
    openerUnitLine("...Closed File Unit:", unit);
    unit = 0;
    return true;
}

}  // namespace vantelgis
