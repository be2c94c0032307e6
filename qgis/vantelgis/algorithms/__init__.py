"""The algorithms of the provider."""

from .archive_to_layers import ArchiveToLayers
from .archive_to_sections import ArchiveToSections
from .breaklines_2d import Breaklines2d
from .breaklines_3d import Breaklines3d
from .layers_to_archive import LayersToArchive
from .open_archive import OpenArchive
from .results import Results

ALGORITHMS = (Breaklines2d, Breaklines3d, Results, ArchiveToLayers, ArchiveToSections, OpenArchive,
              LayersToArchive)
