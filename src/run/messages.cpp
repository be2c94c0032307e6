#include "run/messages.h"

#include <cstddef>
#include <string_view>

#include "run/boxes.h"
#include "run/console.h"
#include "run/opener_settings.h"
#include "text/free_format.h"
#include "text/joined.h"

namespace vantelgis {

DMessages DMESSAGES;

namespace {

constexpr std::size_t kNumberColumns = 6;

// The first word gives the kind; the message's number stands in the six columns from numberColumn.
struct FirstWord {
    std::string_view word;
    MessageKind kind;
    std::int32_t DMessages::*counter;
    std::size_t numberColumn;
};
constexpr FirstWord kFirstWords[] = {
    {"ERROR", MessageKind::error, &DMessages::errorCount, 6},
    {"WARNING", MessageKind::warning, &DMessages::warningCount, 8},
    {"CHECK", MessageKind::check, &DMessages::checkCount, 6},
    {"UNSTABLE", MessageKind::unstable, nullptr, 9},
};

void classify() {
    DMESSAGES.messageNumber = 0;
    DMESSAGES.messageKind = MessageKind::plain;
    const std::string_view text = DMESSAGES.text1;
    for (const FirstWord& row : kFirstWords) {
        if (!text.starts_with(row.word)) continue;
        DMESSAGES.messageKind = row.kind;
        if (row.counter != nullptr) ++(DMESSAGES.*row.counter);
        FreeFormat list{fromColumn(text, row.numberColumn).substr(0, kNumberColumns)};
        takeInteger(list, DMESSAGES.messageNumber);  // a failure leaves the 0
        return;
    }
}

void show() {
    consoleText(DMESSAGES.text1);
    for (const auto* text : {&DMESSAGES.text2, &DMESSAGES.text3}) {
        if (!text->blank()) consoleText(DMESSAGES.oneLine ? "  " : "\n", *text);
    }
    consoleLine();
}

}  // namespace

void clearMessage() {
    DMESSAGES.x = DMESSAGES.y = kNoLocation;
    DMESSAGES.oneLine = false;
    DMESSAGES.text1.clear();
    DMESSAGES.text2.clear();
    DMESSAGES.text3.clear();
}

void reportMessage(std::int32_t nBlank) {
    classify();
    if (nBlank >= 0) {
        for (std::int32_t i = 0; i < nBlank; ++i) consoleLine();
        show();
    }
    clearMessage();
}

void resetMessageCounters() {
    DMESSAGES.errorCount = DMESSAGES.warningCount = DMESSAGES.checkCount = 0;
}

void pauseRun() {
    if (openerSettings.boxMode) {
        const OpenerSettings& host = openerSettings;
        showBoxUntilOk(
            BoxForm::pause,
            Joined<256>(host.boxTitle, " Simulation ", host.boxVersion,
                        " paused\r\rRefer to Simulation Window\r\rPress OK to Continue"));
        return;
    }
    consoleLine();
    consolePause("Press Enter to Continue");
}

}  // namespace vantelgis
