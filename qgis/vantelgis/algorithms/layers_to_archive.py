"""Layers with names, models, colours and elevations to an archive."""

from qgis.core import (QgsProcessing, QgsProcessingFeatureSource, QgsProcessingParameterField,
                       QgsProcessingParameterMultipleLayers)

from ..layers.package import write_layer
from ..layers.reading import Reader
from ..layers.sources import LINES_OR_POLYGONS, check_kind
from ..programs import package
from ..programs.scratch import put_in_place, scratch_folder
from ..refusals import refusal
from .algorithm import Algorithm
from .groups import TO_ARCHIVE

# Parameter, title, and the field that is taken where the user chose none.
TEXTS = (("NAME", "Name", "name"),
         ("MODEL", "Model (without a value: the layer's name)", "model"),
         ("COLOUR", "Colour", "colour"),
         ("STYLE", "Style", "style"),
         ("BREAKLINE", "Breakline: line or point", "breakline"))


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
        self._chosen_fields(parameters, context, layers)
        self.target_system(parameters, context, layers[0])

    def processAlgorithm(self, parameters, context, feedback):
        layers = self._layers(parameters, context)
        chosen = self._chosen_fields(parameters, context, layers)
        target = self.target_system(parameters, context, layers[0])
        output = self.parameterAsFileOutput(parameters, "OUTPUT", context)
        with scratch_folder() as folder:
            for number, layer in enumerate(layers, 1):
                source = QgsProcessingFeatureSource(layer, context)
                reader = Reader("INPUT", source, target, context, feedback, keep_z=True)
                write_layer(f"{folder}/layers.gpkg", f"layer{number}", reader, chosen, target)
            package.convert(["layers.gpkg", "-o", "layers.12da"], folder, feedback)
            put_in_place(f"{folder}/layers.12da", output)
        return {"OUTPUT": output}

    def _layers(self, parameters, context):
        given = parameters.get("INPUT")
        layers = self.parameterAsLayerList(parameters, "INPUT", context)
        if not given:
            raise refusal("INPUT", "", "no layer is chosen.")
        if len(layers) < (len(given) if isinstance(given, (list, tuple)) else 1):
            raise refusal("INPUT", "", "a layer can't be opened: look whether all are still in the "
                          "project, or the files where they were.")
        for layer in layers:
            check_kind("INPUT", layer.name(), layer.wkbType(), LINES_OR_POLYGONS)
        return layers

    def _chosen_fields(self, parameters, context, layers):
        """The field chosen for each attribute of the archive, or an empty name."""
        chosen = {}
        for parameter, _, own in TEXTS:
            name = self.parameterAsString(parameters, parameter, context)
            there = any(layer.fields().lookupField(name) >= 0 for layer in layers)
            if name and name != own and not there:
                raise refusal(parameter, layers[0].name(),
                              f'none of the layers has a field "{name}".')
            chosen[own] = name
        return chosen
