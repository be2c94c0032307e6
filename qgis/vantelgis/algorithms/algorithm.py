"""What the algorithms have in common."""

import os

from qgis.core import (QgsCoordinateReferenceSystem, QgsProcessingAlgorithm,
                       QgsProcessingException, QgsProcessingParameterCrs,
                       QgsProcessingParameterFile,
                       QgsProcessingParameterFileDestination)
from qgis.PyQt.QtGui import QIcon

from ..layers import sources, systems
from ..refusals import refusal

HERE = os.path.dirname(os.path.dirname(__file__))
ARCHIVES = "12d archives (*.12da *.12DA)"
ARCHIVES_IN = "12d archives (*.12da *.4da *.12DA *.4DA)"


class Algorithm(QgsProcessingAlgorithm):
    """An algorithm that is described by constants and a page of `help`, and checks its parameters
    in `check`."""

    NAME = TITLE = ICON = ""
    GROUP = ("", "")  # id and title

    def name(self):
        return self.NAME

    def displayName(self):
        return self.TITLE

    def groupId(self):
        return self.GROUP[0]

    def group(self):
        return self.GROUP[1]

    def shortHelpString(self):
        with open(os.path.join(HERE, "help", f"{self.NAME}.html"), encoding="utf-8") as file:
            return file.read()

    def icon(self):
        return QIcon(self.svgIconPath())

    def svgIconPath(self):
        return os.path.join(HERE, "icons", self.ICON)

    def createInstance(self):
        return type(self)()

    def check(self, parameters, context):
        """Raises a refusal for values that Processing lets through. Called before every run."""

    def checkParameterValues(self, parameters, context):
        try:
            self._check_names(parameters, context)
            self.check(parameters, context)
        except QgsProcessingException as error:
            return False, str(error)
        return super().checkParameterValues(parameters, context)

    def prepareAlgorithm(self, parameters, context, feedback):
        # A model runs its steps without asking checkParameterValues.
        self.check(parameters, context)
        return super().prepareAlgorithm(parameters, context, feedback)

    def chosen_system(self, parameters, context):
        """The system in CRS, perhaps an invalid one, or None where the choice is left open."""
        if parameters.get("CRS") in (None, ""):
            return None
        return self.parameterAsCrs(parameters, "CRS", context)

    def target_system(self, parameters, context, source):
        """The system that the result of a layer is written in."""
        project = context.project()
        return systems.target_system(self.chosen_system(parameters, context), source.sourceCrs(),
                                     project.crs() if project else QgsCoordinateReferenceSystem(),
                                     source.sourceName())

    def system_of_archive(self, parameters, context, archive):
        """The system of the layers of an archive: the chosen one, else that of a .prj beside it,
        else the project's; an invalid one where none of these is projected."""
        chosen = self.chosen_system(parameters, context)
        if chosen is not None:
            return systems.target_system(chosen, chosen, chosen, archive)
        project = context.project()
        for system in (systems.system_beside(archive), project.crs() if project else None):
            if system is not None and systems.is_plane(system):
                return system
        return QgsCoordinateReferenceSystem()

    def archive_path(self, parameters, context):
        """The archive in INPUT; refuses what is none."""
        path = self.parameterAsFile(parameters, "INPUT", context)
        if not os.path.isfile(path):
            raise refusal("INPUT", path, "there is no such file.")
        if os.path.splitext(path)[1].lower() not in (".12da", ".4da"):
            raise refusal("INPUT", path, "an archive has the extension .12da or .4da.")
        return os.path.abspath(path)

    def add_crs(self, words):
        """The parameter CRS."""
        self.addParameter(QgsProcessingParameterCrs("CRS", words, optional=True))

    def add_archive_input(self):
        """The parameter INPUT of the algorithms that read an archive."""
        self.addParameter(QgsProcessingParameterFile("INPUT", "Archive", fileFilter=ARCHIVES_IN))

    def add_archive_output(self):
        """The parameter OUTPUT of the algorithms that write one."""
        self.addParameter(QgsProcessingParameterFileDestination("OUTPUT", "Archive", ARCHIVES))

    def _check_names(self, parameters, context):
        known = [definition.name() for definition in self.parameterDefinitions()]
        for name in parameters:
            if name not in known:
                layer = sources.name_of(parameters.get("INPUT"), context)
                raise refusal(name, layer, f"{self.NAME} has no such parameter. It takes "
                              f"{', '.join(known)}.")
