"""What Processing lets through is refused with the parameter, the layer and the cure; and a run that
fails or is cancelled leaves the old result."""

import os
import pathlib
import shutil
import subprocess
import sys
import time
import unittest

from qgis.core import QgsProcessingException

from support import (DEGREES, EXAMPLES, FOLDER, MGA55, PLUGINS, PROGRAMS, Log, ProcessingConfig, layer,
                     refused, run)

LINES = layer("LineString", "n:string z:double", ("LineString(0 0, 3 4)", "a", 1))
POINTS = layer("Point", "n:string v:double", ("Point(0 0)", "a", 1), name="pits")
EAST = layer("LineString", "n:string", ("LineString(147 -36, 147 -91)", "pole"), system=DEGREES, name="east")
LONG = layer("LineString", "z:double", (
    "LineString(" + ",".join(f"{x} 0" for x in range(100_001)) + ")", 1), name="long")
FAR = layer("Point", "v:double", ("Point(0 0)", 1e6), name="far")
# The script of Debian 12 adds an option that the program itself doesn't know.
QGIS_PROCESS = shutil.which("qgis_process.bin") or "qgis_process"
ARCHIVE = str(EXAMPLES / "site.12da")
REFUSALS = (
    ("breaklines2d", dict(INPUT=POINTS), 'INPUT ("pits"): the layer has points'),
    ("breaklines2d", dict(INPUT=LINES, NAME="no"), 'NAME ("roads"): there is no field "no"'),
    ("breaklines2d", dict(INPUT=LINES, CRS="EPSG:999999"), 'CRS ("roads"): there is no such'),
    ("breaklines2d", dict(INPUT=LINES, CRS=DEGREES), "counts in degrees"),
    ("breaklines2d", dict(INPUT=EAST), "an archive needs a projected one"),
    ("breaklines2d", dict(INPUT=EAST, CRS=MGA55), 'INPUT ("east"): a vertex of feature 1 has no place'),
    ("breaklines2d", dict(INPUT=LINES, NMAE="n"), "NMAE: breaklines2d has no such parameter"),
    ("breaklines2d", dict(INPUT="gone"), 'INPUT ("gone"): this layer can\'t be opened'),
    ("breaklines3d", dict(INPUT=LINES), "POINTS or ELEVATION"),
    ("breaklines3d", dict(INPUT=LINES, ELEVATION="n"), 'ELEVATION ("roads"): the field "n" is of the type'),
    ("breaklines3d", dict(INPUT=LINES, POINTS=POINTS), 'POINT_ELEVATION ("pits"): the points have no Z'),
    ("breaklines3d", dict(INPUT=LINES, POINTS=LINES, ELEVATION="z"), 'POINTS ("roads"): the layer has lines'),
    ("breaklines3d", dict(INPUT=LONG, ELEVATION="z"), 'INPUT ("long"): feature 1 has a line of 100001'),
    ("results", dict(INPUT=POINTS, VALUE="n"), "to_real"),
    ("results", dict(INPUT=FAR, VALUE="v"), "too long for their columns"),
    ("archivetolayers", dict(INPUT="none.12da", LINES="memory:", POINTS="memory:"), "no such file"),
    ("archivetolayers", dict(INPUT=__file__, LINES="memory:", POINTS="memory:"), "extension .12da or .4da"),
    ("openarchive", dict(INPUT=ARCHIVE, CRS=DEGREES), "counts in degrees"),
    ("layerstoarchive", dict(INPUT=[POINTS]), 'INPUT ("pits"): the layer has points'),
    ("layerstoarchive", dict(INPUT=[LINES], COLOUR="no"), 'COLOUR ("roads"): none of the layers'),
    ("layerstoarchive", dict(INPUT=[LINES, "gone"]), "INPUT: a layer can't be opened"),
)


def scratch_folders():
    return [name for name in os.listdir(FOLDER.parent) if name.startswith("processing_")
            for name in os.listdir(FOLDER.parent / name) if name.startswith("vantelgis_")]


