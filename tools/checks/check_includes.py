#!/usr/bin/env python3
"""Holds the layers of src against its #include lines: includes point downward, without a circle."""

import pathlib
import re
import sys

SRC = pathlib.Path(__file__).resolve().parents[2] / "src"

GIS = {"gis", "gis/mif", "gis/shp", "gis/dbf"}
# What the files of a folder may include of this project, beside those of the folder itself.
MAY_INCLUDE = {
    "driver": {"convert", "archive", "run", "text", "geometry"} | GIS,
    "convert": {"archive", "run", "text", "geometry"} | GIS,
    "archive": {"run", "text"},
    "gis": {"run", "text"} | GIS,
    "gis/mif": {"gis", "run", "text"},
    "gis/shp": {"gis", "gis/dbf", "run", "text"},
    "gis/dbf": {"gis", "run", "text"},
    "toolkit": {"run", "text", "geometry"},
    "toolkit/c": {"toolkit", "run", "text"},
    # The rooms below these two may include one another.
    "batch": {"command_line", "archive", "run", "text"} | GIS,
    "gpkg": {"command_line", "archive", "run", "text"},
    "drop": {"run", "text"},
    "run": {"text"},
    "command_line": set(),
    "text": set(),
    "geometry": set(),
}
# What lies around the converter stands on libraries of others, each for its own purpose.
PROGRAMS = {"batch", "gpkg"}
LIBRARY_HEADERS = {"batch": {"CLI/CLI.hpp"}, "gpkg": {"CLI/CLI.hpp", "sqlite3.h"},
                   "command_line": {"CLI/CLI.hpp"}}
# Instructions of the processor, in the compiler's own header, with plain C++ beside them.
PROCESSOR_HEADERS = {"text/find_either.h": "emmintrin.h"}
SYSTEM_HEADERS_IN = re.compile(r"(run|batch|gpkg|drop)/platform_\w+\.(cpp|h)")

STANDARD_HEADERS = set("""
algorithm any array atomic barrier bit bitset cassert ccomplex cctype cerrno cfenv cfloat charconv
chrono cinttypes climits clocale cmath codecvt compare complex concepts condition_variable coroutine
csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque
exception execution filesystem forward_list fstream functional future initializer_list iomanip ios
iosfwd iostream istream iterator latch limits list locale map memory memory_resource mutex new
numbers numeric optional ostream queue random ranges ratio regex scoped_allocator semaphore set
shared_mutex source_location span sstream stack stdexcept stop_token streambuf string string_view
syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set
utility valarray variant vector version
""".split())

# What programs in C include is C, and knows only what lies next to it.
C_HEADERS = re.compile(r"toolkit/c/vantelgis\w*\.h")
STANDARD_C_HEADERS = {"stdbool.h", "stddef.h", "stdint.h"}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
PLATFORM_TEST = re.compile(r"\b(_WIN32|_WIN64|__MINGW\w+|_MSC_VER|__linux__|__unix__|_POSIX_\w+)\b")


def folder_of(name):
    """The folder of a file; any room of a program around the converter counts as the program."""
    top = name.partition("/")[0]
    return top if top in PROGRAMS else name.rpartition("/")[0]


def project_include_fault(name, included):
    """What is wrong with one #include "..." line, or an empty text."""
    if C_HEADERS.fullmatch(name):
        return "" if (SRC / name).with_name(included).is_file() else "no such file next to it"
    if not (SRC / included).is_file():
        return "no such file below src"
    folder, target = folder_of(name), folder_of(included)
    if target not in {folder} | MAY_INCLUDE[folder]:
        return f"{folder} may not include {target}"
    return ""


def system_include_fault(name, header):
    """What is wrong with one #include <...> line, or an empty text."""
    if C_HEADERS.fullmatch(name):
        return "" if header in STANDARD_C_HEADERS else "it is no header of C"
    if (header in STANDARD_HEADERS or header in LIBRARY_HEADERS.get(folder_of(name), set())
            or header == PROCESSOR_HEADERS.get(name) or SYSTEM_HEADERS_IN.fullmatch(name)):
        return ""
    return "only the platform layer may"


def circle(graph):
    """The files of one include circle, or an empty list."""
    done, path = set(), []

    def visit(name):
        if name in path:
            return path[path.index(name):] + [name]
        if name in done:
            return []
        path.append(name)
        for included in graph.get(name, []):
            if found := visit(included):
                return found
        done.add(path.pop())
        return []

    return next((found for name in graph if (found := visit(name))), [])


def main():
    faults, graph = [], {}
    for path in sorted(p for p in SRC.rglob("*") if p.suffix in {".h", ".cpp"}):
        name = path.relative_to(SRC).as_posix()
        if folder_of(name) not in MAY_INCLUDE:
            faults.append(f"{name}: not in a folder of the layer table")
            continue
        text = path.read_text("utf-8")
        graph[name] = []
        for project, system in INCLUDE.findall(text):
            if project:
                graph[name].append(project)
            fault = (project_include_fault(name, project) if project
                     else system_include_fault(name, system))
            if fault:
                faults.append(f"{name}: includes {project or system}: {fault}")
        if PLATFORM_TEST.search(text) and not SYSTEM_HEADERS_IN.fullmatch(name):
            faults.append(f"{name}: asks which system it is built for: only the platform layer may")
    if found := circle(graph):
        faults.append("a circle of includes: " + " > ".join(found))
    print("\n".join(faults + [f"{len(graph)} files of src looked at, {len(faults)} fault(s)"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
