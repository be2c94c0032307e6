#include "toolkit/opener.h"
#include "toolkit/c/out_text.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

void vg_filesinit(int32_t base) {
    FILESINIT(base);
}

void vg_fileopen(int32_t* unit, const char* mode, size_t mode_length, const char* name,
                 size_t name_length) {
    FILEOPEN(*unit, {mode, mode_length}, {name, name_length});
}

void vg_opener(int32_t* unit, char* name, size_t name_capacity, size_t* name_used, const char* mode,
               size_t mode_length, const char* label, size_t label_length) {
    OPENER(*unit, OutText::holding(name, name_capacity, name_used), {mode, mode_length},
           {label, label_length});
}

void vg_closer(int32_t* unit) {
    CLOSER(*unit);
}
