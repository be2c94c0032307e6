#include "toolkit/numbers.h"
#include "toolkit/c/out_text.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

size_t vg_ainteger(char* out, size_t out_capacity, int32_t value) {
    return given(AINTEGER, out, out_capacity, value);
}

size_t vg_ainteger8(char* out, size_t out_capacity, int64_t value) {
    return given(AINTEGER8, out, out_capacity, value);
}

size_t vg_aintegerprec0(char* out, size_t out_capacity, int32_t value, int32_t digits) {
    return given(AINTEGERPREC0, out, out_capacity, value, digits);
}

size_t vg_ainteger8prec0(char* out, size_t out_capacity, int64_t value, int32_t digits) {
    return given(AINTEGER8PREC0, out, out_capacity, value, digits);
}

size_t vg_areal(char* out, size_t out_capacity, float value) {
    return given(AREAL, out, out_capacity, value);
}

size_t vg_areal8(char* out, size_t out_capacity, double value) {
    return given(AREAL8, out, out_capacity, value);
}

size_t vg_areald(char* out, size_t out_capacity, float value, int32_t decimals) {
    return given(AREALD, out, out_capacity, value, decimals);
}

size_t vg_areald8(char* out, size_t out_capacity, double value, int32_t decimals) {
    return given(AREALD8, out, out_capacity, value, decimals);
}

int32_t vg_numberofdays(const char* date, size_t date_length) {
    return NUMBEROFDAYS({date, date_length});
}

bool vg_checkint(const char* text, size_t text_length, int32_t* value) {
    return CHECKINT({text, text_length}, *value);
}

bool vg_checkint4(const char* text, size_t text_length, int32_t* value) {
    return CHECKINT4({text, text_length}, *value);
}

bool vg_checkint8(const char* text, size_t text_length, int64_t* value) {
    return CHECKINT8({text, text_length}, *value);
}
