#include "toolkit/lines.h"

#include <algorithm>

#include "run/messages.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "text/number_field.h"
#include "toolkit/line_pieces.h"
#include "toolkit/strings.h"

namespace vantelgis {

namespace {

[[noreturn]] void stopAtLine(int unit, std::string_view what) {
    DMESSAGES.text1 = what;
    DMESSAGES.text1 += IntegerText(unit, 5);
    reportMessage(1);
    stopRun();
}

}  // namespace

bool READLINE(int unit, TextRef line) {
    std::string_view text;
    switch (isOpen(unit) ? readLine(unit, text) : ReadResult::failed) {
        case ReadResult::failed:
            stopAtLine(unit, "ERROR 0201 - Reading text line from file unit number");
        case ReadResult::end:
            stopAtLine(unit,
                       "ERROR 0202 - End-of-file encountered reading text line from file unit "
                       "number");
        case ReadResult::ok: break;
    }
    // Tabs go first, so that blanks behind leading tabs are leading blanks too.
    text = cutLine(text);
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    REMOVETABS(line, text.substr(0, text.find_first_of("#!")));
    return !line.view().empty();
}

}  // namespace vantelgis
