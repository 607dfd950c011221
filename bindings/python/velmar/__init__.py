"""Meteorological analysis with the library velmarBaseA, on NumPy arrays: grids, contour lines, filled contours,
objective analysis, wind, station files, maps and regions.

Grids are arrays (ny, nx) of 32-bit floats, row after row; where they lie is told by start longitude, start latitude,
longitude step and latitude step, in degrees, which the results of readers have as `place`. Points are arrays (n, 2) of
longitudes and latitudes.
"""
from .analysis import UNREACHED, barnes, cressman
from .contours import Centres, contour, find_centres, read_contours
from .errors import VelmarError, VelmarFileError
from .file_analysis import AnalysedStations, analyse_reports, analyse_values, near_reports, nearest
from .geometry import Way, contour_stations, great_circle
from .grids import Grid, read_grid, refine
from .maps import Boundary, MapLines, read_boundary, read_map
from .polygons import clip, clip_edge, pull_inside
from .progress import quiet
from .regions import load_regions, region_at, region_boundaries, region_boundary
from .results import MISSING, Field, Lines, Shapes, Polygons
from .shading import read_image_shading, read_shading, shade, shade_classes, shade_uneven
from .stations import (Reports, Stations, StationValues, add_rain, read_forecasts, read_station_list,
                       read_station_values, read_surface_reports, read_upper_air_reports)
from .flow import Streamlines, read_streamlines, streamlines
from .wind import Wind, divergence, read_wind, vorticity

__all__ = ["MISSING", "UNREACHED"]
__all__ += [name for name, thing in globals().items() if getattr(thing, "__module__", "").startswith("velmar.")]
