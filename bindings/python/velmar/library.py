"""The shared library: where it is found, how its functions are declared, and the lock around its calls.

It is looked for in the folder of this package, then at the path in the environment variable VELMAR_LIBRARY, then among
the libraries of the system. It is loaded by the first call that needs it.
"""
import ctypes
import ctypes.util
import functools
import os
import pathlib
import threading

import numpy as np

from .errors import VelmarError

#: Held by every call: the library keeps state, and ctypes lets other threads run meanwhile. Hold it around a group of
#: calls that belong together.
lock = threading.RLock()

_TYPES = {
    "B": ctypes.c_void_p,  # address of a block, or None
    "s": ctypes.c_char_p,
    "f": ctypes.c_float,
    "i": ctypes.c_int,
    "a": np.ctypeslib.ndpointer(np.float32, flags="C_CONTIGUOUS"),
    "c": np.ctypeslib.ndpointer(np.int32, flags="C_CONTIGUOUS"),
    "F": ctypes.POINTER(ctypes.c_float),  # a number is stored there
    "I": ctypes.POINTER(ctypes.c_int),
    "-": None,
}

#: Type of the result, then those of the arguments.
_SIGNATURES = {
    "freecPointer": "-B",
    "readVelmar4": "Bs",
    "contour2D": "Bafiiifffaiffff",
    "contour2DRaw": "Bafiiifffaiffff",
    "readCntrData": "Bsiia",
    "findCenters": "Bafiiiffff",
    "velmarCntrShad": "Baiiacifffffi",
    "velmarCntrShadD": "Baiiacifiaa",
    "readCntrShadData": "Bsii",
    "readByteShadData": "Bsiif",
    "polygonfill": "BaiffffI",
    "Clip": "iaffffi",
    "SHClip": "BaffffiI",
    "barnes": "Bfffiiiiiiiaaaf",
    "cressman": "Biaiiffffiaaaf",
    "OAReadVelmar1": "Bsiiifffffff",
    "OAReadVelmar3": "Bsiifffffff",
    "ReadVelmar1Tqq": "Bsiiifffffff",
    "TqqOA": "Baaaiifffffff",
    "gagexps": "Baiiiif",
    "readVelmarData11": "Bs",
    "streamAnalyse": "Baaaiifffiacii",
    "readWindData": "Bsi",
    "readWindDivVor": "BsiFFFFII",
    "hdiv": "Baaiifffff",
    "hvor": "Baaiifffff",
    "ReadVelmarData1": "Bs",
    "ReadVelmarData2": "Bs",
    "ReadVelmarData3": "Bs",
    "ReadVelmarData8": "Bs",
    "ReadVelmarData16": "Bs",
    "ReadVelmarData777": "Bs",
    "ReadVelmarData780": "Bs",
    "ReadMap9": "Bs",
    "DiscreteAdd": "Biiiiiiiisi",
    "readRegionData": "is",
    "countyNameFromRegion": "sff",
    "getSingleRegionBoundaryByOrder": "BiI",
    "getSingleRegionBoundaryByName": "BsI",
    "getAllRegionBoundaryByName": "BsI",
    "SanJiao": "Baaaaiiffi",
    "FJJS2": "-ffffFFF",
}

#: Taken when the package is imported, so that a relative path keeps its meaning when the current directory changes.
_configured = os.path.abspath(os.environ["VELMAR_LIBRARY"]) if os.environ.get("VELMAR_LIBRARY") else None


def _find():
    packaged = pathlib.Path(__file__).with_name("libvelmarBaseA.so")
    if packaged.exists():
        return str(packaged)
    found = _configured or ctypes.util.find_library("velmarBaseA")
    if not found:
        raise VelmarError("libvelmarBaseA.so is found neither in the package nor in the system; "
                          "set VELMAR_LIBRARY to its path")
    return found


@functools.cache
def _load():
    path = _find()
    try:
        library = ctypes.CDLL(path)
    except OSError as problem:
        raise VelmarError(f"{path} cannot be loaded: {problem}") from problem
    for name, types in _SIGNATURES.items():
        function = getattr(library, name)
        function.restype, *function.argtypes = [_TYPES[letter] for letter in types]
    return library


def call(name, *arguments):
    """Calls a function of the library, alone."""
    with lock:
        return getattr(_load(), name)(*arguments)


def encoded(path):
    """A path as the bytes that the library takes, to which a NUL is the end."""
    path = os.fsencode(path)
    if b"\0" in path:
        raise ValueError("a path holds no NUL")
    return path
