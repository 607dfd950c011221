"""Progress texts of the library, which go to standard output in GBK."""
import contextlib
import ctypes
import os
import sys
import threading

_lock = threading.Lock()
_depth = 0
_saved = None


def _flush():
    sys.stdout.flush()
    ctypes.CDLL(None).fflush(None)


@contextlib.contextmanager
def quiet():
    """Leaves out the progress texts of calls inside the context.

    File descriptor 1 of the process leads nowhere meanwhile, so that nothing else is printed either, from whatever
    thread. Contexts may be nested and may overlap in several threads.
    """
    global _depth, _saved
    with _lock:
        if _depth == 0:
            _flush()
            _saved = os.dup(1)
            with open(os.devnull, "wb") as nowhere:
                os.dup2(nowhere.fileno(), 1)
        _depth += 1
    try:
        yield
    finally:
        with _lock:
            _depth -= 1
            if _depth == 0:
                _flush()
                os.dup2(_saved, 1)
                os.close(_saved)
