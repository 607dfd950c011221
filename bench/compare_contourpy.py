"""Contour lines and filled contours by this library and by contourpy's serial algorithm.

  compare_contourpy.py LIBRARY GRID

LIBRARY is the shared object, GRID a grid file whose values are all present. Prints Markdown tables of the best times.
Both find the same 13 levels of the same field; contourpy gets it widened to double, as it needs it, before the clock
runs. Fails when the total lengths of the lines, or the areas of the bands, differ by more than a thousandth.
"""
import ctypes
import os
import sys

import contourpy
import numpy as np

from timing import best_time, table_output

SIDES = (500, 1000, 2000, 4000)
LEVELS = np.arange(-6, 7, dtype=np.float32) * 13
FloatPointer = ctypes.POINTER(ctypes.c_float)


def smooth_field(side):
    y, x = np.mgrid[0:side, 0:side] * (2 * np.pi / side)
    field = 40 * np.sin(3 * x + y) + 30 * np.sin(5 * y - x) + 20 * np.sin(4 * x + 7 * y)
    return field.astype(np.float32)


def load(path):
    library = ctypes.CDLL(path)
    real, whole = ctypes.c_float, ctypes.c_int
    library.contour2DRaw.restype = FloatPointer
    library.contour2DRaw.argtypes = [FloatPointer, real, whole, whole, whole, real, real, real, FloatPointer, whole,
                                     real, real, real, real]
    library.velmarCntrShad.restype = FloatPointer
    library.velmarCntrShad.argtypes = [FloatPointer, whole, whole, FloatPointer, ctypes.POINTER(whole), whole, real,
                                       real, real, real, real, whole]
    for release in (library.cntrFreeLineVar, library.cntrShadFreeLineVar):
        release.restype = None
        release.argtypes = [FloatPointer]
    return library


def contour_raw(library, field):
    rows, columns = field.shape
    return library.contour2DRaw(field.ctypes.data_as(FloatPointer), 9999, columns, rows, 2, 0, 0, 0,
                                LEVELS.ctypes.data_as(FloatPointer), len(LEVELS), 0, 0, 1, 1)


def contour_and_release(library, field):
    library.cntrFreeLineVar(contour_raw(library, field))


def line_generator(field):
    return contourpy.contour_generator(z=field, name='serial', line_type=contourpy.LineType.Separate)


def all_lines(lines):
    return [line for level in LEVELS for line in lines.lines(float(level))]


def raw_lines(block):
    """The lines of a contour result, as rows of longitude and latitude."""
    elements = np.ctypeslib.as_array(block, (int(block[0]),))
    at = 2
    for _ in range(int(elements[1])):
        end = at + 3 + 2 * int(elements[at])
        yield elements[at + 3:end].reshape(-1, 2).astype(np.float64)
        at = end


def total_length(lines):
    return sum(np.hypot(*np.diff(line, axis=0).T).sum() for line in lines)


def require_equal(what, own, peer):
    if abs(own / peer - 1) > 1e-3:
        sys.exit(f'{what}: {own:.1f} here, {peer:.1f} by contourpy')


def compare_lines(library, name, field):
    promoted = field.astype(np.float64)
    block = contour_raw(library, field)
    length = total_length(raw_lines(block))
    library.cntrFreeLineVar(block)
    prepared = line_generator(promoted)
    require_equal(f'length of the lines, {name}', length, total_length(all_lines(prepared)))
    return (best_time(lambda: contour_and_release(library, field)),
            best_time(lambda: all_lines(line_generator(promoted))),
            best_time(lambda: all_lines(prepared)))


def shade(library, field, levels):
    rows, columns = field.shape
    # Colour 0 is left to the ground below the lowest level.
    colours = (ctypes.c_int * len(levels))(*range(1, len(levels) + 1))
    whole_grid = 0
    return library.velmarCntrShad(field.ctypes.data_as(FloatPointer), columns, rows, levels.ctypes.data_as(FloatPointer),
                                  colours, len(levels), 9999, 0, 0, 1, 1, whole_grid)


def shade_and_release(library, field, levels):
    library.cntrShadFreeLineVar(shade(library, field, levels))


def area(ring):
    x, y = ring.T
    return abs(np.dot(x[:-1], y[1:]) - np.dot(x[1:], y[:-1])) / 2


def own_area(block, levels):
    """The areas above each of the levels, added up. Colour k + 1 at level k is high ground; any other polygon is a hole
    in the ground above a level, painted over it."""
    elements = np.ctypeslib.as_array(block, (int(block[0]),))
    total = 0
    at = 2
    for _ in range(int(elements[1])):
        points, level, colour = elements[at:at + 3]
        end = at + 3 + 2 * int(points)
        is_hole = colour == 0 or level != levels[int(colour) - 1]
        size = area(elements[at + 3:end].reshape(-1, 2).astype(np.float64))
        total += -size if is_hole else size
        at = end
    return total


def peer_area(filled):
    """The areas of bands, each counted as often as levels lie below it."""
    total = 0
    for weight, (points, offsets) in enumerate(filled, 1):
        for polygon, starts in zip(points, offsets):
            outer, *holes = [area(polygon[first:last]) for first, last in zip(starts[:-1], starts[1:])]
            total += weight * (outer - sum(holes))
    return total


def fill_generator(field):
    return contourpy.contour_generator(z=field, name='serial', fill_type=contourpy.FillType.OuterOffset)


def all_bands(generator, levels):
    ends = [float(level) for level in levels] + [1e30]
    return [generator.filled(lower, upper) for lower, upper in zip(ends[:-1], ends[1:])]


def compare_bands(library, name, field, levels):
    promoted = field.astype(np.float64)
    block = shade(library, field, levels)
    own = own_area(block, levels)
    library.cntrShadFreeLineVar(block)
    prepared = fill_generator(promoted)
    require_equal(f'areas of the bands, {name}', own, peer_area(all_bands(prepared, levels)))
    return (best_time(lambda: shade_and_release(library, field, levels)),
            best_time(lambda: all_bands(fill_generator(promoted), levels)),
            best_time(lambda: all_bands(prepared, levels)))


def read_grid(path):
    """The values of a grid file: they stand behind 22 words."""
    with open(path, encoding='gbk') as file:
        words = file.read().split()
    columns, rows = int(words[15]), int(words[16])
    return np.array(words[22:22 + rows * columns], dtype=np.float32).reshape(rows, columns)


def print_times(table, head, rows):
    print(f'| {head} | velmarBaseA, ms | contourpy, ms | ratio | contourpy, generator ready, ms | ratio |\n'
          '|---|---:|---:|---:|---:|---:|', file=table)
    for name, (own, peer, prepared) in rows:
        print(f'| {name} | {own:.1f} | {peer:.1f} | {peer / own:.2f} | {prepared:.1f} | {prepared / own:.2f} |',
              file=table, flush=True)
    print(file=table)


def main():
    library = load(os.path.abspath(sys.argv[1]))
    speed = read_grid(sys.argv[2])
    table = table_output()
    smooth = [(f'{side} x {side}', smooth_field(side)) for side in SIDES]
    print_times(table, 'contour lines', ((name, compare_lines(library, name, field)) for name, field in smooth))
    fields = [(f'{name}, one strip', field, LEVELS) for name, field in smooth]
    speeds = np.arange(1, 14, dtype=np.float32) * 1.5
    fields.append((f'{speed.shape[1]} x {speed.shape[0]}, real', speed, speeds))
    print_times(table, 'filled contours, texts printed', ((row[0], compare_bands(library, *row)) for row in fields))


main()
