"""Starts QGIS without a window, with the plugin as QGIS's own installer unpacks it from its zip."""

import contextlib
import io
import os
import pathlib
import re
import sys
import tempfile

os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
os.environ.setdefault("QGIS_PREFIX_PATH", "/usr")

from qgis.core import (NULL, QgsApplication, QgsFeature, QgsGeometry, QgsProcessingException,
                       QgsProcessingFeedback, QgsProject, QgsVectorLayer)
from qgis.testing import start_app

with contextlib.redirect_stdout(io.StringIO()):
    start_app()
sys.path.append(os.path.join(QgsApplication.pkgDataPath(), "python", "plugins"))
sys.path.append(os.path.join(QgsApplication.pkgDataPath(), "python"))

import processing
from processing.core.Processing import Processing
from processing.core.ProcessingConfig import ProcessingConfig
from pyplugin_installer.unzip import unzip

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"
SCRATCH = tempfile.TemporaryDirectory(prefix="vantelgis_qgis_")
FOLDER = pathlib.Path(SCRATCH.name)
PLUGINS = FOLDER / "plugins"
PLUGINS.mkdir()
PROGRAMS = PLUGINS / "vantelgis" / "bin" / "linux-x64"
unzip(os.environ["VANTELGIS_PLUGIN_ZIP"], str(PLUGINS), "")
sys.path.insert(0, str(PLUGINS))
Processing.initialize()

import vantelgis  # the one from the zip

PLUGIN = vantelgis.classFactory(None)
PLUGIN.initProcessing()
MGA55, MGA56, DEGREES = "EPSG:28355", "EPSG:28356", "EPSG:4326"


class Log(QgsProcessingFeedback):
    """Keeps what is said; `cancel_at` cancels once that is said."""

    def __init__(self, cancel_at=None):
        super().__init__(False)
        self.text, self.warnings, self._cancel_at = "", "", cancel_at

    def _take(self, words):
        self.text += words + "\n"
        if self._cancel_at and self._cancel_at in words:
            self.cancel()

    def pushInfo(self, info):
        self._take(info)

    def pushWarning(self, warning):
        self.warnings += warning + "\n"
        self._take(warning)


def layer(kind, fields, *rows, system=MGA55, name="roads"):
    """A layer in memory; a row is a geometry in WKT (or None) and the values."""
    definition = "&".join([f"{kind}?crs={system}", *(f"field={field}" for field in fields.split())])
    made = QgsVectorLayer(definition, name, "memory")
    for wkt, *values in rows:
        feature = QgsFeature(made.fields())
        if wkt:
            feature.setGeometry(wkt if isinstance(wkt, QgsGeometry) else QgsGeometry.fromWkt(wkt))
        feature.setAttributes([NULL if value is None else value for value in values])
        made.dataProvider().addFeature(feature)
    made.updateExtents()
    return made


def run(algorithm, log=None, **parameters):
    """Runs an algorithm of the plugin; OUTPUT goes to a file of its own unless it is named."""
    log = log or Log()
    if algorithm not in ("archivetolayers", "archivetosections"):
        parameters.setdefault("OUTPUT", str(FOLDER / f"{algorithm}.12da"))
    return processing.run(f"vantelgis:{algorithm}", parameters, feedback=log), log


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


def named(path):
    """Name and vertices of each string."""
    return [(name, vertices) for _, name, vertices in strings(path)]
