"""The 3D strings of an archive as cross-sections."""

import os

from qgis.core import (QgsProcessingException, QgsProcessingParameterFolderDestination)

from ..layers import systems
from ..programs import batch
from ..programs.scratch import put_in_place, scratch_folder
from .algorithm import Algorithm
from .groups import FROM_ARCHIVE


class ArchiveToSections(Algorithm):
    """A table of chainage and elevation for each string, and the layers that point at them."""

    NAME = "archivetosections"
    TITLE = "Archive to cross-sections"
    GROUP = FROM_ARCHIVE
    ICON = "from_archive.svg"

    def initAlgorithm(self, _configuration=None):
        self.add_archive_input()
        self.addParameter(QgsProcessingParameterFolderDestination("OUTPUT", "Folder"))

    def check(self, parameters, context):
        self.archive_path(parameters, context)

    def processAlgorithm(self, parameters, context, feedback):
        archive = self.archive_path(parameters, context)
        system = self.system_of_archive(parameters, context, archive)
        output = self.parameterAsString(parameters, "OUTPUT", context)
        with scratch_folder() as folder:
            systems.write_system(f"{folder}/Header.prj", system)
            record = batch.convert([archive, "--output-folder", "sections", "--", "-xs", "-shp",
                                    "Header.prj"], folder, feedback)
            if not record["files"]:
                raise QgsProcessingException("No file was made.")
            for path in record["files"]:
                if not path.endswith(".prj"):
                    put_in_place(path, os.path.join(output, os.path.basename(path)))
                elif systems.one_line_form(system):  # whole, where the converter cuts long lines
                    systems.write_system(path, system)
                    put_in_place(path, os.path.join(output, os.path.basename(path)))
        return {"OUTPUT": output}
