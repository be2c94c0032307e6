"""The provider: the list of algorithms in the toolbox, and its one setting."""

import os

from qgis.core import QgsProcessingProvider
from qgis.PyQt.QtGui import QIcon

from . import settings
from .algorithms import ALGORITHMS

ICON = os.path.join(os.path.dirname(__file__), "icons", "vantelgis.svg")


class Provider(QgsProcessingProvider):
    """Shows the algorithms under "vantelgis" in the toolbox, the modeller and qgis_process."""

    def id(self):
        return "vantelgis"

    def name(self):
        return "vantelgis"

    def longName(self):
        return "vantelgis: archives of 12d Model"

    def icon(self):
        return QIcon(ICON)

    def svgIconPath(self):
        return ICON

    def load(self):
        settings.register(self.icon())
        self.refreshAlgorithms()
        return True

    def unload(self):
        settings.unregister()

    def loadAlgorithms(self):
        for algorithm in ALGORITHMS:
            self.addAlgorithm(algorithm())
