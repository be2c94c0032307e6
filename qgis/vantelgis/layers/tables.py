"""Layers with fields of our own, written by QGIS."""

import os

from qgis.core import (Qgis, QgsCoordinateReferenceSystem, QgsCoordinateTransformContext,
                       QgsFeature, QgsFeatureSink, QgsField, QgsFields, QgsProcessingException,
                       QgsVectorFileWriter, QgsWkbTypes)
from qgis.PyQt.QtCore import QMetaType, QVariant

SHAPEFILE = "ESRI Shapefile"
LINES = QgsWkbTypes.LineString  # takes lines of several parts as well
POINTS = QgsWkbTypes.Point
# In packages, which want one kind for all.
MULTI_LINES, MULTI_LINES_Z = QgsWkbTypes.MultiLineString, QgsWkbTypes.MultiLineStringZ
FAST = QgsFeatureSink.Flag.FastInsert  # looked up once, not for each feature

# QGIS changed the kind of its types, and warns of the old ones.
TYPES = QVariant if Qgis.QGIS_VERSION_INT < 33800 else QMetaType.Type
TEXT = TYPES.String if TYPES is QVariant else TYPES.QString


def text_field(name, width=0):
    """A field of at most `width` bytes, or without a limit."""
    return QgsField(name, TEXT, "", width)


def number_field(name, width=24, decimals=15):
    """A field; without a width one that keeps every digit of a single-precision number that an
    archive has room for."""
    return QgsField(name, TYPES.Double, "", width, decimals)


def fields_of(*fields):
    """The fields of a layer."""
    made = QgsFields()
    for field in fields:
        made.append(field)
    return made


class Table:
    """A layer that is being written. Its fields are never those of the source, which may be too
    narrow for the values in them."""

    def __init__(self, path, kind, fields, layer="", driver=SHAPEFILE, system=None):
        options = QgsVectorFileWriter.SaveVectorOptions()
        options.driverName, options.fileEncoding, options.layerName = driver, "UTF-8", layer
        if driver == SHAPEFILE:
            # The mark behind the last record would be written, and gone back over, at each one.
            options.layerOptions = ["DBF_EOF_CHAR=NO"]
        if os.path.exists(path):
            actions = QgsVectorFileWriter.ActionOnExistingFile
            options.actionOnExistingFile = actions.CreateOrOverwriteLayer
        self._writer = QgsVectorFileWriter.create(
            path, fields_of(*fields), kind, system or QgsCoordinateReferenceSystem(),
            QgsCoordinateTransformContext(), options)
        self._stop_at_error()
        self._feature, self._values = QgsFeature(fields_of(*fields)), None

    def add(self, geometry, values):
        """Writes a feature."""
        self._feature.setGeometry(geometry)
        if values != self._values:  # setting them costs more than comparing
            self._feature.setAttributes(values)
            self._values = values
        if not self._writer.addFeature(self._feature, FAST):
            self._stop()

    def close(self):
        """Ends the file; what didn't reach the disk is noticed here at the latest."""
        self._writer.flushBuffer()
        self._stop_at_error()
        self._writer = None

    def _stop_at_error(self):
        if self._writer.hasError() != QgsVectorFileWriter.WriterError.NoError:
            self._stop()

    def _stop(self):
        raise QgsProcessingException(
            f"The prepared layer can't be written: {self._writer.errorMessage()}")
