"""What Processing lets through is refused with the parameter, the layer and the cure; and a run
that fails or is cancelled leaves the old result."""

import json
import os
import re
import shutil
import subprocess
import sys
import time
import unittest

from support import (DEGREES, EXAMPLES, FOLDER, MGA55, PLUGINS, PROGRAMS, ROOT, SITE, ZIP, Log,
                     layer, refused, run)

from processing.core.ProcessingConfig import ProcessingConfig
from qgis.core import QgsProcessingException

LINES = layer("LineString", "n:string z:double", ("LineString(0 0, 3 4)", "a", 1))
POINTS = layer("Point", "n:string v:double", ("Point(0 0)", "a", 1), name="pits")
POLE = layer("LineString", "", ("LineString(147 -36, 147 -91)",), system=DEGREES, name="pole")
LONG = layer("LineString", "z:double", (
    "LineString(" + ",".join(f"{x} 0" for x in range(100_001)) + ")", 1), name="long")
FAR = layer("Point", "v:double", ("Point(0 0)", 1e6), name="far")
# Algorithm, INPUT, the other parameters, and the words of the refusal.
REFUSALS = (
    ("breaklines2d", POINTS, {}, 'INPUT ("pits"): the layer has points'),
    ("breaklines2d", LINES, {"NAME": "no"}, 'NAME ("roads"): there is no field "no"'),
    ("breaklines2d", LINES, {"CRS": "EPSG:999999"}, 'CRS ("roads"): there is no such'),
    ("breaklines2d", LINES, {"CRS": DEGREES}, "counts in degrees"),
    ("breaklines2d", POLE, {}, "an archive needs a projected one"),
    ("breaklines2d", POLE, {"CRS": MGA55}, 'INPUT ("pole"): a vertex of feature 1 has no place'),
    ("breaklines2d", LINES, {"NMAE": "n"}, 'NMAE ("roads"): breaklines2d has no such'),
    ("breaklines2d", "gone", {}, 'INPUT ("gone"): this layer can\'t be opened'),
    ("breaklines3d", LINES, {}, "POINTS or ELEVATION"),
    ("breaklines3d", LINES, {"ELEVATION": "n"}, 'ELEVATION ("roads"): the field "n" is of the'),
    ("breaklines3d", LINES, {"POINTS": POINTS}, 'POINT_ELEVATION ("pits"): the points have no Z'),
    ("breaklines3d", LINES, {"POINTS": LINES, "ELEVATION": "z"}, 'POINTS ("roads"): the layer has'),
    ("breaklines3d", LONG, {"ELEVATION": "z"}, 'INPUT ("long"): feature 1 has a line of 100001'),
    ("results", POINTS, {"VALUE": "n"}, "to_real"),
    ("results", POINTS, {}, 'VALUE ("pits"): choose the field'),
    ("results", FAR, {"VALUE": "v"}, "too long for its columns"),
    ("archivetolayers", "none.12da", {}, "no such file"),
    ("archivetolayers", __file__, {}, "extension .12da or .4da"),
    ("openarchive", SITE, {"CRS": DEGREES}, "counts in degrees"),
    ("openarchive", SITE, {"CRS": "EPSG:999999"}, "site.12da\"): there is no such coordinate"),
    ("layerstoarchive", [], {}, "INPUT: no layer is chosen"),
    ("layerstoarchive", [POINTS], {}, 'INPUT ("pits"): the layer has points'),
    ("layerstoarchive", [LINES], {"COLOUR": "no"}, 'COLOUR ("roads"): none of the layers'),
    ("layerstoarchive", [LINES, "gone"], {}, "INPUT: a layer can't be opened"),
)
# The script of Debian 12 adds an option that the program itself doesn't know.
QGIS_PROCESS = shutil.which("qgis_process.bin") or "qgis_process"


def scratch_folders():
    return [name for name in os.listdir(FOLDER.parent) if name.startswith("processing_")
            for name in os.listdir(FOLDER.parent / name) if name.startswith("vantelgis_")]


