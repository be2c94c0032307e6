#!/usr/bin/env python3
"""Looks at what tools/package left in dist/: everything is there and of one version, the sums are
right, and the Linux programs run where there is nothing else. With --again the tree is copied to
another place and packed there without a compiler cache, and must give the same sums.

Usage: tools/checks/check_release.py [--again]
"""

import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile

TOP = pathlib.Path(__file__).resolve().parents[2]
PACKED = ["vantelgis_{0}_amd64.deb", "vantelgis-dev_{0}_amd64.deb",
          "vantelgis-{0}-linux-x86_64.tar.gz", "vantelgis-{0}-windows-x64.zip",
          "vantelgis-qgis-{0}.zip"]


def output(*command, **options):
    done = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)
    assert done.returncode == 0, f"{command}: status {done.returncode}\n{done.stdout}"
    return done.stdout


def version():
    return re.search(r"^project\(.* VERSION ([\d.]+)", (TOP / "CMakeLists.txt").read_text(),
                     re.MULTILINE)[1]


def sums(folder):
    return {name.format(version()): hashlib.sha256((folder / name.format(version())).read_bytes()).hexdigest()
            for name in PACKED}


def check_sums(folder):
    told = dict(reversed(line.split()) for line in (folder / "SHA256SUMS").read_text().splitlines())
    for name, digest in sums(folder).items():
        assert told.get(name) == digest, f"{name} is not what SHA256SUMS tells"


def check_static(folder):
    """The programs of the archive need no loader and no library, and so run in an empty root."""
    with tempfile.TemporaryDirectory() as scratch:
        root = pathlib.Path(scratch)
        with tarfile.open(folder / PACKED[2].format(version())) as archive:
            archive.extractall(root)
        top, = root.iterdir()
        programs = [path for path in (top / "bin").iterdir() if path.read_bytes()[:4] == b"\x7fELF"]
        for program in programs:
            told = output("readelf", "-lWd", program)
            assert "INTERP" not in told and "NEEDED" not in told, f"{program.name}:\n{told}"
        shutil.copytree(top / "share/doc/vantelgis/examples", root / "examples")
        enter = ["chroot"] if os.geteuid() == 0 else ["unshare", "--user", "--map-root-user", "chroot"]
        for name in "creek.mif", "kerb.shp":
            told = output(*enter, root, f"/{top.name}/bin/vantelgis", "-b", "examples/" + name)
            assert told.endswith("\nFinished.\n"), told
            assert (root / "examples" / name).with_suffix(".12da").stat().st_size > 0
    print(f"{len(programs)} programs need nothing of a Linux but its kernel")


def check_again():
    listed = subprocess.run(["git", "-C", TOP, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            stdout=subprocess.PIPE, check=True).stdout.decode()
    with tempfile.TemporaryDirectory(prefix="vantelgis again ") as scratch:
        for name in filter(None, listed.split("\0")):
            if (TOP / name).is_file():
                (pathlib.Path(scratch) / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy2(TOP / name, pathlib.Path(scratch) / name)
        output("tools/package", cwd=scratch, umask=0o077, env={**os.environ, "CCACHE_DISABLE": "1"})
        first, second = sums(TOP / "dist"), sums(pathlib.Path(scratch) / "dist")
        differing = [name for name in first if first[name] != second[name]]
        assert not differing, f"packed again, these differ: {differing}"
    print("Packed again at another place, all is the same")


def main():
    again = sys.argv[1:] == ["--again"]
    if sys.argv[1:] and not again:
        sys.exit(__doc__)
    check_sums(TOP / "dist")
    check_static(TOP / "dist")
    if again:
        check_again()


if __name__ == "__main__":
    main()
