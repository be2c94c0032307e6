"""Prepares points with numbers for the converter."""

from . import tables
from .values import number_of

Z = -1  # in the place of a field: the elevation of the point itself


def write_points(path, reader, fields):
    """Writes the points with their numbers; `fields` are names in the table and places in the
    source (or Z). A point without one of the numbers is left out and counted."""
    table = tables.Table(path, tables.POINTS, [tables.number_field(name) for name, _ in fields])
    places = [place for _, place in fields]
    without = 0
    for feature, point in reader.points(places):
        numbers = [number_of(point.constGet().z() if place == Z else feature[place])
                   for place in places]
        if None in numbers:
            without += 1
        else:
            table.add(point, numbers)
    table.close()
    reader.report("points")
    if without:
        reader.feedback.pushWarning(
            f'"{reader.layer}": points without a value, left out: {without}.')
