"""vantelgis in QGIS: layers to archives of 12d Model and back, as Processing algorithms."""


def classFactory(iface):
    """Gives QGIS the plugin; `iface` is None or a stand-in where there is no main window."""
    from .plugin import Plugin  # pylint: disable=import-outside-toplevel
    return Plugin(iface)
