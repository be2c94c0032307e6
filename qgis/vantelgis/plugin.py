"""The plugin: what it adds to QGIS, and takes away again."""

from qgis.core import QgsApplication

from .provider import Provider


class Plugin:
    """Adds the provider everywhere, and ways to open and save by hand where there is a window."""

    def __init__(self, iface):
        self._iface = iface
        self._provider = None
        self._desktop = None

    def initProcessing(self):
        """Called alone by qgis_process, and below where there is a window."""
        self._provider = Provider()
        QgsApplication.processingRegistry().addProvider(self._provider)

    def initGui(self):
        # Without a main window there is no qgis.gui to count on.
        from .gui.desktop import Desktop  # pylint: disable=import-outside-toplevel
        self.initProcessing()
        self._desktop = Desktop(self._iface)

    def unload(self):
        if self._desktop is not None:
            self._desktop.remove()
            self._desktop = None
        if self._provider is not None:
            QgsApplication.processingRegistry().removeProvider(self._provider)
            self._provider = None
