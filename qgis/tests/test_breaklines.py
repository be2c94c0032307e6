"""Each kind of layer that QGIS can hold, and the strings that a careful person would have got."""

import math
import pathlib
import shutil
import subprocess
import unittest

from qgis.core import (QgsGeometry, QgsLineString, QgsProcessingFeatureSourceDefinition, QgsProject,
                       QgsVectorFileWriter, QgsVectorLayer, QgsVectorLayerJoinInfo)

from support import DEGREES, EXAMPLES, FOLDER, MGA55, MGA56, PROGRAMS, layer, named, run, strings

AB = "LineString(0 0, 3 4)"
AB_VERTICES = [(0, 0), (3, 4)]


def named_after(value, field="n:string"):
    return layer("LineString", field, (AB, value))


def longest(count):
    return QgsGeometry(QgsLineString([float(x) for x in range(count)], [0.0] * count))


def on_disk(source, driver, name, *creation):
    """The layer as a file of another format."""
    options = QgsVectorFileWriter.SaveVectorOptions()
    options.driverName, options.datasourceOptions = driver, list(creation)
    path = str(FOLDER / name)
    error = QgsVectorFileWriter.writeAsVectorFormatV3(
        source, path, QgsProject.instance().transformContext(), options)
    assert error[0] == QgsVectorFileWriter.NoError, error
    return QgsVectorLayer(path, "disk", "ogr")


def selected():
    made = layer("LineString", "n:string", (AB, "a"), (AB, "b"), (AB, "c"))
    made.selectByExpression("n = 'b'")
    QgsProject.instance().addMapLayer(made)
    return QgsProcessingFeatureSourceDefinition(made.id(), selectedFeaturesOnly=True)


def filtered():
    made = on_disk(layer("LineString", "n:string", (AB, "a"), (AB, "b")), "GPKG", "filtered.gpkg")
    made.setSubsetString("n = 'a'")
    return made


def joined():
    made, table = named_after("7"), layer("None", "key:string other:string", (None, "7", "seven"))
    QgsProject.instance().addMapLayers([made, table])
    join = QgsVectorLayerJoinInfo()
    join.setJoinLayer(table)
    join.setJoinFieldName("key")
    join.setTargetFieldName("n")
    join.setPrefix("")
    made.addJoin(join)
    return made


# What the layer is: the layer, its field of names, the strings, and words in the log.
PLAIN = {
    "two dimensions": (named_after("kerb"), "n", [("kerb", AB_VERTICES)], "features with lines: 1"),
    "no field": (named_after("kerb"), None, [("", AB_VERTICES)], ""),
    "NULL after a name": (layer("LineString", "n:string", (AB, "a"), (AB, None)), "n",
                          [("a", AB_VERTICES), ("", AB_VERTICES)], ""),
    "quotes and line ends": (named_after('12" pipe\r\nnew'), "n", [("12' pipe new", AB_VERTICES)],
                             "single quotes and blanks: 1"),
    "100 bytes of accents": (named_after("x" + "é" * 60), "n", [("x" + "é" * 49, AB_VERTICES)],
                             "cut there: 1"),
    "integers": (named_after(2**40, "n:int8"), "n", [(str(2**40), AB_VERTICES)], ""),
    "reals": (named_after(0.1, "n:double(10,2)"), "n", [("0.1", AB_VERTICES)], ""),
    "Z": (layer("LineStringZ", "n:string", ("LineStringZ(0 0 1, 3 4 2)", "z")), "n",
          [("z", AB_VERTICES)], "Z or M, which are dropped"),
    "M": (layer("LineStringM", "n:string", ("LineStringM(0 0 1, 3 4 2)", "m")), "n",
          [("m", AB_VERTICES)], "keeps Z"),
    "parts": (layer("MultiLineString", "n:string", ("MultiLineString((0 0,3 4),(5 5,6 6))", "p")), "n",
              [("p", AB_VERTICES), ("p", [(5, 5), (6, 6)])], ""),
    "rings": (layer("Polygon", "n:string", ("Polygon((0 0,9 0,9 9,0 0),(5 2,6 2,6 3,5 2))", "r")), "n",
              [("r", [(0, 0), (9, 0), (9, 9), (0, 0)]), ("r", [(5, 2), (6, 2), (6, 3), (5, 2)])], ""),
    "nothing there": (layer("LineString", "n:string", (None, "no"), ("LineString EMPTY", "none"),
                            (AB, "one")), "n", [("one", AB_VERTICES)], "without geometry, left out: 2"),
    "selection": (selected(), "n", [("b", AB_VERTICES)], ""),
    "filter": (filtered(), "n", [("a", AB_VERTICES)], ""),
    "join": (joined(), "other", [("seven", AB_VERTICES)], ""),
    "degrees": (layer("LineString", "n:string", ("LineString(147 -36, 147 -36.5)", "d"), system=DEGREES),
                "n", [("d", [(500000, 6016051.54677), (500000, 5960591.91754)])], "EPSG:28355"),
    "no system": (layer("LineString", "n:string", (AB, "u"), system=""), "n", [("u", AB_VERTICES)],
                  "has no coordinate system"),
    "SpatiaLite": (on_disk(named_after("lite"), "SQLite", "lite.sqlite", "SPATIALITE=YES"), "n", [("lite", AB_VERTICES)],
                   ""),
    "mixed kinds": (on_disk(layer("GeometryCollection", "n:string", (
        "GeometryCollection(Point(1 1), LineString(0 0, 3 4))", "g"), (
            "GeometryCollection(Point(1 1))", "p")), "GPKG", "mixed.gpkg"), "n", [("g", AB_VERTICES)],
                    "left out: 1"),
}


