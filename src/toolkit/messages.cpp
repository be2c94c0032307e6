#include "toolkit/messages.h"

#include <string_view>

#include "run/console.h"
#include "run/messages.h"
#include "run/stop.h"
#include "run/unit_writing.h"

namespace vantelgis {

void DMESSAGE(std::int32_t nBlank) {
    reportMessage(nBlank);
}

void DMESSAGECLEAR() {
    clearMessage();
}

void DMESSAGERESETCOUNTERS() {
    resetMessageCounters();
}

void DLINE(int unit) {
    constexpr std::string_view kRule =
        "________________________________________________________________________________";
    static_assert(kRule.size() == 80);
    consoleLine(kRule);
    if (unit > 0) putLine(unit, kRule);
}

void DPAUSE() {
    pauseRun();
}

void EXITS() {
    stopRun();
}

}  // namespace vantelgis
