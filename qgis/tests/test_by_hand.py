"""For each layer the archive is, byte for byte, what a careful person gets who prepares a plain
shapefile with ogr2ogr and runs the converter on it."""

import math
import os
import pathlib
import shutil
import subprocess
import unittest

from support import EXAMPLES, FOLDER, MGA55, MGA56, PROGRAMS, run

from osgeo import ogr, osr
from qgis.core import (QgsFeatureRequest, QgsProcessingFeatureSourceDefinition, QgsProject,
                       QgsVectorLayer, QgsVectorLayerJoinInfo)

HAND = FOLDER / "by_hand"
FORMATS = {".gpkg": ("GPKG", []), ".shp": ("ESRI Shapefile", ["ENCODING=UTF-8"]),
           ".tab": ("MapInfo File", []), ".geojson": ("GeoJSON", ["COORDINATE_PRECISION=9"]),
           ".sqlite": ("SQLite", []), ".fgb": ("FlatGeobuf", [])}
TYPES = {"text": ogr.OFTString, "int": ogr.OFTInteger, "long": ogr.OFTInteger64,
         "real": ogr.OFTReal, "date": ogr.OFTDate}
ROADS = [("LINESTRING(327400 6251200,327403 6251204)", "kerb", 1.5),
         ("LINESTRING(327405.123456 6251205,327406 6251206,327409 6251207)", "weir", 2.25),
         ("LINESTRING(327401 6251201,327402 6251202.5)", "levee", 3.125)]
LEVELS = [("POINT Z(327400 6251200 10.25)", "a", 1.5), ("POINT Z(327403 6251204 12.125)", "b", 2.5),
          ("POINT Z(327450 6251250 9)", "c", 7.5)]
FIELDS = "n:text z:real"


def store(path, kind, fields, rows, system=MGA55):
    """Writes a layer; a row is the geometry as WKT, or None, and the values."""
    driver, creation = FORMATS[path.suffix]
    source = ogr.GetDriverByName(driver).CreateDataSource(
        str(path), ["SPATIALITE=YES"] if driver == "SQLite" else [])
    reference = osr.SpatialReference()
    reference.SetFromUserInput(system)
    reference.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    target = source.CreateLayer(path.stem, reference, kind, creation)
    names = [field.split(":") for field in fields.split()]
    for name, type_name in names:
        target.CreateField(ogr.FieldDefn(name, TYPES[type_name]))
    for wkt, *values in rows:
        feature = ogr.Feature(target.GetLayerDefn())
        feature.SetGeometry(wkt and ogr.CreateGeometryFromWkt(wkt))
        for (name, _), value in zip(names, values):
            if value is not None:
                feature.SetField(name, value)
        target.CreateFeature(feature)
    return path


