"""Errors of the package, and the error codes of the library in words."""
import os

CANNOT_OPEN = "cannot be opened, or is not a regular file"
_FIRST_LINE = "lacks keyword, type or title"
_OTHER_TYPE = "is of another type"
_OTHER_KEYWORD = "has another keyword than diamond"
_VALUE = "lacks a value, or has one that is not a number"

GRID_CODES = {-1: CANNOT_OPEN, -2: _FIRST_LINE, -3: _OTHER_TYPE, -4: _OTHER_KEYWORD,
              -5: "has a header item that is missing or no number", -6: _VALUE, -7: _VALUE}
GRID_SHADING_CODES = GRID_CODES | {-5: "has a header item or a value that is missing or no number"}
REPORT_CODES = {-1: CANNOT_OPEN, -2: _FIRST_LINE, -3: _OTHER_TYPE,
                -4: "lacks a part of the date or the number of reports"}
VALUE_CODES = {-1: CANNOT_OPEN, -2: _FIRST_LINE, -3: _OTHER_TYPE,
               -4: "lacks a part of the date, the level or the number of contour levels",
               -5: "lacks a contour level, or has one that is not a number",
               -6: "lacks smoothing, bold value or the number of boundary points",
               -7: "lacks a coordinate of the boundary, or has one that is not a number",
               -8: "has another number of values per station than one",
               -9: "lacks the number of values or of stations"}
WIND_CODES = {-1: CANNOT_OPEN, -2: _FIRST_LINE, -3: _OTHER_KEYWORD,
              -4: "has a header item that is missing or no number, or no columns or rows"}
WIND_CODES |= {-5: _VALUE + " (u)", -6: _VALUE + " (v)", -7: _VALUE + " (u)", -8: _VALUE + " (v)"}


class VelmarError(Exception):
    """A call of the library failed. Arguments that make no sense raise ValueError, a lack of memory MemoryError."""


class VelmarFileError(VelmarError):
    """A file cannot be read.

    path  the file, as it was passed in
    code  the library's error code, below 0; None where its reader has no codes
    """

    def __init__(self, path, meaning, code=None):
        self.path = path
        self.code = code
        number = "" if code is None else f" (code {code})"
        super().__init__(f"{os.fsdecode(path)}: {meaning}{number}")


def require_file(path):
    """Raises VelmarFileError with code -1 unless the file is there; for readers that have no codes."""
    if not os.path.isfile(path):
        raise VelmarFileError(path, CANNOT_OPEN, -1)
