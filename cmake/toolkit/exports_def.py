"""Writes the names of a linker's version script as a .def file. Usage: exports_def.py MAP"""

import pathlib
import re
import sys

RECORDS = {"DMESSAGES", "openerSettings"}


def exported_names(script):
    text = re.sub(r"/\*.*?\*/", "", script, flags=re.DOTALL)
    return re.findall(r"\b([A-Za-z]\w*);", re.sub(r"}.*;", "", text))


if __name__ == "__main__":
    names = exported_names(pathlib.Path(sys.argv[1]).read_text("utf-8"))
    print("LIBRARY vantelgis_toolkit.dll\nEXPORTS")
    for name in names:
        print(f"    {name}" + (" DATA" if name in RECORDS else ""))
