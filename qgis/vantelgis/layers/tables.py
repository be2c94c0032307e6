"""Shapefiles of lines or points with one or two fields of our own, written by QGIS."""

import os

from qgis.core import (QgsCoordinateReferenceSystem, QgsCoordinateTransformContext, QgsFeature,
                       QgsFeatureSink, QgsField, QgsFields, QgsProcessingException,
                       QgsVectorFileWriter, QgsWkbTypes)
from qgis.PyQt.QtCore import QVariant

LINES = QgsWkbTypes.LineString  # takes lines of several parts as well
POINTS = QgsWkbTypes.Point
LINES_Z = QgsWkbTypes.MultiLineStringZ


def text_field(name, width):
    """A field of at most `width` bytes."""
    return QgsField(name, QVariant.String, "", width)


def number_field(name):
    """A field that keeps every digit of a single-precision number that an archive has room for."""
    return QgsField(name, QVariant.Double, "", 24, 15)


class Table:
    """A layer that is being written. Its fields are never those of the source, which may be too
    narrow for the values in them."""

    def __init__(self, path, kind, fields, layer="", driver="ESRI Shapefile", system=None):
        self.path = path
        table_fields = QgsFields()
        for field in fields:
            table_fields.append(field)
        options = QgsVectorFileWriter.SaveVectorOptions()
        options.driverName = driver
        options.fileEncoding = "UTF-8"
        options.layerName = layer
        if os.path.exists(path):
            actions = QgsVectorFileWriter.ActionOnExistingFile
            options.actionOnExistingFile = actions.CreateOrOverwriteLayer
        self._writer = QgsVectorFileWriter.create(
            path, table_fields, kind, system or QgsCoordinateReferenceSystem(),
            QgsCoordinateTransformContext(), options)
        self._stop_at_error()
        self._feature = QgsFeature(table_fields)

    def add(self, geometry, values):
        """Writes a feature."""
        self._feature.setGeometry(geometry)
        self._feature.setAttributes(values)
        if not self._writer.addFeature(self._feature, QgsFeatureSink.FastInsert):
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
