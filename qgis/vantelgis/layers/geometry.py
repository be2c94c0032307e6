"""Geometries of any kind as plain lines."""

import math

from qgis.core import (QgsAbstractGeometry, QgsCsException, QgsGeometry, QgsGeometryCollection,
                       QgsLineString, QgsMultiLineString, QgsWkbTypes)

LINE, MULTI_LINE = QgsWkbTypes.LineString, QgsWkbTypes.MultiLineString  # looked up once
TOLERANCE = 0.01  # between a curve and its segments, in the units of the layer


def is_plain_line(geometry, limit):
    """Whether the geometry is one line of at most `limit` vertices, and nothing else."""
    kind = geometry.wkbType()
    if kind not in (LINE, MULTI_LINE):
        return False
    shape = geometry.constGet()
    return 1 < shape.nCoordinates() <= limit and (kind == LINE or shape.partCount() == 1)


def without_curves(geometry, tolerance):
    """The geometry with its curves as segments."""
    shape = geometry.constGet()
    if not QgsWkbTypes.isCurvedType(shape.wkbType()) and not shape.hasCurvedSegments():
        return geometry
    return QgsGeometry(shape.segmentize(
        tolerance, QgsAbstractGeometry.SegmentationToleranceType.MaximumDifference))


def line_strings(shape):
    """The lines of a shape without curves: parts of lines, rings of polygons."""
    if isinstance(shape, QgsLineString):
        return [shape] if shape.numPoints() > 1 else []
    if isinstance(shape, QgsGeometryCollection):
        return [line for index in range(shape.numGeometries())
                for line in line_strings(shape.geometryN(index))]
    if shape.dimension() < 2 or shape.isEmpty():
        return []
    rings = shape.boundary()
    return [line.clone() for line in line_strings(rings)] if rings else []


def pieces(line, limit):
    """A line cut into pieces of at most `limit` vertices; neighbours share the vertex between."""
    count = line.numPoints()
    if count <= limit:
        return [line]
    points = line.points()
    return [QgsLineString(points[start:start + limit]) for start in range(0, count - 1, limit - 1)]


def multi_line(lines, keep_z=False):
    """One geometry of the lines, flat unless `keep_z`."""
    shape = QgsMultiLineString()
    for line in lines:
        part = line.clone()
        part.dropMValue()
        if not keep_z:
            part.dropZValue()
        shape.addGeometry(part)
    return QgsGeometry(shape)


def transformed(geometry, transform):
    """Takes the geometry to another system, in place. False when a vertex has no place there: the
    transform may then leave infinities behind and report no fault."""
    if transform is not None:
        try:
            geometry.transform(transform)
        except QgsCsException:
            return False
    # A length is finite only if every vertex is.
    return math.isfinite(geometry.length())