class Breaklines2d(unittest.TestCase):
    """Lines and rings."""

    def test_every_kind_of_layer(self):
        for words, (source, field, expected, said) in PLAIN.items():
            with self.subTest(words):
                result, log = run("breaklines2d", INPUT=source, NAME=field, CRS=MGA55)
                self.assertEqual(named(result["OUTPUT"]), expected)
                self.assertIn(said, log.text)

    def test_long_lines_share_the_vertex_between_their_pieces(self):
        for count, pieces in ((1000, 1), (1001, 2), (1999, 2), (2000, 3), (300_000, 301)):
            with self.subTest(count):
                result, log = run("breaklines2d", INPUT=layer("LineString", "n:string",
                                                              (longest(count), "long")), NAME="n")
                found = named(result["OUTPUT"])
                self.assertEqual(len(found), pieces)
                self.assertLessEqual(max(len(vertices) for _, vertices in found), 1000)
                whole = found[0][1] + [vertex for _, vertices in found[1:] for vertex in vertices[1:]]
                self.assertEqual(whole, [(x, 0) for x in range(count)])
                self.assertEqual("share the vertex" in log.warnings, pieces > 1)

    def test_curves_become_segments(self):
        arc = layer("CompoundCurve", "n:string", ("CompoundCurve(CircularString(0 0, 10 10, 20 0))", "arc"))
        result, log = run("breaklines2d", INPUT=arc, NAME="n")
        vertices = named(result["OUTPUT"])[0][1]
        middles = [((a[0] + b[0]) / 2 - 10, (a[1] + b[1]) / 2) for a, b in zip(vertices, vertices[1:])]
        self.assertLess(10 - min(math.hypot(*middle) for middle in middles), 0.0101)
        self.assertGreater(len(vertices), 10)
        self.assertIn("curves", log.warnings)

    def test_system_of_layer_project_or_choice(self):
        QgsProject.instance().setCrs(layer("Point", "", system=MGA56).crs())
        self.addCleanup(QgsProject.instance().clear)
        for own, chosen, x in ((MGA55, None, 500000), (DEGREES, None, -40000), (MGA55, MGA56, -40000)):
            place = "147 -36" if own == DEGREES else "500000 6016051"
            source = layer("LineString", "", (f"LineString({place}, {place})",), system=own)
            result, _ = run("breaklines2d", INPUT=source, CRS=chosen)
            self.assertAlmostEqual(named(result["OUTPUT"])[0][1][0][0], x, delta=2000, msg=(own, chosen))


POINTS = layer("PointZ", "level:double id:int", ("PointZ(0 0 10)", 1.25, 1), ("PointZ(3 4 12)", 2.25, 2),
               ("PointZ(50 50 9)", None, 3), name="levels")
FLAT = layer("LineString", "z:double", ("LineString(0 0, 1.5 2, 3 4)", 7), ("LineString(20 20, 30 30)", None),
             ("LineString(3 4, 9 9)", 12.3456789), ("LineString(40 40, 41 41)", 5.5))
NULL = -999


