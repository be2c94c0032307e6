"""The inputs of an algorithm, with the checks that Processing leaves to it."""

from qgis.core import QgsMapLayer, QgsProcessingFeatureSourceDefinition, QgsWkbTypes

from ..refusals import refusal

KINDS = {QgsWkbTypes.PointGeometry: "points", QgsWkbTypes.LineGeometry: "lines",
         QgsWkbTypes.PolygonGeometry: "polygons", QgsWkbTypes.NullGeometry: "no geometry"}
LINES_OR_POLYGONS = (QgsWkbTypes.LineGeometry, QgsWkbTypes.PolygonGeometry)
POINTS_ONLY = (QgsWkbTypes.PointGeometry,)


def name_of(value, context):
    """What people call the (first) layer in a value, or the file."""
    if isinstance(value, (list, tuple)):
        value = value[0] if value else None
    if isinstance(value, QgsProcessingFeatureSourceDefinition):
        value = value.source.staticValue()
    layer = value if isinstance(value, QgsMapLayer) else context.getMapLayer(str(value))
    return layer.name() if layer else str(value or "")


def check_kind(parameter, layer, wkb_type, kinds):
    """Refuses a layer of another kind. One whose kind is open (a table of any geometry) is taken:
    its features are looked at one by one."""
    kind = QgsWkbTypes.geometryType(wkb_type)
    if kind != QgsWkbTypes.UnknownGeometry and kind not in kinds:
        wanted = " or ".join(KINDS[wanted] for wanted in kinds)
        raise refusal(parameter, layer, f"the layer has {KINDS[kind]}, and {wanted} are needed: "
                      "choose another layer.")


def check_field(parameter, layer, fields, name, numeric=False):
    """The index of a field, of a kind that fits; -1 for no name."""
    if not name:
        return -1
    index = fields.lookupField(name)
    if index < 0:
        names = ", ".join(field.name() for field in fields)
        raise refusal(parameter, layer,
                      f'there is no field "{name}". There are: {names or "none"}.')
    if numeric and not fields[index].isNumeric():
        kind = fields[index].typeName() or "text"
        raise refusal(parameter, layer, f'the field "{name}" is of the type {kind}, and a number '
                      "is needed. Make a numeric field of it, for instance with "
                      f'to_real("{name}") in the field calculator.')
    return index


def source_of(algorithm, parameters, name, context, kinds):
    """The layer that a parameter names, or None where an optional one is left out."""
    if parameters.get(name) in (None, ""):
        return None
    source = algorithm.parameterAsSource(parameters, name, context)
    if source is None:
        raise refusal(name, str(parameters[name]), "this layer can't be opened: look whether it is "
                      "still in the project, or the file where it was.")
    check_kind(name, source.sourceName(), source.wkbType(), kinds)
    return source
