"""What the comparisons share: a row of the table, and the clock."""
import time
from typing import NamedTuple

from velmar.library import call


class Row(NamedTuple):
    """Work that both have done on the same data, and the best times, in milliseconds."""

    work: str
    data: str
    own: float
    peer_name: str
    peer: float


def best_time(work, repeats=5):
    """The shortest of some runs, in milliseconds."""
    times = []
    for _ in range(repeats):
        begin = time.perf_counter()
        work()
        times.append(time.perf_counter() - begin)
    return 1e3 * min(times)


def best_call_time(name, *arguments):
    """That of an export, the release of its block included."""
    return best_time(lambda: call("freecPointer", call(name, *arguments)))


def require_close(what, own, peer, tolerance):
    """The clock says nothing unless both have done the same work."""
    if not abs(own / peer - 1) <= tolerance:
        raise SystemExit(f"{what}: {own:g} here, {peer:g} there")
