#!/usr/bin/env python3
"""Converts a layer with standard streams closed or left unread: the archive must be whole."""

import argparse
import pathlib
import subprocess
import sys
import tempfile

OBJECTS = 3000  # their lines are more than the console holds back
WAYS = {  # how a shell starts the program
    "standard output closed": '"$0" -b lines.mif >&- </dev/null; echo $?',
    "all streams closed": '"$0" -b lines.mif <&- >&- 2>&-; echo $?',
    "nobody reads":
        '{ "$0" -b lines.mif </dev/null; echo $? >st; } | head -c 1 >/dev/null; cat st',
}

if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    program = pathlib.Path(parser.parse_args().program).resolve()
    faults = []
    for name, script in WAYS.items():
        with tempfile.TemporaryDirectory(prefix="vantelgis-streams-") as folder:
            work = pathlib.Path(folder)
            lines = "".join(f"Line 0 0 {i} 1\n" for i in range(OBJECTS))
            (work / "lines.mif").write_text("Columns 1\n  ID Integer\nData\n" + lines)
            (work / "lines.mid").write_text("1\n" * OBJECTS)
            done = subprocess.run(["sh", "-c", script, program], cwd=work, capture_output=True,
                                  text=True, timeout=60, check=False)
            archive = (work / "lines.12da").read_text()
            if done.stdout != "0\n":
                faults.append(f"{name}: status {done.stdout}")
            if archive.count("string 2d {") != OBJECTS or "Polyline" in archive:
                faults.append(f"{name}: the archive is not whole")
    sys.exit("\n".join(faults) or 0)
