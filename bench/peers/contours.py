"""Contour lines and filled contours beside contourpy's serial algorithm.

Both find the same 13 levels of the same field; contourpy gets it widened to double, as it needs it, before the clock
runs. Lengths of lines and areas of bands must agree.
"""
import contourpy
import numpy as np

import velmar
from velmar.contours import _forget_refinement

from .timing import Row, best_call_time, best_time, require_close

SIDES = (500, 2000, 4000)
LEVELS = np.arange(-6, 7, dtype=np.float32) * 13
SPEEDS = np.arange(1, 14, dtype=np.float32) * 1.5
PEER = f"contourpy {contourpy.__version__}"
PLACE = 0, 0, 1, 1


def smooth_field(side):
    y, x = np.mgrid[0:side, 0:side] * (2 * np.pi / side)
    field = 40 * np.sin(3 * x + y) + 30 * np.sin(5 * y - x) + 20 * np.sin(4 * x + 7 * y)
    return field.astype(np.float32)


def peer_lines(field, levels):
    generator = contourpy.contour_generator(z=field, name="serial", line_type=contourpy.LineType.Separate)
    return [line for level in levels for line in generator.lines(float(level))]


def length_of(lines):
    return sum(np.hypot(*np.diff(np.asarray(line, float), axis=0).T).sum() for line in lines)


def compare_lines(name, field, levels):
    promoted = field.astype(float)
    require_close(f"length of the lines, {name}", length_of(velmar.contour(field, levels=levels, refined=False)),
                  length_of(peer_lines(promoted, levels)), 5e-3)
    rows, columns = field.shape
    _forget_refinement()
    own = best_call_time("contour2DRaw", field, velmar.MISSING, columns, rows, 2, 0, 0, 0, levels, len(levels), *PLACE)
    return Row("contour lines", name, own, PEER, best_time(lambda: peer_lines(promoted, levels)))


def area(ring):
    x, y = ring.T.astype(float)
    return abs(np.dot(x[:-1], y[1:]) - np.dot(x[1:], y[:-1])) / 2


def own_area(field, levels, colours):
    """The areas above each of the levels, added up. Colour k + 1 at level k is high ground; any other polygon is a hole
    in the ground above a level, painted over it."""
    shapes = velmar.shade(field, levels, colours=colours, strip_rows=0)
    return sum(area(ring) if colour > 0 and level == levels[colour - 1] else -area(ring)
               for ring, level, colour in zip(shapes, shapes.levels, shapes.colours))


def peer_bands(field, levels):
    generator = contourpy.contour_generator(z=field, name="serial", fill_type=contourpy.FillType.OuterOffset)
    ends = [*map(float, levels), 1e30]
    return [generator.filled(*band) for band in zip(ends[:-1], ends[1:])]


def peer_area(bands):
    """The areas of bands, each counted as often as levels lie below it."""
    total = 0
    for weight, (points, offsets) in enumerate(bands, 1):
        for polygon, starts in zip(points, offsets):
            outer, *holes = [area(polygon[first:last]) for first, last in zip(starts[:-1], starts[1:])]
            total += weight * (outer - sum(holes))
    return total


def compare_bands(name, field, levels):
    promoted = field.astype(float)
    # Colour 0 is left to the ground below the lowest level.
    colours = np.arange(1, len(levels) + 1, dtype=np.int32)
    require_close(f"areas of the bands, {name}", own_area(field, levels, colours),
                  peer_area(peer_bands(promoted, levels)), 1e-3)
    rows, columns = field.shape
    own = best_call_time("velmarCntrShad", field, columns, rows, levels, colours, len(levels), velmar.MISSING, *PLACE, 0)
    return Row("filled contours", name, own, PEER, best_time(lambda: peer_bands(promoted, levels)))


def rows(samples):
    speed = velmar.read_grid(samples / "grids/speed10m_global_1deg.000").values
    fields = [(f"{side} x {side}", smooth_field(side), LEVELS) for side in SIDES]
    fields.append((f"{speed.shape[1]} x {speed.shape[0]}, real", speed, SPEEDS))
    for compare in (compare_lines, compare_bands):
        for field in fields:
            yield compare(*field)
