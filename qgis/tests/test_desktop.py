"""What the plugin adds to the main window, with a stand-in for it, and to the dialogs."""

import unittest
from unittest import mock

from support import EXAMPLES, FOLDER, MGA56, SITE, Log, layer, strings, wait_for

from processing.gui.AlgorithmDialog import AlgorithmDialog
from processing.gui.AlgorithmExecutor import execute
from processing.gui.BatchAlgorithmDialog import BatchAlgorithmDialog
from processing.gui.Postprocessing import handleAlgorithmResults
from processing.gui.wrappers import WidgetWrapperFactory
from processing.modeler.ModelerParametersDialog import ModelerParametersDialog
from qgis.core import (QgsApplication, QgsProcessingContext, QgsProcessingModelAlgorithm,
                       QgsProcessingModelChildAlgorithm, QgsProcessingModelOutput,
                       QgsProcessingModelParameter, QgsProcessingOutputLayerDefinition,
                       QgsProcessingParameterFeatureSource, QgsProject)
from qgis.core import QgsProcessingModelChildParameterSource as ChildSource
from qgis.gui import QgsGui, QgsMessageBar
from qgis.PyQt.QtWidgets import QMainWindow, QMenu
from vantelgis.gui import desktop, opening  # pylint: disable=wrong-import-order

PROJECT = QgsProject.instance()


class Desktop(unittest.TestCase):
    """Drops, the Browser, the toolbar."""

    def setUp(self):
        self.bar, self.main = QgsMessageBar(), QMainWindow()
        self.window = mock.Mock(**{"mainWindow.return_value": self.main,
                                   "activeLayer.return_value": None,
                                   "messageBar.return_value": self.bar})
        self.desktop = desktop.Desktop(self.window)
        self.addCleanup(PROJECT.clear)
        self.addCleanup(self.desktop.remove)

    def test_drop(self):
        handler, = self.window.registerCustomDropHandler.call_args[0]
        self.assertFalse(handler.handleFileDrop(__file__))
        self.assertTrue(handler.handleFileDrop(SITE))
        found, = wait_for(PROJECT.mapLayers).values()
        self.assertEqual((found.name(), found.featureCount(), found.crs().authid(),
                          found.renderer().type()), ("site", 7, MGA56, "categorizedSymbol"))

    def test_system_is_asked_for_where_none_is_found(self):
        path = FOLDER / "alone.12da"
        path.write_bytes((EXAMPLES / "site.12da").read_bytes())
        with mock.patch.object(opening, "QgsProjectionSelectionDialog") as dialog:
            dialog.return_value.exec.return_value = 0
            opening.Opener(self.window).open(str(path))
            dialog.return_value.exec.assert_called_once()

    def test_failure_is_said(self):
        (FOLDER / "broken.12da").write_text('model "m"\nstring 3d {\n data {\n 1 2 x\n }\n}\n')
        (FOLDER / "broken.prj").write_bytes((EXAMPLES / "Header.prj").read_bytes())
        opener = opening.Opener(self.window)
        opener.open(str(FOLDER / "broken.12da"))
        self.assertIn("broken.12da", wait_for(self.bar.currentItem).text())

    def test_browser(self):
        items = QgsApplication.dataItemProviderRegistry().provider("vantelgis")
        item = items.createDataItem(SITE, None)
        self.assertEqual((item.name(), items.createDataItem(__file__, None)), ("site.12da", None))
        actions, = (provider for provider in QgsGui.dataItemGuiProviderRegistry().providers()
                    if provider.name() == "vantelgis")
        menu = QMenu()
        actions.populateContextMenu(item, menu, [], None)
        self.assertEqual([action.text() for action in menu.actions()], ["Open archive"])
        self.assertTrue(actions.handleDoubleClick(item, None))
        self.assertEqual(len(wait_for(PROJECT.mapLayers)), 1)

    def test_toolbar(self):
        action, = self.window.addVectorToolBarIcon.call_args[0]
        changed, = self.window.currentLayerChanged.connect.call_args[0]
        for kind, algorithm in (("Point", "results"), ("LineString", "layerstoarchive")):
            active = self.window.activeLayer.return_value = layer(kind, "")
            changed(active)
            with mock.patch.object(desktop.processing, "execAlgorithmDialog") as dialog:
                action.trigger()
                self.assertEqual(dialog.call_args[0][0], f"vantelgis:{algorithm}")
        changed(layer("None", ""))
        self.assertFalse(action.isEnabled())


