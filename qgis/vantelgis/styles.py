"""How results look on the map."""

from qgis.core import (QgsLineSymbol, QgsMarkerSymbol, QgsProcessingLayerPostProcessorInterface,
                       QgsSingleSymbolRenderer, QgsWkbTypes)

LINES = {"color": "31,95,168", "width": "0.4"}
POINTS = {"color": "31,95,168", "size": "1.4", "outline_style": "no"}
WARNINGS = {"color": "220,20,20", "outline_color": "220,20,20", "width": "0.9", "size": "2.6"}

_kept = []  # QGIS holds no reference to a post-processor of Python


class _Dress(QgsProcessingLayerPostProcessorInterface):
    """Gives a layer its looks once it is in the project."""

    def __init__(self, properties, on_top):
        super().__init__()
        self._properties, self._on_top = properties, on_top

    def postProcessLayer(self, layer, context, _feedback):
        if self._properties is None:
            layer.loadDefaultStyle()
        else:
            point = layer.geometryType() == QgsWkbTypes.PointGeometry
            kind = QgsMarkerSymbol if point else QgsLineSymbol
            layer.setRenderer(QgsSingleSymbolRenderer(kind.createSimple(self._properties)))
            layer.triggerRepaint()
        if self._on_top:
            _move_to_top(layer, context.project().layerTreeRoot())
        if self in _kept:
            _kept.remove(self)


def _move_to_top(layer, root):
    node = root.findLayer(layer.id())
    if node is not None and node.parent() is not None:
        root.insertChildNode(0, node.clone())
        node.parent().removeChildNode(node)


def show(context, identifier, properties, on_top=False):
    """Dresses a layer if it will be loaded; without properties in the style that it brings."""
    if context.willLoadLayerOnCompletion(identifier):
        dress = _Dress(properties, on_top)
        _kept.append(dress)
        context.layerToLoadOnCompletionDetails(identifier).setPostProcessor(dress)
