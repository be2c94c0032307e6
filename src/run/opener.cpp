#include "run/opener.h"

#include "run/console.h"
#include "run/open_modes.h"
#include "run/stop.h"
#include "run/units.h"
#include "text/number_field.h"
#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr int kUnitColumns = 4;
constexpr std::size_t kAnswerLength = 80;

void unitLine(std::string_view text, int unit) {
    char columns[kUnitColumns];
    integerField(columns, unit, kUnitColumns);
    consoleLine(text, std::string_view(columns, kUnitColumns));
}

// What one attempt at a name leads to.
enum class Next { askForName, openInput, openOutput, finished };

// One call of OPENER: the arguments, and what was found out about the file.
struct Opening {
    int& unit;
    TextRef name;
    std::string_view modeCode;
    std::string_view label;
    const OpenMode* mode = nullptr;
    bool existed = false;  // at the last attempt
};

bool mayBeOpenTwice(std::string_view modeCode) {
    return modeCode.starts_with('A') || modeCode.starts_with('S');
}

// "close it?": true to go on with the file closed, false to ask for another name.
bool closedOnRequest(const Opening& opening, int openUnit) {
    consoleLine();
    PUTTEXT(opening.name.data, static_cast<int>(*opening.name.length));
    consoleText(" is already open, close it? ");
    Text<1> answer;
    if (!consoleReadLine(answer)) stopUnanswered();
    if (!(answer == "Y" || answer == "y")) return false;
    if (!closeUnderOwner(*findUnit(openUnit))) stopWithText("  Unable to close file.");
    return true;
}

Next attempt(Opening& opening) {
    Path cleaned;
    CLEANPATH(cleaned, opening.name);
    consoleText(" Trying to open file ", opening.name.view(), "...");
    const bool input = opening.mode != nullptr && opening.mode->input;
    opening.existed = input ? platform::inputExists(opening.name.view())
                            : platform::fileExists(opening.name.view());
    if (input) {
        if (opening.existed) return Next::openInput;
        consoleLine(" CHECK 0008 - \"", opening.name.view(), "\" cannot be found");
        return Next::askForName;
    }
    platform::FileIdentity identity;
    const bool known = platform::identify(opening.name.view(), identity);
    const int openUnit = known ? unitOf(identity) : 0;
    if (openUnit == 0 || mayBeOpenTwice(opening.modeCode)) return Next::openOutput;
    return closedOnRequest(opening, openUnit) ? Next::openOutput : Next::askForName;
}

void askForName(Opening& opening) {
    if (!opening.label.empty()) {
        consoleText("What is the ", opening.label, " file name? ");
    } else {
        consoleText(" Check file exists and press enter or enter another file name: ");
    }
    Text<kAnswerLength> answer;
    if (!consoleReadLine(answer)) stopUnanswered();
    if (answer.blank()) {
        consoleLine(" No file name entered.  Trying file again...");
    } else {
        opening.name.assign(withoutLeadingBlanks(answer));
    }
}

bool openedAs(const Opening& opening, const OpenMode& mode) {
    const auto handle = platform::openFile(opening.name.view(), mode.access, mode.sharing);
    if (handle == platform::kNoFile) return false;
    Unit* const unit = findUnit(opening.unit);
    if (unit == nullptr) {
        static_cast<void>(platform::closeFile(handle));
        return false;
    }
    attachFile(*unit, handle, mode, opening.name.view());
    return true;
}

void openInput(const Opening& opening) {
    if (!openedAs(opening, *opening.mode)) stopOpeningFile(opening.name.view());
    unitLine("OK. Opened File Unit:", opening.unit);
}

void openOutput(const Opening& opening) {
    if (opening.mode == nullptr) {
        consoleLine("  Unrecognised file type ", opening.modeCode, " file ",
                    opening.name.view().substr(0, kAnswerLength));
        return;
    }
    if (opening.modeCode == "IO") {
        openedAs(opening, *opening.mode);
        return;
    }
    while (!openedAs(opening, *opening.mode)) {
        if (opening.modeCode == "A " && opening.existed) {
            consoleLine("FAILED.  No File Unit allocated.");
            opening.unit = 0;
            return;
        }
        consoleLine("Can't Open");
        consoleLine("\n Can't open: ", opening.name.view(), "\n");
        consoleLine(" Another application or user maybe using it,");
        consoleLine("    or the file's folder does not exist.");
        consoleLine(" If so, close the file or create file path.");
        if (!consolePause("")) stopUnanswered();
    }
    unitLine("OK.  File Unit:", opening.unit);
}

}  // namespace

void FILEOPEN(int& unit, std::string_view mode, std::string_view name) {
    Path work{withoutLeadingBlanks(name)};
    if (work.blank()) {
        consoleLine(" Empty filename specified.  Bailing out.  Please contact ", SUPPORT_ADDRESS,
                    ".");
        consolePause("Press Enter to Close");
        endRun();
    }
    Unit* const slot = freeUnit();
    if (slot == nullptr) stopWithText("No free file numbers.");
    unit = slot->number;
    OPENER(unit, work, mode, {});
    slot->used = unit != 0;
}

void OPENER(int& unit, TextRef name, std::string_view mode, std::string_view label) {
    Opening opening{unit, name, mode, withoutTrailingBlanks(label), findOpenMode(mode)};
    Next next = name.view().empty() ? Next::askForName : attempt(opening);
    while (next == Next::askForName) {
        askForName(opening);
        next = name.view().empty() ? Next::askForName : attempt(opening);
    }
    if (next == Next::openInput) {
        openInput(opening);
    } else {
        openOutput(opening);
    }
}

void CLOSER(int& unit) {
    Unit* const slot = findUnit(unit);
    if (slot == nullptr || !slot->used) return;
    const bool hadFile = slot->file != nullptr;
    const bool ownerReports = hadFile && slot->file->ownerReports;
    const Path name = unitName(unit);
    const bool written = closeFileOf(*slot);
    slot->used = false;
    if (!written && !ownerReports) stopWritingFile(name);
    unitLine("...Closed File Unit:", unit);
    unit = 0;
}

int LENSL(char* text, int capacity) {
    int length = capacity > 0 ? capacity : 0;
    while (length > 0 && (text[length - 1] == ' ' || text[length - 1] == '\0')) --length;
    if (length < capacity) text[length] = '\0';
    return length;
}

}  // namespace vantelgis
