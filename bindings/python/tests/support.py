"""What the tests share."""
import contextlib
import ctypes
import os
import pathlib
import tempfile
import unittest

import numpy as np

import velmar
from velmar.library import call

SAMPLES = pathlib.Path(__file__).resolve().parents[3] / "samples"


class LibraryTest(unittest.TestCase):
    """Silent, and in a directory of its own, where the library may leave its files."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(directory.name)
        silence = contextlib.ExitStack()
        silence.enter_context(velmar.quiet())
        self.addCleanup(silence.close)

    def assert_same(self, actual, expected):
        np.testing.assert_array_equal(actual, np.asarray(expected, actual.dtype))


def sample_numbers(name, skipped):
    """The numbers of a sample behind so many words."""
    return np.array((SAMPLES / name).read_bytes().split()[skipped:], np.float32)


def plain_block(name, *arguments, length=None):
    """The elements of a block, copied one call after the other without the package's own reading."""
    address = call(name, *arguments)
    floats = ctypes.cast(address, ctypes.POINTER(ctypes.c_float))
    elements = np.array(floats[:length or int(floats[0])], np.float32)
    call("freecPointer", address)
    return elements


def plain_shapes(elements, count, place, width):
    """Heads and points of so many lines or polygons, one after the other."""
    shapes = []
    for _ in range(count):
        begin, end = place + width, place + width + 2 * int(elements[place])
        shapes.append((elements[place:begin], elements[begin:end].reshape(-1, 2)))
        place = end
    return shapes
