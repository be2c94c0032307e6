"""Runs vantelgis-gpkg."""

from qgis.core import QgsProcessingException

from .programs import Run

OWN = "vantelgis-gpkg: "


def convert(arguments, folder, feedback):
    """Converts an archive to a GeoPackage or back. Puts what the program says into the log, and
    raises with its words when there is no result; the old one then stays."""
    failures = []

    def take_line(is_error, line):
        level, _, words = line.partition(": ")
        if line.startswith(OWN):
            failures.append(line[len(OWN):])
        elif is_error and level == "warning":
            feedback.pushWarning(words)
        elif line.strip():
            feedback.pushInfo(line)

    status = Run("vantelgis-gpkg", arguments, folder).follow(feedback, take_line)
    if status != 0:
        raise QgsProcessingException("\n".join(failures)
                                     or f"vantelgis-gpkg ended with status {status}.")
