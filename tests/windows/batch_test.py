#!/usr/bin/env python3
"""vantelgis-batch.cmd runs many inputs side by side and tells which runs are not well."""

import argparse
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
HEAD = "Columns 1\r\n A Float\r\nData\r\nLine 0 0 1 1\r\n"


def batch(options, folder, *arguments):
    """Status and lines of a run; cmd.exe is what the launcher has of its own."""
    done = subprocess.run(shlex.split(options.launcher) + ["cmd", "/c", "vantelgis-batch.cmd",
                                                           *arguments],
                          cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, timeout=100, check=False)
    return done.returncode, done.stdout.decode("latin-1").split("\r\n")[:-1]


def expect(found, expected):
    if found != expected:
        sys.exit(f"expected {expected}\nfound    {found}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--launcher", default="")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="vantelgis-batch-") as scratch:
        folder = pathlib.Path(scratch)
        shutil.copy(options.program, folder)
        script = (TOP / "tools/vantelgis-batch.cmd").read_bytes().replace(b"\r\n", b"\n")
        (folder / "vantelgis-batch.cmd").write_bytes(script.replace(b"\n", b"\r\n"))
        for name in "good", "two words", "bad":
            (folder / f"{name}.mif").write_bytes(HEAD.encode())
            (folder / f"{name}.mid").write_text("" if name == "bad" else "7\r\n")
        (folder / "head.12da").write_text("null x\nmodel\n")

        expect(batch(options, folder, "-j", "2", "good.mif", "two words.mif", "--",
                     "-model", "a b"), (0, ["2 runs, all well"]))
        expect("model \"a b\"" in (folder / "two words.12da").read_text(), True)
        (folder / "two words.12da").unlink()
        (folder / "good.12da").unlink()
        expect(batch(options, folder, "-l", "my logs", "bad.mif", "good.mif", "two words.mif"), (1,
               ["1 of 3 runs are not well:",
                "  my logs\\0001-bad.mif.log: ERROR 0254 - Failed to read object attribute data "
                "record for a LINE object in GIS layer."]))
        expect(sorted(path.name for path in (folder / "my logs").iterdir()),
               ["0001-bad.mif.log", "0002-good.mif.log", "0003-two words.mif.log"])
        expect(batch(options, folder, "head.12da", "--", "-mif"), (1,
               ["1 of 1 runs are not well:",
                "  head.12da.log: WARNING - Problems finding start of data in .12da file"]))
        expect(batch(options, folder)[0], 2)
    return 0


if __name__ == "__main__":
    sys.exit(main())
