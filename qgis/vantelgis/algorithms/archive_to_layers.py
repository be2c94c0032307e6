"""The strings of an archive as the converter's own layers, with real elevations."""

from qgis.core import (QgsFeature, QgsFeatureSink, QgsFields, QgsGeometry, QgsLineString,
                       QgsPoint, QgsProcessing, QgsProcessingException,
                       QgsProcessingMultiStepFeedback,
                       QgsProcessingParameterFeatureSink, QgsVectorLayer, QgsWkbTypes)

from .. import styles
from ..layers import tables
from ..programs import batch
from ..programs.scratch import scratch_folder
from .algorithm import Algorithm
from .groups import FROM_ARCHIVE

NONE = float("nan")
# The converter's null, which it takes for an elevation where the archive declares another one.
NO_LEVEL = -99999.0
# The results carry the system that the user sees; the converter only wants to be given one.
NAMELESS = 'CoordSys NonEarth Units "m"\n'


class ArchiveToLayers(Algorithm):
    """A line for each string, a point for each vertex that has an elevation."""

    NAME = "archivetolayers"
    TITLE = "Archive to lines and points"
    GROUP = FROM_ARCHIVE
    ICON = "from_archive.svg"

    def initAlgorithm(self, _configuration=None):
        self.add_archive_input()
        self.add_crs("Coordinate system of the layers")
        self.addParameter(QgsProcessingParameterFeatureSink(
            "LINES", "Lines", QgsProcessing.TypeVectorLine))
        self.addParameter(QgsProcessingParameterFeatureSink(
            "POINTS", "Points", QgsProcessing.TypeVectorPoint))

    def check(self, parameters, context):
        self.system_of_archive(parameters, context, self.archive_path(parameters, context))

    def processAlgorithm(self, parameters, context, feedback):
        archive = self.archive_path(parameters, context)
        system = self.system_of_archive(parameters, context, archive)
        steps = QgsProcessingMultiStepFeedback(2, feedback)
        with scratch_folder() as folder:
            with open(f"{folder}/Header.mif", "w", encoding="ascii") as file:
                file.write(NAMELESS)
            record = batch.convert([archive, "--output-folder", ".", "--", "-mif", "Header.mif"],
                                   folder, steps)
            steps.setCurrentStep(1)
            layer = QgsVectorLayer(record["output"], "strings", "ogr")
            if not layer.isValid():
                raise QgsProcessingException("QGIS can't read the layer that was made: "
                                             f"{layer.error().summary()}")
            fields = _fields()
            sinks = [self.parameterAsSink(parameters, name, context, fields, kind, system)
                     for name, kind in (("LINES", QgsWkbTypes.LineStringZ),
                                        ("POINTS", QgsWkbTypes.PointZ))]
            _Strings(fields, *(sink for sink, _ in sinks)).read(layer, steps)
        results = {}
        for name, (_, identifier) in zip(("LINES", "POINTS"), sinks):
            styles.show(context, identifier, getattr(styles, name))
            results[name] = identifier
        return results


def _fields():
    fields = QgsFields()
    for name in ("Z", "dZ", "Width"):
        fields.append(tables.number_field(name, 16, 3))
    for name in ("Options", "String_Type"):
        fields.append(tables.text_field(name, 20))
    return fields


class _Strings:
    """Puts each line together with the points that follow it: those of its own vertices."""

    def __init__(self, fields, lines, points):
        self._lines, self._points = lines, points
        self._feature = QgsFeature(fields)
        self._line, self._levels = None, []

    def read(self, layer, feedback):
        """Goes through the converter's layer in its order."""
        total = layer.featureCount()
        for number, feature in enumerate(layer.getFeatures()):
            if number % 1000 == 0:
                if feedback.isCanceled():
                    raise QgsProcessingException("Cancelled.")
                feedback.setProgress(100 * number / max(1, total))
            shape = feature.geometry().constGet()
            if isinstance(shape, QgsLineString):
                self._write_line()
                self._line = (shape.clone(), feature.attributes())
            elif feature[0] != NO_LEVEL:
                level = feature[0]
                self._levels.append((shape.x(), shape.y(), level))
                self._write(self._points, QgsPoint(shape.x(), shape.y(), level), feature.attributes())
        self._write_line()

    def _write_line(self):
        if self._line is None:
            self._levels.clear()
            return
        shape, attributes = self._line
        levels = iter(self._levels)
        following = next(levels, None)
        xs, ys, heights = [], [], []
        for vertex in shape.points():
            xs.append(vertex.x())
            ys.append(vertex.y())
            if following and following[:2] == (xs[-1], ys[-1]):
                heights.append(following[2])
                following = next(levels, None)
            else:
                heights.append(NONE)
        # The field of a line holds its level, or else a number that stands for none.
        if heights[0] != attributes[0]:
            attributes[0] = None
        self._write(self._lines, QgsLineString(xs, ys, heights), attributes)
        self._line = None
        self._levels.clear()

    def _write(self, sink, shape, attributes):
        self._feature.setGeometry(QgsGeometry(shape))
        self._feature.setAttributes(attributes)
        if not sink.addFeature(self._feature, QgsFeatureSink.FastInsert):
            raise QgsProcessingException(f"A feature can't be written: {sink.lastError()}")
