"""Each kind of layer that QGIS can hold, and the strings that a careful person would have got."""

import math
import pathlib
import unittest

from support import DEGREES, FOLDER, MGA55, MGA56, layer, run, strings

from qgis.core import (QgsGeometry, QgsLineString, QgsProcessingFeatureSourceDefinition, QgsProject,
                       QgsVectorFileWriter, QgsVectorLayer, QgsVectorLayerJoinInfo)

AB = "LineString(0 0, 3 4)"
AT = [(0, 0), (3, 4)]


def named(path):
    return [(name, vertices) for _, name, vertices in strings(path)]


def lines(*rows, kind="LineString", field="n:string", **more):
    """A layer of lines; a row that is no tuple is a name."""
    rows = [row if isinstance(row, tuple) else (AB, row) for row in rows]
    return layer(kind, field, *rows, **more)


def on_disk(source, driver, name, *creation):
    """The layer as a file of another format."""
    options = QgsVectorFileWriter.SaveVectorOptions()
    options.driverName, options.datasourceOptions = driver, list(creation)
    path = str(FOLDER / name)
    error = QgsVectorFileWriter.writeAsVectorFormatV3(
        source, path, QgsProject.instance().transformContext(), options)
    assert error[0] == QgsVectorFileWriter.WriterError.NoError, error
    return QgsVectorLayer(path, "disk", "ogr")


def selected():
    made = QgsProject.instance().addMapLayer(lines("a", "b", "c"))
    made.selectByExpression("n = 'b'")
    return QgsProcessingFeatureSourceDefinition(made.id(), selectedFeaturesOnly=True)


def filtered():
    made = on_disk(lines("a", "b"), "GPKG", "filtered.gpkg")
    made.setSubsetString("n = 'a'")
    return made


def joined():
    made, table = lines("7"), layer("None", "key:string other:string", (None, "7", "seven"))
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
    "two dimensions": (lines("kerb"), "n", [("kerb", AT)], "features with lines: 1"),
    "no field": (lines("kerb"), None, [("", AT)], ""),
    "NULL after a name": (lines("a", None), "n", [("a", AT), ("", AT)], ""),
    "quotes and line ends": (lines('12" pipe\r\nnew'), "n", [("12' pipe new", AT)], "blanks: 1"),
    "accents": (lines("x" + "é" * 60), "n", [("x" + "é" * 49, AT)], "cut there: 1"),
    "integers": (lines(2**40, field="n:int8"), "n", [(str(2**40), AT)], ""),
    "reals": (lines(0.1, field="n:double(10,2)"), "n", [("0.1", AT)], ""),
    "dates": (lines("2024-03-12", field="n:date"), "n", [("2024-03-12", AT)], ""),
    "Z": (lines(("LineStringZ(0 0 1, 3 4 2)", "z"), kind="LineStringZ"), "n", [("z", AT)],
          "Z or M, which are dropped"),
    "M": (lines(("LineStringM(0 0 1, 3 4 2)", "m"), kind="LineStringM"), "n", [("m", AT)], "or M"),
    "parts": (lines(("MultiLineString((0 0,3 4),(5 5,6 6))", "p"), kind="MultiLineString"), "n",
              [("p", AT), ("p", [(5, 5), (6, 6)])], ""),
    "rings": (lines(("Polygon((0 0,9 0,9 9,0 0),(5 2,6 2,6 3,5 2))", "r"), kind="Polygon"), "n", [
        ("r", [(0, 0), (9, 0), (9, 9), (0, 0)]), ("r", [(5, 2), (6, 2), (6, 3), (5, 2)])], ""),
    "nothing there": (lines((None, "no"), ("LineString EMPTY", "none"), "one"), "n", [("one", AT)],
                      "without geometry, left out: 2"),
    "selection": (selected(), "n", [("b", AT)], ""),
    "filter": (filtered(), "n", [("a", AT)], ""),
    "join": (joined(), "other", [("seven", AT)], ""),
    "degrees": (lines(("LineString(147 -36, 147 -36.5)", "d"), system=DEGREES), "n",
                [("d", [(500000, 6016051.54677), (500000, 5960591.91754)])], "EPSG:28355"),
    "no system": (lines("u", system=""), "n", [("u", AT)], "has no coordinate system"),
    "SpatiaLite": (on_disk(lines("lite"), "SQLite", "lite.sqlite", "SPATIALITE=YES"), "n",
                   [("lite", AT)], ""),
    "mixed kinds": (on_disk(lines(
        ("GeometryCollection(Point(1 1), LineString(0 0, 3 4))", "g"), (
            "GeometryCollection(Point(1 1))", "p"), kind="GeometryCollection"), "GPKG", "mix.gpkg"),
                    "n", [("g", AT)], "left out: 1"),
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
            line = QgsGeometry(QgsLineString([float(x) for x in range(count)], [0.0] * count))
            result, log = run("breaklines2d", INPUT=lines((line, "long")), NAME="n")
            found = named(result["OUTPUT"])
            self.assertEqual(len(found), pieces)
            self.assertLessEqual(max(len(vertices) for _, vertices in found), 1000)
            whole = found[0][1] + [at for _, vertices in found[1:] for at in vertices[1:]]
            self.assertEqual(whole, [(x, 0) for x in range(count)])
            self.assertEqual("share the vertex" in log.warnings, pieces > 1)

    def test_curves_become_segments(self):
        arc = lines(("CompoundCurve(CircularString(0 0, 10 10, 20 0))", ""), kind="CompoundCurve")
        result, log = run("breaklines2d", INPUT=arc)
        vertices = named(result["OUTPUT"])[0][1]
        nearest = min(math.hypot((a[0] + b[0]) / 2 - 10, (a[1] + b[1]) / 2)
                      for a, b in zip(vertices, vertices[1:]))
        self.assertLess(10 - nearest, 0.0101)
        self.assertIn("curves", log.warnings)

    def test_system_of_layer_project_or_choice(self):
        QgsProject.instance().setCrs(layer("Point", "", system=MGA56).crs())
        self.addCleanup(QgsProject.instance().clear)
        for own, chosen, x in ((MGA55, None, 500000), (DEGREES, None, -40000),
                               (MGA55, MGA56, -40000)):
            place = "147 -36" if own == DEGREES else "500000 6016051"
            result, _ = run("breaklines2d", CRS=chosen, INPUT=lines(
                (f"LineString({place}, {place})", ""), system=own))
            self.assertAlmostEqual(named(result["OUTPUT"])[0][1][0][0], x, delta=2000)


