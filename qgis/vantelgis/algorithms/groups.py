"""The groups of the toolbox."""

TO_ARCHIVE = ("toarchive", "Layers to archives")
FROM_ARCHIVE = ("fromarchive", "Archives to layers")
