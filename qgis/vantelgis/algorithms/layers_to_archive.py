"""Layers with names, models, colours and elevations to an archive."""

from qgis.core import (QgsProcessing, QgsProcessingFeatureSource,
                       QgsProcessingParameterField, QgsProcessingParameterMultipleLayers, QgsWkbTypes)

from ..layers import tables
from ..layers.reading import Reader
from ..layers.sources import LINES_OR_POLYGONS, check_kind
from ..layers.values import number_of, text_of
from ..programs import package
from ..programs.scratch import put_in_place, scratch_folder
from ..refusals import refusal
from .algorithm import Algorithm
from .groups import TO_ARCHIVE

NONE = float("nan")
LONGEST_LINE = 1_000_000  # vertices of a string in an archive
# Parameter, title, and the field that is taken where the user chose none.
TEXTS = (("NAME", "Name", "name"), ("MODEL", "Model (without a value: the layer's name)", "model"),
         ("COLOUR", "Colour", "colour"), ("STYLE", "Style", "style"),
         ("BREAKLINE", "Breakline: line or point", "breakline"))
# What "Open archive" gives besides, taken along by its name.
TYPE, NUMBERS = "type", ("chainage", "z")
KINDS = ("2d", "3d")


class LayersToArchive(Algorithm):
    """The strings of an archive with all that a layer knows of them."""

    NAME = "layerstoarchive"
    TITLE = "Layers to archive"
    GROUP = TO_ARCHIVE
    ICON = "to_archive.svg"

    def initAlgorithm(self, _configuration=None):
        self.addParameter(QgsProcessingParameterMultipleLayers(
            "INPUT", "Lines and polygons", QgsProcessing.TypeVectorAnyGeometry))
        for name, title, field in TEXTS:
            self.addParameter(QgsProcessingParameterField(
                name, title, field, parentLayerParameterName="INPUT", optional=True))
        self.add_crs("Coordinate system of the archive")
        self.add_archive_output()

    def check(self, parameters, context):
        layers = self._layers(parameters, context)
        if layers:
            self._field_names(parameters, context, layers)
            self.target_system(parameters, context, layers[0])

    def processAlgorithm(self, parameters, context, feedback):
        layers = self._layers(parameters, context)
        names = self._field_names(parameters, context, layers)
        target = self.target_system(parameters, context, layers[0])
        output = self.parameterAsFileOutput(parameters, "OUTPUT", context)
        with scratch_folder() as folder:
            for number, layer in enumerate(layers, 1):
                source = QgsProcessingFeatureSource(layer, context)
                reader = Reader("INPUT", source, target, context, feedback, keep_z=True)
                self._prepare(f"{folder}/layers.gpkg", f"layer{number}", reader, names, target)
            package.convert(["layers.gpkg", "-o", "layers.12da"], folder, feedback)
            put_in_place(f"{folder}/layers.12da", output)
        return {"OUTPUT": output}

    @staticmethod
    def _prepare(path, table_name, reader, names, target):
        fields = reader.source.fields()

        def places(pairs):
            found = [(own, fields.lookupField(name)) for own, name in pairs]
            return [(own, place) for own, place in found if place >= 0]

        chosen = dict(names)
        model, kind = (fields.lookupField(name or "") for name in (chosen.pop("model"), TYPE))
        texts, numbers = places(chosen.items()), places(zip(NUMBERS, NUMBERS))
        has_z = reader.source.wkbType() == QgsWkbTypes.Unknown or QgsWkbTypes.hasZ(
            reader.source.wkbType())
        table = tables.Table(
            path, tables.MULTI_LINES_Z if has_z else tables.MULTI_LINES, [
                *(tables.text_field(own) for own, _ in (*texts, ("model", 0), (TYPE, 0))),
                *(tables.number_field(own, 0, 0) for own, _ in numbers)],
            table_name, "GPKG", target)
        for feature, lines in reader.lines([place for _, place in (*texts, *numbers)] + [model, kind],
                                           LONGEST_LINE, refuse_longer=True):
            given = text_of(feature[kind]) if kind >= 0 else ""
            if not given in KINDS:
                given = KINDS[lines.constGet().is3D()]
            if has_z:
                lines.get().addZValue(NONE)  # where there is none yet; QGIS would make it 0
            table.add(lines, [
                *(text_of(feature[place]) or None for _, place in texts),
                (text_of(feature[model]) if model >= 0 else "") or reader.layer,
                given,
                *(number_of(feature[place]) for _, place in numbers)])
        table.close()
        reader.report("lines")

    def _layers(self, parameters, context):
        given = parameters.get("INPUT")
        layers = self.parameterAsLayerList(parameters, "INPUT", context)
        if given and len(layers) < (len(given) if isinstance(given, (list, tuple)) else 1):
            raise refusal("INPUT", "", "a layer can't be opened: look whether all are still in the "
                          "project, or the files where they were.")
        for layer in layers:
            check_kind("INPUT", layer.name(), layer.wkbType(), LINES_OR_POLYGONS)
        return layers

    def _field_names(self, parameters, context, layers):
        """Pairs of an attribute of the archive and the field chosen for it, or an empty name."""
        chosen = []
        for parameter, _, own in TEXTS:
            name = self.parameterAsString(parameters, parameter, context)
            if name and name != own and all(layer.fields().lookupField(name) < 0 for layer in layers):
                raise refusal(parameter, layers[0].name(), f'none of the layers has a field "{name}".')
            chosen.append((own, name))
        return chosen
