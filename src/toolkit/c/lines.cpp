#include "toolkit/lines.h"
#include "toolkit/c/out_text.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

bool vg_flagexistsret(const char* line, size_t line_length, const char* flag, size_t flag_length,
                      char* rest, size_t rest_capacity, size_t* rest_length) {
    return FLAGEXISTSRET({line, line_length}, {flag, flag_length},
                         OutText(rest, rest_capacity, rest_length));
}

bool vg_readgis(const char* line, size_t line_length, const char* key, size_t key_length) {
    return READGIS({line, line_length}, {key, key_length});
}

bool vg_writegis(const char* line, size_t line_length, const char* key, size_t key_length) {
    return WRITEGIS({line, line_length}, {key, key_length});
}

bool vg_readrowcol(const char* line, size_t line_length, const char* key, size_t key_length) {
    return READROWCOL({line, line_length}, {key, key_length});
}

bool vg_numberline(char* s, size_t s_capacity, size_t* s_used) {
    return NUMBERLINE(OutText::holding(s, s_capacity, s_used));
}

bool vg_positiveintegernumber(char* s, size_t s_capacity, size_t* s_used) {
    return POSITIVEINTEGERNUMBER(OutText::holding(s, s_capacity, s_used));
}

bool vg_readline(int32_t unit, char* line, size_t line_capacity, size_t* line_length) {
    return READLINE(unit, OutText(line, line_capacity, line_length));
}

bool vg_commentline(char* line, size_t line_capacity, size_t* line_used) {
    return COMMENTLINE(OutText::holding(line, line_capacity, line_used));
}

bool vg_checkline(const char* line, size_t line_length, const char* key, size_t key_length,
                  const char* separator, size_t separator_length, int32_t column, char* value,
                  size_t value_capacity, size_t* value_length, char* left, size_t left_capacity,
                  size_t* left_length) {
    return CHECKLINE({line, line_length}, {key, key_length}, {separator, separator_length}, column,
                     OutText(value, value_capacity, value_length),
                     OutText(left, left_capacity, left_length));
}

size_t vg_replace(char* out, size_t out_capacity, const char* s, size_t s_length, const char* find,
                  size_t find_length, const char* by, size_t by_length) {
    return given(REPLACE, out, out_capacity, view(s, s_length), view(find, find_length),
                 view(by, by_length));
}

size_t vg_replaceall(char* out, size_t out_capacity, const char* s, size_t s_length,
                     const char* find, size_t find_length, const char* by, size_t by_length) {
    return given(REPLACEALL, out, out_capacity, view(s, s_length), view(find, find_length),
                 view(by, by_length));
}

int32_t vg_csvcolumn(const char* line, size_t line_length, const char* name, size_t name_length,
                     int32_t fallback) {
    return CSVCOLUMN({line, line_length}, {name, name_length}, fallback);
}

bool vg_csvvalue(const char* line, size_t line_length, int32_t column, float* value) {
    return CSVVALUE({line, line_length}, column, *value);
}

size_t vg_extractstring(char* out, size_t out_capacity, const char* line, size_t line_length,
                        const char* lowerLine, size_t lowerLine_length, const char* keyword,
                        size_t keyword_length, int32_t column) {
    return given(EXTRACTSTRING, out, out_capacity, view(line, line_length),
                 view(lowerLine, lowerLine_length), view(keyword, keyword_length), column);
}

size_t vg_extractstringrem(char* out, size_t out_capacity, const char* line, size_t line_length,
                           const char* lowerLine, size_t lowerLine_length, const char* keyword,
                           size_t keyword_length, int32_t column) {
    return given(EXTRACTSTRINGREM, out, out_capacity, view(line, line_length),
                 view(lowerLine, lowerLine_length), view(keyword, keyword_length), column);
}

int32_t vg_extractinteger(const char* line, size_t line_length, const char* lowerLine,
                          size_t lowerLine_length, const char* keyword, size_t keyword_length,
                          int32_t column, int32_t fallback) {
    return EXTRACTINTEGER({line, line_length}, {lowerLine, lowerLine_length},
                          {keyword, keyword_length}, column, fallback);
}

float vg_extractreal(const char* line, size_t line_length, const char* lowerLine,
                     size_t lowerLine_length, const char* keyword, size_t keyword_length,
                     int32_t column, float fallback) {
    return EXTRACTREAL({line, line_length}, {lowerLine, lowerLine_length},
                       {keyword, keyword_length}, column, fallback);
}

size_t vg_nexttoken(char* out, size_t out_capacity, char* line, size_t line_capacity,
                    size_t* line_used) {
    return given(NEXTTOKEN, out, out_capacity, OutText::holding(line, line_capacity, line_used));
}

int32_t vg_numberofsubstrings(const char* s, size_t s_length, const char* separator,
                              size_t separator_length) {
    return NUMBEROFSUBSTRINGS({s, s_length}, {separator, separator_length});
}

size_t vg_substring(char* out, size_t out_capacity, const char* s, size_t s_length,
                    const char* separator, size_t separator_length, int32_t k) {
    return given(SUBSTRING, out, out_capacity, view(s, s_length), view(separator, separator_length),
                 k);
}

int32_t vg_numberofnumbers(const char* s, size_t s_length) {
    return NUMBEROFNUMBERS({s, s_length});
}
