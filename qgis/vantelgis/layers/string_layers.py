"""Puts the elevations that the converter writes as points into the vertices of the lines."""

from qgis.core import (QgsFeature, QgsFeatureSink, QgsGeometry, QgsLineString, QgsPoint,
                       QgsProcessingException)

NONE = float("nan")
# The converter's null, which it takes for an elevation where the archive declares another one.
NO_LEVEL = -99999.0
FAST = QgsFeatureSink.Flag.FastInsert
PROGRESS_EVERY = 1000


class StringLayers:
    """Writes lines and points with Z to two sinks. In the converter's layer the points of a line
    follow it: one for each of its vertices that has an elevation, in their order."""

    def __init__(self, fields, lines, points):
        self._lines, self._points = lines, points
        self._feature = QgsFeature(fields)
        self._line, self._levels = None, []

    def read(self, layer, total, feedback):
        """Goes through the converter's layer, which has about `total` features."""
        for number, feature in enumerate(layer.getFeatures()):
            if feedback.isCanceled():
                raise QgsProcessingException("Cancelled.")
            if number % PROGRESS_EVERY == 0:
                feedback.setProgress(min(100, 100 * number / max(1, total)))
            geometry = feature.geometry()
            shape, level = geometry.constGet(), feature[0]
            if isinstance(shape, QgsLineString):
                self._end_line()
                self._line = (shape.clone(), feature.attributes())
            elif level != NO_LEVEL:
                vertex = (shape.x(), shape.y(), level)
                self._levels.append(vertex)
                # The feature itself, as a copy of its attributes would double the time.
                feature.setGeometry(QgsPoint(*vertex))
                self._write(self._points, feature)
        self._end_line()

    def _end_line(self):
        if self._line is not None:
            shape, attributes = self._line
            points = shape.points()
            heights = self._heights(points)
            # The field of a line holds its level, or else a number that stands for none.
            if heights[0] != attributes[0]:
                attributes[0] = None
            self._feature.setGeometry(QgsGeometry(QgsLineString(
                [point.x() for point in points], [point.y() for point in points], heights)))
            self._feature.setAttributes(attributes)
            self._write(self._lines, self._feature)
        self._line = None
        self._levels.clear()

    def _heights(self, points):
        """The elevation of each vertex, from the points that follow the line."""
        levels = iter(self._levels)
        following = next(levels, None)
        heights = []
        for point in points:
            if following and following[:2] == (point.x(), point.y()):
                heights.append(following[2])
                following = next(levels, None)
            else:
                heights.append(NONE)
        return heights

    @staticmethod
    def _write(sink, feature):
        if not sink.addFeature(feature, FAST):
            raise QgsProcessingException(
                f"A feature can't be written: {sink.lastError()}. A shapefile has no room for "
                "vertices without elevation: choose a GeoPackage.")
