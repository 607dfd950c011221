"""Networks of triangles by this library and by SciPy's Delaunay triangulation (Qhull).

  compare_scipy.py LIBRARY STATIONS

LIBRARY is the shared object, STATIONS a file of station values. Prints a Markdown table of the best times. A yardstick
only: the library grows its triangles by its own rules, and contours the stations at one level as well.
"""
import ctypes
import os
import sys

import numpy as np
from scipy.spatial import Delaunay

from timing import best_time, table_output

SIZES = (2000, 8000, 32000)
FloatPointer = ctypes.POINTER(ctypes.c_float)


def load(path):
    library = ctypes.CDLL(path)
    real, whole = ctypes.c_float, ctypes.c_int
    library.SanJiao.restype = ctypes.c_void_p
    library.SanJiao.argtypes = [FloatPointer, FloatPointer, FloatPointer, FloatPointer, whole, whole, real, real, whole]
    library.ReadVelmarData3.restype = FloatPointer
    library.freecPointer.argtypes = [ctypes.c_void_p]
    return library


def pointer(values):
    return values.ctypes.data_as(FloatPointer)


def read_stations(library, path):
    """Longitudes, latitudes and values of the stations of a file, one value each."""
    block = library.ReadVelmarData3(path)
    count, levels = int(block[6]), int(block[7])
    stations = np.array(block[8 + levels:8 + levels + 5 * count], np.float32).reshape(count, 5)
    library.freecPointer(block)
    stations = stations[stations[:, 4] != 9999]
    return [np.ascontiguousarray(stations[:, column]) for column in (1, 2, 4)]


def random_stations(count):
    random = np.random.default_rng(1)
    x = random.uniform(70, 140, count).astype(np.float32)
    y = random.uniform(10, 60, count).astype(np.float32)
    return x, y, (20 + 10 * np.sin(0.2 * x)).astype(np.float32)


def contour(library, x, y, values):
    level = np.array([np.median(values)], np.float32)
    changed = values.copy()
    library.freecPointer(library.SanJiao(pointer(x), pointer(y), pointer(changed), pointer(level), len(x), 2, 0, 0, 1))


def main():
    table = table_output()
    library = load(os.path.abspath(sys.argv[1]))
    cases = [('real', read_stations(library, os.fsencode(sys.argv[2])))]
    cases += [('random', random_stations(size)) for size in SIZES]
    print('| stations | velmarBaseA, one level, ms | Delaunay, ms | ratio |\n|---|---:|---:|---:|', file=table)
    for name, (x, y, values) in cases:
        own = best_time(lambda: contour(library, x, y, values))
        peer = best_time(lambda: Delaunay(np.column_stack([x, y])))
        print(f'| {len(x)}, {name} | {own:.1f} | {peer:.1f} | {peer / own:.2f} |', file=table, flush=True)


main()
