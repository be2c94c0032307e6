/* Strings, paths, lines and numbers; see vantelgis.h. */
#ifndef VANTELGIS_TEXTS_H
#define VANTELGIS_TEXTS_H

// NOLINTBEGIN(modernize-*): this header is C
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// Strings.

// vg_trimf("  a b ") -> "a b"
size_t vg_trimf(char* out, size_t out_capacity, const char* s, size_t s_length);
// vg_removetabs("a\tb") -> "ab"
size_t vg_removetabs(char* out, size_t out_capacity, const char* s, size_t s_length);
// vg_removequotes("\"it's\"") -> "its"
size_t vg_removequotes(char* out, size_t out_capacity, const char* s, size_t s_length);
// vg_removespaces(" a b c") -> "abc"
size_t vg_removespaces(char* out, size_t out_capacity, const char* s, size_t s_length);
// vg_doublequote("say \"x\"") -> "say \"\"x\"\""
size_t vg_doublequote(char* out, size_t out_capacity, const char* s, size_t s_length);
// vg_uppercase("Creek 1") -> "CREEK 1"
size_t vg_uppercase(char* out, size_t out_capacity, const char* s, size_t s_length);
// vg_lowercase("Creek 1") -> "creek 1"
size_t vg_lowercase(char* out, size_t out_capacity, const char* s, size_t s_length);
// vg_alphanumericonly("a-b c", "_") -> "a_b_c"
size_t vg_alphanumericonly(char* out, size_t out_capacity, const char* s, size_t s_length,
                           const char* fill, size_t fill_length);
// vg_cleanattributename("Max_h (m)", 10) -> "Max_hm"
size_t vg_cleanattributename(char* out, size_t out_capacity, const char* s, size_t s_length,
                             int32_t length);
// vg_ss256("short") -> "short"
size_t vg_ss256(char* out, size_t out_capacity, const char* s, size_t s_length);
// vg_blank("\t ") -> true, ""
bool vg_blank(char* s, size_t s_capacity, size_t* s_used);
// vg_asame("'Levee'", " LEVEE") -> true
bool vg_asame(const char* a, size_t a_length, const char* b, size_t b_length);
// vg_asamecs("Levee", "LEVEE") -> false
bool vg_asamecs(const char* a, size_t a_length, const char* b, size_t b_length);
// vg_flagexists("Read GIS Code", "gis") -> true
bool vg_flagexists(const char* line, size_t line_length, const char* flag, size_t flag_length);

// Paths: pure text work under the rules of Windows.

