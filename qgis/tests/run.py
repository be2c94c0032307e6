"""Runs all tests, or those that are named, in one QGIS. tools/test-qgis prepares what they need."""

import os
import pathlib
import sys
import unittest

HERE = str(pathlib.Path(__file__).parent)
sys.path.insert(0, HERE)


def main():
    names = sys.argv[1:]
    del sys.argv[1:]  # QGIS would take them for its own
    loader = unittest.TestLoader()
    tests = loader.loadTestsFromNames(names) if names else loader.discover(HERE)
    passed = unittest.TextTestRunner().run(tests).wasSuccessful()
    sys.stdout.flush()
    sys.stderr.flush()
    # Layers outlive QGIS where Python clears up in its own order, and take the process down.
    os._exit(not passed)  # pylint: disable=protected-access


if __name__ == "__main__":
    main()
