"""Layers for the user that take the place of old ones only when all of them are whole."""

import contextlib
import os
import re
import tempfile

from qgis.core import (QgsProcessing, QgsProcessingException, QgsProcessingOutputLayerDefinition,
                       QgsProperty, QgsVectorFileWriter)

# What isn't a file: a layer in memory, a table in a database.
NO_FILE = re.compile(r"memory:|.{3,}?:", re.DOTALL).match


class Outputs:
    """The layers that an algorithm writes. A file is written in a folder beside its place, of
    which nothing is left at the end, and moved from there by `put_in_place`."""

    def __init__(self, algorithm, parameters, context):
        self._algorithm, self._parameters, self._context = algorithm, parameters, context
        self._open, self._moves = {}, {}
        self._folders = contextlib.ExitStack()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._open.clear()  # closes files before their folder goes
        self._folders.close()

    def sink(self, name, fields, kind, system):
        """Opens the layer of a parameter; None for an optional one that the user left out."""
        parameters = self._beside(name)
        sink, identifier = self._algorithm.parameterAsSink(parameters, name, self._context, fields,
                                                           kind, system)
        if sink is not None:
            self._open[name] = (sink, identifier)
        return sink

    def put_in_place(self):
        """Ends the layers and moves them to their places; returns the identifier of each."""
        results = {}
        for name, (sink, identifier) in self._open.items():
            if not sink.flushBuffer():
                raise QgsProcessingException(f"{name} can't be written: {sink.lastError()}")
            results[name] = identifier
        self._open.clear()
        sink = None  # the last reference to an open file
        for name, (folder, target) in self._moves.items():
            _move_all(folder, target)
            written = results[name]
            results[name] = written.replace(folder, os.path.dirname(target), 1)
            self._rename_loaded(written, results[name])
        return results

    def _beside(self, name):
        """The parameters, with a file of the same name in a folder of its own."""
        definition = self._parameters.get(name)
        chosen = isinstance(definition, QgsProcessingOutputLayerDefinition)
        value = definition.sink if chosen else definition
        if isinstance(value, QgsProperty):
            value = value.valueAsString(self._context.expressionContext())[0]
        if not value or value == QgsProcessing.TEMPORARY_OUTPUT or NO_FILE(value):
            return self._parameters
        target = os.path.abspath(value)
        try:
            os.makedirs(os.path.dirname(target), exist_ok=True)
            folder = self._folders.enter_context(tempfile.TemporaryDirectory(
                prefix=".vantelgis_", dir=os.path.dirname(target)))
        except OSError as error:
            raise QgsProcessingException(
                f"{target} can't be written: {error.strerror}. Choose another folder.") from error
        self._moves[name] = (folder, target)
        value = os.path.join(folder, os.path.basename(target))
        if chosen:
            definition = QgsProcessingOutputLayerDefinition(definition)
            definition.sink = QgsProperty.fromValue(value)
            value = definition
        return {**self._parameters, name: value}

    def _rename_loaded(self, written, final):
        """The project loads a layer from where it is in the end."""
        layers = self._context.layersToLoadOnCompletion()
        if written in layers:
            layers[final] = layers.pop(written)
            self._context.setLayersToLoadOnCompletion(layers)


def _move_all(folder, target):
    """Moves the files of a layer to its place, where none of the old one's is left: an old index
    would be taken for one of the new layer."""
    try:
        if target.lower().endswith(".shp"):
            QgsVectorFileWriter.deleteShapeFile(target)
        for file in os.listdir(folder):
            os.replace(os.path.join(folder, file), os.path.join(os.path.dirname(target), file))
    except OSError as error:
        raise QgsProcessingException(
            f"{target} can't be written: {error.strerror}. Close the program that has it open, or "
            "choose another name.") from error
