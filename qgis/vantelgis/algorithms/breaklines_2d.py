"""Lines and polygons of a layer to 2D breaklines."""

from qgis.core import (QgsProcessing, QgsProcessingMultiStepFeedback,
                       QgsProcessingParameterFeatureSource, QgsProcessingParameterField)

from ..layers import systems, tables
from ..layers.reading import Reader
from ..layers.sources import LINES_OR_POLYGONS, check_field, source_of
from ..layers.values import LONGEST_NAME, Names
from ..programs import batch
from ..programs.scratch import put_in_place, scratch_folder
from .algorithm import Algorithm
from .groups import TO_ARCHIVE

LONGEST_LINE = 1000  # vertices of a 2D breakline


class Breaklines2d(Algorithm):
    """Each line, part or ring becomes a `string 2d`, named by a field."""

    NAME = "breaklines2d"
    TITLE = "2D breaklines to archive"
    GROUP = TO_ARCHIVE
    ICON = "to_archive.svg"

    def initAlgorithm(self, _configuration=None):
        self.addParameter(QgsProcessingParameterFeatureSource(
            "INPUT", "Lines or polygons", [QgsProcessing.TypeVectorLine,
                                           QgsProcessing.TypeVectorPolygon]))
        self.addParameter(QgsProcessingParameterField(
            "NAME", "Name of the strings", parentLayerParameterName="INPUT", optional=True))
        self.add_crs("Coordinate system of the archive")
        self.add_archive_output()

    def check(self, parameters, context):
        source = source_of(self, parameters, "INPUT", context, LINES_OR_POLYGONS)
        if source:
            self._name_field(parameters, context, source)
            self.target_system(parameters, context, source)

    def processAlgorithm(self, parameters, context, feedback):
        source = source_of(self, parameters, "INPUT", context, LINES_OR_POLYGONS)
        target = self.target_system(parameters, context, source)
        output = self.parameterAsFileOutput(parameters, "OUTPUT", context)
        steps = QgsProcessingMultiStepFeedback(2, feedback)
        with scratch_folder() as folder:
            reader = Reader("INPUT", source, target, context, steps)
            _prepare(f"{folder}/lines.shp", reader, self._name_field(parameters, context, source))
            systems.write_system(f"{folder}/Header.prj", target)
            steps.setCurrentStep(1)
            record = batch.convert(["lines.shp", "--", "-model", source.sourceName()], folder,
                                   steps, reader.taken)
            put_in_place(record["output"], output)
        return {"OUTPUT": output}

    def _name_field(self, parameters, context, source):
        name = self.parameterAsString(parameters, "NAME", context)
        return check_field("NAME", source.sourceName(), source.fields(), name)


def _prepare(path, reader, field):
    """Writes the lines and their names as the converter takes them."""
    table = tables.Table(path, tables.LINES, [tables.text_field("NAME", LONGEST_NAME)])
    names = Names()
    for feature, lines in reader.lines([field], LONGEST_LINE, refuse_longer=False):
        table.add(lines, [names.of(feature[field]) if field >= 0 else ""])
    table.close()
    reader.report("lines")
    names.report(reader.feedback)
