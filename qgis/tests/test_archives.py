"""Archives as layers, and layers as archives with all that they know."""

import configparser
import math
import pathlib
import re
import sqlite3
import subprocess
import unittest

from support import (EXAMPLES, FOLDER, MGA55, MGA56, PLUGINS, PROGRAMS, ROOT, SITE, Log, layer,
                     processing, refused, run, strings)

from qgis.core import (QgsApplication, QgsGeometry, QgsLineString, QgsProcessingContext, QgsProject,
                       QgsVectorFileWriter, QgsVectorLayer)

HOLES = 'null -999\nmodel "m"\n' + "".join(
    f"string {kind} {{\n data {{\n{rows}\n }}\n}}\n" for kind, rows in (
        ("3d", "0 0 -999\n3 4 5.5\n3 4 -999\n9 9 -999"), ("3d", "9 9 1\n8 8 2"),
        ("2d", "1 1\n2 2")))


def heights(feature):
    return [None if math.isnan(point.z()) else point.z() for point in feature.geometry().vertices()]


class ToLayers(unittest.TestCase):
    """archivetolayers, archivetosections and openarchive."""

    def test_missing_elevations_are_none(self):
        path = FOLDER / "holes.12da"
        path.write_text(HOLES)
        result, _ = run("archivetolayers", INPUT=str(path), CRS=MGA55)
        lines = [(heights(line), line["Z"] or None) for line in result["LINES"].getFeatures()]
        self.assertEqual(lines, [([None, 5.5, None, None], None), ([1, 2], None),
                                 ([None, None], None)])
        points = [(heights(point), point["Z"]) for point in result["POINTS"].getFeatures()]
        self.assertEqual(points, [([5.5], 5.5), ([1], 1), ([2], 2)])
        self.assertEqual(result["LINES"].crs().authid(), MGA55)

    def test_site(self):
        result, log = run("archivetolayers", INPUT=SITE)
        kinds = [(line["String_Type"], line["Z"] or None) for line in result["LINES"].getFeatures()]
        self.assertEqual(kinds, [("2d", 12), ("2d", 12.5), ("3d", None), ("3d", None),
                                 ("3d polyline", None), ("super", 11.75), ("super", None)])
        self.assertEqual(result["POINTS"].crs().authid(), MGA56)  # of Header.prj beside it
        self.assertIn("1 string ignored", log.warnings)

    def test_sections(self):
        folder = FOLDER / "sections"
        run("archivetosections", INPUT=str(EXAMPLES / "sections.12da"), OUTPUT=str(folder))
        self.assertEqual((folder / "XS_140.csv").read_text().split()[:3],
                         ['"!XS_140"', '"X","Z"', "0.000,"])
        sections = QgsVectorLayer(str(folder / "sections.12da_L.shp"), "sections", "ogr")
        self.assertEqual([section["Source"] for section in sections.getFeatures()],
                         ["XS_100.csv", "XS_140.csv"])
        self.assertEqual(sections.crs().authid(), MGA56)

    def test_open_and_write_back(self):
        package, archive = str(FOLDER / "site.gpkg"), str(FOLDER / "back.12da")
        context = QgsProcessingContext()
        context.setProject(QgsProject.instance())
        processing.run("vantelgis:openarchive", {"INPUT": SITE, "OUTPUT": package},
                       context=context, feedback=Log())
        loaded = context.layersToLoadOnCompletion()
        self.assertEqual([details.name for details in loaded.values()], ["site"])
        opened = QgsVectorLayer(f"{package}|layername=strings", "strings", "ogr")
        run("layerstoarchive", INPUT=[opened], OUTPUT=archive)
        run("openarchive", INPUT=archive, OUTPUT=str(FOLDER / "again.gpkg"))
        again = QgsVectorLayer(f"{FOLDER}/again.gpkg|layername=strings", "strings", "ogr")

        def known(source):
            names = ("name", "model", "colour", "style", "breakline", "z")
            return [[feature[name] or None for name in names] + [feature.geometry().asWkt(4)]
                    for feature in source.getFeatures()]
        self.assertEqual(known(again), known(opened))


