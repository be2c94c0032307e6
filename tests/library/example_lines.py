"""Runs the example lines of the headers for C with a library, in a folder with the file in.txt.
Usage: example_lines.py LIBRARY"""

import ast
import ctypes
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "cmake/toolkit"))
from c_headers import all_routines

PLAIN = {"bool": ctypes.c_bool, "size_t": ctypes.c_size_t, "int32_t": ctypes.c_int32,
         "int64_t": ctypes.c_int64, "float": ctypes.c_float, "double": ctypes.c_double, "void": None}
CAPACITY = 100
WORDS = {"true": True, "false": False}
ARRAYS_OUT = ("u", "v")


def values_of(text, names):
    """The values of a list as it stands in an example."""
    for word, value in names.items():
        text = text.replace(word, str(value))
    return list(ast.literal_eval(f"[{text}]"))


class Call:
    """The arguments of one call in the form of C, and what comes out of them."""

    def __init__(self, routine, given):
        self.passed, self.outputs, self.length = [], [], None
        kinds = routine.arguments
        arguments = iter(kinds)
        comes_in = routine.name in ("vg_fileopen", "vg_opener", "vg_closer")
        for kind, name in arguments:
            if kind == "const char*":
                next(arguments)
                text = given.pop(0).encode()
                self.passed += [text, ctypes.c_size_t(len(text))]
            elif kind == "char*":
                next(arguments)
                used = (("size_t*", name + "_used") in kinds) and next(arguments)
                self.text(given.pop(0) if used else "", used or (("size_t*", name + "_length") in kinds
                                                                  and next(arguments)))
            elif kind.startswith("const ") or name in ARRAYS_OUT:
                values = given.pop(0) if kind.startswith("const ") else [0]
                array = (PLAIN[kind.removeprefix("const ")[:-1]] * len(values))(*values)
                self.passed.append(array)
                if name in ARRAYS_OUT:
                    self.outputs.append(lambda array=array: list(array))
            elif kind.endswith("*"):
                place = PLAIN[kind[:-1]](given.pop(0) if comes_in else 0)
                self.passed.append(ctypes.byref(place))
                self.outputs.append(lambda place=place: place.value)
            else:
                self.passed.append(PLAIN[kind](given.pop(0)))

    def text(self, text, has_length):
        place, length = ctypes.create_string_buffer(text.encode(), CAPACITY), ctypes.c_size_t(len(text))
        self.passed += [place, ctypes.c_size_t(CAPACITY)]
        if has_length:
            self.passed.append(ctypes.byref(length))
        else:
            self.length = length  # it is the routine's result
        self.outputs.append(lambda: place.raw[:length.value].decode())


def result_of(library, routine, example, names):
    inside, _, wanted = example.partition(" ->")
    call = Call(routine, values_of(inside[len(routine.name) + 1:-1], names))
    function = getattr(library, routine.name)
    function.restype = PLAIN[routine.result]
    result = function(*call.passed)
    if call.length is not None:
        call.length.value = result
        result = None
    return [value for value in [result] if value is not None] + [output() for output in call.outputs], \
        values_of(wanted, {**WORDS, **names})


def close(came, wanted):
    if isinstance(wanted, float):
        return abs(came - wanted) < 1e-6 * max(1, abs(wanted))
    return came == wanted


def main():
    library = ctypes.CDLL(sys.argv[1])
    library.vg_set_unattended(True)
    library.vg_filesinit(100)
    unit, faults, count = ctypes.c_int32(50), [], 0
    library.vg_opener(ctypes.byref(unit), ctypes.create_string_buffer(b"in.txt", 9), ctypes.c_size_t(9),
                      ctypes.byref(ctypes.c_size_t(6)), b"I", ctypes.c_size_t(1), b"", ctypes.c_size_t(0))
    for routine in all_routines():
        if routine.example:
            count += 1
            came, wanted = result_of(library, routine, routine.example, {"unit": unit.value})
            if len(came) != len(wanted) or not all(map(close, came, wanted)):
                faults.append(f"{routine.example}\n    came: {came}")
    print("\n".join(faults + [f"{count} examples, {len(faults)} fault(s)"]))
    sys.exit(1 if faults or count < 90 else 0)


if __name__ == "__main__":
    main()
