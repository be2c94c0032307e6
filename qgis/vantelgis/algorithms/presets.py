"""Fields that a dialog chooses beforehand, by what they are called."""

ELEVATIONS = ["z", "elevation", "elev", "rl", "level", "height", "altitude", "ele", "alt", "hgt",
              "h"]
VALUES = ["value", "result", "velocity", "speed", "vel", "v", "depth", "d", *ELEVATIONS]
ANGLES = ["angle", "rotation", "bearing", "direction", "dir"]
WIDGET = __name__.rsplit(".", 2)[0] + ".gui.preset_field.PresetField"


def preset(parameter, names):
    """The field parameter, with a widget that prefers fields of these names; the first ones most.
    The widget is named, not imported: qgis_process has no dialogs."""
    parameter.setMetadata({"widget_wrapper": {"class": WIDGET, "names": names}})
    return parameter
