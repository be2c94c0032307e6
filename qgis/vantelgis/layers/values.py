"""Values of attributes as the archive takes them."""

import math
import re

from qgis.core import NULL
from qgis.PyQt.QtCore import QByteArray, QDate, QDateTime, Qt, QTime

NULL_ELEVATION = -999.0  # what the head of the converter's archives declares as null
LONGEST_NAME = 100       # bytes
PLAIN_NAME = re.compile(r"[ !#-~]*").fullmatch
CONTROLS = re.compile(r"[\x00-\x1f\x7f\x85\u2028\u2029]+")


def is_null(value):
    """NULL comes as None, as NULL, or as an empty variant, depending on the QGIS."""
    return value is None or value == NULL


def number_of(value):
    """A finite number, or None."""
    if not isinstance(value, float):  # nearly all are one
        if is_null(value):
            return None
        value = float(value)
    return value if math.isfinite(value) else None


def text_of(value):
    """A value as a person would write it down, whatever the language of the desktop."""
    if is_null(value) or isinstance(value, QByteArray):
        return ""
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, float):
        short = f"{value:.15g}"
        return short if float(short) == value else repr(value)
    if isinstance(value, (QDate, QTime, QDateTime)):
        return value.toString(Qt.DateFormat.ISODate)
    if isinstance(value, (list, tuple)):
        return ", ".join(text_of(item) for item in value)
    return str(value)


class Names:
    """Makes names of values, and counts what it had to change."""

    def __init__(self):
        self.replaced = 0
        self.cut = 0

    def of(self, value):
        """The name of at most 100 bytes, without double quotes and line ends."""
        if isinstance(value, str) and len(value) <= LONGEST_NAME and PLAIN_NAME(value):
            return value  # nearly all names
        name = text_of(value)
        plain = CONTROLS.sub(" ", name.replace('"', "'"))
        self.replaced += plain != name
        data = plain.encode("utf-8", errors="replace")
        if len(data) > LONGEST_NAME:
            self.cut += 1
            plain = data[:LONGEST_NAME].decode("utf-8", errors="ignore")
        return plain

    def report(self, feedback):
        """Says what was changed."""
        if self.replaced:
            feedback.pushWarning("Names with double quotes or line ends, which became single "
                                 f"quotes and blanks: {self.replaced}.")
        if self.cut:
            feedback.pushWarning(f"Names longer than {LONGEST_NAME} bytes, cut there: {self.cut}.")
