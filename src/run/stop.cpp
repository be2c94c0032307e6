#include "run/stop.h"

#include "run/boxes.h"
#include "run/console.h"
#include "run/opener_settings.h"
#include "run/platform.h"
#include "run/units.h"
#include "text/joined.h"

namespace vantelgis {

namespace {

void (*endHandler)() = nullptr;
void (*endProcess)() = nullptr;

}  // namespace

void setEndHandler(void (*handler)()) {
    endHandler = handler;
}

void setProcessEnd(void (*end)()) {
    endProcess = end;
}

void stopRun() {
    closeAllUnits();
    if (openerSettings.boxMode) {
        const OpenerSettings& host = openerSettings;
        showBoxUntilOk(BoxForm::exit,
                       Joined<256>("Premature Exit of ", host.boxTitle, " Simulation ",
                                   host.boxVersion, "\r\rPress OK to Close Simulation Window"));
    } else {
        consoleLine();
        consolePause("Press Enter to Close");
    }
    endRun();
}

void endRun() {
    closeAllUnits();
    consoleFlush();
    if (endHandler != nullptr) endHandler();
    if (endProcess != nullptr) endProcess();
    platform::exitProcess();
}

void stopWithText(std::string_view text) {
    consoleLine(text);
    endRun();
}

namespace {

[[noreturn]] void stopBehindPause(std::string_view text) {
    consoleLine();
    consoleLine(text);
    consolePause("");
    endRun();
}

[[noreturn]] void stopAboutFile(std::string_view text, std::string_view name) {
    stopWith("", Joined<2000>(text, name));
}

}  // namespace

void stopReadingData() {
    stopBehindPause("ERROR - Reading data");
}

void stopEndOfFile() {
    stopBehindPause("ERROR - End of File encountered");
}

void stopUnanswered() {
    stopWith("", "ERROR - End of File encountered");
}

void stopWritingFile(std::string_view name) {
    stopAboutFile("ERROR - Writing file ", name);
}

void stopReadingFile(std::string_view name) {
    stopAboutFile("ERROR - Reading file ", name);
}

void stopOpeningFile(std::string_view name) {
    stopAboutFile("ERROR - Can't open file: ", name);
}

void stopShouldNotBeHere(std::string_view where) {
    stopWith(
        Joined<256>(" Should not be here [", where, "] - please contact ", SUPPORT_ADDRESS, "."));
}

}  // namespace vantelgis