class Refusals(unittest.TestCase):
    """Each with its words, and no result touched."""

    def test_words_and_old_results(self):
        old = FOLDER / "old.12da"
        for algorithm, parameters, words in REFUSALS:
            with self.subTest(words):
                old.write_text("old")
                if not algorithm.startswith("archiveto"):
                    parameters = dict(parameters, OUTPUT=str(old))
                self.assertIn(words, refused(algorithm, **parameters))
                self.assertEqual(old.read_text(), "old")
        self.assertEqual(scratch_folders(), [])

    def test_output_that_cannot_be_written(self):
        blocked = FOLDER / "file"
        blocked.write_text("")
        self.assertIn("can't be written", refused("breaklines2d", INPUT=LINES, OUTPUT=f"{blocked}/x.12da"))


class Running(unittest.TestCase):
    """Programs that are slow, absent or somewhere else."""

    def setUp(self):
        self.folder = FOLDER / self.id()
        self.folder.mkdir()
        self.addCleanup(ProcessingConfig.setSettingValue, "VANTELGIS_PROGRAMS", "")

    def use(self, script):
        """Another batch program in the place of the plugin's."""
        program = self.folder / "vantelgis-batch"
        program.write_text(script)
        program.chmod(0o755)
        ProcessingConfig.setSettingValue("VANTELGIS_PROGRAMS", str(self.folder))

    def test_cancel_ends_all_within_a_second(self):
        self.use(f"#!/bin/sh\ntrap '' TERM\necho '{{\"event\":\"note\",\"text\":\"begun\"}}' >&2\n"
                 f"read line && exit 1\nexec {sys.executable} -c 'import time; time.sleep(60)'\n")
        old = self.folder / "old.12da"
        old.write_text("old")
        started = time.monotonic()
        with self.assertRaisesRegex(QgsProcessingException, "Cancelled"):
            run("breaklines2d", Log(cancel_at="begun"), INPUT=LINES, OUTPUT=str(old))
        self.assertLess(time.monotonic() - started, 1.5)
        self.assertEqual((old.read_text(), scratch_folders()), ("old", []))

    def test_broken_programs(self):
        for script, words in (("#!/bin/sh\necho boom >&2\nexit 2\n", "status 2: boom"),
                              ("no program", "can't be started")):
            with self.subTest(words):
                self.use(script)
                self.assertIn(words, refused("breaklines2d", INPUT=LINES))
        (self.folder / "vantelgis-batch").unlink()
        self.assertIn("There is no vantelgis-batch in", refused("breaklines2d", INPUT=LINES))

    def test_programs_in_path(self):
        aside = PROGRAMS.with_name("aside")
        PROGRAMS.rename(aside)
        self.addCleanup(aside.rename, PROGRAMS)
        self.assertIn("found neither in the plugin", refused("breaklines2d", INPUT=LINES))
        self.addCleanup(os.environ.update, PATH=os.environ["PATH"])
        os.environ["PATH"] += f":{aside}"
        run("breaklines2d", INPUT=LINES)


class FromTheShell(unittest.TestCase):
    """qgis_process, in a profile of its own that has the plugin."""

    def test_status_and_words(self):
        profile = FOLDER / "profiles" / "default"
        shutil.copytree(PLUGINS, profile / "python" / "plugins")
        (profile / "QGIS").mkdir()
        (profile / "QGIS" / "QGIS3.ini").write_text("[PythonPlugins]\nvantelgis=true\n")
        environment = dict(os.environ, QGIS_CUSTOM_CONFIG_PATH=str(FOLDER))
        for field, status, words in (("NAME", 0, "Converted: 3"), ("no", 1, 'NAME ("kerb"): there is no field "no"')):
            output = FOLDER / f"shell_{field}.12da"
            ended = subprocess.run(
                [QGIS_PROCESS, "run", "vantelgis:breaklines2d", f"INPUT={EXAMPLES}/kerb.shp", f"NAME={field}",
                 "CRS=EPSG:28356", f"OUTPUT={output}"], env=environment, stdin=subprocess.DEVNULL, text=True,
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
            self.assertEqual((ended.returncode, output.exists()), (status, status == 0), ended.stdout)
            self.assertIn(words, ended.stdout)


if __name__ == "__main__":
    unittest.main()
