#!/usr/bin/env python3
"""Makes the Debian package of a build, installs it into an empty root with dpkg, runs what is there,
and removes it again. Arguments: the build folder."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
DOCUMENTS = "usr/share/doc/vantelgis"
PROGRAMS = "vantelgis", "vantelgis-batch", "vantelgis-gpkg"
FILES = {
    *(f"usr/bin/{program}" for program in PROGRAMS),
    *(f"usr/share/man/man1/{program}.1" for program in PROGRAMS),
    f"{DOCUMENTS}/guide.html", f"{DOCUMENTS}/CHANGES.md",
    "usr/share/bash-completion/completions/vantelgis-batch",
}
EXAMPLES = f"{DOCUMENTS}/examples"
HEADERS = f"{DOCUMENTS}/headers"


def output(*command, **options):
    done = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}: status {done.returncode}\n{done.stdout}")
    return done.stdout


def installed(root):
    return {path.relative_to(root).as_posix() for path in (root / "usr").rglob("*")
            if path.is_file()}


def check(holds, what):
    if not holds:
        sys.exit(f"not so: {what}")


def check_files(root):
    files = installed(root)
    samples = {name for name in files if name.startswith((EXAMPLES + "/", HEADERS + "/"))}
    check(files - samples == FILES, f"the files are those expected: {sorted(files ^ FILES)}")
    for name in f"{EXAMPLES}/site.12da", f"{HEADERS}/GDA2020 MGA zone 56/Header.prj":
        check(name in samples, f"{name} is there")


def check_runs(root, work):
    """The installed programs on an installed example; each finds the others."""
    shutil.copytree(root / EXAMPLES, work)
    search = {**os.environ, "PATH": f"{root / 'usr/bin'}:{os.environ['PATH']}"}
    for arguments, result in (["site.12da", "--", "-mif"], "site.12da.mif"), \
                             (["site.12da", "--to", "gpkg"], "site.gpkg"):
        output("vantelgis-batch", *arguments, cwd=work, env=search)
        check((work / result).stat().st_size > 0, f"{result} is there")


def check_manual(root):
    if shutil.which("groff") is None:
        return
    for page in (root / "usr/share/man/man1").iterdir():
        told = output("groff", "-man", "-ww", "-z", page)
        check(told == "", f"{page.name} is sound: {told}")
        check(page.stat().st_size > 1000, f"{page.name} tells something")
    text = output("groff", "-man", "-Tascii", "-P-c", root / "usr/share/man/man1/vantelgis.1")
    for words in "-results velocity.mif", "ERROR 0310", "Press Enter to Continue":
        check(words in text, f"the manual page tells of {words}")


def dpkg(root, *arguments):
    output("dpkg", f"--root={root}", "--force-not-root", "--force-depends", f"--log={root}/log",
           *arguments)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    if any(shutil.which(tool) is None for tool in ("dpkg", "dpkg-shlibdeps", "cpack")):
        print("dpkg, dpkg-dev or cpack is missing")
        return SKIPPED
    with tempfile.TemporaryDirectory(prefix="vantelgis-package-") as scratch:
        scratch = pathlib.Path(scratch).resolve()
        # An installation builds what isn't there yet.
        for document in (build / "documents").rglob("*"):
            if document.is_file():
                document.unlink()
        plain = scratch / "plain"
        output("cmake", "--install", build, "--component", "program", "--prefix", "/usr",
               env={**os.environ, "DESTDIR": str(plain)})
        check_files(plain)

        output("cpack", "--config", build / "CPackConfig.cmake", "-G", "DEB", "-B", scratch / "deb",
               cwd=scratch)
        package, = (scratch / "deb").glob("vantelgis_*.deb")
        root = scratch / "root"
        for folder in "updates", "info", "triggers":
            (root / "var/lib/dpkg" / folder).mkdir(parents=True)
        for name in "status", "available":
            (root / "var/lib/dpkg" / name).touch()
        dpkg(root, "--install", package)
        check_files(root)
        check_runs(root, scratch / "work")
        check_manual(root)
        dpkg(root, "--purge", "vantelgis")
        check(not (root / "usr").exists(), "nothing is left behind")
    print("The package installs, runs and leaves nothing behind")
    return 0


if __name__ == "__main__":
    sys.exit(main())
