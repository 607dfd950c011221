"""Networks of triangles and nearest stations beside SciPy.

The networks are a yardstick only: this library grows its triangles by its own rules, and contours the stations at one
level as well. Nearest stations are the same ones, on the sphere there and on an earth that is flat nearby here; this
library also writes its field to a file.
"""
import numpy as np
import scipy
from scipy.spatial import Delaunay, cKDTree

import velmar

from .timing import Row, best_call_time, best_time, require_close

PEER = f"SciPy {scipy.__version__}"
WEST, EAST, SOUTH, NORTH, STEP, RADIUS = 70, 140, 10, 60, 0.25, 1.0


def random_stations(count):
    random = np.random.default_rng(1)
    x = random.uniform(WEST, EAST, count).astype(np.float32)
    y = random.uniform(SOUTH, NORTH, count).astype(np.float32)
    return x, y, (20 + 10 * np.sin(0.2 * x)).astype(np.float32)


def compare_networks(name, x, y, values):
    level = np.array([np.median(values)], np.float32)
    own = best_call_time("SanJiao", x, y, values.copy(), level, len(x), 2, 0, 0, 1)
    return Row("triangles", name, own, f"{PEER}, Delaunay", best_time(lambda: Delaunay(np.column_stack([x, y]))))


def on_sphere(longitudes, latitudes):
    longitudes, latitudes = np.radians(longitudes, dtype=float), np.radians(latitudes, dtype=float)
    return np.column_stack([np.cos(latitudes) * np.cos(longitudes), np.cos(latitudes) * np.sin(longitudes),
                            np.sin(latitudes)])


def peer_nearest(stations, values, grid):
    distances, indices = cKDTree(stations).query(grid)
    return np.where(distances < 2 * np.sin(np.radians(RADIUS) / 2), values[indices], -1)


def compare_nearest(name, x, y, values):
    area = 0, WEST, EAST, SOUTH, NORTH, STEP, STEP, RADIUS
    field = velmar.nearest(x, y, values, area[1:5], latitude_step=STEP, longitude_step=STEP, radius=RADIUS).values
    rows, columns = field.shape
    grid = on_sphere(*(axis.ravel() for axis in np.meshgrid(WEST + STEP * np.arange(columns),
                                                            SOUTH + STEP * np.arange(rows))))
    # The library leaves out the last station.
    stations = on_sphere(x[:-1], y[:-1])
    same = np.isclose(peer_nearest(stations, values[:-1], grid), field.ravel()).mean()
    require_close(f"points with the same nearest station, {name}", same, 1, 0.02)
    own = best_call_time("TqqOA", x, y, values, len(x), *area)
    return Row("nearest stations", f"{name}, {columns} x {rows}", own, f"{PEER}, cKDTree",
               best_time(lambda: peer_nearest(stations, values, grid)))


def rows(samples):
    real = velmar.read_station_values(samples / "stations/summer_rain.000").stations
    present = real.values[:, 0] != velmar.MISSING
    stations = [(f"{present.sum():,}, real",
                 *(np.ascontiguousarray(column[present]) for column in (real.longitudes, real.latitudes,
                                                                       real.values[:, 0])))]
    stations += [(f"{size:,}", *random_stations(size)) for size in (2000, 8000, 32000)]
    for compare in (compare_networks, compare_nearest):
        for case in stations:
            yield compare(*case)
