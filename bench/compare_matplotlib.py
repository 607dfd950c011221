"""Streamlines by this library and by matplotlib's streamplot.

  compare_matplotlib.py LIBRARY WIND

LIBRARY is the shared object, WIND a wind file whose values are all present. Prints a Markdown table of the best times
on the grid of the file: streamplot at its density 2, this library at several densities. The clock of the library runs
while it reads the file, too; that of streamplot does not. Fails unless the library draws at least
as many points in less than a twentieth of the time.
"""
import ctypes
import os
import sys

import matplotlib
matplotlib.use('Agg')
import matplotlib.pyplot as plt  # noqa: E402: the backend comes first
import numpy as np  # noqa: E402

from timing import best_time  # noqa: E402

DENSITIES = (1, 5, 6, 7, 8, 10, 14)
FloatPointer = ctypes.POINTER(ctypes.c_float)


def load(path):
    library = ctypes.CDLL(path)
    for reader in (library.readWindData, library.readVelmarData11):
        reader.restype = FloatPointer
    library.freecPointer.argtypes = [ctypes.c_void_p]
    return library


def read_wind(library, path):
    """Longitudes, latitudes, u and v of a wind file."""
    block = library.readVelmarData11(path)
    step_x, step_y, west, _, south, _, columns, rows = block[7:15]
    shape = int(rows), int(columns)
    wind = np.array(block[15:15 + 2 * shape[0] * shape[1]]).reshape(2, *shape)
    library.freecPointer(block)
    return west + step_x * np.arange(shape[1]), south + step_y * np.arange(shape[0]), *wind


def draw(library, path, density):
    """Returns the number of points."""
    block = library.readWindData(path, density)
    # Arrows follow the points; they have six elements, the first of which is 2.
    tags = np.ctypeslib.as_array(block, (int(block[1]),))[2::4]
    points = int(np.argmax(tags == 2))
    library.freecPointer(block)
    return points


def draw_by_peer(axes, wind):
    return axes.streamplot(*wind, density=2, color=np.hypot(*wind[2:]))


def main():
    library = load(os.path.abspath(sys.argv[1]))
    path = os.fsencode(sys.argv[2])
    wind = read_wind(library, path)
    axes = plt.figure().gca()
    peer_time = best_time(lambda: draw_by_peer(axes, wind), repeats=2)
    peer_points = len(draw_by_peer(axes, wind).lines.get_segments())
    print(f'| streamlines of {os.path.basename(sys.argv[2])} | time, ms | points | times as fast |\n'
          '|---|---:|---:|---:|\n'
          f'| matplotlib {matplotlib.__version__}, density 2 | {peer_time:.0f} | {peer_points} | |')
    is_faster = False
    for density in DENSITIES:
        own_time = best_time(lambda: draw(library, path, density))
        points = draw(library, path, density)
        print(f'| velmarBaseA, density {density} | {own_time:.1f} | {points} | {peer_time / own_time:.0f} |')
        is_faster |= points >= peer_points and 20 * own_time < peer_time
    if not is_faster:
        sys.exit('it is not as fast as it should be')


main()
