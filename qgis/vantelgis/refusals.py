"""How the plugin says no: with the parameter, the layer, and what to do."""

from qgis.core import QgsProcessingException


def refusal(parameter, layer, reason):
    """The exception for a value that can't be taken; raise what it gives."""
    where = f'{parameter} ("{layer}")' if layer else parameter
    return QgsProcessingException(f"{where}: {reason}")
