"""Named regions: one file of boundaries for the life of the process."""
import ctypes

from .blocks import Block, copied_points, take_shapes
from .errors import VelmarError, VelmarFileError, require_file
from .library import call, encoded, lock
from .results import Shapes

#: Names are GBK; bytes that are none survive the way to a text and back.
_ENCODING = ("gbk", "surrogateescape")

_loaded = False


def load_regions(path):
    """Loads a file of region boundaries (type 10), once in a process.

    Returns whether all points could be read; when not, the regions up to there are loaded. Raises VelmarError when a
    file has been loaded before, VelmarFileError when this one has no region.
    """
    global _loaded
    with lock:
        if _loaded:
            raise VelmarError("a file of regions has been loaded; a process has one")
        require_file(path)
        status = call("readRegionData", encoded(path))
        if status < 0:
            raise VelmarFileError(path, "has no head or no region", status)
        _loaded = True
        return status == 1


def region_at(longitude, latitude):
    """The name of the first region of the file that holds a place (degrees), or None."""
    name = call("countyNameFromRegion", longitude, latitude)
    return None if name == b" " else name.decode(*_ENCODING)


def region_boundary(region):
    """The boundary of a region, by its place in the file (from 0 on) or by its name; the first of that name.

    Returns points (n, 2). Raises LookupError when there is no such region.
    """
    count = ctypes.c_int()
    with lock:
        if isinstance(region, str):
            address = call("getSingleRegionBoundaryByName", region.encode(*_ENCODING), ctypes.byref(count))
        else:
            address = call("getSingleRegionBoundaryByOrder", region, ctypes.byref(count))
    if not address:
        raise LookupError(f"no region {region}")
    return copied_points(address, count.value)


def region_boundaries(name):
    """The boundaries of all regions of a name, as Shapes. Raises LookupError when there is none."""
    total = ctypes.c_int()
    address = call("getAllRegionBoundaryByName", name.encode(*_ENCODING), ctypes.byref(total))
    if not address:
        raise LookupError(f"no region {name}: no file is loaded")
    with Block(address) as block:
        count = block.count(0)
        _, points, offsets = take_shapes(block, 1, 1, stop=1 + count + 2 * total.value)
    if count == 0:
        raise LookupError(f"no region {name}")
    return Shapes(points, offsets)
