"""Arrays as the library takes them."""
import numpy as np


def grid_array(values, missing=None):
    """A grid as contiguous 32-bit floats, (ny, nx). Points masked in a masked array become missing."""
    if missing is not None and isinstance(values, np.ma.MaskedArray):
        values = values.filled(missing)
    grid = np.ascontiguousarray(values, np.float32)
    if grid.ndim != 2 or 0 in grid.shape:
        raise ValueError(f"a grid has rows and columns, not the shape {grid.shape}")
    return grid


def same_grids(missing, *grids):
    """Several grids of one shape."""
    arrays = [grid_array(grid, missing) for grid in grids]
    if len({array.shape for array in arrays}) != 1:
        raise ValueError("grids differ in shape: " + ", ".join(str(array.shape) for array in arrays))
    return arrays


def list_array(values, kind=np.float32):
    """A list as a contiguous array, (n,)."""
    array = np.ascontiguousarray(values, kind)
    if array.ndim != 1:
        raise ValueError(f"a list has one dimension, not the shape {array.shape}")
    return array


def same_lists(*lists):
    """Several lists of one length."""
    arrays = [list_array(values) for values in lists]
    if len({len(array) for array in arrays}) != 1:
        raise ValueError("lists differ in length: " + ", ".join(str(len(array)) for array in arrays))
    return arrays


def point_array(points):
    """Points as contiguous 32-bit floats, (n, 2)."""
    array = np.ascontiguousarray(points, np.float32)
    if array.ndim != 2 or array.shape[1] != 2:
        raise ValueError(f"points have the shape (n, 2), not {array.shape}")
    return array
