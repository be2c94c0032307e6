"""Archives that are dropped on the map or double-clicked in the Browser open as layers."""

import os

from processing.gui.Postprocessing import handleAlgorithmResults
from qgis.core import (Qgis, QgsApplication, QgsDataItem, QgsDataItemProvider, QgsDataProvider,
                       QgsProcessingAlgRunnerTask, QgsProcessingContext, QgsProcessingFeedback,
                       QgsProject)
from qgis.gui import QgsCustomDropHandler, QgsDataItemGuiProvider, QgsProjectionSelectionDialog
from qgis.PyQt.QtGui import QIcon
from qgis.PyQt.QtWidgets import QAction

from ..layers import systems
from ..provider import ICON

PROVIDER = "vantelgis"


def is_archive(path):
    """Whether a file is an archive, by its name."""
    return os.path.splitext(path)[1].lower() in (".12da", ".4da")


class Opener:
    """Opens archives by the algorithm, in the background."""

    def __init__(self, iface):
        self._iface = iface
        self._running = set()

    def open(self, path):
        """Asks for the coordinate system only if no file beside the archive holds one."""
        system = systems.system_beside(path)
        if not system.isValid():
            dialog = QgsProjectionSelectionDialog(self._iface.mainWindow())
            dialog.setWindowTitle(f"Coordinate system of {os.path.basename(path)}")
            dialog.setCrs(QgsProject.instance().crs())
            if not dialog.exec():
                return
            system = dialog.crs()
        run = _Opening(self._iface, path, system, self._running.discard)
        self._running.add(run)
        run.start()


class _Opening:
    """A run of the algorithm, from its start to the layers on the map."""

    def __init__(self, iface, path, system, done):
        self._iface, self._path, self._done = iface, path, done
        self._algorithm = QgsApplication.processingRegistry().createAlgorithmById(
            "vantelgis:openarchive")
        self._parameters = {"INPUT": path, "CRS": system, "OUTPUT": "TEMPORARY_OUTPUT"}
        self._context = QgsProcessingContext()
        self._context.setProject(QgsProject.instance())
        self._feedback = QgsProcessingFeedback()

    def start(self):
        task = QgsProcessingAlgRunnerTask(self._algorithm, self._parameters, self._context,
                                          self._feedback)
        task.executed.connect(self._show)
        QgsApplication.taskManager().addTask(task)

    def _show(self, whole, _results):
        bar, name = self._iface.messageBar(), os.path.basename(self._path)
        if whole:
            handleAlgorithmResults(self._algorithm, self._context, self._feedback)
            bar.pushMessage(name, 'opened for this session; "Open archive" keeps it.',
                            Qgis.MessageLevel.Info)
        else:
            said = self._feedback.textLog().strip().splitlines()
            bar.pushMessage(name, said[-1] if said else "can't be opened",
                            Qgis.MessageLevel.Critical)
        self._done(self)


class ArchiveDrop(QgsCustomDropHandler):
    """Takes archives that are dropped on the window."""

    def __init__(self, opener):
        super().__init__()
        self._opener = opener

    def handleFileDrop(self, file):
        if not is_archive(file):
            return False
        self._opener.open(file)
        return True


class ArchiveItem(QgsDataItem):
    """An archive in the Browser."""

    def __init__(self, parent, path):
        super().__init__(QgsDataItem.Custom, parent, os.path.basename(path), path, PROVIDER)
        self.setIcon(QIcon(ICON))
        self.setState(QgsDataItem.Populated)  # nothing below it
        self.setToolTip(path)


class ArchiveItems(QgsDataItemProvider):
    """Lists archives in the Browser."""

    def __init__(self):
        super().__init__()
        self._kept = []

    def name(self):
        return PROVIDER

    def dataProviderKey(self):
        return PROVIDER

    def capabilities(self):
        return QgsDataProvider.File

    def createDataItem(self, path, parentItem):
        if not is_archive(path) or not os.path.isfile(path):
            return None
        item = ArchiveItem(parentItem, path)
        self._kept.append(item)
        return item


class ArchiveActions(QgsDataItemGuiProvider):
    """Opens an archive of the Browser on a double click or from its menu."""

    def __init__(self, opener):
        super().__init__()
        self._opener = opener

    def name(self):
        return PROVIDER

    def populateContextMenu(self, item, menu, _selectedItems, _context):
        if self._is_ours(item):
            action = QAction("Open archive", menu)
            action.triggered.connect(lambda: self._opener.open(item.path()))
            menu.addAction(action)

    def handleDoubleClick(self, item, _context):
        if not self._is_ours(item):
            return False
        self._opener.open(item.path())
        return True

    @staticmethod
    def _is_ours(item):
        return item.type() == QgsDataItem.Custom and is_archive(item.path())
