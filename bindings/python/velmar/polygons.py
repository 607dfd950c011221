"""Polygon tools. Polygons are arrays of points x, y, (n, 2); the last point joins the first."""
import ctypes

import numpy as np

from .arrays import point_array
from .blocks import Block, copied_points
from .library import call, lock

#: Up to this number of points, the outline of polygonfill belongs to the library.
_OWN_OUTLINE_POINTS = 9
_POINT_BYTES = 2 * ctypes.sizeof(ctypes.c_float)


def clip(points, bounds):
    """Clips a polygon by a rectangle, after Sutherland and Hodgman (1974).

    points  (n, 2)
    bounds  lowest x, highest x, lowest y, highest y

    Returns the clipped polygon, (m, 2); m is 0 when nothing is left.
    """
    west, east, south, north = bounds
    polygon = point_array(points)
    room = np.empty((len(polygon) * 81 // 16 + 1, 2), np.float32)
    room[:len(polygon)] = polygon
    return room[:call("Clip", room, west, south, east, north, len(polygon))].copy()


def clip_edge(points, begin, end):
    """Clips a polygon by the line of a directed edge, horizontal or vertical: what lies on its left is kept.

    points      (n, 2)
    begin, end  of the edge, x and y each

    Returns the clipped polygon, (m, 2).
    """
    polygon = point_array(points)
    count = ctypes.c_int()
    with Block(call("SHClip", polygon, *begin, *end, len(polygon), ctypes.byref(count))) as block:
        return block.copy(0, count.value, 2)


def pull_inside(points, bounds):
    """Pulls a polygon into a rectangle: points outside move to the nearest place of the rectangle.

    points  (n, 2), at least three
    bounds  lowest x, highest x, lowest y, highest y

    Corners are cut where the outline goes round them outside; clip() keeps them. Each call writes a file of marks,
    C:\\clipdebug.txt, to the current directory. Returns the outline, (m, 2).
    """
    west, east, south, north = bounds
    polygon = point_array(points)
    if len(polygon) < 3:
        raise ValueError("a polygon has at least three points")
    count = ctypes.c_int()
    with lock:
        end = call("polygonfill", polygon, len(polygon), west, south, east, north, ctypes.byref(count))
        if not end:
            raise OSError("C:\\clipdebug.txt cannot be written to the current directory")
        if count.value == 0:
            raise MemoryError("the library has no memory for the outline")
        start = end - count.value * _POINT_BYTES
        outline = copied_points(start, count.value)
        if len(polygon) > _OWN_OUTLINE_POINTS:
            call("freecPointer", start)
    return outline
