"""Puts the elevations that the converter writes as points into the vertices of the lines."""

import itertools
import struct

from qgis.core import QgsFeatureSink, QgsLineString, QgsProcessingException

NONE = float("nan")
# The converter's null, which it takes for an elevation where the archive declares another one.
NO_LEVEL = -99999.0
FAST = QgsFeatureSink.Flag.FastInsert
LOOK_EVERY = 1000  # points between two looks at Cancel


def point_counts(path):
    """How many points stand before the first line of a MapInfo layer of the converter's, and then
    behind each line. The points behind a line are its vertices that have an elevation."""
    count = 0
    with open(path, "rb") as file:
        for line in file:
            if line.startswith(b"Point"):
                count += 1
            elif line.startswith(b"Pline"):
                yield count
                count = 0
    yield count


class StringLayers:
    """Writes lines and points with Z to two sinks. Points are about `total` in number."""

    def __init__(self, lines, points, total, feedback):
        self._lines, self._points = lines, points
        self._total, self._feedback = max(1, total), feedback
        self._taken = 0

    def write(self, lines, points, counts):
        """Writes the converter's layers; `points` may be None, `counts` is of point_counts."""
        points = points.getFeatures() if points else iter(())
        self._write_points(points, next(counts))
        for line, count in zip(lines.getFeatures() if lines else (), counts):
            self._write_line(line, self._write_points(points, count))

    def _write_points(self, points, count):
        """Writes the next points, and gives their elevations and geometries."""
        written = []
        for feature in itertools.islice(points, count):
            self._look()
            level = feature[0]
            if level == NO_LEVEL:
                continue
            geometry = feature.geometry()
            geometry.get().addZValue(level)
            # The feature itself, as a copy of its attributes would double the time.
            feature.setGeometry(geometry)
            self._write(self._points, feature)
            written.append((level, geometry))
        return written

    def _write_line(self, feature, points):
        self._look()
        xs, ys = places_of(feature.geometry())
        heights = ([level for level, _ in points] if len(points) == len(xs)
                   else heights_at(xs, ys, points))
        # The field of a line holds its level, or else a number that stands for none.
        if heights[0] != feature[0]:
            feature.setAttribute(0, None)
        feature.setGeometry(QgsLineString(xs, ys, heights))
        self._write(self._lines, feature)

    def _look(self):
        if self._taken % LOOK_EVERY == 0:
            if self._feedback.isCanceled():
                raise QgsProcessingException("Cancelled: the old result is untouched.")
            self._feedback.setProgress(min(100, 100 * self._taken / self._total))
        self._taken += 1

    @staticmethod
    def _write(sink, feature):
        if not sink.addFeature(feature, FAST):
            raise QgsProcessingException(
                f"A feature can't be written: {sink.lastError()}. A shapefile has no room for "
                "vertices without elevation: choose a GeoPackage.")


def places_of(geometry):
    """The x and the y of all vertices of a line without Z, read at once: a look at each vertex
    would take most of the time."""
    geometry.convertToSingleType()
    data = geometry.asWkb().data()
    count, = struct.unpack_from("=I", data, 5)
    numbers = struct.unpack_from(f"={2 * count}d", data, 9)
    return numbers[::2], numbers[1::2]


def heights_at(xs, ys, points):
    """The elevation of each vertex of a line, of which only some have one: `points`."""
    following = 0
    heights = []
    for place in zip(xs, ys):
        point = points[following][1].constGet() if following < len(points) else None
        if point is not None and place == (point.x(), point.y()):
            heights.append(points[following][0])
            following += 1
        else:
            heights.append(NONE)
    return heights
