"""Objective analysis of station files, and fields of the nearest station.

Bounds are start and end longitude, start and end latitude, degrees. (end - start) / step + 1 columns or rows lie
between them, in single precision and cut to a whole number.

Each call also writes its grid to a file in the current directory: analyse_reports() OAtestC.000, near_reports()
OAtestttq.000 and nearest() OATQQ.000.
"""
from dataclasses import dataclass

import numpy as np

from .analysis import spread_field
from .arrays import same_lists
from .blocks import Block
from .errors import REPORT_CODES, VALUE_CODES
from .library import call, encoded, lock
from .results import Field
from .stations import Stations, take_stations

_METHODS = {"cressman": 0, "barnes": 1}


def _method_code(method):
    if method not in _METHODS:
        raise ValueError("methods are cressman and barnes")
    return _METHODS[method]


def _count_by_steps(start, end, step):
    start, end, step = np.float32(start), np.float32(end), np.float32(step)
    if step == 0 or (end - start) / step + np.float32(1) < 1:
        raise ValueError("no column or no row fits between the bounds")
    return int((end - start) / step + np.float32(1))


def _bounds_arguments(bounds):
    """The automatic flag and four bounds, as the library takes them."""
    return (1, 0, 0, 0, 0) if bounds is None else (0, *bounds)


def _analysed_field(values, bounds, method):
    """Columns and rows of Barnes's method divide whole degrees."""
    return spread_field(values, map(int, bounds) if method == "barnes" else bounds)


def analyse_reports(path, bounds, *, element=0, method="cressman", latitude_step=1, longitude_step=1, mask_radius=0):
    """Reads a file of surface reports (type 1) and analyses one element of them.

    bounds       start and end longitude, start and end latitude, degrees; cut to whole ones by Barnes's method
    element      0: field 13, 1: field 20, 2: field 8 of the reports
    method       cressman or barnes
    mask_radius  as in barnes(), degrees

    Only files without missing values give right fields: the k-th value is analysed at the place of the k-th report. The
    last report is not used. Returns a Field. Raises VelmarFileError.
    """
    west, east, south, north = bounds
    nx, ny = _count_by_steps(west, east, longitude_step), _count_by_steps(south, north, latitude_step)
    with lock, Block(call("OAReadVelmar1", encoded(path), _method_code(method), element, 0, *bounds, latitude_step,
                          longitude_step, mask_radius)) as block:
        if block[0] in REPORT_CODES:
            _check_reports(path)
        return _analysed_field(block.copy(0, ny, nx), bounds, method)


def _check_reports(path):
    """Raises the error of a file of reports. A grid may begin with a number that looks like its code, so that another
    reader is asked, for a field of one point."""
    with Block(call("ReadVelmar1Tqq", encoded(path), 0, 0, 0, 0, 0, 0, 0, 1, 1, 0)) as block:
        block.raise_code(path, REPORT_CODES)


@dataclass(frozen=True, eq=False)
class AnalysedStations:
    """A file of station values, analysed.

    field           -1e20 at each point where the analysis gives none; None without a method
    stations        those that have a value
    contour_levels  of the file, (levels,)
    """

    field: Field | None
    stations: Stations
    contour_levels: np.ndarray


def analyse_values(path, bounds=None, *, method="cressman", latitude_step=1, longitude_step=1, mask_radius=0):
    """Reads a file of station values (type 3, one value a station) and analyses them.

    bounds  as in analyse_reports(); those of all stations, a degree wider, when they are None
    method  cressman, barnes, or None for no field

    Returns AnalysedStations. Raises VelmarFileError.
    """
    code = -1 if method is None else _method_code(method)
    with Block(call("OAReadVelmar3", encoded(path), code, *_bounds_arguments(bounds), latitude_step, longitude_step,
                    mask_radius)) as block:
        block.raise_code(path, VALUE_CODES)
        count, nx, ny, levels = (block.count(k) for k in (1, 2, 3, 10))
        table = block.view(11 + levels, count, 5)
        stations = take_stations(table, (2, 3, 1), table[:, 4])
        field = None
        if method is not None:
            values = block.copy(11 + levels + 5 * count, ny, nx)
            field = _analysed_field(values, [block[k] for k in range(4, 8)], method)
        return AnalysedStations(field, stations, block.copy(11, levels))


def _take_nearest(block):
    ny, nx = block.count(8), block.count(7)
    return Field(block.copy(9, ny, nx), block[1], block[3], block[5], block[6])


def near_reports(path, bounds=None, *, element=0, latitude_step=1, longitude_step=1, radius=1):
    """Reads a file of surface reports (type 1) and marks what lies near to a kind of them.

    bounds   as in analyse_values()
    element  0: reports whose field 19 lies between 10 and 12 (mist); 1: those whose field 17 is above 0
    radius   degrees

    Returns a Field: 1 where the nearest station is less than the radius away and of that kind, else -1. Raises
    VelmarFileError.
    """
    with Block(call("ReadVelmar1Tqq", encoded(path), 0, element, *_bounds_arguments(bounds), latitude_step,
                    longitude_step, radius)) as block:
        block.raise_code(path, REPORT_CODES)
        return _take_nearest(block)


def nearest(longitudes, latitudes, values, bounds=None, *, latitude_step=1, longitude_step=1, radius=1):
    """Gives each grid point the value of the nearest station.

    longitudes, latitudes, values  (n,); 9999 and 999999 are no values, and the last station with one is not used
    bounds, radius                 as in near_reports()

    Returns a Field: -1 where no station is less than the radius away or the nearest value is negative.
    """
    longitudes, latitudes, values = same_lists(longitudes, latitudes, values)
    with Block(call("TqqOA", longitudes, latitudes, values, len(values), *_bounds_arguments(bounds), latitude_step,
                    longitude_step, radius)) as block:
        return _take_nearest(block)
