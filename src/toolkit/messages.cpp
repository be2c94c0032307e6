#include "toolkit/messages.h"

#include <string_view>

#include "run/console.h"
#include "run/messages.h"
#include "run/stop.h"
#include "toolkit/host.h"

namespace vantelgis {

void DMESSAGE(std::int32_t nBlank) {
    const HandOver host;
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
    const HandOver host;
    consoleLine(kRule);
    if (unit > 0) writeLineTo(unit, kRule);
}

void DPAUSE() {
    const HandOver host;
    pauseRun();
}

void EXITS() {
    stopRun();
}

}  // namespace vantelgis
