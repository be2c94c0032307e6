#include "toolkit/messages.h"

#include "toolkit/c/out_text.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

namespace {

// A line of the message, null for a number that is none of 1 to 3.
Text<10000>* messageLine(std::int32_t line) {
    Text<10000>* const lines[] = {&DMESSAGES.text1, &DMESSAGES.text2, &DMESSAGES.text3};
    return line >= 1 && line <= 3 ? lines[line - 1] : nullptr;
}

// The counter of a kind, null for a kind that is not counted.
std::int32_t* counterOf(std::int32_t kind) {
    switch (kind) {
        case VG_ERROR: return &DMESSAGES.errorCount;
        case VG_WARNING: return &DMESSAGES.warningCount;
        case VG_CHECK: return &DMESSAGES.checkCount;
        default: return nullptr;
    }
}

}  // namespace

void vg_dmessage(std::int32_t nBlank) {
    DMESSAGE(nBlank);
}

void vg_dmessageclear() {
    DMESSAGECLEAR();
}

void vg_dmessageresetcounters() {
    DMESSAGERESETCOUNTERS();
}

void vg_dline(std::int32_t unit) {
    DLINE(unit);
}

void vg_dpause() {
    DPAUSE();
}

void vg_exits() {
    EXITS();
}

void vg_set_message_text(std::int32_t line, const char* text, std::size_t text_length) {
    if (Text<10000>* const target = messageLine(line)) *target = view(text, text_length);
}

std::size_t vg_message_text(std::int32_t line, char* out, std::size_t out_capacity) {
    const Text<10000>* const source = messageLine(line);
    const std::string_view text = source != nullptr ? source->view() : std::string_view{};
    return given([&](TextRef target) { target.assign(text); }, out, out_capacity);
}

void vg_set_message_location(double x, double y) {
    DMESSAGES.x = x;
    DMESSAGES.y = y;
}

void vg_message_location(double* x, double* y) {
    *x = DMESSAGES.x;
    *y = DMESSAGES.y;
}

void vg_set_message_one_line(bool one_line) {
    DMESSAGES.oneLine = one_line;
}

bool vg_message_one_line() {
    return DMESSAGES.oneLine;
}

std::int32_t vg_message_count(std::int32_t kind) {
    const std::int32_t* const counter = counterOf(kind);
    return counter != nullptr ? *counter : 0;
}

void vg_set_message_count(std::int32_t kind, std::int32_t count) {
    if (std::int32_t* const counter = counterOf(kind)) *counter = count;
}

std::int32_t vg_message_number() {
    return DMESSAGES.messageNumber;
}

std::int32_t vg_message_kind() {
    return static_cast<std::int32_t>(DMESSAGES.messageKind);
}