// vg_fileext("C:\\flood\\Creek.MIF") -> ".mif"
size_t vg_fileext(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_fileextkc("C:\\flood\\Creek.MIF") -> ".MIF"
size_t vg_fileextkc(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_file___ext("C:\\flood\\creek_P.mif") -> "_p"
size_t vg_file___ext(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_filename("C:\\flood\\Creek.MIF") -> "Creek"
size_t vg_filename(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_filenameext("C:\\flood\\Creek.MIF") -> "Creek.MIF"
size_t vg_filenameext(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_filenameno_("C:\\flood\\creek_P.mif") -> "creek"
size_t vg_filenameno_(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_filenamepath("C:\\flood\\Creek.MIF") -> "C:\\flood\\Creek"
size_t vg_filenamepath(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_filenamepathno_("C:\\flood\\creek_P.mif") -> "C:\\flood\\creek"
size_t vg_filenamepathno_(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_filefolderpath("C:\\flood\\Creek.MIF") -> "C:\\flood\\"
size_t vg_filefolderpath(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_addfolder("C:\\flood\\", "..\\gis\\a.mif") -> "C:\\gis\\a.mif"
size_t vg_addfolder(char* out, size_t out_capacity, const char* folder, size_t folder_length,
                    const char* name, size_t name_length);
// vg_removedotdot("C:\\a\\..\\b\\.\\c") -> "C:\\b\\c"
size_t vg_removedotdot(char* out, size_t out_capacity, const char* path, size_t path_length);
// vg_cleanpath("  C:\\a\\\\b") -> "C:\\a\\b", "C:\\a\\b"
size_t vg_cleanpath(char* out, size_t out_capacity, char* path, size_t path_capacity,
                    size_t* path_used);

// Lines, their fields, tokens and values.

// vg_flagexistsret("Read GIS Code == a.mif", "==") -> true, " a.mif"
bool vg_flagexistsret(const char* line, size_t line_length, const char* flag, size_t flag_length,
                      char* rest, size_t rest_capacity, size_t* rest_length);
// vg_readgis("Read GIS Code == a.mif", "code") -> true
bool vg_readgis(const char* line, size_t line_length, const char* key, size_t key_length);
// vg_writegis("Write GIS Code == a.mif", "code") -> true
bool vg_writegis(const char* line, size_t line_length, const char* key, size_t key_length);
// vg_readrowcol("Read RowCol Code == a.mid", "code") -> true
bool vg_readrowcol(const char* line, size_t line_length, const char* key, size_t key_length);
// vg_numberline("  -7.5 m") -> true, "-7.5 m"
bool vg_numberline(char* s, size_t s_capacity, size_t* s_used);
// vg_positiveintegernumber(" 012") -> true, "012"
bool vg_positiveintegernumber(char* s, size_t s_capacity, size_t* s_used);
// vg_readline(unit) -> true, "12.5"
bool vg_readline(int32_t unit, char* line, size_t line_capacity, size_t* line_length);
// vg_commentline("  value ! note") -> false, "value"
bool vg_commentline(char* line, size_t line_capacity, size_t* line_used);
// vg_checkline("Start Time == 0", "start", "==", 0) -> true, " 0", "Start Time"
bool vg_checkline(const char* line, size_t line_length, const char* key, size_t key_length,
                  const char* separator, size_t separator_length, int32_t column, char* value,
                  size_t value_capacity, size_t* value_length, char* left, size_t left_capacity,
                  size_t* left_length);
// vg_replace("a-b-c", "-", "+") -> "a+b-c"
size_t vg_replace(char* out, size_t out_capacity, const char* s, size_t s_length, const char* find,
                  size_t find_length, const char* by, size_t by_length);
// vg_replaceall("a-b-c", "-", "+") -> "a+b+c"
size_t vg_replaceall(char* out, size_t out_capacity, const char* s, size_t s_length,
                     const char* find, size_t find_length, const char* by, size_t by_length);
// vg_csvcolumn("ID, Level, Name", "level", 0) -> 2
int32_t vg_csvcolumn(const char* line, size_t line_length, const char* name, size_t name_length,
                     int32_t fallback);
// vg_csvvalue("3, 12.5, x", 2) -> true, 12.5
bool vg_csvvalue(const char* line, size_t line_length, int32_t column, float* value);
// vg_extractstring("Name = 'Levee 1', 7", "name = 'levee 1', 7", "name", 0) -> "Levee 1"
size_t vg_extractstring(char* out, size_t out_capacity, const char* line, size_t line_length,
                        const char* lowerLine, size_t lowerLine_length, const char* keyword,
                        size_t keyword_length, int32_t column);
// vg_extractstringrem("Name = a, 7", "name = a, 7", "name", 0) -> "a, 7"
size_t vg_extractstringrem(char* out, size_t out_capacity, const char* line, size_t line_length,
                           const char* lowerLine, size_t lowerLine_length, const char* keyword,
                           size_t keyword_length, int32_t column);
// vg_extractinteger("3, 4, 5", "3, 4, 5", "", 2, -1) -> 4
int32_t vg_extractinteger(const char* line, size_t line_length, const char* lowerLine,
                          size_t lowerLine_length, const char* keyword, size_t keyword_length,
                          int32_t column, int32_t fallback);
// vg_extractreal("n = 0.5", "n = 0.5", "n", 0, 0) -> 0.5
float vg_extractreal(const char* line, size_t line_length, const char* lowerLine,
                     size_t lowerLine_length, const char* keyword, size_t keyword_length,
                     int32_t column, float fallback);
// vg_nexttoken("'a b' c d") -> "a b", "c d"
size_t vg_nexttoken(char* out, size_t out_capacity, char* line, size_t line_capacity,
                    size_t* line_used);
// vg_numberofsubstrings("a;b;c", ";") -> 3
int32_t vg_numberofsubstrings(const char* s, size_t s_length, const char* separator,
                              size_t separator_length);
// vg_substring("a;b;c", ";", 2) -> "b"
size_t vg_substring(char* out, size_t out_capacity, const char* s, size_t s_length,
                    const char* separator, size_t separator_length, int32_t k);
// vg_numberofnumbers("1 2.5, 3 ! three") -> 3
int32_t vg_numberofnumbers(const char* s, size_t s_length);

// Numbers as short texts.

// vg_ainteger(-7) -> "-7"
size_t vg_ainteger(char* out, size_t out_capacity, int32_t value);
// vg_ainteger8(5000000000) -> "5000000000"
size_t vg_ainteger8(char* out, size_t out_capacity, int64_t value);
// vg_aintegerprec0(12, 6) -> "000012"
size_t vg_aintegerprec0(char* out, size_t out_capacity, int32_t value, int32_t digits);
// vg_ainteger8prec0(12, 6) -> "000012"
size_t vg_ainteger8prec0(char* out, size_t out_capacity, int64_t value, int32_t digits);
// vg_areal(12.5) -> "12.5"
size_t vg_areal(char* out, size_t out_capacity, float value);
// vg_areal8(1234567.891) -> "1234567.891"
size_t vg_areal8(char* out, size_t out_capacity, double value);
// vg_areald(2.5, 3) -> "2.500"
size_t vg_areald(char* out, size_t out_capacity, float value, int32_t decimals);
// vg_areald8(2.5, 3) -> "2.500"
size_t vg_areald8(char* out, size_t out_capacity, double value, int32_t decimals);
// vg_numberofdays("20000101") -> 1
int32_t vg_numberofdays(const char* date, size_t date_length);
// vg_checkint("12 x") -> true, 12
bool vg_checkint(const char* text, size_t text_length, int32_t* value);
// vg_checkint4("x") -> false, 0
bool vg_checkint4(const char* text, size_t text_length, int32_t* value);
// vg_checkint8("5000000000") -> true, 5000000000
bool vg_checkint8(const char* text, size_t text_length, int64_t* value);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-*)
#endif
