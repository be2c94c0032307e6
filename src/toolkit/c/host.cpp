#include "toolkit/host.h"

#include "run/console.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "toolkit/c/out_text.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

namespace {

void (*consoleOfHost)(const char* text, std::size_t length) = nullptr;

}  // namespace

const char* vg_version() {
    return VANTELGIS_VERSION;
}

bool vg_at_end(std::int32_t unit) {
    return !isOpen(unit) || atEnd(unit);
}

void vg_write_line(std::int32_t unit, const char* text, std::size_t text_length) {
    writeLineTo(unit, view(text, text_length));
}

void vg_set_end(void (*end)()) {
    setEndHandler(end);
}

void vg_set_console(void (*write)(const char* text, std::size_t text_length)) {
    setConsoleSink(nullptr);  // what is still to be written goes where it was meant to go
    consoleOfHost = write;
    if (write != nullptr)
        setConsoleSink([](std::string_view text) { consoleOfHost(text.data(), text.size()); });
}

void vg_set_hand_over(bool at_once) {
    setHandOver(at_once);
}

void vg_set_unattended(bool unattended) {
    setConsoleUnattended(unattended);
}
