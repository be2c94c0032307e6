#!/usr/bin/env python3
"""The program needs no library but those that every Windows has. Arguments: objdump, the program."""

import re
import subprocess
import sys

OF_EVERY_WINDOWS = {"kernel32.dll", "msvcrt.dll", "user32.dll"}

listing = subprocess.run([sys.argv[1], "-p", sys.argv[2]], capture_output=True, text=True,
                         check=True).stdout
needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", listing)}
print("\n".join(sorted(needed)))
sys.exit(0 if needed and needed <= OF_EVERY_WINDOWS else "a library that must not be needed")