def export(source, target, *arguments):
    """What a careful person does: a plain shapefile in the system of the archive."""
    subprocess.run(["ogr2ogr", "-f", "ESRI Shapefile", "-lco", "ENCODING=UTF-8", "-t_srs", MGA55,
                    "-dim", "XY", "-nln", target.stem, *arguments, target, source], check=True,
                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    shutil.copy(target.with_suffix(".prj"), target.with_name("Header.prj"))


def convert(folder, *arguments):
    """The converter by itself."""
    subprocess.run([PROGRAMS / "vantelgis", "-out", "hand.12da", *arguments], cwd=folder,
                   check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
    return (folder / "hand.12da").read_bytes()


def as_it_is(stored):
    return QgsVectorLayer(str(stored), stored.stem, "ogr")


def selected(stored):
    made = QgsProject.instance().addMapLayer(as_it_is(stored))
    made.selectByExpression("\"n\" = 'weir'")
    return QgsProcessingFeatureSourceDefinition(made.id(), selectedFeaturesOnly=True)


def filtered(stored):
    made = as_it_is(stored)
    made.setSubsetString("z > 2")
    return made


def in_memory(stored):
    made = as_it_is(stored).materialize(QgsFeatureRequest())
    made.setName(stored.stem)
    return made


def virtual(stored):
    QgsProject.instance().addMapLayer(as_it_is(stored))
    return QgsVectorLayer(f"?query=SELECT * FROM {stored.stem} WHERE z > 2", stored.stem, "virtual")


def joined(stored):
    table = store(stored.with_name("owners.gpkg"), ogr.wkbNone, "road:text owner:text",
                  [(None, "kerb", "Shire"), (None, "weir", "State")])
    made, owners = QgsProject.instance().addMapLayers([as_it_is(stored), as_it_is(table)])
    join = QgsVectorLayerJoinInfo()
    join.setJoinLayer(owners)
    join.setJoinFieldName("road")
    join.setTargetFieldName("n")
    join.setPrefix("")
    made.addJoin(join)
    return made


def long_lines(count):
    return [("LINESTRING(" + ",".join(f"{500000 + x * 0.7} {6000000 + y + math.sin(x)}"
                                      for x in range(1000)) + ")", f"line {y}", y)
            for y in range(count)]


def sql(text):
    return ["-dialect", "SQLITE", "-sql", text]


# What the layer is: file, kind, fields and rows, what QGIS opens of it, the field of names, the
# arguments of ogr2ogr, and the system if it is another one.
NAMED = {
    "GeoPackage": (".gpkg", ogr.wkbLineString, FIELDS, ROADS, as_it_is, "n", ["-select", "n"]),
    "shapefile": (".shp", ogr.wkbLineString, FIELDS, ROADS, as_it_is, "n", ["-select", "n"]),
    "MapInfo table": (".tab", ogr.wkbLineString, FIELDS, ROADS, as_it_is, "n", ["-select", "n"]),
    "SpatiaLite": (".sqlite", ogr.wkbLineString, FIELDS, ROADS, as_it_is, "n", ["-select", "n"]),
    "FlatGeobuf": (".fgb", ogr.wkbLineString, FIELDS, ROADS, as_it_is, "n", ["-select", "n"]),
    "GeoJSON in degrees": (".geojson", ogr.wkbLineString, FIELDS, [
        ("LINESTRING(147.123456789 -36,147.2 -36.05)", "a", 1)], as_it_is, "n", ["-select", "n"],
                           "EPSG:4283"),
    "another zone": (".gpkg", ogr.wkbLineString, FIELDS, [
        ("LINESTRING(300000 6200000,300100.5 6200050)", "a", 1)], as_it_is, "n", ["-select", "n"],
                     MGA56),
    "web map": (".gpkg", ogr.wkbLineString, FIELDS, [
        ("LINESTRING(16377564 -4302493,16377664 -4302500.25)", "a", 1)], as_it_is, "n",
                ["-select", "n"], "EPSG:3857"),
    "Z": (".gpkg", ogr.wkbLineString25D, FIELDS, [("LINESTRING Z(0 0 1,3 4 2)", "a", 1)], as_it_is,
          "n", ["-select", "n"]),
    "Z and M": (".gpkg", ogr.wkbLineStringZM, FIELDS, [("LINESTRING ZM(0 0 1 5,3 4 2 6)", "a", 1)],
                as_it_is, "n", ["-select", "n"]),
    "NULL names": (".gpkg", ogr.wkbLineString, FIELDS, [ROADS[0], (ROADS[1][0], None, None),
                                                        ROADS[2]], as_it_is, "n",
                   sql("SELECT geom, COALESCE(n, '') AS n FROM roads")),
    "Integer names": (".gpkg", ogr.wkbLineString, "n:int", [(wkt, 7 - row) for row, (
        wkt, *_) in enumerate(ROADS)], as_it_is, "n", sql("SELECT geom, n || '' AS n FROM roads")),
    "long integers": (".shp", ogr.wkbLineString, "n:long", [(ROADS[0][0], 2**40)], as_it_is, "n",
                      sql("SELECT geometry, n || '' AS n FROM roads")),
    "dates": (".gpkg", ogr.wkbLineString, "n:date", [(ROADS[0][0], "2024/03/12")], as_it_is, "n",
              sql("SELECT geom, '2024-03-12' AS n FROM roads")),
    "accents": (".gpkg", ogr.wkbLineString, FIELDS, [(ROADS[0][0], "Crête nº 2 – öst 河", 1)],
                as_it_is, "n", ["-select", "n"]),
    "no names": (".gpkg", ogr.wkbLineString, FIELDS, ROADS, as_it_is, None,
                 sql("SELECT geom, '' AS n FROM roads")),
    "parts": (".gpkg", ogr.wkbMultiLineString, FIELDS, [
        ("MULTILINESTRING((0 0,3 4),(5 5,6 6,7 5))", "p", 1), ("MULTILINESTRING((8 8,9 9))", "q", 2)
    ], as_it_is, "n", ["-select", "n"]),
    "polygons": (".gpkg", ogr.wkbPolygon, FIELDS, [
        ("POLYGON((0 0,0 9,9 9,0 0),(2 5,2 6,3 6,2 5))", "lot", 1)], as_it_is, "n",
                 ["-select", "n", "-nlt", "MULTILINESTRING"]),
    "multipolygons in shapefiles": (".shp", ogr.wkbPolygon, FIELDS, [
        ("MULTIPOLYGON(((0 0,0 9,9 9,0 0)),((20 20,20 29,29 29,20 20)))", "lot", 1)], as_it_is, "n",
                                    ["-select", "n", "-nlt", "MULTILINESTRING"]),
    "no geometry": (".gpkg", ogr.wkbLineString, FIELDS, [
        (None, "none", 1), ("LINESTRING EMPTY", "empty", 2), *ROADS], as_it_is, "n",
                    sql("SELECT geom, n FROM roads WHERE NOT ST_IsEmpty(geom)")),
    "selection": (".gpkg", ogr.wkbLineString, FIELDS, ROADS, selected, "n",
                  ["-select", "n", "-where", "n = 'weir'"]),
    "filter": (".gpkg", ogr.wkbLineString, FIELDS, ROADS, filtered, "n",
               ["-select", "n", "-where", "z > 2"]),
    "memory": (".gpkg", ogr.wkbLineString, FIELDS, ROADS, in_memory, "n", ["-select", "n"]),
    "virtual": (".gpkg", ogr.wkbLineString, FIELDS, ROADS, virtual, "n",
                ["-select", "n", "-where", "z > 2"]),
    "join": (".gpkg", ogr.wkbLineString, FIELDS, ROADS, joined, "owner",
             sql("SELECT geom, CASE n WHEN 'kerb' THEN 'Shire' WHEN 'weir' THEN 'State' ELSE '' END"
                 " AS n FROM roads")),
    "300,000 vertices": (".gpkg", ogr.wkbLineString, FIELDS, long_lines(300), as_it_is, "n",
                         ["-select", "n"]),
}
LEVEL = "SELECT geom, CAST(z AS FLOAT) AS ELEVATION FROM roads"
HEIGHT = "SELECT geom, ST_Z(geom) AS ELEVATION FROM levels"
OWN = "SELECT geom, z AS ELEVATION FROM levels"
SPEED = "SELECT geom, z AS VALUE FROM levels"
# What it is, the algorithm and its fields, what the converter is given, and how both are prepared.
LEVELLED = (
    ("lines' own", "breaklines3d", {"ELEVATION": "z"}, ["-zln", "roads.shp"], LEVEL, None),
    ("Z of points", "breaklines3d", {"ELEVATION": "z"}, ["-zln", "levels.shp", "roads.shp"], LEVEL,
     HEIGHT),
    ("a field of points", "breaklines3d", {"POINT_ELEVATION": "z"},
     ["-zln", "levels.shp", "roads.shp"],
     "SELECT geom, CAST(-999 AS FLOAT) AS ELEVATION FROM roads", OWN),
    ("values", "results", {"VALUE": "z"}, ["-results", "levels.shp"], None, SPEED),
    ("arrows", "results", {"VALUE": "z", "ANGLE": "z"}, ["-results", "levels.shp"], None,
     "SELECT geom, z AS VALUE, z AS ANGLE FROM levels"),
)


class ByHand(unittest.TestCase):
    """Layers of every kind, and the examples."""

    def setUp(self):
        self.folder = HAND / self.id()
        self.addCleanup(QgsProject.instance().clear)

    def test_names(self):
        for number, (words, (suffix, kind, fields, rows, opened, field, arguments, *system)
                     ) in enumerate(NAMED.items()):
            with self.subTest(words):
                folder = self.folder / str(number)
                (folder / "hand").mkdir(parents=True)
                stored = store(folder / f"roads{suffix}", kind, fields, rows, *system)
                export(stored, folder / "hand" / "roads.shp", *arguments)
                result, _ = run("breaklines2d", INPUT=opened(stored), NAME=field, CRS=MGA55)
                self.assertEqual(pathlib.Path(result["OUTPUT"]).read_bytes(),
                                 convert(folder / "hand", "-model", "roads", "roads.shp"))

    def test_levels(self):
        (self.folder / "hand").mkdir(parents=True)
        roads = store(self.folder / "roads.gpkg", ogr.wkbLineString, FIELDS, ROADS)
        levels = store(self.folder / "levels.gpkg", ogr.wkbPoint25D, FIELDS, LEVELS)
        for words, algorithm, fields, arguments, of_lines, of_points in LEVELLED:
            with self.subTest(words):
                given = {"INPUT": as_it_is(roads if of_lines else levels)}
                if of_lines:
                    export(roads, self.folder / "hand" / "roads.shp", "-overwrite", *sql(of_lines))
                if of_points:
                    export(levels, self.folder / "hand" / "levels.shp", "-overwrite",
                           *sql(of_points))
                if of_lines and of_points:
                    given["POINTS"] = as_it_is(levels)
                result, _ = run(algorithm, CRS=MGA55, **given, **fields)
                model = given["INPUT"].name()
                self.assertEqual(pathlib.Path(result["OUTPUT"]).read_bytes(),
                                 convert(self.folder / "hand", "-model", model, *arguments))

    def test_million_vertices(self):
        self.folder.mkdir(parents=True)
        stored = store(self.folder / "roads.gpkg", ogr.wkbLineString, FIELDS, long_lines(1000))
        export(stored, self.folder / "roads.shp", *sql(LEVEL))
        opened = as_it_is(stored)

        def seconds(work):
            """The least processor time of three runs, the programs that it runs included."""
            least = math.inf
            for _ in range(3):
                before = sum(os.times()[:4])
                work()
                least = min(least, sum(os.times()[:4]) - before)
            return least

        whole = seconds(lambda: run("breaklines3d", INPUT=opened, ELEVATION="z"))
        converter = seconds(lambda: convert(self.folder, "-zln", "roads.shp"))
        reading = seconds(lambda: [feature.geometry() for feature in opened.getFeatures()])
        self.assertLess(whole, 3 * converter + reading)

    def test_examples(self):
        shutil.copytree(EXAMPLES, self.folder)
        levels = {"ELEVATION": "Z", "POINT_ELEVATION": "Z"}
        for arguments, algorithm, given in (
                ("creek.mif", "breaklines2d", {"INPUT": "creek.mif", "NAME": "NAME"}),
                ("kerb.shp", "breaklines2d", {"INPUT": "kerb.shp", "NAME": "NAME"}),
                ("-zln levee.mif", "breaklines3d", levels | {
                    "INPUT": "levee.mif|geometrytype=LineString",
                    "POINTS": "levee.mif|geometrytype=Point"}),
                ("-zln levels.mif invert.mif", "breaklines3d", levels | {
                    "INPUT": "invert.mif", "POINTS": "levels.mif"}),
                ("-results velocity.mif", "results", {
                    "INPUT": "velocity.mif", "VALUE": "SPEED", "ANGLE": "ANGLE"})):
            parameters = {name: f"{self.folder}/{value}" if "." in value else value
                          for name, value in given.items()}
            with self.subTest(arguments):
                result, _ = run(algorithm, CRS=MGA56, **parameters)
                made = pathlib.Path(result["OUTPUT"]).read_bytes().splitlines()
                hand = convert(self.folder, *arguments.split()).splitlines()
                self.assertEqual(made[2:], hand[2:])  # all but the names of the models
