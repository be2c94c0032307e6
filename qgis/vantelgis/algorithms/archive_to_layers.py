"""The strings of an archive as the converter's own layers, with real elevations."""

from qgis.core import (QgsProcessing, QgsProcessingException, QgsProcessingMultiStepFeedback,
                       QgsProcessingParameterFeatureSink, QgsVectorLayer, QgsWkbTypes)

from .. import styles
from ..layers import tables
from ..layers.outputs import Outputs
from ..layers.string_layers import StringLayers
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
            layer, total = _convert(archive, folder, steps)
            steps.setCurrentStep(1)
            strings = StringLayers(fields, *(outputs.sink(name, fields, kind, system)
                                             for name, _, _, kind, _ in RESULTS))
            strings.read(layer, total, steps)
            del strings  # it holds the layers open
            results = outputs.put_in_place()
        for name, *_, looks in RESULTS:
            if name in results:
                styles.show(context, results[name], looks)
        return results


def _convert(archive, folder, feedback):
    """The layer that the converter makes of the archive, each line with its points behind it, and
    about how many features it has: QGIS would read it all to count them."""
    with open(f"{folder}/Header.mif", "w", encoding="ascii") as file:
        file.write(NAMELESS)
    record = batch.convert([archive, "--output-folder", ".", "--", "-mif", "Header.mif"], folder,
                           feedback)
    layer = QgsVectorLayer(record["output"], "strings", "ogr")
    if not layer.isValid():
        raise QgsProcessingException(
            f"QGIS can't read the layer that was made: {layer.error().summary()}")
    return layer, record["converted"] + record["vertices"]
