"""Contour lines of one field by this library and by contourpy's serial algorithm.

  compare_contourpy.py LIBRARY

LIBRARY is the shared object. Prints a Markdown table of the best times. Both find the 13 levels of the same square
field; contourpy gets it widened to double, as it needs it, before the clock runs. Fails when the total lengths of the
lines differ by more than a thousandth.
"""
import ctypes
import os
import sys
import time

import contourpy
import numpy as np

SIDES = (500, 1000, 2000, 4000)
REPEATS = 5
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
    library.cntrFreeLineVar.restype = None
    library.cntrFreeLineVar.argtypes = [FloatPointer]
    return library


def contour_raw(library, field):
    rows, columns = field.shape
    return library.contour2DRaw(field.ctypes.data_as(FloatPointer), 9999, columns, rows, 2, 0, 0, 0,
                                LEVELS.ctypes.data_as(FloatPointer), len(LEVELS), 0, 0, 1, 1)


def contour_and_release(library, field):
    library.cntrFreeLineVar(contour_raw(library, field))


def generator(field):
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


def best_time(work):
    times = []
    for _ in range(REPEATS):
        begin = time.perf_counter()
        work()
        times.append(time.perf_counter() - begin)
    return 1e3 * min(times)


def compare(library, side):
    field = smooth_field(side)
    promoted = field.astype(np.float64)
    block = contour_raw(library, field)
    length = total_length(raw_lines(block))
    library.cntrFreeLineVar(block)
    prepared = generator(promoted)
    peer_length = total_length(all_lines(prepared))
    if abs(length / peer_length - 1) > 1e-3:
        sys.exit(f'{side} x {side}: lines of {length:.0f} grid steps here, of {peer_length:.0f} by contourpy')
    return (best_time(lambda: contour_and_release(library, field)),
            best_time(lambda: all_lines(generator(promoted))),
            best_time(lambda: all_lines(prepared)))


def main():
    library = load(os.path.abspath(sys.argv[1]))
    # Progress texts go where they do not mix with the table.
    table = os.fdopen(os.dup(1), 'w')
    os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
    print('| field | velmarBaseA, ms | contourpy, ms | ratio | contourpy, generator ready, ms | ratio |\n'
          '|---|---:|---:|---:|---:|---:|', file=table)
    for side in SIDES:
        own, peer, prepared = compare(library, side)
        print(f'| {side} x {side} | {own:.1f} | {peer:.1f} | {peer / own:.2f} | {prepared:.1f} '
              f'| {prepared / own:.2f} |', file=table, flush=True)


main()
