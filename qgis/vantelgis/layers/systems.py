"""Coordinate systems: the one that an archive is written in, and the file that names one."""

import os

from qgis.core import QgsCoordinateReferenceSystem, QgsCoordinateTransform, QgsUnitTypes

from ..refusals import refusal

# A system without a form that the programs read still lets them run; its text is in no result.
NAMELESS = 'PROJCS["Unnamed"]'
FILES_BESIDE = ("Header.prj", "Projection.prj")


def name_of(system):
    """The system as people know it: its authority's number and its title."""
    if not system.isValid():
        return "unknown"
    return " ".join(part for part in (system.authid(), system.description()) if part)


def is_plane(system):
    """Whether coordinates of the system are lengths on a map, as archives want them."""
    return (system.isValid() and not system.isGeographic()
            and system.mapUnits() != QgsUnitTypes.DistanceDegrees
            and not system.toWkt().startswith(("GEOCCS", "GEODCRS")))


def target_system(chosen, source, project, layer):
    """The system to write in: the chosen one, else the layer's, else the project's, in metres or
    the like. `chosen` is None when the user left the choice open."""
    if chosen is not None:
        if not chosen.isValid():
            raise refusal("CRS", layer, "there is no such coordinate system; choose it in the "
                          "list, or write it as EPSG:28355.")
        if not is_plane(chosen):
            raise refusal("CRS", layer, f"{name_of(chosen)} counts in degrees, and an archive is "
                          "in metres: choose a projected coordinate system.")
        return chosen
    for system in (source, project):
        if is_plane(system):
            return system
    raise refusal("CRS", layer, f"the coordinate system of the layer is {name_of(source)}, that "
                  f"of the project {name_of(project)}, and an archive needs a projected one in "
                  "metres: choose it here.")


def transform_between(source, target, context):
    """A transform, or None where the coordinates stay as they are."""
    if not source.isValid() or source == target:
        return None
    return QgsCoordinateTransform(source, target, context)


def metres_as_units(length, system):
    """A length in the units of a layer; a degree is about 111 km, which does for a tolerance."""
    degrees = system.isValid() and system.mapUnits() == QgsUnitTypes.DistanceDegrees
    return length / 111_000 if degrees else length


def one_line_form(system):
    """The system in the form that the converter reads, PROJCS on a line; empty if it has none."""
    text = system.toWkt(QgsCoordinateReferenceSystem.WKT1_ESRI) if system.isValid() else ""
    return text if text.startswith("PROJCS") else ""


def write_system(path, system):
    """Writes a .prj for the converter."""
    with open(path, "w", encoding="utf-8") as file:
        file.write((one_line_form(system) or NAMELESS) + "\n")


def write_wkt(path, system):
    """Writes a .prj in a form that keeps every system whole."""
    with open(path, "w", encoding="utf-8") as file:
        file.write(system.toWkt(QgsCoordinateReferenceSystem.WKT2_2019) + "\n")


def system_beside(archive):
    """The system of the .prj beside an archive (of its name, Header or Projection), else an
    invalid one."""
    folder, name = os.path.split(archive)
    for candidate in (os.path.splitext(name)[0] + ".prj", *FILES_BESIDE):
        path = os.path.join(folder, candidate)
        if os.path.isfile(path):
            with open(path, encoding="utf-8", errors="replace") as file:
                system = QgsCoordinateReferenceSystem.fromWkt(file.read().strip())
            if system.isValid():
                return system
    return QgsCoordinateReferenceSystem()
