"""What several modules return: fields on a grid, and sets of lines or polygons."""
from dataclasses import dataclass

import numpy as np

#: Value of points without data in files.
MISSING = 9999.0


@dataclass(frozen=True, eq=False)
class Field:
    """Values on a regular grid of longitudes and latitudes.

    values           (ny, nx) 32-bit floats; row j, column i is values[j, i]
    start_longitude  of column 0, degrees; start_latitude of row 0
    longitude_step   from column to column, degrees; latitude_step from row to row; both may be negative
    """

    values: np.ndarray
    start_longitude: float
    start_latitude: float
    longitude_step: float
    latitude_step: float

    @property
    def place(self):
        """Start longitude, start latitude, longitude step, latitude step: what functions on grids take behind the
        values, as in contour(field.values, *field.place)."""
        return self.start_longitude, self.start_latitude, self.longitude_step, self.latitude_step

    @property
    def longitudes(self):
        """Of the columns, (nx,)."""
        return self.start_longitude + self.longitude_step * np.arange(self.values.shape[1])

    @property
    def latitudes(self):
        """Of the rows, (ny,)."""
        return self.start_latitude + self.latitude_step * np.arange(self.values.shape[0])

    def masked(self, missing=MISSING):
        """The values as a masked array, without those that equal missing."""
        return np.ma.masked_equal(self.values, missing)


@dataclass(frozen=True, eq=False)
class Shapes:
    """Lines or polygons whose points stand in one array. A sequence: shapes[k] are the points of shape k.

    points   (n, 2) 32-bit floats, pairs of longitude and latitude
    offsets  (shapes + 1,): shape k is points[offsets[k]:offsets[k + 1]]
    """

    points: np.ndarray
    offsets: np.ndarray

    def __len__(self):
        return len(self.offsets) - 1

    def __getitem__(self, index):
        if not -len(self) <= index < len(self):
            raise IndexError(index)
        index %= len(self)
        return self.points[self.offsets[index]:self.offsets[index + 1]]


@dataclass(frozen=True, eq=False)
class Lines(Shapes):
    """Contour lines: levels (lines,) has the level of each. A closed line repeats its first point."""

    levels: np.ndarray


@dataclass(frozen=True, eq=False)
class Polygons(Shapes):
    """Polygons to be painted in their order, later ones over earlier ones. The last point joins the first.

    levels   (polygons,) the level of each; polygons of holes have the last level of all
    colours  (polygons,) integers, 0 to 99
    """

    levels: np.ndarray
    colours: np.ndarray
