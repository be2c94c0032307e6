"""The strings of an archive as the converter's own layers, with real elevations."""

import typing

from qgis.core import (QgsCoordinateReferenceSystem, QgsProcessing, QgsProcessingException,
                       QgsProcessingMultiStepFeedback, QgsProcessingParameterFeatureSink,
                       QgsVectorLayer, QgsWkbTypes)

from .. import styles
from ..layers import systems, tables
from ..layers.outputs import Outputs
from ..layers.string_layers import StringLayers, point_counts
from ..programs import batch
from ..programs.scratch import scratch_folder
from .algorithm import Algorithm
from .groups import FROM_ARCHIVE

# The results carry the system that the user sees; the converter only wants to be given one.
NAMELESS = 'CoordSys NonEarth Units "m"\n'
# Parameter and title of a result, what it holds, its kind and its looks.
RESULTS = (("LINES", "Lines", QgsProcessing.TypeVectorLine, QgsWkbTypes.LineStringZ, styles.LINES),
           ("POINTS", "Points", QgsProcessing.TypeVectorPoint, QgsWkbTypes.PointZ, styles.POINTS))


class ArchiveToLayers(Algorithm):
    """A line for each string, a point for each vertex that has an elevation."""

    NAME = "archivetolayers"
    TITLE = "Archive to lines and points"
    GROUP = FROM_ARCHIVE
    ICON = "from_archive.svg"

    def initAlgorithm(self, _configuration=None):
        self.add_archive_input()
        self.add_crs("Coordinate system of the layers")
        for name, title, source_type, *_ in RESULTS:
            self.addParameter(QgsProcessingParameterFeatureSink(name, title, source_type))

    def check(self, parameters, context):
        self.system_of_archive(parameters, context, self.archive_path(parameters, context))

    def processAlgorithm(self, parameters, context, feedback):
        archive = self.archive_path(parameters, context)
        system = self.system_of_archive(parameters, context, archive)
        fields = tables.fields_of(
            *(tables.number_field(name, 16, 3) for name in ("Z", "dZ", "Width")),
            *(tables.text_field(name, 20) for name in ("Options", "String_Type")))
        steps = QgsProcessingMultiStepFeedback(2, feedback)
        with scratch_folder() as folder, Outputs(self, parameters, context) as outputs:
            converted = _convert(archive, folder, steps)
            steps.setCurrentStep(1)
            strings = StringLayers(*(outputs.sink(name, fields, kind, system)
                                     for name, _, _, kind, _ in RESULTS), converted.total, steps)
            strings.write(*converted.layers, point_counts(converted.order))
            del strings  # it holds the layers open
            results = outputs.put_in_place()
        for name, *_, looks in RESULTS:
            if name in results:
                styles.show(context, results[name], looks)
        return results


class _Converted(typing.NamedTuple):
    """What the converter makes of an archive."""
    layers: list  # of lines and of points; None where there are none
    order: str    # a layer of both, in which each line stands before its points
    total: int    # of lines and vertices


class _Unheard:
    """Feedback for a run whose words another one has said already."""

    def __init__(self, feedback):
        self._feedback = feedback

    def isCanceled(self):
        """Whether the user has cancelled."""
        return self._feedback.isCanceled()

    def pushInfo(self, words):
        """Says nothing."""

    pushWarning = setProgress = pushInfo


def _convert(archive, folder, feedback):
    """Lines and points apart, which QGIS reads four times as fast, and together for their order."""
    systems.write_system(f"{folder}/Header.prj", QgsCoordinateReferenceSystem())
    with open(f"{folder}/Header.mif", "w", encoding="ascii") as file:
        file.write(NAMELESS)
    arguments = [archive, "--output-folder", ".", "--"]
    record = batch.convert([*arguments, "-shp", "Header.prj"], folder, feedback)
    layers = [_layer(record["files"], ending) for ending in ("_L.shp", "_P.shp")]
    order = batch.convert([*arguments, "-mif", "Header.mif"], folder, _Unheard(feedback))["output"]
    return _Converted(layers, order, record["converted"] + record["vertices"])


def _layer(files, ending):
    path = next((file for file in files if file.endswith(ending)), None)
    if path is None:
        return None
    layer = QgsVectorLayer(path, "strings", "ogr")
    if not layer.isValid():
        raise QgsProcessingException(
            f"QGIS can't read the layer that was made: {layer.error().summary()}")
    return layer
