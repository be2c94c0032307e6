#include "toolkit/strings.h"
#include "toolkit/c/out_text.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

size_t vg_trimf(char* out, size_t out_capacity, const char* s, size_t s_length) {
    return given(TRIMF, out, out_capacity, view(s, s_length));
}

size_t vg_removetabs(char* out, size_t out_capacity, const char* s, size_t s_length) {
    return given(REMOVETABS, out, out_capacity, view(s, s_length));
}

size_t vg_removequotes(char* out, size_t out_capacity, const char* s, size_t s_length) {
    return given(REMOVEQUOTES, out, out_capacity, view(s, s_length));
}

size_t vg_removespaces(char* out, size_t out_capacity, const char* s, size_t s_length) {
    return given(REMOVESPACES, out, out_capacity, view(s, s_length));
}

size_t vg_doublequote(char* out, size_t out_capacity, const char* s, size_t s_length) {
    return given(DOUBLEQUOTE, out, out_capacity, view(s, s_length));
}

size_t vg_uppercase(char* out, size_t out_capacity, const char* s, size_t s_length) {
    return given(UPPERCASE, out, out_capacity, view(s, s_length));
}

size_t vg_lowercase(char* out, size_t out_capacity, const char* s, size_t s_length) {
    return given(LOWERCASE, out, out_capacity, view(s, s_length));
}

size_t vg_alphanumericonly(char* out, size_t out_capacity, const char* s, size_t s_length,
                           const char* fill, size_t fill_length) {
    return given(ALPHANUMERICONLY, out, out_capacity, view(s, s_length), view(fill, fill_length));
}

size_t vg_cleanattributename(char* out, size_t out_capacity, const char* s, size_t s_length,
                             int32_t length) {
    return given(CLEANATTRIBUTENAME, out, out_capacity, view(s, s_length), length);
}

size_t vg_ss256(char* out, size_t out_capacity, const char* s, size_t s_length) {
    return given(SS256, out, out_capacity, view(s, s_length));
}

bool vg_blank(char* s, size_t s_capacity, size_t* s_used) {
    return BLANK(OutText::holding(s, s_capacity, s_used));
}

bool vg_asame(const char* a, size_t a_length, const char* b, size_t b_length) {
    return ASAME({a, a_length}, {b, b_length});
}

bool vg_asamecs(const char* a, size_t a_length, const char* b, size_t b_length) {
    return ASAMECS({a, a_length}, {b, b_length});
}

bool vg_flagexists(const char* line, size_t line_length, const char* flag, size_t flag_length) {
    return FLAGEXISTS({line, line_length}, {flag, flag_length});
}
