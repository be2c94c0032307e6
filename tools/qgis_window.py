"""Runs inside the real window of QGIS (qgis --code): drops an archive on it, looks at what came,
and writes that, and a picture, to the files that the environment names."""

import json
import os
import traceback

from qgis.core import QgsProject
from qgis.PyQt.QtCore import QElapsedTimer, QMimeData, QPoint, QPointF, QSettings, Qt, QTimer, QUrl
from qgis.PyQt.QtGui import QDragEnterEvent, QDropEvent
from qgis.PyQt.QtWidgets import QAction, QApplication, QDockWidget, QTreeView
from qgis.utils import iface

FOUND = {}


def wait(seconds, until=lambda: False):
    """Lets the window work until something is so, or the time is over."""
    timer = QElapsedTimer()
    timer.start()
    while not until() and timer.elapsed() < 1000 * seconds:
        QApplication.processEvents()


def drop(path):
    window, mime = iface.mainWindow(), QMimeData()
    mime.setUrls([QUrl.fromLocalFile(path)])
    given = (Qt.DropAction.CopyAction, mime, Qt.MouseButton.LeftButton,
             Qt.KeyboardModifier.NoModifier)
    QApplication.sendEvent(window, QDragEnterEvent(QPoint(300, 300), *given))
    QApplication.sendEvent(window, QDropEvent(QPointF(300, 300), *given))


def show_toolbox():
    """Leaves the toolbox with the groups of the plugin open, and nothing else beside the layers."""
    for dock in iface.mainWindow().findChildren(QDockWidget):
        dock.setVisible(dock.objectName() in ("Layers", "ProcessingToolbox"))
    toolbox = iface.mainWindow().findChild(QDockWidget, "ProcessingToolbox")
    tree = toolbox.findChild(QTreeView)
    model = tree.model()
    for row in range(model.rowCount()):
        index = model.index(row, 0)
        if model.data(index) == "vantelgis":
            tree.expandRecursively(index)
            tree.scrollTo(index, QTreeView.ScrollHint.PositionAtTop)


def look():
    window = iface.mainWindow()
    window.resize(1240, 720)
    drop(os.environ["VANTELGIS_ARCHIVE"])
    wait(30, QgsProject.instance().mapLayers)
    FOUND["layers"] = [(layer.name(), layer.featureCount(), layer.renderer().type())
                       for layer in QgsProject.instance().mapLayers().values()]
    FOUND["actions"] = [(action.text(), action.isEnabled())
                        for action in window.findChildren(QAction) if "12d" in action.text()]
    iface.zoomFull()
    show_toolbox()
    wait(4)
    FOUND["picture"] = window.grab().save(os.environ["VANTELGIS_PICTURE"])


def main():
    try:
        look()
    except Exception:  # pylint: disable=broad-except
        FOUND["fault"] = traceback.format_exc()
    with open(os.environ["VANTELGIS_FOUND"], "w", encoding="utf-8") as file:
        json.dump(FOUND, file)
    os._exit(0)  # no question about the project; pylint: disable=protected-access


QSettings().setValue("Processing/firstRun", False)
QTimer.singleShot(2000, main)