POINTS = layer("PointZ", "level:double id:int", ("PointZ(0 0 10)", 1.25, 1),
               ("PointZ(3 4 12)", 2.25, 2), ("PointZ(50 50 9)", None, 3), name="levels")
FLAT = layer("LineString", "z:double", ("LineString(0 0, 1.5 2, 3 4)", 7),
             ("LineString(20 20, 30 30)", None), ("LineString(3 4, 9 9)", 12.3456789),
             ("LineString(40 40, 41 41)", 5.5))
NULL = [-999, -999]
CHECKS = {"DANGLES": "memory:", "UNSNAPPED": "memory:"}


class Breaklines3d(unittest.TestCase):
    """Lines with elevations of points, and of their own."""

    def test_elevations(self):
        # Parameters, z of each string, and counts of dangles and unsnapped points.
        for parameters, expected, checks in (
                ({"ELEVATION": "z"}, [[7] * 3, NULL, [12.3457] * 2, [5.5] * 2], [0, 0]),
                ({"POINTS": POINTS}, [[10, 11, 12], NULL, [12, 12], NULL], [1, 1]),
                ({"POINTS": POINTS, "POINT_ELEVATION": "level", "ELEVATION": "z"},
                 [[1.25, 1.75, 2.25], NULL, [2.25] * 2, [5.5] * 2], [1, 0])):
            result, log = run("breaklines3d", INPUT=FLAT, **CHECKS, **parameters)
            found = strings(result["OUTPUT"])
            self.assertEqual({kind for kind, _, _ in found}, {"3d"})
            self.assertEqual([[z for *_, z in vertices] for *_, vertices in found], expected)
            self.assertEqual([result[name].featureCount() for name in CHECKS], checks)
            self.assertEqual("no line took" in log.warnings, any(checks))
        self.assertIn("left out: 1", log.warnings)  # the point without a level

    def test_check_layers_have_real_elevations(self):
        result, _ = run("breaklines3d", INPUT=FLAT, POINTS=POINTS, **CHECKS)
        point, = result["UNSNAPPED"].getFeatures()
        self.assertEqual((point.geometry().constGet().z(), point["Z"]), (9, 9))
        line, = result["DANGLES"].getFeatures()
        self.assertFalse(line["Z"])  # the line has no elevation of its own: none, and not -999
        self.assertEqual(result["UNSNAPPED"].crs().authid(), MGA55)

    def test_points_and_lines_meet_in_one_system(self):
        points = layer("Point", "rl:int", ("Point(147 -36)", 33), system=DEGREES)
        result, _ = run("breaklines3d", POINTS=points, POINT_ELEVATION="rl", INPUT=lines(
            ("LineString(500000 6016051.54677, 500010 6016051)", "")))
        self.assertEqual([z for *_, z in strings(result["OUTPUT"])[0][2]], [33, 33])


class Results(unittest.TestCase):
    """Points as symbols."""

    def test_values_and_angles(self):
        points = layer("MultiPoint", "v:double dir:double", ("MultiPoint((1 2),(3 4))", 1.5, 45),
                       ("MultiPoint((5 6))", None, 1), ("MultiPoint((7 8))", 2, None))
        for angle, arrows, values, without in (("dir", 2, 2, "out: 2"), (None, 0, 3, "out: 1")):
            result, log = run("results", INPUT=points, VALUE="v", ANGLE=angle)
            text = pathlib.Path(result["OUTPUT"]).read_text(encoding="utf-8")
            self.assertEqual(text.count("rotation  45.00"), arrows)
            self.assertEqual(len(text.split("data_3d {")[1].split("}")[0].splitlines()) - 2, values)
            self.assertIn(f"{'1.0000':>24} {'2.0000':>20} {'1.5000':>10}\n", text)
            self.assertIn(without, log.warnings)
