"""Points with results to symbols."""

from qgis.core import (QgsProcessing, QgsProcessingMultiStepFeedback,
                       QgsProcessingParameterFeatureSource, QgsProcessingParameterField)

from ..layers import systems
from ..layers.points import write_points
from ..layers.reading import Reader
from ..layers.sources import POINTS_ONLY, check_field, source_of
from ..programs import batch
from ..programs.scratch import put_in_place, scratch_folder
from ..refusals import refusal
from .algorithm import Algorithm
from .groups import TO_ARCHIVE
from .presets import ANGLES, VALUES, preset

# Parameters, and the fields of the prepared table: the converter takes a second field as the
# rotation of an arrow if its name says so.
FIELDS = ("VALUE", "ANGLE")


class Results(Algorithm):
    """The points become a `data_3d` block, and arrows where there is an angle."""

    NAME = "results"
    TITLE = "Results to archive"
    GROUP = TO_ARCHIVE
    ICON = "to_archive.svg"

    def initAlgorithm(self, _configuration=None):
        numeric = QgsProcessingParameterField.Numeric
        self.addParameter(QgsProcessingParameterFeatureSource(
            "INPUT", "Points", [QgsProcessing.TypeVectorPoint]))
        self.addParameter(preset(QgsProcessingParameterField(
            "VALUE", "Value", parentLayerParameterName="INPUT", type=numeric), VALUES))
        self.addParameter(preset(QgsProcessingParameterField(
            "ANGLE", "Angle", parentLayerParameterName="INPUT", type=numeric, optional=True),
            ANGLES))
        self.add_crs("Coordinate system of the archive")
        self.add_archive_output()

    def check(self, parameters, context):
        source = source_of(self, parameters, "INPUT", context, POINTS_ONLY)
        if source:
            self._fields(parameters, context, source)
            self.target_system(parameters, context, source)

    def processAlgorithm(self, parameters, context, feedback):
        source = source_of(self, parameters, "INPUT", context, POINTS_ONLY)
        target = self.target_system(parameters, context, source)
        output = self.parameterAsFileOutput(parameters, "OUTPUT", context)
        steps = QgsProcessingMultiStepFeedback(2, feedback)
        with scratch_folder() as folder:
            reader = Reader("INPUT", source, target, context, steps)
            write_points(f"{folder}/points.shp", reader, self._fields(parameters, context, source))
            systems.write_system(f"{folder}/Header.prj", target)
            steps.setCurrentStep(1)
            record = batch.convert(["points.shp", "--", "-results", "-model", source.sourceName()],
                                   folder, steps)
            put_in_place(record["output"], output)
        return {"OUTPUT": output}

    def _fields(self, parameters, context, source):
        """Name in the prepared table and place in the source of each field that is given."""
        names = [(field, self.parameterAsString(parameters, field, context)) for field in FIELDS]
        layer = source.sourceName()
        if not names[0][1]:
            raise refusal(FIELDS[0], layer, "choose the field with the result.")
        return [(field, check_field(field, layer, source.fields(), name, numeric=True))
                for field, name in names if name]
