#include "batch/pulse.h"

#include <chrono>

#include "batch/processes.h"

namespace vantelgis::batch {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kBetweenTicks{250};
constexpr unsigned kCallsBetweenClocks = 64;

void (*pulseTick)() = nullptr;

}  // namespace

void setPulse(void (*tick)()) {
    pulseTick = tick;
}

bool pulse() {
    static unsigned calls = 0;
    static Clock::time_point last = Clock::now();
    static bool wanted = true;
    if (++calls % kCallsBetweenClocks != 0) return wanted;
    const Clock::time_point now = Clock::now();
    if (now - last < kBetweenTicks) return wanted;
    last = now;
    if (pulseTick != nullptr) pulseTick();
    wanted = interruption() == 0;
    return wanted;
}

}  // namespace vantelgis::batch
