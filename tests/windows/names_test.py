#!/usr/bin/env python3
"""Names that other alphabets are written in, in one ANSI page: whatever a file is called, the programs
do what they do when it has a plain name of as many bytes. Beside each file lie those that a program
would take which loses a character: they stay as they are.
Arguments: the page (1252 or 932), the converter, the batch program, an icon's program, what starts a
program with half a character, what starts a Windows program."""

import fcntl
import json
import os
import pathlib
import pty
import re
import select
import shlex
import struct
import subprocess
import sys
import tempfile
import termios
import tty

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
LOCALES = {"1252": "en_AU", "932": "ja_JP"}
# The name, its bytes inside the program, and names that it must not be taken for.
IN_UTF8 = "utf-8"
NAMES = {
    "1252": [
        ("Bäche", "cp1252", ["Bache", "Baeche"]),
        ("Ωā", IN_UTF8, ["Oa", "__", "??"]),
        ("日本語", IN_UTF8, ["___"]),
        ("😀", IN_UTF8, ["_"]),
        ("é Ω日😀", IN_UTF8, ["é O__", "e O__"]),
        ("Ａ", IN_UTF8, ["A"]),
        ("Ã©", IN_UTF8, ["é"]),  # the page's bytes of it are UTF-8's of the other
    ],
    "932": [
        ("日本語", "cp932", []),
        ("ポア", "cp932", []),  # ends of characters that are | and A
        ("Ω", "cp932", ["O"]),
        ("é", IN_UTF8, ["e"]),
        ("表ソ", IN_UTF8, []),  # ends of characters that are a backslash
        ("本明", IN_UTF8, []),  # begins with the byte of the dash of options
        ("予", IN_UTF8, []),
        ("ﾃｩ", IN_UTF8, ["é"]),
        ("本é日😀", IN_UTF8, ["本e日_"]),
        ("a¥b", IN_UTF8, []),
    ],
}
# What is converted: arguments; {} stands before the name of each sample.
RUNS = [
    ["{}creek.mif"], ["{}kerb.shp"], ["-zln", "{}levee.mif"], ["-zln", "{}levels.mif", "{}invert.mif"],
    ["-results", "{}velocity.mif"], ["-mif", "{}site.12da"], ["-shp", "{}site.12da"],
    ["-out", "{}below\\{}other", "Z:{}creek.mif"],
    ["-xs", "-mif", "{}below\\{}sections.12da"], ["-xs", "-shp", "{}below\\{}sections.12da"],
]


class Page:
    """Runs programs whose ANSI page is the given one: Wine takes it from the locale."""

    def __init__(self, page, launcher, scratch):
        self.codec = f"cp{page}"
        self.launcher = shlex.split(launcher)
        locale = LOCALES[page] + ".UTF-8"
        subprocess.run(["localedef", "-i", LOCALES[page], "-f", "UTF-8", scratch / locale], check=True)
        self.environment = os.environ | {"LOCPATH": str(scratch), "LC_ALL": locale}

    def encoded(self, name):
        try:
            return name.encode(self.codec)
        except UnicodeEncodeError:
            return name.encode()

    def run(self, folder, *command, typed=b"", status=0):
        done = subprocess.run([*self.launcher, *command], cwd=folder, env=self.environment, check=False,
                              input=typed, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=60)
        assert done.returncode == status, f"{command}: {done}"
        return done.stdout.replace(b"\r\n", b"\n")


def samples(folder, name, inside):
    """The examples, with the name before theirs, and an archive of two sections that bear it."""
    below = folder / (name + "below")
    below.mkdir()
    for path in EXAMPLES.glob("*.*"):
        kept = path.name if path.stem == "Header" else name + path.name
        (folder / kept).write_bytes(path.read_bytes())
        if path.stem in ("Header", "sections"):
            sections = path.read_bytes().replace(b"XS_100", inside).replace(b"XS_140", "Жд".encode())
            (below / kept).write_bytes(sections)


def contents(folder):
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in sorted(folder.rglob("*")) if path.is_file()}


def plain(data, forms):
    """The bytes with the name in its forms as {}, whatever room it takes."""
    for form in forms:
        data = data.replace(form, b"{}")
    data = re.sub(rb'(?m)^(model|Executable:).*', rb"\1", data)
    return re.sub(rb"  +", b" ", data)


def outcomes(page, program, folder, name, inside, decoys=()):
    """Of each run the console and the new files."""
    told = []
    for number, arguments in enumerate(RUNS):
        work = folder / str(number)
        work.mkdir(parents=True)
        samples(work, name, inside)
        for decoy in decoys:
            for path in EXAMPLES.glob("*.*"):
                (work / (decoy + path.name)).write_bytes(b"another file")
        before = contents(work)
        console = page.run(work, program, "-b", *[text.replace("{}", name) for text in arguments])
        after = contents(work)
        # Joined to another text, a name may be in the other form.
        joined = "-xs" in arguments or "-out" in arguments
        forms = [inside, name.encode(), page.encoded(name)] if joined else [inside]
        files = {path.replace(name, "{}"): plain(data, forms)
                 for path, data in after.items() if before.get(path) != data}
        assert len(after) - len(files) == len(before), f"{arguments}: {sorted(files)}"
        assert files, console
        told.append((plain(console, forms), files))
    return told


