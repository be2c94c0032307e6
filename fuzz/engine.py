"""How the scripts of tools run the fuzz drivers."""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build" / "fuzz"
PROGRAM = FOLDER / "fuzz" / "vantelgis_fuzz"
# The engine's usual choice among its inputs costs up to a third of the time and finds no more here.
OPTIONS = ["-entropic=0", "-timeout=25", "-rss_limit_mb=2048", "-malloc_limit_mb=512",
           "-print_final_stats=1", "-close_fd_mask=0"]
# Bytes of an input; the smallest package has 9,000.
LONGEST = {"gpkg": 20_000}
LONGEST_OF_OTHERS = 4096


def build():
    subprocess.run([ROOT / "tools/install-packages", "fuzz"], check=True)
    subprocess.run([ROOT / "tools/build", "fuzz", "vantelgis_fuzz"], check=True)


def drivers():
    """The names of all drivers."""
    return subprocess.run([PROGRAM, "--drivers"], capture_output=True, text=True,
                          check=True).stdout.split()


def command(name, seconds, options=()):
    """The command line that runs a driver. What it learns stays for the next run."""
    seeds = FOLDER / "seeds" / name
    subprocess.run(["python3", ROOT / "fuzz/make_seeds.py", name, seeds], check=True)
    corpus = FOLDER / "corpus" / name
    words = ROOT / "fuzz/words" / f"{name}.dict"
    for folder in corpus, FOLDER / "found":
        folder.mkdir(parents=True, exist_ok=True)
    folders = [corpus, seeds, ROOT / "fuzz/findings" / name]
    return [PROGRAM, f"--driver={name}", f"-max_total_time={seconds}", *OPTIONS,
            f"-max_len={LONGEST.get(name, LONGEST_OF_OTHERS)}",
            f"-artifact_prefix={FOLDER / 'found' / name}-",
            *([f"-dict={words}"] if words.exists() else []), *options,
            *[folder for folder in folders if folder.is_dir()]]
