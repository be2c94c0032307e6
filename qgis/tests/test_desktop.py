"""What the plugin adds to the main window, with a stand-in for it, and to the dialogs."""

import time
import unittest
from unittest import mock

from qgis.core import (QgsApplication, QgsProcessingModelAlgorithm, QgsProcessingParameterField,
                       QgsProject)
from qgis.gui import QgsGui, QgsMessageBar
from qgis.PyQt.QtWidgets import QMainWindow, QMenu

from support import EXAMPLES, FOLDER, MGA56, layer

from processing.gui.AlgorithmDialog import AlgorithmDialog
from processing.gui.BatchAlgorithmDialog import BatchAlgorithmDialog
from processing.gui.wrappers import WidgetWrapperFactory
from processing.modeler.ModelerParametersDialog import ModelerParametersDialog
from vantelgis.gui import desktop, opening

SITE = str(EXAMPLES / "site.12da")


class Window:
    """The few things of QGIS's interface that the plugin uses."""

    def __init__(self):
        self.window, self.bar = QMainWindow(), QgsMessageBar()
        self.currentLayerChanged = mock.Mock()
        self.activeLayer = mock.Mock(return_value=None)
        for name in ("registerCustomDropHandler", "unregisterCustomDropHandler", "addVectorToolBarIcon",
                     "removeVectorToolBarIcon", "addPluginToVectorMenu", "removePluginVectorMenu"):
            setattr(self, name, mock.Mock())

    def mainWindow(self):
        return self.window

    def messageBar(self):
        return self.bar


def layers_loaded():
    """The layers of the project, once the task that loads them is done."""
    until = time.monotonic() + 20
    while not QgsProject.instance().mapLayers() and time.monotonic() < until:
        QgsApplication.processEvents()
    return list(QgsProject.instance().mapLayers().values())


class Desktop(unittest.TestCase):
    """Drops, the Browser, the toolbar."""

    def setUp(self):
        self.window = Window()
        self.desktop = desktop.Desktop(self.window)
        self.addCleanup(QgsProject.instance().clear)
        self.addCleanup(self.desktop.remove)

    def test_drop(self):
        handler, = self.window.registerCustomDropHandler.call_args[0]
        self.assertFalse(handler.handleFileDrop(__file__))
        self.assertTrue(handler.handleFileDrop(SITE))
        strings, = layers_loaded()
        self.assertEqual((strings.name(), strings.featureCount(), strings.crs().authid()), ("site", 7, MGA56))
        self.assertEqual(strings.renderer().type(), "categorizedSymbol")

    def test_system_is_asked_for_where_none_is_found(self):
        path = FOLDER / "alone.12da"
        path.write_bytes((EXAMPLES / "site.12da").read_bytes())
        with mock.patch.object(opening, "QgsProjectionSelectionDialog") as dialog:
            dialog.return_value.exec.return_value = 0
            opening.Opener(self.window).open(str(path))
            dialog.return_value.exec.assert_called_once()
            self.assertEqual(QgsProject.instance().mapLayers(), {})

    def test_failure_is_said(self):
        path = FOLDER / "broken.12da"
        path.write_text('model "m"\nstring 3d {\n data {\n 1 2 x\n }\n}\n')
        (FOLDER / "broken.prj").write_bytes((EXAMPLES / "Header.prj").read_bytes())
        opening.Opener(self.window).open(str(path))
        until = time.monotonic() + 20
        while not self.window.bar.currentItem() and time.monotonic() < until:
            QgsApplication.processEvents()
        self.assertIn("broken.12da", self.window.bar.currentItem().text())

    def test_browser(self):
        items = QgsApplication.dataItemProviderRegistry().provider("vantelgis")
        item = items.createDataItem(SITE, None)
        self.assertEqual((item.name(), items.createDataItem(__file__, None)), ("site.12da", None))
        actions = next(provider for provider in QgsGui.dataItemGuiProviderRegistry().providers()
                       if provider.name() == "vantelgis")
        menu = QMenu()
        actions.populateContextMenu(item, menu, [], None)
        self.assertEqual([action.text() for action in menu.actions()], ["Open archive"])
        self.assertTrue(actions.handleDoubleClick(item, None))
        self.assertEqual(len(layers_loaded()), 1)

    def test_toolbar(self):
        action, = self.window.addVectorToolBarIcon.call_args[0]
        changed, = self.window.currentLayerChanged.connect.call_args[0]
        for kind, algorithm in (("Point", "vantelgis:results"), ("LineString", "vantelgis:layerstoarchive")):
            active = self.window.activeLayer.return_value = layer(kind, "")
            changed(active)
            with mock.patch.object(desktop.processing, "execAlgorithmDialog") as dialog:
                action.trigger()
                self.assertEqual(dialog.call_args[0][0], algorithm)
        changed(layer("None", ""))
        self.assertFalse(action.isEnabled())


class Dialogs(unittest.TestCase):
    """The fields that are chosen beforehand."""

    def test_presets(self):
        self.addCleanup(QgsProject.instance().clear)
        QgsProject.instance().addMapLayers([
            layer("LineString", "id:int name:string Elev:double z:string"),
            layer("Point", "id:int speed:double Rotation:double")])
        for algorithm, expected in (
                ("breaklines3d", {"ELEVATION": "Elev", "POINT_ELEVATION": None}),
                ("results", {"VALUE": "speed", "ANGLE": "Rotation"}),
                ("layerstoarchive", {})):
            dialog = AlgorithmDialog(QgsApplication.processingRegistry().createAlgorithmById(
                f"vantelgis:{algorithm}"))
            wrappers = dialog.mainWidget().wrappers
            chosen = {name: wrapper.parameterValue() for name, wrapper in wrappers.items()
                      if isinstance(wrapper.parameterDefinition(), QgsProcessingParameterField)}
            self.assertEqual({name: chosen[name] for name in expected}, expected)

    def test_batch_and_modeller_have_their_own_widgets(self):
        results = QgsApplication.processingRegistry().algorithmById("vantelgis:results")
        field = results.parameterDefinition("VALUE")

        wrapper = WidgetWrapperFactory.create_wrapper(field, BatchAlgorithmDialog(results.create(), None))
        self.assertNotIn("vantelgis", type(wrapper).__module__)
        model = ModelerParametersDialog(results.create(), QgsProcessingModelAlgorithm())
        self.assertNotIn("vantelgis", type(model.widget.widget.wrappers["VALUE"]).__module__)


if __name__ == "__main__":
    unittest.main()