def check_runs(page, program, folder, names):
    wanted = outcomes(page, program, folder / "plain", "plain", b"plain")
    for name, codec, decoys in names:
        got = outcomes(page, program, folder / name, name, name.encode(codec), decoys)
        for arguments, ours, theirs in zip(RUNS, got, wanted):
            assert ours == theirs, f"{name} {arguments}: {ours[0].decode('latin-1')}\n" + "\n".join(
                f"{key}: {ours[1].get(key)}\nnot {theirs[1].get(key)}"
                for key in sorted(ours[1].keys() | theirs[1].keys()) if ours[1].get(key) != theirs[1].get(key))



def files_of(folder, name, *samples):
    """A folder with the named samples below the name."""
    folder.mkdir(parents=True, exist_ok=True)
    for sample in (*samples, "Header.mif"):
        kept = sample if sample == "Header.mif" else name + sample
        (folder / kept).write_bytes((EXAMPLES / sample).read_bytes())
    return folder


def check_paths(page, program, batch, folder, name):
    """Names of 300 characters, with the mark of such names, on another computer."""
    deep = "\\".join([("d" * 90)] * 3) + "\\" + name
    below = folder / deep.replace("\\", "/")
    files_of(below, name, "creek.mif", "creek.mid", "sections.12da")
    marked = "\\\\?\\Z:" + f"{folder}/{deep}/".replace("/", "\\")
    for path, result in ((deep + "\\", "a.12da"), (marked, "b.12da")):
        page.run(folder, program, "-b", "-out", path + result, path + name + "creek.mif")
        assert b"string 2d" in (below / result).read_bytes(), path
    for path in (deep, marked[:-1]):
        told = page.run(folder, batch, "--report", f"{path}\\r.html", f"{path}\\{name}creek.mif")
        for made in (name + "creek.12da", "r.html"):
            assert (below / made).is_file(), (path, told)
            (below / made).unlink()
    page.run(folder, program, "-b", "-xs", "-mif", deep + "\\" + name + "sections.12da")
    assert (below / "XS_100.csv").is_file()
    told = page.run(folder, program, "-b", f"\\\\nowhere\\share\\{name}.mif")
    assert b"Can't open: \\\\nowhere\\share\\" in told, told


def check_typed(page, program, folder, name):
    """What is typed at a console, which has wide characters."""
    files_of(folder, name, "creek.mif", "creek.mid")
    ours, console = pty.openpty()
    fcntl.ioctl(console, termios.TIOCSWINSZ, struct.pack("4H", 50, 200, 0, 0))
    tty.setraw(console)  # Enter arrives as Wine's console knows it
    with subprocess.Popen([*page.launcher, program, "-b", "other.mif"], cwd=folder, env=page.environment,
                          stdin=console, stdout=console, stderr=console, start_new_session=True,
                          preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0)) as run:
        os.close(console)
        try:
            for extension in ("mif", "mid"):
                wait_for(ours, b"file name:")
                os.write(ours, f"{name}creek.{extension}\r".encode())
            wait_for(ours, b"Finished")
            assert run.wait(timeout=30) == 0
        finally:
            run.kill()
            os.close(ours)
    assert b"top of left bank" in (folder / "other.12da").read_bytes()


def wait_for(console, text):
    shown = b""
    while text not in shown:
        assert select.select([console], [], [], 30)[0], shown
        shown += os.read(console, 4096)


def check_batch(page, batch, folder, name, codec):
    """vantelgis-batch in the same folder, whose results are those of the converter."""
    below = folder / name
    files_of(below, name, "creek.mif", "creek.mid", "levels.mif", "levels.mid", "invert.mif",
             "invert.mid", "sections.12da")
    archive = below / (name + "sections.12da")
    archive.write_bytes(archive.read_bytes().replace(b"XS_100", name.encode(codec)))
    (folder / "list.txt").write_text(f"{name}\\{name}levels.mif\t{name}\\{name}invert.mif\n", "utf-8")
    for arguments, result in (([f"{name}\\{name}c*.mif"], name + "creek.12da"),
                              (["@list.txt", "--", "-zln"], name + "invert.12da"),
                              ([f"{name}\\{name}sections.12da", "--", "-xs", "-mif"], name + ".csv")):
        told = page.run(folder, batch, "--report", name + ".json", *arguments).decode()
        report = json.loads((folder / (name + ".json")).read_text("utf-8"))
        outputs = [made for run in report["runs"] for made in run["files"]]
        assert any(made.endswith(result) for made in outputs) and (below / result).is_file(), (told, report)


def check_half_characters(page, starter, programs, folder):
    """A name that is no text is refused, and nothing is taken for it."""
    files_of(folder, "\ufffd", "creek.mif", "creek.mid")
    files_of(folder, "x", "creek.mif", "creek.mid")
    before = contents(folder)
    for program, status, words in programs:
        told = page.run(folder, starter, program, status=status)
        assert words in told and contents(folder) == before, told


def main():
    page, converter, batch, icon, half_character, launcher = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="vantelgis-names-") as scratch:
        scratch = pathlib.Path(scratch)
        windows = Page(page, launcher, scratch)
        check_runs(windows, converter, scratch / "runs", NAMES[page])
        for name, codec, _ in NAMES[page]:
            check_batch(windows, batch, scratch / "batch" / name, name, codec)
            check_paths(windows, converter, batch, scratch / "paths" / name, name)
        for name in (NAMES[page][0][0], NAMES[page][-2][0]):
            check_typed(windows, converter, scratch / "typed" / name, name)
        programs = [(converter, 0, b"not valid text"), (batch, 2, b""), (icon, 2, b"no text")]
        check_half_characters(windows, half_character, programs, scratch / "half")


main()
