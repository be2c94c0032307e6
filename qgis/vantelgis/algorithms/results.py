"""Points with results to symbols."""

from qgis.core import (QgsProcessing, QgsProcessingMultiStepFeedback,
                       QgsProcessingParameterFeatureSource, QgsProcessingParameterField)
from ..layers import systems, tables
from ..layers.reading import Reader
from ..layers.sources import POINTS_ONLY, check_field, source_of
from ..layers.values import number_of
from ..programs import batch
from ..programs.scratch import put_in_place, scratch_folder
from .algorithm import Algorithm
from .groups import TO_ARCHIVE
from .presets import ANGLES, VALUES, preset


class Results(Algorithm):
    """The points become a `data_3d` block, and arrows where there is an angle."""

    NAME = "results"
    TITLE = "Results to archive"
    GROUP = TO_ARCHIVE
    ICON = "to_archive.svg"

    def initAlgorithm(self, _configuration=None):
        self.addParameter(QgsProcessingParameterFeatureSource(
            "INPUT", "Points", [QgsProcessing.TypeVectorPoint]))
        self.addParameter(preset(QgsProcessingParameterField(
            "VALUE", "Value", parentLayerParameterName="INPUT",
            type=QgsProcessingParameterField.Numeric),
            VALUES))
        self.addParameter(preset(QgsProcessingParameterField(
            "ANGLE", "Angle", parentLayerParameterName="INPUT",
            type=QgsProcessingParameterField.Numeric, optional=True),
            ANGLES))
        self.add_crs("Coordinate system of the archive")
        self.add_archive_output()

    def check(self, parameters, context):
        source = source_of(self, parameters, "INPUT", context, POINTS_ONLY)
        if source:
            self._value_fields(parameters, context, source)
            self.target_system(parameters, context, source)

    def processAlgorithm(self, parameters, context, feedback):
        source = source_of(self, parameters, "INPUT", context, POINTS_ONLY)
        fields = self._value_fields(parameters, context, source)
        target = self.target_system(parameters, context, source)
        output = self.parameterAsFileOutput(parameters, "OUTPUT", context)
        steps = QgsProcessingMultiStepFeedback(2, feedback)
        with scratch_folder() as folder:
            self._prepare(f"{folder}/points.shp", Reader("INPUT", source, target, context, steps),
                          fields)
            systems.write_system(f"{folder}/Header.prj", target)
            steps.setCurrentStep(1)
            record = batch.convert(["points.shp", "--", "-results", "-model", source.sourceName()],
                                   folder, steps)
            put_in_place(record["output"], output)
        return {"OUTPUT": output}

    @staticmethod
    def _prepare(path, reader, fields):
        # The converter takes a second field as the rotation if its name says so.
        table = tables.Table(path, tables.POINTS,
                             [tables.number_field(name) for name, _ in zip(("VALUE", "ANGLE"), fields)])
        without = 0
        for feature, point in reader.points(fields):
            values = [number_of(feature[field]) for field in fields]
            if None in values:
                without += 1
            else:
                table.add(point, values)
        table.close()
        reader.report("points")
        if without:
            reader.feedback.pushWarning(f"Points without a value, left out: {without}.")

    def _value_fields(self, parameters, context, source):
        names = [self.parameterAsString(parameters, name, context) for name in ("VALUE", "ANGLE")]
        fields = [check_field(parameter, source.sourceName(), source.fields(), name, numeric=True)
                  for parameter, name in zip(("VALUE", "ANGLE"), names) if name]
        return fields
