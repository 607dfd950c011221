"""Streamlines of wind fields."""
import tempfile
from dataclasses import dataclass

import numpy as np

from .arrays import list_array, same_grids
from .blocks import Block
from .errors import WIND_CODES, VelmarError
from .library import call, encoded, lock
from .results import MISSING, Shapes

#: Elements of a point and of an arrow; and those behind the arrows that element 0 counts, beside the winds.
_POINT, _ARROW, _BEHIND = 4, 6, 9


@dataclass(frozen=True, eq=False)
class Streamlines(Shapes):
    """Streamlines, evenly spaced. Each line is two shapes from one place: with the flow, then against it.

    Shapes of a single point, which are no lines, stand where there is a calm or no data.

    colours        (points,) of the piece that ends at the point; the first of a shape has that of the piece before
    arrows         (arrows, 2, 2) tail and head (downstream) of each, longitude and latitude
    arrow_colours  (arrows,)
    """

    colours: np.ndarray
    arrows: np.ndarray
    arrow_colours: np.ndarray


def read_streamlines(path, density=5):
    """Reads a wind file (type 11) and draws its streamlines, coloured by speed.

    density  larger values give more lines

    Colour k, from 0 to 39, is that of 2 k to below 2 k + 2 m/s. Returns Streamlines. Raises VelmarFileError.
    """
    with Block(call("readWindData", encoded(path), density)) as block:
        block.raise_code(path, WIND_CODES)
        return _take_streamlines(block)


def streamlines(u, v, start_longitude, start_latitude, longitude_step, latitude_step, *, colour_by=None, levels=(),
                colours=None, density=5, missing=MISSING):
    """Draws the streamlines of a wind field.

    u, v       (ny, nx), eastward and northward wind, m/s
    start_longitude ... latitude_step  where the grids lie, degrees; of a wind: *wind.place. The longitude step is
               above 0; with a negative latitude step, rows are turned round
    colour_by  (ny, nx), what lines are coloured by; all have colour 1 when it is None
    levels     ascending levels of it; colour k is that of the values from level k to below level k + 1
    colours    of the levels, their order numbers when nothing is told; pieces below 0 are left out
    density    larger values give more lines
    missing    value of points without data in all three grids

    Returns Streamlines.
    """
    if not (longitude_step > 0 and latitude_step):
        raise ValueError("the longitude step is above 0, the latitude step is not 0")
    u, v, by = same_grids(missing, u, v, u if colour_by is None else colour_by)
    ny, nx = u.shape
    if latitude_step < 0:
        u, v, by = (np.ascontiguousarray(grid[::-1]) for grid in (u, v, by))
        start_latitude, latitude_step = start_latitude + (ny - 1) * latitude_step, -latitude_step
    levels = list_array(levels)
    colours = np.arange(len(levels), dtype=np.int32) if colours is None else list_array(colours, np.int32)
    if len(levels) != len(colours):
        raise ValueError("there are as many colours as levels")
    with lock:
        _tell_place(start_longitude, start_latitude, longitude_step, latitude_step)
        address = call("streamAnalyse", u, v, by, nx, ny, missing, missing, missing, int(colour_by is not None), levels,
                       colours, len(levels), density)
    with Block(address) as block:
        return _take_streamlines(block)


def _tell_place(longitude, latitude, longitude_step, latitude_step):
    """streamAnalyse takes its grids to lie where the last wind file lay: this one has a single point there."""
    numbers = [np.format_float_positional(np.float32(number)) for number in
               (longitude_step, latitude_step, longitude, longitude, latitude, latitude)]
    with tempfile.NamedTemporaryFile(suffix=".011") as file:
        file.write(f"diamond 11 place 0 0 0 0 0 0 {' '.join(numbers)} 1 1 0 0\n".encode())
        file.flush()
        with Block(call("readWindDivVor", encoded(file.name), 0, *[None] * 6)) as block:
            block.raise_code(file.name, WIND_CODES)


def _take_streamlines(block):
    end = _end_of_arrows(block)
    floats = block.view(2, end - 2)
    first_arrow = np.flatnonzero(floats[::_POINT] == 2)
    points_end = int(first_arrow[0]) * _POINT if len(first_arrow) else len(floats)
    points = floats[:points_end].reshape(-1, _POINT)
    arrows = floats[points_end:].reshape(-1, _ARROW)
    offsets = np.append(np.flatnonzero(points[:, 0] == 0), len(points))
    return Streamlines(points[:, 1:3].copy(), offsets, points[:, 3].astype(np.int32),
                       arrows[:, 1:5].reshape(-1, 2, 2).copy(), arrows[:, 5].astype(np.int32))


def _end_of_arrows(block):
    """Where points and arrows end. Element 1 says so, but is rounded when there are millions of them; the elements
    that follow tell which of the places near it is the right one."""
    told = int(block[1])
    doubt = int(np.spacing(np.float32(told))) // 2
    for end in range(told - doubt, told + doubt + 1):
        nx, ny = block[end + 2], block[end + 3]
        if (block[end], block[end + 1]) == (0, -1) and block[0] == np.float32(end + 2 * nx * ny + _BEHIND):
            return end
    raise VelmarError("the end of the streamlines is not found in the result")
