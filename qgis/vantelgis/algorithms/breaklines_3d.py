"""Lines and levelled points to 3D breaklines, with check layers."""

from qgis.core import (QgsProcessing, QgsProcessingMultiStepFeedback,
                       QgsProcessingParameterFeatureSink, QgsProcessingParameterFeatureSource,
                       QgsProcessingParameterField, QgsWkbTypes)

from .. import styles
from ..layers import systems, tables
from ..layers.check_layers import copy_check_layer
from ..layers.outputs import Outputs
from ..layers.points import write_points
from ..layers.reading import Reader
from ..layers.sources import LINES_OR_POLYGONS, POINTS_ONLY, check_field, source_of
from ..layers.values import NULL_ELEVATION, number_of
from ..programs import batch
from ..programs.scratch import put_in_place, scratch_folder
from ..refusals import refusal
from .algorithm import Algorithm
from .groups import TO_ARCHIVE
from .presets import ELEVATIONS, preset

LONGEST_LINE = 100_000  # vertices of a 3D breakline
# Parameter and title of a check layer, what it holds, its kind, and the converter's name of it.
CHECKS = (("DANGLES", "Dangling lines", QgsProcessing.TypeVectorLine,
           QgsWkbTypes.MultiLineString, "run_lines_dangles_L.shp"),
          ("UNSNAPPED", "Unsnapped points", QgsProcessing.TypeVectorPoint,
           QgsWkbTypes.PointZ, "run_lines_unsnapped_points_P.shp"))


class Breaklines3d(Algorithm):
    """Each line takes the elevations of the points on it, and its own where there are none."""

    NAME = "breaklines3d"
    TITLE = "3D breaklines to archive"
    GROUP = TO_ARCHIVE
    ICON = "to_archive.svg"

    def initAlgorithm(self, _configuration=None):
        numeric = QgsProcessingParameterField.Numeric
        self.addParameter(QgsProcessingParameterFeatureSource(
            "INPUT", "Lines or polygons", [QgsProcessing.TypeVectorLine,
                                           QgsProcessing.TypeVectorPolygon]))
        self.addParameter(preset(QgsProcessingParameterField(
            "ELEVATION", "Elevation of the line, where no point lies on it", type=numeric,
            parentLayerParameterName="INPUT", optional=True), ELEVATIONS))
        self.addParameter(QgsProcessingParameterFeatureSource(
            "POINTS", "Points with elevations", [QgsProcessing.TypeVectorPoint], optional=True))
        self.addParameter(preset(QgsProcessingParameterField(
            "POINT_ELEVATION", "Elevation of the points (empty: their Z)", type=numeric,
            parentLayerParameterName="POINTS", optional=True), ELEVATIONS))
        self.add_crs("Coordinate system of the archive")
        self.add_archive_output()
        for name, title, source_type, *_ in CHECKS:
            self.addParameter(QgsProcessingParameterFeatureSink(
                name, title, source_type, optional=True))

    def check(self, parameters, context):
        lines, points = self._sources(parameters, context)
        if lines is None:
            return
        elevation = self._field(parameters, "ELEVATION", context, lines)
        if points is None and elevation < 0:
            raise refusal("POINTS or ELEVATION", lines.sourceName(), "one of the two must be "
                          "given: points with elevations, or a field with the elevation of each "
                          "line.")
        if (points is not None and not QgsWkbTypes.hasZ(points.wkbType())
                and self._field(parameters, "POINT_ELEVATION", context, points) < 0):
            raise refusal("POINT_ELEVATION", points.sourceName(), "the points have no Z: choose "
                          "the field that holds their elevation.")
        self.target_system(parameters, context, lines)

    def processAlgorithm(self, parameters, context, feedback):
        lines, _ = self._sources(parameters, context)
        target = self.target_system(parameters, context, lines)
        output = self.parameterAsFileOutput(parameters, "OUTPUT", context)
        steps = QgsProcessingMultiStepFeedback(3, feedback)
        with scratch_folder() as folder, Outputs(self, parameters, context) as outputs:
            arguments, total = self._prepare(parameters, context, target, folder, steps)
            steps.setCurrentStep(2)
            record = batch.convert(
                [*arguments, "--", "-zln", "-model", lines.sourceName()], folder, steps, total,
                expected=() if "--pair" in arguments else (batch.FLAT,))
            _copy_checks(folder, outputs, target, steps)
            put_in_place(record["output"], output)
            results = outputs.put_in_place()
        for identifier in results.values():
            styles.show(context, identifier, styles.WARNINGS, on_top=True)
        return {"OUTPUT": output, **results}

    def _sources(self, parameters, context):
        return (source_of(self, parameters, "INPUT", context, LINES_OR_POLYGONS),
                source_of(self, parameters, "POINTS", context, POINTS_ONLY))

    def _field(self, parameters, parameter, context, source):
        name = self.parameterAsString(parameters, parameter, context)
        return check_field(parameter, source.sourceName(), source.fields(), name, numeric=True)

    def _prepare(self, parameters, context, target, folder, steps):
        """Writes what the converter takes; returns the inputs of the batch program, and how many
        lines there are."""
        lines, points = self._sources(parameters, context)
        reader = Reader("INPUT", lines, target, context, steps)
        _write_lines(f"{folder}/run_lines.shp", reader,
                     self._field(parameters, "ELEVATION", context, lines))
        # A file alone takes its own .prj, and the one that QGIS wrote may be of another form.
        for name in ("Header", "run_lines"):
            systems.write_system(f"{folder}/{name}.prj", target)
        if points is None:
            return ["run_lines.shp"], reader.taken
        steps.setCurrentStep(1)
        elevation = self._field(parameters, "POINT_ELEVATION", context, points)
        write_points(f"{folder}/run_points.shp", Reader("POINTS", points, target, context, steps),
                     [("ELEVATION", elevation)])
        return (["--pair", "{stem}_points.shp={stem}_lines.shp", "run_points.shp"], reader.taken)


def _copy_checks(folder, outputs, system, feedback):
    fields = tables.fields_of(tables.number_field("Z"))
    for name, _, _, kind, file in CHECKS:
        sink = outputs.sink(name, fields, kind, system)
        if sink is not None:
            copy_check_layer(f"{folder}/{file}", sink, feedback)


def _write_lines(path, reader, field):
    table = tables.Table(path, tables.LINES, [tables.number_field("ELEVATION")])
    without = 0
    for feature, line in reader.lines([field], LONGEST_LINE, refuse_longer=True):
        elevation = number_of(feature[field]) if field >= 0 else None
        without += elevation is None and field >= 0
        table.add(line, [NULL_ELEVATION if elevation is None else elevation])
    table.close()
    reader.report("lines")
    if without:
        reader.feedback.pushWarning("Lines without an elevation of their own, at the archive's "
                                    f"null where no point lies on them: {without}.")
