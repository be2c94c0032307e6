"""What the plugin adds to the main window: drops, the Browser, the toolbar."""

import processing
from qgis.core import QgsApplication, QgsVectorLayer, QgsWkbTypes
from qgis.gui import QgsGui
from qgis.PyQt.QtGui import QIcon
from qgis.PyQt.QtWidgets import QAction

from ..provider import ICON
from .opening import ArchiveActions, ArchiveDrop, ArchiveItems, Opener

MENU = "vantelgis"


class Desktop:
    """Adds everything as it is made and keeps it, for QGIS keeps no reference to Python objects."""

    def __init__(self, iface):
        self._iface = iface
        self._opener = Opener(iface)
        self._drop = ArchiveDrop(self._opener)
        self._items = ArchiveItems()
        self._actions = ArchiveActions(self._opener)
        iface.registerCustomDropHandler(self._drop)
        QgsApplication.dataItemProviderRegistry().addProvider(self._items)
        QgsGui.dataItemGuiProviderRegistry().addProvider(self._actions)
        self._save = QAction(QIcon(ICON), "Save layer as 12d archive…", iface.mainWindow())
        self._save.triggered.connect(self._save_layer)
        iface.addVectorToolBarIcon(self._save)
        iface.addPluginToVectorMenu(MENU, self._save)
        iface.currentLayerChanged.connect(self._layer_changed)
        self._layer_changed(iface.activeLayer())

    def remove(self):
        iface = self._iface
        iface.currentLayerChanged.disconnect(self._layer_changed)
        iface.removePluginVectorMenu(MENU, self._save)
        iface.removeVectorToolBarIcon(self._save)
        self._save.deleteLater()
        QgsGui.dataItemGuiProviderRegistry().removeProvider(self._actions)
        QgsApplication.dataItemProviderRegistry().removeProvider(self._items)
        iface.unregisterCustomDropHandler(self._drop)

    def _layer_changed(self, layer):
        self._save.setEnabled(isinstance(layer, QgsVectorLayer) and layer.isSpatial())

    def _save_layer(self):
        """Opens the dialog of the algorithm that fits the active layer."""
        layer = self._iface.activeLayer()
        points = QgsWkbTypes.geometryType(layer.wkbType()) == QgsWkbTypes.PointGeometry
        algorithm, value = (("vantelgis:results", layer.id()) if points
                            else ("vantelgis:layerstoarchive", [layer.id()]))
        processing.execAlgorithmDialog(algorithm, {"INPUT": value})
