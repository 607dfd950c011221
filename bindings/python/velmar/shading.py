"""Filled contours: grids, grid files and byte images as polygons to be painted.

The library says the same of a grid in which nothing lies above the levels and of one that it fails to trace. Here the
first gives no polygons, and the second raises VelmarError.
"""
import numpy as np

from .arrays import grid_array, list_array
from .blocks import Block, take_shapes
from .errors import GRID_SHADING_CODES, VelmarError, VelmarFileError, require_file
from .grids import read_grid
from .library import call, encoded
from .results import MISSING, Polygons

_IMAGE_HEADER_BYTES = 149
_IMAGE_PROBLEM = "is no byte image, or is shorter than its header says"


def _take_polygons(address, path=None):
    with Block(address) as block:
        block.raise_code(path, GRID_SHADING_CODES)
        heads, points, offsets = take_shapes(block, 2, 3)
    return Polygons(points, offsets, heads[:, 1].copy(), heads[:, 2].astype(np.int32))


def _no_polygons(grid, lowest, missing):
    """An empty result, or VelmarError when some cell with data lies above the lowest level in part."""
    defined = np.isfinite(grid) & (grid != np.float32(missing))
    high = grid > np.float32(lowest)

    def corners(points):
        return points[:-1, :-1], points[1:, :-1], points[:-1, 1:], points[1:, 1:]

    if np.any(np.all(corners(defined), axis=0) & np.any(corners(high), axis=0)):
        raise VelmarError("the grid cannot be shaded: a trace fails, or memory is lacking; the library prints which")
    return Polygons(np.empty((0, 2), np.float32), np.zeros(1, int), np.empty(0, np.float32), np.empty(0, np.int32))


def _shading_arguments(values, levels, colours, missing):
    grid = grid_array(values, missing)
    levels = list_array(levels)
    colours = np.arange(len(levels), dtype=np.int32) if colours is None else list_array(colours, np.int32)
    if len(levels) == 0 or len(levels) != len(colours):
        raise ValueError("there is at least one level, and as many colours as levels")
    return grid, levels, colours


def shade(values, levels, start_longitude=0, start_latitude=0, longitude_step=1, latitude_step=1, *, colours=None,
          missing=MISSING, strip_rows=1):
    """Fills the bands between levels of a grid with polygons.

    values      (ny, nx)
    levels      ascending
    start_longitude ... latitude_step  where the grid lies, degrees; of a field: *field.place
    colours     of the band above each level, 0 to 99; their order numbers when nothing is told
    missing     value of points without data; those that are not finite or masked have none either
    strip_rows  the grid is filled in strips of so many rows of cells; 1 is right everywhere, 0 (one strip) gives fewer
                polygons, but may paint islands inside holes and the like wrongly

    Returns Polygons.
    """
    grid, levels, colours = _shading_arguments(values, levels, colours, missing)
    ny, nx = grid.shape
    address = call("velmarCntrShad", grid, nx, ny, levels, colours, len(levels), missing, start_longitude,
                   start_latitude, longitude_step, latitude_step, strip_rows)
    return _take_polygons(address) if address else _no_polygons(grid, levels[0], missing)


def shade_classes(values, classes, *place, missing=MISSING, strip_rows=1):
    """Fills the areas of class numbers 0, 1, ..., classes - 1 of a grid: shade() with these as levels and colours.

    place  start longitude, start latitude, longitude step, latitude step
    """
    return shade(values, np.arange(classes), *place, missing=missing, strip_rows=strip_rows)


def shade_uneven(values, levels, x_steps, y_steps, *, colours=None, missing=MISSING, strip_rows=1):
    """Fills the bands of a grid whose columns and rows are not evenly spaced: shade() with tables of positions.

    x_steps  (nx + 1,): the position of column 0, then the spacing of each following column, and one more
    y_steps  (ny + 1,): the same for rows

    Polygons of holes lie one column and one row too far.
    """
    grid, levels, colours = _shading_arguments(values, levels, colours, missing)
    ny, nx = grid.shape
    x_steps, y_steps = list_array(x_steps), list_array(y_steps)
    if (len(x_steps), len(y_steps)) != (nx + 1, ny + 1):
        raise ValueError("tables of steps have an entry more than the grid has columns or rows")
    address = call("velmarCntrShadD", grid, nx, ny, levels, colours, len(levels), missing, strip_rows, x_steps, y_steps)
    return _take_polygons(address) if address else _no_polygons(grid, levels[0], missing)


def read_shading(path, *, strip_rows=1):
    """Reads a grid file (type 4) and fills the bands between the levels of its header; colour k is that of level k.

    A grid that circles the globe is closed. Returns Polygons. Raises VelmarFileError.
    """
    address = call("readCntrShadData", encoded(path), 0, strip_rows)
    if address:
        return _take_polygons(address, path)
    grid = read_grid(path)
    return _no_polygons(grid.values, grid.start_level, MISSING)


def read_image_shading(path, level=None, *, strip_rows=1):
    """Reads a byte image file (type 13) and fills what lies above a level, with colour 0.

    level  when it is None, all levels 0, 1, ..., 255 are filled, with colours up to 99

    Returns Polygons. Raises VelmarFileError.
    """
    require_file(path)
    address = call("readByteShadData", encoded(path), strip_rows, 0 if level is None else 1, level or 0)
    if address:
        return _take_polygons(address)
    image, missing = _read_image(path)
    return _no_polygons(image, level or 0, missing)


def _read_image(path):
    """The values of a byte image, and the one that is missing: what tells an empty image from a broken one."""
    with open(path, "rb") as file:
        header, data = file.read(_IMAGE_HEADER_BYTES), np.frombuffer(file.read(), np.uint8)
    items = header.split(b"\0")[0].split()
    try:
        kind, nx, ny = int(items[8]), int(items[10]), int(items[11])
        if items[0] != b"March" or min(nx, ny) < 1:
            raise ValueError("no keyword, or no points")
        image = data[:nx * ny].reshape(ny, nx).astype(np.float32)
    except (ValueError, IndexError) as problem:
        raise VelmarFileError(path, _IMAGE_PROBLEM) from problem
    image[image == 255] = -1
    return image, 20 if kind == 5 else MISSING
