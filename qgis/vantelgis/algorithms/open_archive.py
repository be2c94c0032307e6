"""An archive as a GeoPackage with names, models, colours and styles."""

import os

from qgis.core import (QgsProcessingContext, QgsProcessingParameterFileDestination,
                       QgsVectorLayer)

from .. import styles
from ..layers import systems
from ..programs import package
from ..programs.scratch import scratch_folder
from .algorithm import Algorithm
from .groups import FROM_ARCHIVE

LAYERS = ("strings", "points")  # what a map shows of the package


class OpenArchive(Algorithm):
    """The strings as they are in the archive, styled."""

    NAME = "openarchive"
    TITLE = "Open archive"
    GROUP = FROM_ARCHIVE
    ICON = "from_archive.svg"

    def initAlgorithm(self, _configuration=None):
        self.add_archive_input()
        self.add_crs("Coordinate system of the archive")
        self.addParameter(QgsProcessingParameterFileDestination(
            "OUTPUT", "GeoPackage", "GeoPackages (*.gpkg *.GPKG)"))

    def check(self, parameters, context):
        self.system_of_archive(parameters, context, self.archive_path(parameters, context))

    def processAlgorithm(self, parameters, context, feedback):
        archive = self.archive_path(parameters, context)
        system = self.system_of_archive(parameters, context, archive)
        output = os.path.abspath(self.parameterAsFileOutput(parameters, "OUTPUT", context))
        with scratch_folder() as folder:
            arguments = [archive, "-o", output]
            if system.isValid():
                systems.write_wkt(f"{folder}/archive.prj", system)
                arguments += ["--crs", "archive.prj"]
            package.convert(arguments, folder, feedback)
        self._show(archive, output, context)
        return {"OUTPUT": output}

    @staticmethod
    def _show(archive, output, context):
        if context.project() is None:
            return
        title = os.path.splitext(os.path.basename(archive))[0]
        for name in LAYERS:
            path = f"{output}|layername={name}"
            layer = QgsVectorLayer(path, name, "ogr")
            if layer.isValid() and layer.featureCount() > 0:
                context.addLayerToLoadOnCompletion(path, QgsProcessingContext.LayerDetails(
                    title if name == LAYERS[0] else f"{title} {name}", context.project(), name))
                styles.show(context, path, None)
