"""Contour lines of stations over triangles, and ways along great circles."""
import ctypes
from typing import NamedTuple

import numpy as np

from .arrays import list_array, same_lists
from .blocks import Block, take_shapes
from .library import call
from .results import Lines

_MOST_LEVELS = 49


def contour_stations(longitudes, latitudes, values, *, levels=None, interval=None, start=None):
    """Draws contour lines straight from station values, over a network of triangles.

    longitudes, latitudes, values  (n,), at least three stations, none of which is missing
    levels                         list of up to 49 levels; or
    interval                       multiples of it within the range of the values; or
    start, interval                levels start + k * interval, k from 0 to 49

    Values almost on a level are moved off it, by 0.05. Returns Lines, without any when no station is more than 2
    degrees off the line of the first and its nearest neighbour.
    """
    longitudes, latitudes, values = same_lists(longitudes, latitudes, values)
    if len(values) < 3:
        raise ValueError("there are at least three stations")
    if (levels is None) == (interval is None) or (start is not None and levels is not None):
        raise ValueError("levels are told by a list, by an interval, or by start and interval")
    mode = 2 if levels is not None else 0 if start is None else 1
    levels = list_array([] if levels is None else levels)
    if len(levels) > _MOST_LEVELS:
        raise ValueError(f"there are up to {_MOST_LEVELS} levels")
    address = call("SanJiao", longitudes, latitudes, values.copy(), levels, len(values), mode, start or 0,
                   interval or 0, len(levels))
    if not address:
        return Lines(np.empty((0, 2), np.float32), np.zeros(1, int), np.empty(0, np.float32))
    with Block(address) as block:
        heads, points, offsets = take_shapes(block, 1, 2, stop=block.count(0))
    return Lines(points, offsets, heads[:, 1].copy())


class Way(NamedTuple):
    """A way along a great circle: bearing at its start (radians clockwise from north), angle at the earth's centre
    (radians), distance (km)."""

    bearing: float
    angle: float
    distance: float


def great_circle(longitude1, latitude1, longitude2, latitude2):
    """The way from one place to another, on a sphere of 6371.11 km. Places in degrees.

    Small angles are lost in single precision: 100 km are right to some 40 m, 10 km to some 400 m. Returns a Way.
    """
    numbers = [ctypes.c_float() for _ in range(3)]
    call("FJJS2", longitude1, latitude1, longitude2, latitude2, *map(ctypes.byref, numbers))
    return Way(*(number.value for number in numbers))
