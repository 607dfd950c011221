"""Objective analysis: values of stations onto a grid.

Bounds are those of the grid, degrees: start and end longitude, start and end latitude.
"""
import numpy as np

from .arrays import list_array, same_lists
from .blocks import take_grid
from .errors import VelmarError
from .library import call
from .results import Field

#: Value of the points of barnes() and cressman() that no station is near to.
UNREACHED = -9999.0


def spread_field(values, bounds):
    """A field whose columns and rows divide the bounds evenly."""
    west, east, south, north = (float(bound) for bound in bounds)
    ny, nx = values.shape
    return Field(values, west, south, (east - west) / max(nx - 1, 1), (north - south) / max(ny - 1, 1))


def barnes(longitudes, latitudes, values, bounds, shape, *, kappa=0.25, radius=20, gamma=0.3, mask_radius=0):
    """Spreads station values onto a grid with Gaussian weights, after Barnes (1964): a first guess and five passes.

    longitudes, latitudes, values  (n,), none of which is missing
    bounds       whole degrees
    shape        rows and columns
    kappa        width of the first guess's Gaussian, square degrees
    radius       how far a station reaches in it, degrees
    gamma        width of pass p is kappa * gamma^p, its radius is radius / (p + 2)
    mask_radius  above 0 (degrees): the grid is capped by the largest value so near, and UNREACHED where there is none

    The first station takes no part in the first guess. Returns a Field.
    """
    longitudes, latitudes, values = same_lists(longitudes, latitudes, values)
    whole = [int(bound) for bound in bounds]
    if whole != list(bounds):
        raise ValueError("bounds are whole degrees")
    ny, nx = _checked_shape(shape)
    grid = take_grid(call("barnes", kappa, radius, gamma, nx, ny, *whole, len(values), longitudes, latitudes, values,
                          mask_radius), ny, nx)
    return spread_field(grid, whole)


def cressman(longitudes, latitudes, values, bounds, shape, *, radii=(25, 10, 5, 2, 1), mask_radius=0):
    """Spreads station values onto a grid by successive corrections, after Cressman (1959).

    longitudes, latitudes, values  (n,); -9999 is no value
    shape        rows and columns
    radii        influence radius of each scan, in grid lengths
    mask_radius  as in barnes()

    The first guess is the sum of the values: hand over deviations from their mean where scans may not reach. Points
    that no station reaches in the third scan are UNREACHED. Returns a Field.
    """
    longitudes, latitudes, values = same_lists(longitudes, latitudes, values)
    ny, nx = _checked_shape(shape)
    radii = list_array(radii)
    address = call("cressman", len(radii), radii, nx, ny, *bounds, len(values), longitudes, latitudes, values,
                   mask_radius)
    if not address:
        raise VelmarError("no analysis: the values add up to -9999, or memory is lacking; the library prints which")
    return spread_field(take_grid(address, ny, nx), bounds)


def _checked_shape(shape):
    ny, nx = shape
    if nx < 1 or ny < 1:
        raise ValueError("a grid has at least one row and one column")
    return ny, nx
