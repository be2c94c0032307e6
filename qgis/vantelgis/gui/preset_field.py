"""The widget of a field that is chosen beforehand by its name."""

from processing.gui.wrappers import DIALOG_MODELER, DIALOG_STANDARD, WidgetWrapper, dialogTypes
from processing.tools import dataobjects
from qgis.core import (QgsFieldProxyModel, QgsProcessingFeatureSourceDefinition,
                       QgsProcessingParameterDefinition, QgsProcessingUtils, QgsVectorLayer)
from qgis.gui import QgsFieldComboBox, QgsGui


class PresetField(WidgetWrapper):
    """A combo box of the numeric fields of the parent layer. In batches and in the modeller, where
    no layer is there to look at, QGIS's own widget takes its place."""

    _names, _optional = (), False

    def __new__(cls, param, dialog, _row=0, _col=0, **_kwargs):
        kind = dialogTypes.get(type(dialog).__name__, DIALOG_STANDARD)
        if kind == DIALOG_STANDARD:
            return WidgetWrapper.__new__(cls)
        registry = QgsGui.processingGuiRegistry()
        if kind == DIALOG_MODELER:
            wrapper = registry.createModelerParameterWidget(dialog.model, dialog.childId, param,
                                                            dialog.context)
        else:
            wrapper = registry.createParameterWidgetWrapper(param, kind)
        wrapper.setDialog(dialog)
        return wrapper

    def createWidget(self, names=()):  # pylint: disable=arguments-differ
        self._names = list(names)
        combo = QgsFieldComboBox()
        combo.setFilters(QgsFieldProxyModel.Filter.Numeric)
        self._optional = bool(
            self.parameterDefinition().flags() & QgsProcessingParameterDefinition.FlagOptional)
        combo.setAllowEmptyFieldName(self._optional)
        combo.fieldChanged.connect(lambda: self.widgetValueHasChanged.emit(self))
        return combo

    def postInitialize(self, wrappers):
        parent = self.parameterDefinition().parentLayerParameterName()
        for wrapper in wrappers:
            if wrapper.parameterDefinition().name() == parent:
                self._take_layer(wrapper)
                wrapper.widgetValueHasChanged.connect(self._take_layer)

    def setValue(self, value):
        self.widget.setField(value or "")

    def value(self):
        return self.widget.currentField() or None

    def _take_layer(self, wrapper):
        value = wrapper.parameterValue()
        if isinstance(value, QgsProcessingFeatureSourceDefinition):
            value = value.source.staticValue()
        if isinstance(value, str) and value:
            value = QgsProcessingUtils.mapLayerFromString(value, dataobjects.createContext())
        layer = value if isinstance(value, QgsVectorLayer) else None
        self.widget.setLayer(layer)
        self.setValue(self._preferred(layer.fields()) if layer else "")

    def _preferred(self, fields):
        numeric = {field.name().lower(): field.name() for field in fields if field.isNumeric()}
        wanted = [numeric[name] for name in self._names if name in numeric]
        return (wanted or ([] if self._optional else [*numeric.values()]) or [""])[0]
