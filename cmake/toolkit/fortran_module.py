"""Writes the Fortran module of the routine set: an interface for each routine of the headers for C, and
their constants. Texts go as in C: the characters and their number."""

import re
import textwrap

from c_headers import FOLDER, HEADERS, all_routines

RESULTS = {"bool": "logical(c_bool)", "size_t": "integer(c_size_t)", "int32_t": "integer(c_int32_t)",
           "float": "real(c_float)", "const char*": "type(c_ptr)"}
VALUES = {**RESULTS, "double": "real(c_double)", "int64_t": "integer(c_int64_t)",
          "handler": "type(c_funptr)"}
HEAD = """! The routine set of vantelgis for Fortran. A text is passed as its characters and their number:
!   length = vg_fileext(out, len(out, c_size_t), path, len_trim(path, c_size_t))
module vantelgis
  use, intrinsic :: iso_c_binding
  implicit none
"""


def declaration(kind, name):
    """The Fortran declaration of one argument."""
    if kind in VALUES and kind != "const char*":
        return f"{VALUES[kind]}, value :: {name}"
    constant = kind.startswith("const ")
    base = kind.removeprefix("const ").rstrip("*")
    if base == "char":
        return f"character(kind=c_char), intent({'in' if constant else 'inout'}) :: {name}(*)"
    shape = "(*)" if constant or name in ("u", "v") else ""
    return f"{VALUES[base]}, intent({'in' if constant else 'inout'}) :: {name}{shape}"


def statement(text):
    """A statement on lines of ordinary length."""
    return " &\n".join(textwrap.wrap(text, 90, initial_indent="    ", subsequent_indent="      "))


def interface(routine):
    kind = "subroutine" if routine.result == "void" else "function"
    names = ", ".join(name for _, name in routine.arguments)
    result = "" if routine.result == "void" else " result(answer)"
    lines = [statement(f'{kind} {routine.name}({names}) bind(c, name="{routine.name}"){result}'),
             "      import"]
    lines += ["      " + declaration(*argument) for argument in routine.arguments]
    if result:
        lines.append(f"      {RESULTS[routine.result]} :: answer")
    return "\n".join(lines + [f"    end {kind}"])


def constants():
    text = "".join((FOLDER / header).read_text("utf-8") for header in HEADERS)
    return [f"  integer(c_int32_t), parameter :: {name} = {value}"
            for name, value in re.findall(r"\b(VG_\w+) = (\d+)", text)]


print(HEAD + "\n".join(constants()) + "\n\n  interface")
print("\n\n".join(map(interface, all_routines())))
print("  end interface\nend module vantelgis")
