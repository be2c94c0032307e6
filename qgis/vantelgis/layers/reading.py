"""Reads the features of a source as plain lines or points of the target system."""

from math import isfinite

from qgis.core import (QgsFeatureRequest, QgsGeometry, QgsProcessingException,
                       QgsProcessingFeatureSource, QgsWkbTypes)

from ..refusals import refusal
from . import systems
from .geometry import (TOLERANCE, is_plain_line, line_strings, multi_line, pieces, transformed,
                       without_curves)

MOST_PARTS = 9999  # of one shape; more become several features
PROGRESS_EVERY = 256


class Reader:
    """Goes through a source once and counts what it leaves out or changes."""

    def __init__(self, parameter, source, target, context, feedback, keep_z=False):
        self.parameter, self.source, self.feedback = parameter, source, feedback
        self.layer = source.sourceName()
        self.keep_z = keep_z
        self.taken = self.empty = self.others = self.flattened = self.bent = self.split = 0
        system = source.sourceCrs()
        self._transform = systems.transform_between(system, target, context.transformContext())
        self._tolerance = systems.metres_as_units(TOLERANCE, system)
        if self._transform:
            feedback.pushInfo(f'"{self.layer}" is taken from {systems.name_of(system)} to '
                              f"{systems.name_of(target)}.")
        elif not system.isValid():
            feedback.pushWarning(f'"{self.layer}" has no coordinate system: its coordinates are '
                                 f"taken as {systems.name_of(target)}.")

    def lines(self, fields, limit, refuse_longer):
        """Yields (feature, geometry) for each feature with lines or rings; `limit` is the most
        vertices of a line, beyond which it is refused or else split."""
        transform = self._transform
        for feature, geometry in self._features(fields):
            # Nearly all features are one plain line, which needs no copy.
            parts = ((geometry,) if is_plain_line(geometry, limit)
                     else self._flat_lines(feature, geometry, limit, refuse_longer))
            for part in parts:
                if not transformed(part, transform):
                    raise self._nowhere(feature)
                self.taken += 1
                yield feature, part

    def points(self, fields):
        """Yields (feature, geometry) for each point, with its z in the source."""
        for feature, geometry in self._features(fields):
            if geometry.isEmpty():
                self.empty += 1
                continue
            kind = geometry.wkbType()
            if QgsWkbTypes.geometryType(kind) != QgsWkbTypes.PointGeometry:
                self.others += 1
                continue
            if self._transform:
                # A point has no length that would show a fault of the transform.
                transformed(geometry, self._transform)
            for point in ((geometry,) if QgsWkbTypes.isSingleType(kind)
                          else map(QgsGeometry, geometry.asGeometryCollection())):
                shape = point.constGet()
                if not (isfinite(shape.x()) and isfinite(shape.y())):
                    raise self._nowhere(feature)
                self.taken += 1
                yield feature, point

    def report(self, what):
        """Says what became of the features."""
        tell, name = self.feedback, f'"{self.layer}"'
        tell.pushInfo(f"{name}: features with {what}: {self.taken}.")
        for count, words in (
                (self.empty, "features without geometry, left out"),
                (self.others, f"features that are no {what}, left out"),
                (self.flattened, 'features with Z or M, which are dropped ("Layers to archive" '
                                 "keeps Z)"),
                (self.bent, "features with curves, which become segments"),
                (self.split, "lines too long for one string, split; the pieces share the vertex "
                             "between them")):
            if count:
                tell.pushWarning(f"{name}: {words}: {count}.")

    def _features(self, fields):
        request = QgsFeatureRequest()
        request.setSubsetOfAttributes([field for field in fields if field >= 0])
        total, canceled = self.source.featureCount(), self.feedback.isCanceled
        for number, feature in enumerate(self.source.getFeatures(
                request, QgsProcessingFeatureSource.FlagSkipGeometryValidityChecks)):
            if canceled():  # each time, as a feature may be large
                raise QgsProcessingException("Cancelled: the old result is untouched.")
            if number % PROGRESS_EVERY == 0 and total > 0:
                self.feedback.setProgress(100 * number / total)
            yield feature, feature.geometry()

    def _flat_lines(self, feature, geometry, limit, refuse_longer):
        if geometry.isEmpty():
            self.empty += 1
            return []
        straight = without_curves(geometry, self._tolerance)
        lines = line_strings(straight.constGet())
        if not lines:
            if QgsWkbTypes.geometryType(geometry.wkbType()) == QgsWkbTypes.PointGeometry:
                self.others += 1
            else:
                self.empty += 1
            return []
        self.bent += straight is not geometry
        shape = geometry.constGet()
        self.flattened += shape.isMeasure() or (shape.is3D() and not self.keep_z)
        longest = max(line.numPoints() for line in lines)
        if longest > limit:
            if refuse_longer:
                raise refusal(self.parameter, self.layer, f"feature {feature.id()} has a line of "
                              f"{longest} vertices, and {limit} are the most that this conversion "
                              'takes: run "Split lines by maximum length" or "Simplify" on it.')
            self.split += sum(line.numPoints() > limit for line in lines)
            lines = [piece for line in lines for piece in pieces(line, limit)]
        return [multi_line(lines[start:start + MOST_PARTS], self.keep_z)
                for start in range(0, len(lines), MOST_PARTS)]

    def _nowhere(self, feature):
        return refusal(self.parameter, self.layer, f"a vertex of feature {feature.id()} has no "
                       "place in the coordinate system of the archive, or no finite coordinates: "
                       "correct or leave out this feature, or choose another CRS.")
