"""Reads a file line by line through the opener and adds up the first number of each line.
Usage: levels.py LIBRARY FILE   where LIBRARY is libvantelgis_toolkit.so or vantelgis_toolkit.dll"""

import ctypes
import sys

library = ctypes.CDLL(sys.argv[1])
for routine in (library.vg_at_end, library.vg_readline, library.vg_csvvalue):
    routine.restype = ctypes.c_bool
library.vg_areal.restype = ctypes.c_size_t


def text(value):
    """The two arguments of a text that goes in."""
    encoded = value.encode()
    return encoded, ctypes.c_size_t(len(encoded))


print("reading", sys.argv[2], flush=True)  # Python's text is in a buffer of its own
unit, total = ctypes.c_int32(0), 0.0
line, length = ctypes.create_string_buffer(200), ctypes.c_size_t()
library.vg_filesinit(100)
library.vg_fileopen(ctypes.byref(unit), *text("I"), *text(sys.argv[2]))
while not library.vg_at_end(unit):
    if not library.vg_readline(unit, line, ctypes.c_size_t(200), ctypes.byref(length)):
        continue  # a comment
    level = ctypes.c_float()
    if library.vg_csvvalue(line, length, 1, ctypes.byref(level)):
        total += level.value
library.vg_closer(ctypes.byref(unit))

length = library.vg_areal(line, ctypes.c_size_t(200), ctypes.c_float(total))
print("sum", line.raw[:length].decode())