class Showing(unittest.TestCase):
    """What is loaded once an algorithm has ended."""

    def shown(self, algorithm, *results, **parameters):
        """Names, numbers of features and colours of the layers, the top one first."""
        self.addCleanup(PROJECT.clear)
        context, log = QgsProcessingContext(), Log()
        context.setProject(PROJECT)
        parameters |= {name: QgsProcessingOutputLayerDefinition("TEMPORARY_OUTPUT", PROJECT)
                       for name in results}
        made = QgsApplication.processingRegistry().createAlgorithmById(f"vantelgis:{algorithm}")
        self.assertTrue(execute(made, parameters, context, log)[0], log.text)
        handleAlgorithmResults(made, context, log)
        layers = [node.layer() for node in PROJECT.layerTreeRoot().findLayers()]
        return [(shown.name(), shown.featureCount(), shown.renderer().symbol().color().name())
                for shown in layers]

    def test_check_layers_are_red_and_on_top(self):
        lines, points = PROJECT.addMapLayers([
            layer("LineString", "", ("LineString(0 0, 3 4, 9 9)",)),
            layer("PointZ", "", ("PointZ(0 0 1)",), ("PointZ(3 4 2)",), ("PointZ(50 50 9)",))])
        shown = self.shown("breaklines3d", "DANGLES", "UNSNAPPED", INPUT=lines, POINTS=points,
                           OUTPUT=str(FOLDER / "shown.12da"))
        self.assertEqual(shown[:2], [("Unsnapped points", 1, "#dc1414"),
                                     ("Dangling lines", 1, "#dc1414")])
        self.assertEqual(len(shown), 4)

    def test_strings_and_points(self):
        self.assertEqual(self.shown("archivetolayers", "LINES", "POINTS", INPUT=SITE),
                         [("Points", 27, "#1f5fa8"), ("Lines", 7, "#1f5fa8")])


class Models(unittest.TestCase):
    """The algorithms as steps of a model, which runs them without their own checks."""

    def run_model(self, source):
        model = QgsProcessingModelAlgorithm()
        model.addModelParameter(QgsProcessingParameterFeatureSource("INPUT"),
                                QgsProcessingModelParameter("INPUT"))
        for name, algorithm, given in (
                ("parts", "native:multiparttosingleparts", {
                    "INPUT": ChildSource.fromModelParameter("INPUT")}),
                ("archive", "vantelgis:breaklines2d", {
                    "INPUT": ChildSource.fromChildOutput("parts", "OUTPUT"),
                    "NAME": ChildSource.fromStaticValue("n")})):
            child = QgsProcessingModelChildAlgorithm(algorithm)
            child.setChildId(name)
            for parameter, value in given.items():
                child.addParameterSources(parameter, [value])
            if name == "archive":
                output = QgsProcessingModelOutput("made")
                output.setChildId(name)
                output.setChildOutputName("OUTPUT")
                child.setModelOutputs({"made": output})
            model.addChildAlgorithm(child)
        model.updateDestinationParameters()
        log = Log()
        path = str(FOLDER / "model.12da")
        done, _ = execute(model, {"INPUT": source, "archive:made": path},
                          QgsProcessingContext(), log)
        return strings(path) if done else log.errors

    def test_steps(self):
        parts = layer("MultiLineString", "n:string", ("MultiLineString((0 0,3 4),(5 5,6 6))", "p"))
        self.assertEqual(self.run_model(parts), [("2d", "p", [(0, 0), (3, 4)]),
                                                 ("2d", "p", [(5, 5), (6, 6)])])
        self.assertIn('NAME ("Single parts"): there is no field "n"',
                      self.run_model(layer("LineString", "q:string", ("LineString(0 0,3 4)", "p"))))


class Dialogs(unittest.TestCase):
    """The fields that are chosen beforehand."""

    def test_presets(self):
        self.addCleanup(PROJECT.clear)
        PROJECT.addMapLayers([layer("LineString", "id:int name:string Elev:double z:string"),
                              layer("Point", "id:int speed:double Rotation:double")])
        registry = QgsApplication.processingRegistry()
        for algorithm, expected in (
                ("breaklines3d", {"ELEVATION": "Elev", "POINT_ELEVATION": None}),
                ("results", {"VALUE": "speed", "ANGLE": "Rotation"})):
            dialog = AlgorithmDialog(registry.createAlgorithmById(f"vantelgis:{algorithm}"))
            wrappers = dialog.mainWidget().wrappers
            self.assertEqual({name: wrappers[name].parameterValue() for name in expected}, expected)

    def test_batch_and_modeller_have_their_own_widgets(self):
        results = QgsApplication.processingRegistry().algorithmById("vantelgis:results")
        batch = BatchAlgorithmDialog(results.create(), None)
        model = ModelerParametersDialog(results.create(), QgsProcessingModelAlgorithm())
        field = results.parameterDefinition("VALUE")
        for wrapper in (WidgetWrapperFactory.create_wrapper(field, batch),
                        model.widget.widget.wrappers["VALUE"]):
            self.assertNotIn("vantelgis", type(wrapper).__module__)
