#include "run/opener_dialogues.h"

#include <algorithm>

#include "run/boxes.h"
#include "run/opener_settings.h"
#include "run/platform.h"
#include "run/stop.h"
#include "run/unit_writing.h"
#include "text/joined.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

constexpr int kUnitColumns = 4;
using BoxText = Joined<256>;

// Retry is any answer but Cancel, which ends the run without a further word.
void retryOrEnd(std::string_view text) {
    if (showBox(BoxForm::retry, text) == BoxAnswer::cancel) endRun();
}

void makeFolderOrEnd(std::string_view folder) {
    while (platform::makeFolder(folder) == platform::kNotStarted) {
        retryOrEnd(BoxText("Could not create folder:\r\r", folder,
                           "\r\rCheck permissions and/or sufficient disk space."));
    }
}

// True when the person wants the missing folder made; false leaves it to them.
bool folderIsWanted(std::string_view folder) {
    for (;;) {
        const BoxAnswer answer = showBox(
            BoxForm::yesNoCancel,
            BoxText(
                folder,
                "\r\rAbove folder does not exist!  Create?\r\rEither create the folder yourself "
                "and press No,\ror press Yes to have the folder created for you."));
        if (answer == BoxAnswer::cancel) endRun();
        if (answer != BoxAnswer::yes) return false;
        const BoxText confirmation("Create folder below?\r\r", folder, "\r");
        if (showBox(BoxForm::yesNo, confirmation) != BoxAnswer::no) return true;
    }
}

void waitInBoxes(std::string_view name, std::string_view folder) {
    if (platform::fileExists(name)) {
        retryOrEnd(
            BoxText(name,
                    "\r\rAbove file is locked by another application.\r\rClose the file in the "
                    "other application and press Retry."));
    } else if (folderIsWanted(folder)) {
        makeFolderOrEnd(folder);
    }
}

void waitOnConsole(std::string_view name) {
    openerLine("\n Can't open: ", name, "\n");
    openerLine(" Another application or user maybe using it,");
    openerLine("    or the file's folder does not exist.");
    openerLine(" If so, close the file or create file path.");
    if (!consolePause("")) stopUnanswered();
}

}  // namespace

void openerPut(std::string_view text) {
    consolePut(text);
    Unit* const log = openerSettings.logUnit > 0 ? findUnit(openerSettings.logUnit) : nullptr;
    if (log == nullptr || !log->file) return;
    for (std::size_t end; (end = text.find('\n')) != std::string_view::npos;
         text.remove_prefix(end + 1)) {
        put(log->number, text.substr(0, end));
        endLine(log->number);
    }
    put(log->number, text);
}

void openerUnitLine(std::string_view text, int unit) {
    openerLine(text, IntegerText(unit, kUnitColumns));
}

bool askToClose(std::string_view name) {
    openerLine();
    if (openerSettings.boxMode) {
        const BoxText text(openerSettings.boxTitle, " file \r", name,
                           "\ris already open.  Close it?");
        if (showBox(BoxForm::yesNo, text) == BoxAnswer::no) stopRun();
        return true;
    }
    openerText(name, " is already open, close it? ");
    Text<1> answer;
    if (!consoleReadLine(answer)) stopUnanswered();
    return answer == "Y" || answer == "y";
}

void askForName(TextRef name, std::string_view label) {
    if (openerSettings.boxMode) {
        retryOrEnd(BoxText(openerSettings.boxTitle, " FILE and/or path\r", name.view(),
                           "\rdoes not exist."));
        return;
    }
    if (!label.empty()) {
        openerText("What is the ", label, " file name? ");
    } else {
        openerText(" Check file exists and press enter or enter another file name: ");
    }
    Text<80> answer;
    if (!consoleReadLine(answer)) stopUnanswered();
    if (answer.blank()) {
        openerLine(" No file name entered.  Trying file again...");
    } else {
        name.assign(withoutLeadingBlanks(answer));
    }
}

void waitForOutput(std::string_view name, bool& folderMade) {
    openerLine("Can't Open");
    const std::string_view folder = folderOf(name);
    // Once: a file that still can't be opened in its new folder needs a person.
    if (openerSettings.autoFolders && !folderMade && !platform::fileExists(name)) {
        folderMade = true;
        if (openerSettings.boxMode) return makeFolderOrEnd(folder);
        if (platform::makeFolder(folder) != platform::kNotStarted) return;
    }
    if (openerSettings.boxMode) {
        waitInBoxes(name, folder);
    } else {
        waitOnConsole(name);
    }
}

void stopForEmptyName() {
    constexpr std::string_view kText = "Empty filename specified.  Bailing out.  Please contact ";
    if (openerSettings.boxMode) {
        showBox(BoxForm::stop, BoxText(kText, SUPPORT_ADDRESS, "."));
    } else {
        consoleLine(" ", kText, SUPPORT_ADDRESS, ".");
        consolePause("Press Enter to Close");
    }
    endRun();
}

}  // namespace vantelgis
