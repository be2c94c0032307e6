/* The routine set for programs in C and in whatever can call C: each routine under its name in
   small letters with the prefix vg_, over the same code as the C++ headers.

   A text that goes in is its characters and their number; it needs no zero byte. Trailing blanks
   never count. A text that comes out is a place for characters and its capacity: what does not fit
   is cut, and a zero byte is put behind the text where there is room for one. Its length is the
   result of the routine, or goes to `..._length`. Where a text is changed in place, `..._used` is
   the number of its characters, before and after. A place may be that of a text that goes in.

   Units, counts, columns and positions count from 1. Behind "->" stand the result and what else
   comes out, in the order of the arguments. */
#ifndef VANTELGIS_H
#define VANTELGIS_H

// NOLINTBEGIN(modernize-*): this header is C
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include "vantelgis_geometry.h"
#include "vantelgis_texts.h"

#ifdef __cplusplus
extern "C" {
#endif

// File units and the opener; the modes stand in the routine page.

// vg_filesinit(100) ->
void vg_filesinit(int32_t base);
// vg_fileopen(0, "I", "in.txt") -> 101
void vg_fileopen(int32_t* unit, const char* mode, size_t mode_length, const char* name,
                 size_t name_length);
// vg_opener(7, "in.txt", "I", "levels") -> 7, "in.txt"
void vg_opener(int32_t* unit, char* name, size_t name_capacity, size_t* name_used, const char* mode,
               size_t mode_length, const char* label, size_t label_length);
// vg_closer(7) -> 0
void vg_closer(int32_t* unit);

// Messages and the stop. The record of the next message has three lines, numbered from 1.

// vg_dmessage(-1) ->
void vg_dmessage(int32_t nBlank);
void vg_dmessageclear(void);
void vg_dmessageresetcounters(void);
void vg_dline(int32_t unit);
void vg_dpause(void);
void vg_exits(void);

/// A line of the message; a number that is none of 1 to 3 stands for no line.
void vg_set_message_text(int32_t line, const char* text, size_t text_length);
size_t vg_message_text(int32_t line, char* out, size_t out_capacity);

/// A location that belongs to the message; -99999 for both says that there is none.
void vg_set_message_location(double x, double y);
void vg_message_location(double* x, double* y);

/// True: the three lines go on one line of the console.
void vg_set_message_one_line(bool one_line);
bool vg_message_one_line(void);

/// How many were reported since the last reset, the number in the last message (0 if none), and its
/// kind.
enum { VG_PLAIN = 0, VG_ERROR = 1, VG_WARNING = 2, VG_CHECK = 3, VG_UNSTABLE = 4 };
int32_t vg_message_count(int32_t kind);
void vg_set_message_count(int32_t kind, int32_t count);
int32_t vg_message_number(void);
int32_t vg_message_kind(void);

// The settings of the opener and the stop, by name. vg_filesinit gives them their start values.

/// Numbers and switches (0 or 1); those of the drives are a character. Any other name: 0, and
/// setting it does nothing.
enum {
    VG_LOG_UNIT = 1,
    VG_BOX_MODE = 2,
    VG_INPUT_DRIVE = 3,
    VG_OUTPUT_DRIVE = 4,
    VG_AUTO_FOLDERS = 5,
    VG_BLOCK_SIZE = 6,
    VG_COPY_MODE = 7,
    VG_COPY_EXACT = 8
};
void vg_set_setting(int32_t name, int32_t value);
int32_t vg_setting(int32_t name);

/// Texts.
enum { VG_BOX_TITLE = 1, VG_BOX_VERSION = 2, VG_COPY_ROOT = 3, VG_COPY_LAST = 4 };
void vg_set_setting_text(int32_t name, const char* text, size_t text_length);
size_t vg_setting_text(int32_t name, char* out, size_t out_capacity);

// The set in its host.

/// The version of the library, such as "1.1.0".
const char* vg_version(void);

/// True when the next read of the unit would meet the end of its file, false when there is a line
/// left to read. A unit that isn't open is at its end.
// vg_at_end(77) -> true
bool vg_at_end(int32_t unit);

/// Writes a text without its trailing blanks as a line, which ends in CR LF, to a unit. A write
/// that fails, or a unit that isn't open, stops the run with a message.
void vg_write_line(int32_t unit, const char* text, size_t text_length);

/// Every stop of the set calls `end` where it would end the process with status 0: after the
/// message, the closing of all units and the prompt. An `end` that returns lets the process end as
/// before, by exit(), which runs the handlers of atexit and writes out the host's files. One that
/// does not return (by an exception or longjmp) leaves the set usable behind a new vg_filesinit.
/// Null: none.
void vg_set_end(void (*end)(void));

/// What the set prints goes to `write`, in pieces of any size and with LF as line end, in place of
/// standard output; null: to standard output again.
void vg_set_console(void (*write)(const char* text, size_t text_length));

/// True, as at the start: what a routine prints is handed to the system before it returns. False:
/// it stays in the buffer of standard output, in order with what the host prints, until that is
/// flushed.
void vg_set_hand_over(bool at_once);

/// True: nobody answers, so that no question and no prompt waits for standard input.
void vg_set_unattended(bool unattended);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-*)
#endif
