"""Result blocks of the library as a context that reads them and releases them at its end."""
import ctypes

import numpy as np

from .errors import VelmarError, VelmarFileError
from .library import call

_FLOAT_BYTES = ctypes.sizeof(ctypes.c_float)
#: Counts are stored as 32-bit floats, which hold all whole numbers below this one.
_FIRST_INEXACT = 2 ** 24


class Block:
    """A block of 32-bit floats, owned. `with Block(address) as block` releases it at the end of the context.

    block[k] is element k. What copy() returns belongs to the caller; what view() returns must not outlive the context.
    """

    def __init__(self, address):
        if not address:
            raise MemoryError("the library has no memory for the result")
        self._address = address
        self.floats = ctypes.cast(address, ctypes.POINTER(ctypes.c_float))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        call("freecPointer", self._address)

    def __getitem__(self, index):
        return self.floats[index]

    def raise_code(self, path, meanings):
        """Raises VelmarFileError when the block holds an error code; meanings has them in words."""
        if self[0] < 0:
            code = int(self[0])
            raise VelmarFileError(path, meanings.get(code, "cannot be read"), code)

    def count(self, index):
        """An element that is a count, as an integer; 0 when it is negative."""
        return _exact(max(self[index], 0))

    def view(self, start, *shape):
        """The elements from a place on, without a copy."""
        return _view(self._address + start * _FLOAT_BYTES, shape)

    def copy(self, start, *shape):
        """The elements from a place on, as an array of its own."""
        return self.view(start, *shape).copy()


def _exact(count):
    if count >= _FIRST_INEXACT:
        raise VelmarError(f"a count of about {count:.0f} is too large to be exact in the result")
    return int(count)


class _Memory:
    """Floats at an address, for NumPy. (A ctypes array would leave a type behind for each size, for good.)"""

    def __init__(self, address, shape):
        self.__array_interface__ = {"version": 3, "typestr": np.dtype(np.float32).str, "shape": shape,
                                    "data": (address, False)}


def _view(address, shape):
    return np.asarray(_Memory(address, shape))


def copied_points(address, count):
    """A copy of count pairs that belong to the library, (count, 2)."""
    return _view(address, (count, 2)).copy()


def take_grid(address, ny, nx):
    """The values of a bare grid, (ny, nx); releases its block."""
    with Block(address) as block:
        return block.copy(0, ny, nx)


def take_shapes(block, start, width, stop=float("inf")):
    """Collects lines or polygons that follow each other in a block.

    Each has width elements in front, the first of which is its number of points, then the points. They end at stop or
    before a negative number of points.

    Returns the elements in front (shapes, width), the points (n, 2), and where the points of each shape begin and
    those of the last end (shapes + 1).
    """
    heads, end, floats = [], start, block.floats
    while end < stop and (count := floats[end]) >= 0:
        behind = end + width + 2 * _exact(count)
        if behind > stop:
            break
        heads.append(end)
        end = behind
    elements = block.view(start, end - start)
    head_places = np.add.outer(np.array(heads, int) - start, np.arange(width))
    is_point = np.ones(len(elements), bool)
    is_point[head_places] = False
    head_rows = elements[head_places]
    offsets = np.append(0, np.cumsum(head_rows[:, 0], dtype=int))
    return head_rows, elements[is_point].reshape(-1, 2), offsets
