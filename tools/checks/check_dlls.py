#!/usr/bin/env python3
"""The programs need no library but those that every Windows has. Arguments: objdump, the programs."""

import re
import subprocess
import sys

OF_EVERY_WINDOWS = {"kernel32.dll", "msvcrt.dll", "user32.dll"}

faults = 0
for program in sys.argv[2:]:
    listing = subprocess.run([sys.argv[1], "-p", program], capture_output=True, text=True,
                             check=True).stdout
    needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", listing)}
    print(program, *sorted(needed))
    faults += not needed or not needed <= OF_EVERY_WINDOWS
sys.exit(f"{faults} need a library that must not be needed" if faults else 0)
