"""Lines and levelled points to 3D breaklines, with check layers."""

from qgis.core import (QgsFeature, QgsFeatureSink, QgsFields, QgsGeometry, QgsProcessing,
                       QgsProcessingMultiStepFeedback, QgsProcessingParameterFeatureSink, QgsProcessingParameterFeatureSource,
                       QgsProcessingParameterField, QgsVectorLayer, QgsWkbTypes)

from .. import styles
from ..layers import systems, tables
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
        for name, title, kind in (("DANGLES", "Dangling lines", QgsProcessing.TypeVectorLine),
                                  ("UNSNAPPED", "Unsnapped points", QgsProcessing.TypeVectorPoint)):
            self.addParameter(QgsProcessingParameterFeatureSink(name, title, kind, optional=True))

    def check(self, parameters, context):
        lines = source_of(self, parameters, "INPUT", context, LINES_OR_POLYGONS)
        points = source_of(self, parameters, "POINTS", context, POINTS_ONLY)
        if lines is None:
            return
        elevation = self._field(parameters, "ELEVATION", context, lines)
        if points is None and elevation < 0:
            raise refusal("POINTS or ELEVATION", lines.sourceName(), "one of the two must be given: "
                          "points with elevations, or a field with the elevation of each line.")
        if points is not None and self._field(parameters, "POINT_ELEVATION", context, points) < 0 \
                and not QgsWkbTypes.hasZ(points.wkbType()):
            raise refusal("POINT_ELEVATION", points.sourceName(), "the points have no Z: choose the "
                          "field that holds their elevation.")
        self.target_system(parameters, context, lines)

    def processAlgorithm(self, parameters, context, feedback):
        lines = source_of(self, parameters, "INPUT", context, LINES_OR_POLYGONS)
        points = source_of(self, parameters, "POINTS", context, POINTS_ONLY)
        target = self.target_system(parameters, context, lines)
        output = self.parameterAsFileOutput(parameters, "OUTPUT", context)
        steps = QgsProcessingMultiStepFeedback(3, feedback)
        with scratch_folder() as folder:
            reader = Reader("INPUT", lines, target, context, steps)
            self._prepare_lines(f"{folder}/run_lines.shp", reader,
                                self._field(parameters, "ELEVATION", context, lines))
            arguments, expected = ["run_lines.shp"], (batch.FLAT,)
            steps.setCurrentStep(1)
            if points is not None:
                self._prepare_points(f"{folder}/run_points.shp",
                                     Reader("POINTS", points, target, context, steps),
                                     self._field(parameters, "POINT_ELEVATION", context, points))
                arguments, expected = [
                    "--pair", "{stem}_points.shp={stem}_lines.shp", "run_points.shp"], ()
            # One file alone brings its own .prj, and the one that QGIS writes may be of another form.
            for name in ("Header", "run_lines"):
                systems.write_system(f"{folder}/{name}.prj", target)
            steps.setCurrentStep(2)
            record = batch.convert([*arguments, "--", "-zln", "-model", lines.sourceName()], folder,
                                   steps, reader.taken, expected)
            results = {"OUTPUT": output}
            for name, layer in (("DANGLES", "_dangles_L"), ("UNSNAPPED", "_unsnapped_points_P")):
                results.update(self._give_check_layer(parameters, name, f"{folder}/run_lines{layer}.shp",
                                                      target, context))
            put_in_place(record["output"], output)
        return results

    def _field(self, parameters, parameter, context, source):
        name = self.parameterAsString(parameters, parameter, context)
        return check_field(parameter, source.sourceName(), source.fields(), name, numeric=True)

    @staticmethod
    def _prepare_lines(path, reader, field):
        table = tables.Table(path, tables.LINES, [tables.number_field("ELEVATION")])
        without = 0
        for feature, line in reader.lines([field], LONGEST_LINE, refuse_longer=True):
            elevation = number_of(feature[field]) if field >= 0 else None
            without += elevation is None and field >= 0
            table.add(line, [NULL_ELEVATION if elevation is None else elevation])
        table.close()
        reader.report("lines")
        if without:
            reader.feedback.pushWarning("Lines without an elevation of their own, at the archive's null "
                                        f"where no point lies on them: {without}.")

    @staticmethod
    def _prepare_points(path, reader, field):
        table = tables.Table(path, tables.POINTS, [tables.number_field("ELEVATION")])
        without = 0
        for feature, point in reader.points([field]):
            elevation = number_of(feature[field] if field >= 0 else point.z())
            if elevation is None:
                without += 1
            else:
                table.add(point, [elevation])
        table.close()
        reader.report("points")
        if without:
            reader.feedback.pushWarning(f"Points without an elevation, left out: {without}.")

    def _give_check_layer(self, parameters, name, path, target, context):
        """Copies a check layer of the run into a layer of the user's, with its elevation as Z."""
        layer = QgsVectorLayer(path, name, "ogr")
        fields = QgsFields()
        fields.append(tables.number_field("Z"))
        kind = QgsWkbTypes.PointZ if name == "UNSNAPPED" else QgsWkbTypes.MultiLineString
        sink, identifier = self.parameterAsSink(parameters, name, context, fields, kind, target)
        if sink is None:
            return {}
        for feature in layer.getFeatures():
            elevation = None if feature[0] == NULL_ELEVATION else feature[0]
            geometry = QgsGeometry(feature.geometry())
            if kind == QgsWkbTypes.PointZ:
                geometry.get().convertTo(QgsWkbTypes.PointZ)
                geometry.get().setZ(elevation)
            copy = QgsFeature(fields)
            copy.setGeometry(geometry)
            copy.setAttributes([elevation])
            sink.addFeature(copy, QgsFeatureSink.FastInsert)
        styles.show(context, identifier, styles.WARNINGS, on_top=True)
        return {name: identifier}
