"""Wind files, divergence and vorticity."""
from dataclasses import dataclass

import numpy as np

from .arrays import same_grids
from .blocks import Block, take_grid
from .errors import WIND_CODES
from .library import call, encoded
from .results import MISSING, Field


@dataclass(frozen=True, eq=False)
class Wind:
    """A wind field; row 0 is the southernmost.

    u, v             (ny, nx) eastward and northward wind, m/s
    start_longitude ... latitude_step  where the grids lie, degrees
    end_longitude, end_latitude        of the last column and row, as the file has them
    time             year, month, day, hour
    forecast_hour    hours after that time
    level            pressure level, hPa
    """

    u: np.ndarray
    v: np.ndarray
    start_longitude: float
    start_latitude: float
    longitude_step: float
    latitude_step: float
    end_longitude: float
    end_latitude: float
    time: tuple
    forecast_hour: int
    level: int

    @property
    def place(self):
        """Start longitude, start latitude, longitude step, latitude step."""
        return self.start_longitude, self.start_latitude, self.longitude_step, self.latitude_step

    @property
    def speed(self):
        """As a Field, m/s; missing where one of the components is."""
        missing = (self.u == MISSING) | (self.v == MISSING)
        return Field(np.where(missing, np.float32(MISSING), np.hypot(self.u, self.v)), *self.place)


def read_wind(path):
    """Reads a wind file (type 11). Rows come from south to north, whatever the order of the file.

    Returns Wind. Missing values are 9999. Raises VelmarFileError.
    """
    with Block(call("readVelmarData11", encoded(path))) as block:
        block.raise_code(path, WIND_CODES)
        nx, ny = block.count(13), block.count(14)
        place = (block[k] for k in (9, 11, 7, 8, 10, 12))
        time = tuple(int(block[k]) for k in range(1, 5))
        return Wind(block.copy(15, ny, nx), block.copy(15 + nx * ny, ny, nx), *place, time, int(block[5]),
                    int(block[6]))


def _differences(function, p, q, place, missing):
    p, q = same_grids(missing, p, q)
    ny, nx = p.shape
    return take_grid(call(function, p, q, nx, ny, missing, *place), ny, nx)


def divergence(u, v, start_longitude, start_latitude, longitude_step, latitude_step, *, missing=MISSING):
    """Divergence of a wind field on the sphere, by centred differences over two grid lengths.

    u, v   (ny, nx), m/s
    start_longitude ... latitude_step  where the grids lie, degrees; of a wind: *wind.place

    Returns (ny, nx) in 1/s; missing on the edges of the grid, beside missing points, and at the poles.
    """
    return _differences("hdiv", u, v, (start_longitude, start_latitude, longitude_step, latitude_step), missing)


def vorticity(u, v, start_longitude, start_latitude, longitude_step, latitude_step, *, missing=MISSING):
    """Relative vorticity of a wind field on the sphere; arguments and result as for divergence()."""
    return _differences("hvor", v, u, (start_longitude, start_latitude, longitude_step, latitude_step), missing)
