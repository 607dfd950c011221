"""Lines of maps and boundaries."""
import os
from dataclasses import dataclass

import numpy as np

from .blocks import Block, take_shapes
from .errors import VelmarError, VelmarFileError, require_file
from .library import call, encoded, lock
from .results import Shapes


@dataclass(frozen=True, eq=False)
class MapLines(Shapes):
    """Lines of a map: attributes (lines, 2) are the two integers that the file has for each."""

    attributes: np.ndarray


@dataclass(frozen=True, eq=False)
class Boundary:
    """A line of a boundary file: header, its four integers; points (n, 2), longitudes and latitudes."""

    header: tuple
    points: np.ndarray


#: The one map that the library hands out in a process, and the file that it comes from. None and a path: the file
#: broke off, and the library would hand out its lines for those of the next.
_map = None
_map_path = None


def read_map(path):
    """Reads a map file (type 9) of keyword March; lines of the other keyword, diamond, are not counted in results.

    The library hands out one map in a process: that file may be asked for again, another raises VelmarError.
    Longitudes are 0 and above. A log, C:\\readmap9.txt, is written to the current directory.

    Returns MapLines. Raises VelmarFileError.
    """
    global _map, _map_path
    require_file(path)
    real_path = os.path.realpath(path)
    with lock:
        if _map_path is None:
            _check_keyword(path)
            _map_path = real_path
            _map = _read_map(path)
        if _map is None or real_path != _map_path:
            raise VelmarError(f"{os.fsdecode(path)}: the one map of this process is {os.fsdecode(_map_path)}")
        return _map


def _check_keyword(path):
    with open(path, "rb") as file:
        if file.read(64).split()[:1] != [b"March"]:
            raise VelmarFileError(path, "is no map file of keyword March")


def _read_map(path):
    address = call("ReadMap9", encoded(path))
    if not address:
        raise VelmarFileError(path, "is no map file, or breaks off")
    with Block(address) as block:
        heads, points, offsets = take_shapes(block, 2, 3, stop=block.count(0) + 1)
    return MapLines(points, offsets, heads[:, 1:].astype(int))


def read_boundary(path):
    """Reads a boundary file of one line (type 777, 778 or 780). Returns a Boundary. Raises VelmarFileError."""
    require_file(path)
    address = call("ReadVelmarData780", encoded(path)) or call("ReadVelmarData777", encoded(path))
    if not address:
        raise VelmarFileError(path, "is no boundary file, or lacks points")
    with Block(address) as block:
        return Boundary(tuple(int(block[k]) for k in range(1, 5)), block.copy(6, block.count(5), 2))
