"""Starts QGIS without a window, with the plugin as QGIS's own installer unpacks it from its zip."""
# pylint: disable=wrong-import-position,wrong-import-order,ungrouped-imports,consider-using-with

import contextlib
import io
import os
import pathlib
import re
import sys
import tempfile
import time

os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
os.environ.setdefault("QGIS_PREFIX_PATH", "/usr")

from qgis.core import (QgsApplication, QgsFeature, QgsGeometry, QgsProcessingException,
                       QgsProcessingFeedback, QgsVectorLayer)
from qgis.testing import start_app

with contextlib.redirect_stdout(io.StringIO()):
    start_app()
sys.path += [QgsApplication.pkgDataPath() + place for place in ("/python", "/python/plugins")]

import processing
from processing.core.Processing import Processing
from pyplugin_installer.unzip import unzip

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"
SITE = str(EXAMPLES / "site.12da")
SCRATCH = tempfile.TemporaryDirectory(prefix="vantelgis_qgis_")
FOLDER = pathlib.Path(SCRATCH.name)
PLUGINS = FOLDER / "plugins"
PROGRAMS = PLUGINS / "vantelgis" / "bin" / "linux-x64"
PLUGINS.mkdir()
ZIP = os.environ["VANTELGIS_PLUGIN_ZIP"]
unzip(ZIP, str(PLUGINS), "")
sys.path.insert(0, str(PLUGINS))
Processing.initialize()

import vantelgis  # the one from the zip

PLUGIN = vantelgis.classFactory(None)  # kept: QGIS refers to what it makes
PLUGIN.initProcessing()
MGA55, MGA56, DEGREES = "EPSG:28355", "EPSG:28356", "EPSG:4326"


class Log(QgsProcessingFeedback):
    """Keeps what is said; cancels once `cancel_at` is said."""

    def __init__(self, cancel_at=None):
        super().__init__(False)
        self.text, self.warnings, self.errors, self._cancel_at = "", "", "", cancel_at

    def pushInfo(self, info):
        self.text += info + "\n"
        if self._cancel_at and self._cancel_at in info:
            self.cancel()

    def reportError(self, error, fatalError=False):
        self.errors += error + "\n"
        super().reportError(error, fatalError)

    def pushWarning(self, warning):
        self.warnings += warning + "\n"
        self.text += warning + "\n"


def layer(kind, fields, *rows, system=MGA55, name="roads"):
    """A layer in memory; a row is a geometry (WKT, or None) and the values."""
    definition = "&".join([f"{kind}?crs={system}", *(f"field={field}" for field in fields.split())])
    made = QgsVectorLayer(definition, name, "memory")
    for wkt, *values in rows:
        feature = QgsFeature(made.fields())
        feature.setGeometry(wkt if isinstance(wkt, QgsGeometry) else QgsGeometry.fromWkt(wkt or ""))
        feature.setAttributes(values)
        made.dataProvider().addFeature(feature)
    return made


def run(algorithm, log=None, **parameters):
    """Runs an algorithm of the plugin; OUTPUT goes to a file of its own unless it is named."""
    log = log or Log()
    outputs = ({"LINES": "memory:", "POINTS": "memory:"} if algorithm == "archivetolayers"
               else {"OUTPUT": str(FOLDER / f"{algorithm}.12da")})
    return processing.run(f"vantelgis:{algorithm}", outputs | parameters, feedback=log), log


def refused(algorithm, **parameters):
    """The words with which an algorithm refuses."""
    try:
        run(algorithm, **parameters)
    except QgsProcessingException as error:
        return str(error)
    return "it was not refused"


def strings(path):
    """Kind, name and vertices (as printed) of each string of an archive."""
    text = pathlib.Path(path).read_text(encoding="utf-8")
    blocks = re.findall(r'string (\w+) \{\n(.*?)  data \{\n(.*?)  \}\n\}', text, re.DOTALL)
    return [(kind, re.search(r'name +"(.*)"', head)[1],
             [tuple(map(float, line.split())) for line in data.splitlines()])
            for kind, head, data in blocks]


def wait_for(something):
    """Lets QGIS work until something is there."""
    until = time.monotonic() + 20
    while not something() and time.monotonic() < until:
        QgsApplication.processEvents()
    return something()
