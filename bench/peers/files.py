"""Reading a grid file beside fscanf, value by value, and contouring one as a whole (from a text file to GeoJSON, a process
each) beside GDAL, which gets the same values in its own text format. Its lines run on for half a grid length outside the data."""
import json
import subprocess
import tempfile
from pathlib import Path

import numpy as np

import velmar

from .contours import LEVELS, SPEEDS, length_of, smooth_field
from .timing import Row, best_time, require_close


def run(*command):
    subprocess.run(command, check=True, capture_output=True)


def write_values(file, values):
    np.savetxt(file, values, fmt="%.2f")


def write_grid(path, values):
    """A grid file around a point on the equator, north up."""
    ny, nx = values.shape
    with path.open("w") as file:
        file.write(f"diamond 4 field\n2011 10 08 00 0 500\n0.01 -0.01 0 {0.01 * (nx - 1):g} {0.01 * (ny - 1):g} 0 "
                   f"{nx} {ny} 13 -78 78 0 0\n")
        write_values(file, values)


def write_peer_grid(path, values, west, south, step):
    """An Arc/Info ASCII grid; its rows begin in the north."""
    ny, nx = values.shape
    with path.open("w") as file:
        file.write(f"ncols {nx}\nnrows {ny}\nxllcenter {west:g}\nyllcenter {south:g}\ncellsize {step:g}\n")
        write_values(file, values)


def length_in(path):
    lines = []
    for feature in json.loads(path.read_text())["features"]:
        geometry = feature["geometry"]
        lines += geometry["coordinates"] if geometry["type"] == "MultiLineString" else [geometry["coordinates"]]
    return length_of(np.array(line)[:, :2] for line in lines)


def compare_files(program, name, path, peer_path, levels):
    texts = [f"{level:g}" for level in levels]
    output, peer_output = path.with_suffix(".geojson"), peer_path.with_suffix(".peer.geojson")

    def draw():
        run(program, "contour", path, "-o", output, f"--levels={','.join(texts)}")

    def draw_there():
        peer_output.unlink(missing_ok=True)
        run("gdal_contour", "-a", "level", "-fl", *texts, "-f", "GeoJSON", peer_path, peer_output)

    times = best_time(draw, repeats=3), best_time(draw_there, repeats=3)
    require_close(f"length of the lines, {name}", length_in(output), length_in(peer_output), 0.03)
    version = subprocess.run(["gdal_contour", "--version"], capture_output=True, text=True).stdout.split(",")[0]
    return Row("grid file to contour lines in a file", name, times[0], version, times[1])


def gdal_rows(program, samples):
    with tempfile.TemporaryDirectory() as folder:
        folder = Path(folder)
        smooth = smooth_field(2000)
        write_grid(folder / "smooth.000", smooth)
        write_peer_grid(folder / "smooth.asc", smooth, 0, 0, 0.01)
        real = velmar.read_grid(samples / "grids/speed10m_global_1deg.000")
        (folder / "speed.000").write_bytes(Path(samples / "grids/speed10m_global_1deg.000").read_bytes())
        write_peer_grid(folder / "speed.asc", real.values, real.start_longitude, real.end_latitude, real.longitude_step)
        for name, stem, levels in ((f"{real.values.shape[1]} x {real.values.shape[0]}, real", "speed", SPEEDS),
                                   ("2000 x 2000", "smooth", LEVELS)):
            yield compare_files(program, name, folder / f"{stem}.000", folder / f"{stem}.asc", levels)


def fscanf_rows(benchmark):
    """The benchmark of reading has both of them; its arguments are the number of values and their digits."""
    output = subprocess.run([benchmark, "--benchmark_filter=(readGridFile|readWithFscanf)/1000000/",
                             "--benchmark_repetitions=3", "--benchmark_format=json"],
                            check=True, capture_output=True, text=True).stdout
    times = {}
    for result in json.loads(output)["benchmarks"]:
        if result["run_type"] == "iteration":
            times.setdefault(result["run_name"], []).append(result["real_time"])
    for name, own in times.items():
        reader, count, digits = name.split("/")
        if reader == "readGridFile":
            peer = times[f"readWithFscanf/{count}/{digits}"]
            yield Row("reading a grid file", f"{int(count):,} values of {digits} digits", min(own), "fscanf", min(peer))


def rows(samples, build):
    yield from fscanf_rows(build / "bench/frameBench")
    yield from gdal_rows(build / "tools/velmar/velmar", samples)
