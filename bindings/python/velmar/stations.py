"""Station files, and rain added up from them.

Files of soundings (type 5) are left out: the library reads them, but hands nothing out.
"""
from dataclasses import dataclass

import numpy as np

from .blocks import Block
from .errors import VALUE_CODES, VelmarError, VelmarFileError, require_file
from .library import call, encoded


@dataclass(frozen=True, eq=False)
class Stations:
    """Stations with values; all arrays (n,).

    numbers                of the stations, integers
    longitudes, latitudes  degrees
    heights                metres
    values                 (n, k) from a file with k values a station
    """

    numbers: np.ndarray
    longitudes: np.ndarray
    latitudes: np.ndarray
    heights: np.ndarray
    values: np.ndarray

    def __len__(self):
        return len(self.numbers)


def take_stations(table, places, values):
    """Stations from rows of a block. places: the columns of longitude, latitude, height; values: those of the rows."""
    with np.errstate(invalid="ignore"):  # a damaged file may hold numbers that are none
        numbers = table[:, 0].astype(int)
    return Stations(numbers, *(table[:, column].copy() for column in places), values.copy())


@dataclass(frozen=True, eq=False)
class Reports:
    """Reports of stations, as rows of numbers.

    time     year, month, day, hour; empty for a station list
    extra    the fifth item of the header (a level or a forecast hour); None where there is none
    records  (reports, numbers of a report): number, longitude, latitude (degrees), height (metres), then others
    """

    time: tuple
    extra: int | None
    records: np.ndarray


def _read_reports(reader, path, header, width):
    """header: items before the reports, the last of which is their number."""
    require_file(path)
    address = call(reader, encoded(path))
    if not address:
        raise VelmarFileError(path, "has no complete header, or none of the reports that it promises")
    with Block(address) as block:
        items = [int(block[k]) for k in range(header - 1)]
        records = block.copy(header, block.count(header - 1), width)
    return Reports(tuple(items[:4]), items[4] if len(items) > 4 else None, records)


def read_surface_reports(path):
    """Reads a file of surface reports (type 1): 24 fields a report, then two extra values, which are 9999 where the
    file has none. Returns Reports. Raises VelmarFileError."""
    return _read_reports("ReadVelmarData1", path, 5, 26)


def read_upper_air_reports(path):
    """Reads a file of upper-air reports (type 2), ten numbers each. Returns Reports. Raises VelmarFileError."""
    return _read_reports("ReadVelmarData2", path, 6, 10)


def read_forecasts(path):
    """Reads a file of city forecasts (type 8), twelve numbers each. Returns Reports. Raises VelmarFileError."""
    return _read_reports("ReadVelmarData8", path, 6, 12)


def read_station_list(path):
    """Reads a station list (type 16), four numbers each. Returns Reports. Raises VelmarFileError."""
    return _read_reports("ReadVelmarData16", path, 1, 4)


@dataclass(frozen=True, eq=False)
class StationValues:
    """A file of station values.

    time            year, month, day, hour
    level           pressure level, hPa
    contour_levels  (levels,)
    stations        with values (n, k); 9999 is none
    boundary        (points, 2) longitudes and latitudes
    """

    time: tuple
    level: int
    contour_levels: np.ndarray
    stations: Stations
    boundary: np.ndarray


def read_station_values(path):
    """Reads a file of station values (type 3), any number a station. Returns StationValues. Raises VelmarFileError."""
    with Block(call("ReadVelmarData3", encoded(path))) as block:
        block.raise_code(path, VALUE_CODES)
        *time, level = (int(block[k]) for k in range(5))
        width, count, levels = (block.count(k) for k in (5, 6, 7))
        table = block.view(8 + levels, count, 4 + width)
        stations = take_stations(table, (1, 2, 3), table[:, 4:])
        end = 8 + levels + table.size
        return StationValues(tuple(time), level, block.copy(8, levels), stations,
                             block.copy(end + 1, block.count(end), 2))


def add_rain(directory, start, end, step_hours):
    """Adds up the rain of stations over a span of time, from files of station values (type 3) in a directory.

    start, end  datetimes, to the hour; the file of the start is not counted
    step_hours  hours from file to file, at least 1; unless it is 1, hours are 2, 8, 14 or 20

    The file of 8 h on 15 July 2008 is 08071508.000. Returns Stations, their values the totals. Raises VelmarError.
    """
    hours = [number for time in (start, end) for number in (time.year, time.month, time.day, time.hour)]
    address = call("DiscreteAdd", *hours, encoded(directory), step_hours)
    if not address:
        raise VelmarError(f"no rain from {start} to {end} every {step_hours} hours: a file is missing or cannot be "
                          "read, there is no station, or files of such hours are not allowed")
    with Block(address) as block:
        table = block.view(1, block.count(0) // 5, 5)
        return take_stations(table, (1, 2, 3), table[:, 4])