class Refusals(unittest.TestCase):
    """Each with its words, and no result touched."""

    def test_words_and_old_results(self):
        old = FOLDER / "old.12da"
        for algorithm, given, parameters, words in REFUSALS:
            with self.subTest(words):
                old.write_text("old")
                if algorithm != "archivetolayers":
                    parameters = parameters | {"OUTPUT": str(old)}
                self.assertIn(words, refused(algorithm, INPUT=given, **parameters))
                self.assertEqual(old.read_text(), "old")
        self.assertEqual(scratch_folders(), [])

    def test_output_that_cannot_be_written(self):
        blocked = FOLDER / "file"
        blocked.write_text("")
        self.assertIn("can't be written",
                      refused("breaklines2d", INPUT=LINES, OUTPUT=f"{blocked}/x.12da"))


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

    def test_layers_stay_when_the_copying_is_cancelled(self):
        levelled = self.folder.with_suffix(".12da")
        levelled.write_text('model "m"\nstring 3d {\n data {\n1 1 1\n2 2 2\n }\n}\n')
        for algorithm, last, parameters in (
                ("archivetolayers", "LINES", {"INPUT": str(levelled), "CRS": MGA55}),
                ("breaklines3d", "DANGLES", {"INPUT": LINES, "POINTS": FAR,
                                             "POINT_ELEVATION": "v"})):
            for extension in ("shp", "gpkg"):
                path = self.folder / f"{last}.{extension}"
                paths = {last: str(path)}
                run(algorithm, **parameters, **paths)
                old = {file.name: file.read_bytes() for file in self.folder.iterdir()}
                with self.assertRaisesRegex(QgsProcessingException, "Cancelled"):
                    run(algorithm, Log(cancel_at="Converted:"), **parameters, **paths)
                self.assertEqual({file.name: file.read_bytes() for file in self.folder.iterdir()},
                                 old)
                path.with_suffix(".qix").write_text("an index of the old layer")
                log = Log()
                result, _ = run(algorithm, log, **parameters, **paths)
                self.assertEqual(result[last], str(path))
                self.assertEqual({file.name for file in self.folder.iterdir()} - set(old),
                                 set() if extension == "shp" else {f"{last}.qix"})
                shutil.rmtree(self.folder)
                self.folder.mkdir()

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


class Outside(unittest.TestCase):
    """Whole programs of QGIS in a profile of their own."""

    def test_window(self):
        picture = os.environ.get("VANTELGIS_PICTURE", str(FOLDER / "window.png"))
        found = subprocess.run([ROOT / "tools" / "draw-qgis-window", ZIP, picture], check=True,
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE).stdout
        self.assertEqual(json.loads(found), {
            "layers": [["site", 7, "categorizedSymbol"]],
            "actions": [["Save layer as 12d archive…", True]], "picture": True})

    def test_commands_of_the_guide(self):
        folder = FOLDER / "guide"
        shutil.copytree(EXAMPLES, folder)
        environment = dict(os.environ, QGIS_CUSTOM_CONFIG_PATH=str(FOLDER / "profile"),
                           QGIS_PLUGINPATH=str(PLUGINS))
        guide = (ROOT / "docs" / "qgis.md").read_text(encoding="utf-8")
        enable, convert = re.findall(r"^ {4}qgis_process (.*)$", guide, re.MULTILINE)
        words, = re.findall(r"^ {4}(NAME .*)$", guide, re.MULTILINE)
        for command, status, said in (
                (enable, 0, "vantelgis"), (convert, 0, "Converted: 3"),
                (convert.replace("=NAME", "=no"), 1, words),
                (convert.replace("28356", "999999"), 1, 'CRS ("kerb"): there is no such')):
            (folder / "kerb.12da").unlink(missing_ok=True)
            ended = subprocess.run([QGIS_PROCESS, *command.split()], cwd=folder, env=environment,
                                   text=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, check=False)
            self.assertEqual(ended.returncode, status, ended.stdout)
            self.assertIn(said, ended.stdout)
            self.assertEqual((folder / "kerb.12da").exists(), said == "Converted: 3")
