"""The check layers of 3D breaklines as layers of the user's."""

from qgis.core import (QgsFeature, QgsFeatureSink, QgsGeometry, QgsProcessingException,
                       QgsVectorLayer, QgsWkbTypes)

from . import tables
from .values import NULL_ELEVATION


def copy_check_layer(path, sink, feedback):
    """Copies a layer of the converter's, which has the elevation in its field, to a sink: NULL in
    place of the archive's null, and the elevation of points as their Z."""
    layer = QgsVectorLayer(path, "check", "ogr")
    copy = QgsFeature(tables.fields_of(tables.number_field("Z")))
    for feature in layer.getFeatures():
        if feedback.isCanceled():
            raise QgsProcessingException("Cancelled: the old result is untouched.")
        elevation = None if feature[0] == NULL_ELEVATION else feature[0]
        geometry = QgsGeometry(feature.geometry())
        if QgsWkbTypes.geometryType(geometry.wkbType()) == QgsWkbTypes.PointGeometry:
            geometry.get().addZValue(elevation)
        copy.setGeometry(geometry)
        copy.setAttributes([elevation])
        if not sink.addFeature(copy, QgsFeatureSink.Flag.FastInsert):
            raise QgsProcessingException(f"A feature can't be written: {sink.lastError()}")
