"""Contour lines and centres of highs and lows."""
from dataclasses import dataclass

import numpy as np

from .arrays import grid_array, list_array
from .blocks import Block, take_shapes
from .errors import GRID_CODES
from .library import call, encoded, lock
from .results import MISSING, Lines

_NO_LEVELS = np.empty(0, np.float32)


def _level_arguments(levels, start, end, interval, count):
    """Mode, start, end, interval, list and count of contour2D."""
    given = [levels is not None, interval is not None, count is not None]
    if sum(given) > 1 or (interval is None) != (start is None) or (start is None) != (end is None):
        raise ValueError("levels are told by a list, by start, end and interval, or by a count")
    if levels is not None:
        levels = list_array(levels)
        return 2, 0, 0, 0, levels, len(levels)
    if interval is not None:
        return 0, start, end, interval, _NO_LEVELS, 0
    return 1, 0, 0, 0, _NO_LEVELS, 10 if count is None else count


def _take_lines(block):
    heads, points, offsets = take_shapes(block, 2, 3)
    return Lines(points, offsets, heads[:, 1].copy())


def _forget_refinement():
    """contour2DRaw divides positions by the factors of the last refinement; this one has the factors 1."""
    with Block(call("contour2D", np.zeros((26, 101), np.float32), MISSING, 101, 26, 2, 0, 0, 0, _NO_LEVELS, 0,
                    0, 0, 1, 1)):
        pass


def contour(values, start_longitude=0, start_latitude=0, longitude_step=1, latitude_step=1, *, levels=None, start=None,
            end=None, interval=None, count=None, missing=MISSING, refined=True):
    """Draws the contour lines of a grid.

    values                         (ny, nx); rows from the start latitude, columns from the start longitude
    start_longitude ... latitude_step  where the grid lies, degrees; of a field: *field.place
    levels                         list of levels; or
    start, end, interval           levels start + k * interval up to end; or
    count                          about so many levels, chosen from the data; 10 when nothing is told
    missing                        value of points without data (masked points count as such)
    refined                        draw on a grid refined by cubic interpolation, which gives smooth lines

    Returns Lines, levels in the order of the list.
    """
    grid = grid_array(values, missing)
    ny, nx = grid.shape
    arguments = (grid, missing, nx, ny, *_level_arguments(levels, start, end, interval, count),
                 start_longitude, start_latitude, longitude_step, latitude_step)
    with lock:
        if not refined:
            _forget_refinement()
        address = call("contour2D" if refined else "contour2DRaw", *arguments)
    with Block(address) as block:
        return _take_lines(block)


def read_contours(path, *, levels=None, count=None):
    """Reads a grid file (type 4) and draws its contour lines, on a refined grid.

    levels  list of levels; or
    count   about so many levels, chosen from the data; when neither is told, the levels of the file's header

    A grid that circles the globe is closed. Returns Lines. Raises VelmarFileError.
    """
    if levels is None and count is None:
        mode, chosen, number = 0, _NO_LEVELS, 0
    else:
        mode, *_, chosen, number = _level_arguments(levels, None, None, None, count)
    with Block(call("readCntrData", encoded(path), mode, number, chosen)) as block:
        block.raise_code(path, GRID_CODES)
        return _take_lines(block)


@dataclass(frozen=True, eq=False)
class Centres:
    """Centres of highs and lows, ordered by column, then by row; all arrays (centres,).

    is_high    whether it is a high
    longitudes, latitudes, values  place in degrees, value of the grid
    strengths  strength divided by the range of the data; not a number where a centre equals its eastern neighbour
    steps      number of grid steps that the strength was taken over
    classes    class of strength, a whole number
    """

    is_high: np.ndarray
    longitudes: np.ndarray
    latitudes: np.ndarray
    values: np.ndarray
    strengths: np.ndarray
    steps: np.ndarray
    classes: np.ndarray

    def __len__(self):
        return len(self.values)


def find_centres(values, start_longitude=0, start_latitude=0, longitude_step=1, latitude_step=1, *, missing=MISSING):
    """Finds the centres of highs and lows of a grid: inner points above or below their eight neighbours.

    values   (ny, nx)
    missing  left out of the range of the data; such points are compared like any other

    Returns Centres.
    """
    grid = grid_array(values, missing)
    ny, nx = grid.shape
    with Block(call("findCenters", grid, missing, nx, ny, 0, start_longitude, start_latitude, longitude_step,
                    latitude_step)) as block:
        kind, *columns = block.view(1, block.count(0), 7).T.copy()
    return Centres(kind > 0, *columns[:4], *(column.astype(int) for column in columns[4:]))
