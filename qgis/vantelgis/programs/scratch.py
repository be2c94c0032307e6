"""Folders that vanish, and results that take the place of old ones only when they are whole."""

import contextlib
import os
import shutil
import tempfile
import uuid

from qgis.core import QgsProcessingException, QgsProcessingUtils


@contextlib.contextmanager
def scratch_folder():
    """A folder for one run."""
    folder = tempfile.mkdtemp(prefix="vantelgis_", dir=QgsProcessingUtils.tempFolder())
    try:
        yield folder
    finally:
        shutil.rmtree(folder, ignore_errors=True)


def put_in_place(result, target):
    """Moves a result to its place in one step: whoever reads there sees the old or the new file."""
    folder = os.path.dirname(os.path.abspath(target))
    beside = os.path.join(folder, f".{uuid.uuid4().hex}.part")
    try:
        os.makedirs(folder, exist_ok=True)
        try:
            shutil.move(result, beside)  # a copy where the scratch folder is on another disk
            os.replace(beside, target)
        except BaseException:
            with contextlib.suppress(OSError):
                os.remove(beside)
            raise
    except OSError as error:
        raise QgsProcessingException(
            f"{target} can't be written: {error.strerror}. Close the program that has it open, or "
            "choose another name.") from error
