"""Layers for vantelgis-gpkg: a package with the fields that it looks for."""

from qgis.core import QgsWkbTypes

from . import tables
from .values import number_of, text_of

LONGEST_LINE = 1_000_000  # vertices of a string in an archive
NONE = float("nan")
KINDS = ("2d", "3d")
# What "Open archive" gives besides the fields that can be chosen, taken along by its name.
NUMBERS = ("chainage", "z")


class Attributes:
    """Where the attributes of strings stand in a layer. `chosen` names the field of each."""

    def __init__(self, fields, chosen):
        places = {own: fields.lookupField(name) for own, name in chosen.items() if name}
        self._model = places.pop("model", -1)
        self._kind = fields.lookupField("type")
        self._texts = {own: place for own, place in places.items() if place >= 0}
        self._numbers = {own: fields.lookupField(own) for own in NUMBERS
                         if fields.lookupField(own) >= 0}

    def columns(self):
        """The fields of the package."""
        return [*(tables.text_field(own) for own in ("model", "type", *self._texts)),
                *(tables.number_field(own, 0, 0) for own in self._numbers)]

    def places(self):
        """The fields of the layer that are read."""
        return [self._model, self._kind, *self._texts.values(), *self._numbers.values()]

    def values(self, feature, is_3d, layer):
        """The values of the columns; without a model of its own a string gets the layer's name."""
        model = text_of(feature[self._model]) if self._model >= 0 else ""
        kind = text_of(feature[self._kind]) if self._kind >= 0 else ""
        return [model or layer, kind if kind in KINDS else KINDS[is_3d],
                *(text_of(feature[place]) or None for place in self._texts.values()),
                *(number_of(feature[place]) for place in self._numbers.values())]


def write_layer(path, name, reader, chosen, system):
    """Adds a layer to the package: the lines of the reader with their attributes."""
    attributes = Attributes(reader.source.fields(), chosen)
    source_kind = reader.source.wkbType()
    has_z = QgsWkbTypes.hasZ(source_kind) or source_kind == QgsWkbTypes.Unknown
    table = tables.Table(path, tables.MULTI_LINES_Z if has_z else tables.MULTI_LINES,
                         attributes.columns(), name, "GPKG", system)
    for feature, lines in reader.lines(attributes.places(), LONGEST_LINE, refuse_longer=True):
        values = attributes.values(feature, lines.constGet().is3D(), reader.layer)
        if has_z:
            lines.get().addZValue(NONE)  # where there is none yet; QGIS would make it 0
        table.add(lines, values)
    table.close()
    reader.report("lines")
