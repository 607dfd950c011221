"""Streamlines beside matplotlib's streamplot, of the grid of a wind file. The clock of this library runs while it reads
the file, too; that of streamplot does not."""
import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402: the backend comes first
import numpy as np  # noqa: E402

import velmar  # noqa: E402

from .timing import Row, best_call_time, best_time  # noqa: E402

PEER = f"matplotlib {matplotlib.__version__}"


def rows(samples):
    path = samples / "winds/wind10m_global_1deg.000"
    wind = velmar.read_wind(path)
    west, south, dx, dy = wind.place
    ny, nx = wind.u.shape
    axes = plt.figure().gca()

    def draw():
        return axes.streamplot(west + dx * np.arange(nx), south + dy * np.arange(ny), wind.u, wind.v, density=2,
                               color=np.hypot(wind.u, wind.v))

    peer_points = len(draw().lines.get_segments())
    peer = best_time(draw, repeats=2)
    for density in (5, 8, 14):
        points = len(velmar.read_streamlines(path, density).points)
        own = best_call_time("readWindData", bytes(path), density)
        yield Row("streamlines", f"{nx} x {ny}, real: {points:,} points, {peer_points:,} there", own, PEER, peer)