class Breaklines3d(unittest.TestCase):
    """Lines with elevations of points, and of their own."""

    def test_elevations(self):
        # Parameters, z of each string, and counts of dangles and unsnapped points.
        cases = {
            "own": (dict(ELEVATION="z"), [[7] * 3, [NULL] * 2, [12.3457] * 2, [5.5] * 2], (0, 0)),
            "Z of points": (dict(POINTS=POINTS), [[10, 11, 12], [NULL] * 2, [12, 12], [NULL] * 2], (1, 1)),
            "field of points": (dict(POINTS=POINTS, POINT_ELEVATION="level", ELEVATION="z"),
                                [[1.25, 1.75, 2.25], [NULL] * 2, [2.25] * 2, [5.5] * 2], (1, 0)),
        }
        for words, (parameters, expected, checks) in cases.items():
            with self.subTest(words):
                result, log = run("breaklines3d", INPUT=FLAT, DANGLES="memory:", UNSNAPPED="memory:",
                                  **parameters)
                found = strings(result["OUTPUT"])
                self.assertEqual({kind for kind, _, _ in found}, {"3d"})
                self.assertEqual([[z for _, _, z in vertices] for _, _, vertices in found], expected)
                self.assertEqual(tuple(result[name].featureCount() for name in ("DANGLES", "UNSNAPPED")),
                                 checks)
                self.assertEqual("no line took" in log.warnings, any(checks))
        self.assertIn("left out: 1", log.warnings)  # the point without a level

    def test_check_layers_have_real_elevations(self):
        result, _ = run("breaklines3d", INPUT=FLAT, POINTS=POINTS, DANGLES="memory:", UNSNAPPED="memory:")
        point, = result["UNSNAPPED"].getFeatures()
        self.assertEqual((point.geometry().constGet().z(), point["Z"]), (9, 9))
        line, = result["DANGLES"].getFeatures()
        self.assertFalse(line["Z"])  # the line has no elevation of its own: none, and not -999
        self.assertEqual(result["UNSNAPPED"].crs().authid(), MGA55)

    def test_points_and_lines_meet_in_one_system(self):
        place = QgsGeometry.fromWkt("Point(147 -36)")
        points = layer("Point", "rl:int", (place, 33), system=DEGREES)
        lines = layer("LineString", "", ("LineString(500000 6016051.54677, 500010 6016051)",))
        result, _ = run("breaklines3d", INPUT=lines, POINTS=points, POINT_ELEVATION="rl")
        self.assertEqual([z for *_, z in strings(result["OUTPUT"])[0][2]], [33, 33])


class Results(unittest.TestCase):
    """Points as symbols."""

    def test_values_and_angles(self):
        points = layer("MultiPoint", "v:double dir:double", ("MultiPoint((1 2),(3 4))", 1.5, 45),
                       ("MultiPoint((5 6))", None, 1), ("MultiPoint((7 8))", 2, None))
        result, log = run("results", INPUT=points, VALUE="v", ANGLE="dir")
        with open(result["OUTPUT"], encoding="utf-8") as file:
            text = file.read()
        self.assertEqual(text.count("rotation  45.00"), 2)
        self.assertIn(f"{'1.0000':>24} {'2.0000':>20} {'1.5000':>10}\n", text)
        self.assertIn("left out: 2", log.warnings)
        result, _ = run("results", INPUT=points, VALUE="v")
        with open(result["OUTPUT"], encoding="utf-8") as file:
            self.assertEqual(file.read().count("ARROW"), 0)


class ByHand(unittest.TestCase):
    """The examples give what the converter makes of them by itself."""

    def test_examples(self):
        folder = FOLDER / "examples"
        shutil.copytree(EXAMPLES, folder)
        mif = {name: str(folder / f"{name}.mif") for name in ("creek", "levee", "levels", "invert", "velocity")}
        levee = {kind: f"{mif['levee']}|geometrytype={kind}" for kind in ("Point", "LineString")}
        cases = (
            (["creek.mif"], "breaklines2d", dict(INPUT=mif["creek"], NAME="NAME")),
            (["kerb.shp"], "breaklines2d", dict(INPUT=str(folder / "kerb.shp"), NAME="NAME")),
            (["-zln", "levee.mif"], "breaklines3d", dict(
                INPUT=levee["LineString"], ELEVATION="Z", POINTS=levee["Point"], POINT_ELEVATION="Z")),
            (["-zln", "levels.mif", "invert.mif"], "breaklines3d", dict(
                INPUT=mif["invert"], ELEVATION="Z", POINTS=mif["levels"], POINT_ELEVATION="Z")),
            (["-results", "velocity.mif"], "results", dict(
                INPUT=mif["velocity"], VALUE="SPEED", ANGLE="ANGLE")))
        for arguments, algorithm, parameters in cases:
            with self.subTest(" ".join(arguments)):
                subprocess.run([PROGRAMS / "vantelgis", "-out", "hand.12da", *arguments], cwd=folder, check=True,
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
                result, _ = run(algorithm, CRS=MGA56, **parameters)
                hand, made = (pathlib.Path(path).read_bytes().splitlines()
                              for path in (folder / "hand.12da", result["OUTPUT"]))
                self.assertTrue(made[1].startswith(b'model "') and hand[1].startswith(b'model "'))
                self.assertEqual(made[2:], hand[2:])


if __name__ == "__main__":
    unittest.main()
