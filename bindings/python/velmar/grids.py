"""Grid files, and grids made finer."""
from dataclasses import dataclass

from .arrays import grid_array
from .blocks import Block, take_grid
from .errors import GRID_CODES
from .library import call, encoded
from .results import MISSING, Field


@dataclass(frozen=True, eq=False)
class Grid(Field):
    """A field from a grid file, with the hints of its header for drawing it.

    end_longitude, end_latitude  of the last column and row, as the file has them
    largest, smallest            of all values, missing ones included
    interval, start_level, end_level, smoothing, bold_level  contour lines: distance, first, last, a hint, the bold one
    """

    end_longitude: float
    end_latitude: float
    largest: float
    smallest: float
    interval: float
    start_level: float
    end_level: float
    smoothing: float
    bold_level: float


def read_grid(path):
    """Reads a grid file (type 4).

    Returns a Grid. Missing values are 9999. Raises VelmarFileError.
    """
    with Block(call("readVelmar4", encoded(path))) as block:
        block.raise_code(path, GRID_CODES)
        nx, ny = block.count(1), block.count(2)
        hints = [block[11 + nx * ny + k] for k in range(5)]
        return Grid(block.copy(11, ny, nx), *(block[k] for k in (3, 4, 7, 8, 5, 6, 9, 10)), *hints)


def refine(values, fx, fy, missing=MISSING):
    """Refines a grid by piecewise cubic Hermite interpolation, along rows, then along columns.

    values   (ny, nx)
    fx, fy   into how many parts the intervals along rows and along columns are divided, at least 1

    Returns the values of the finer grid, ((ny - 1) fy + 1, (nx - 1) fx + 1).
    """
    if fx < 1 or fy < 1:
        raise ValueError("factors are at least 1")
    grid = grid_array(values, missing)
    ny, nx = grid.shape
    return take_grid(call("gagexps", grid, nx, ny, fx, fy, missing), (ny - 1) * fy + 1, (nx - 1) * fx + 1)