class FromLayers(unittest.TestCase):
    """layerstoarchive."""

    def test_fields_and_elevations(self):
        half_levelled = QgsGeometry(QgsLineString([0.0, 3.0], [0.0, 4.0], [1.5, math.nan]))
        lines = layer("LineStringZ", "road:string model:string colour:string width:double",
                      (half_levelled, 'Main "St"', "kerbs", "blue", 2),
                      ("LineStringZ(5 5 3, 6 6 4)", None, None, None, 3))
        flat = layer("Polygon", "road:int", ("Polygon((0 0, 9 0, 9 9, 0 0))", 7), name="lots")
        output = str(FOLDER / "fields.12da")
        _, log = run("layerstoarchive", INPUT=[lines, flat], NAME="road", STYLE="width",
                     OUTPUT=output)
        self.assertEqual(strings(output), [
            ("3d", "Main 'St'", [(0, 0, 1.5), (3, 4, -999)]), ("3d", "", [(5, 5, 3), (6, 6, 4)]),
            ("2d", "7", [(0, 0), (9, 0), (9, 9), (0, 0)])])
        text = pathlib.Path(output).read_text(encoding="utf-8")
        for words in ('model "kerbs"', 'model "roads"', 'model "lots"', "colour    blue",
                      "style     2", "colour    red"):
            self.assertIn(words, text)
        self.assertNotIn("elevations", log.warnings)

    def test_a_package_of_qgis(self):
        package, archive = FOLDER / "written.gpkg", FOLDER / "written.12da"
        options = QgsVectorFileWriter.SaveVectorOptions()
        for kind, wkt in (("LineStringZ", "LineStringZ(1.5 2 3, 4 5.25 6.125, 7 8 9)"),
                          ("MultiLineStringZ", "MultiLineStringZ((0 0 1, 3 4 2),(5 5 3, 6 7 5))"),
                          ("Polygon", "Polygon((0 0, 9 0, 9 9, 0 0))")):
            options.layerName = kind
            QgsVectorFileWriter.writeAsVectorFormatV3(
                layer(kind, "n:int", (wkt, 1)), str(package),
                QgsProject.instance().transformContext(), options)
            actions = QgsVectorFileWriter.ActionOnExistingFile
            options.actionOnExistingFile = actions.CreateOrOverwriteLayer
        subprocess.run([PROGRAMS / "vantelgis-gpkg", "-q", package, "-o", archive], check=True,
                       stdin=subprocess.DEVNULL)
        result, _ = run("archivetolayers", INPUT=str(archive), CRS=MGA55)
        self.assertEqual(
            [[(vertex.x(), vertex.y(), height) for vertex, height in
              zip(line.geometry().vertices(), heights(line))]
             for line in result["LINES"].getFeatures()],
            [[(1.5, 2, 3), (4, 5.25, 6.125), (7, 8, 9)], [(0, 0, 1), (3, 4, 2)],
             [(5, 5, 3), (6, 7, 5)],
             [(0, 0, None), (9, 0, None), (9, 9, None), (0, 0, None)]])

    def test_a_package_in_use_is_left_alone(self):
        package = str(FOLDER / "used.gpkg")
        run("openarchive", INPUT=SITE, OUTPUT=package)
        with sqlite3.connect(package) as connection:
            connection.execute("PRAGMA journal_mode=WAL")
            connection.execute("BEGIN IMMEDIATE")
            self.assertIn("used.gpkg", refused("openarchive", INPUT=SITE, OUTPUT=package))


class Provider(unittest.TestCase):
    """What the installer and the toolbox show."""

    def test_metadata(self):
        metadata = configparser.ConfigParser()
        metadata.read(PLUGINS / "vantelgis" / "metadata.txt", encoding="utf-8")
        general = metadata["general"]
        cmake = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
        version = re.search(r"^project\(.* VERSION ([0-9.]+)", cmake, re.MULTILINE)[1]
        self.assertEqual((general["version"], general["hasProcessingProvider"],
                          general["qgisMinimumVersion"]), (version, "yes", "3.22"))
        self.assertTrue((PLUGINS / "vantelgis" / general["icon"]).is_file())

    def test_every_algorithm_is_described(self):
        algorithms = QgsApplication.processingRegistry().providerById("vantelgis").algorithms()
        self.assertEqual(len(algorithms), 7)
        for algorithm in algorithms:
            self.assertGreater(len(algorithm.shortHelpString()), 300, algorithm.name())
            self.assertFalse(algorithm.icon().isNull(), algorithm.name())
