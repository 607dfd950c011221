"""What all calls share: failures, memory, threads and texts."""
import concurrent.futures
import os
import pathlib
import subprocess
import sys

import numpy as np

import velmar
from .support import SAMPLES, LibraryTest

H500 = SAMPLES / "grids/h500_global.000"
STATIONS = SAMPLES / "stations/temp_95031808.000"
WIND = SAMPLES / "winds/wind850_namerica.000"


def resident_bytes():
    return int(pathlib.Path("/proc/self/statm").read_text().split()[1]) * os.sysconf("SC_PAGE_SIZE")


class Calls(LibraryTest):
    def test_unreadable_files_are_named_with_their_code_in_words(self):
        bounds = (0, 1, 0, 1)
        readers = (velmar.read_grid, velmar.read_contours, velmar.read_shading, velmar.read_wind,
                   velmar.read_streamlines, velmar.read_station_values, velmar.analyse_values, velmar.near_reports,
                   lambda path: velmar.analyse_reports(path, bounds), velmar.read_surface_reports,
                   velmar.read_upper_air_reports, velmar.read_forecasts, velmar.read_station_list, velmar.read_map,
                   velmar.read_boundary, velmar.read_image_shading, velmar.load_regions)
        for read in readers:
            with self.subTest(read), self.assertRaisesRegex(velmar.VelmarFileError, "^nowhere.000: cannot be") as seen:
                read("nowhere.000")
            self.assertEqual((seen.exception.code, seen.exception.path), (-1, "nowhere.000"))
        for read, path, code, words in (
                (velmar.read_grid, WIND, -3, "another type"), (velmar.read_wind, SAMPLES / "README.md", -2, "title"),
                (velmar.near_reports, H500, -3, "another type"),
                (lambda path: velmar.analyse_reports(path, bounds), H500, -3, "another type"),
                (velmar.read_image_shading, H500, None, "no byte image"),
                (velmar.read_boundary, H500, None, "no boundary")):
            with self.subTest(words), self.assertRaisesRegex(velmar.VelmarFileError, words) as seen:
                read(path)
            self.assertEqual(seen.exception.code, code)

    def test_paths_are_bytes_texts_or_path_objects(self):
        name = os.fsdecode(b"caf\xe9.000")
        pathlib.Path(name).write_bytes(H500.read_bytes())
        for path in (name, os.fsencode(name), pathlib.Path(name)):
            self.assertEqual(velmar.read_grid(path).values.shape, (73, 144))
        with self.assertRaises(ValueError):
            velmar.read_grid(f"{name}\0.000")

    def test_blocks_are_released(self):
        grid, wind = velmar.read_grid(H500), velmar.read_wind(WIND)

        def some_of_each(k):
            for width in range(10 * k + 2, 10 * k + 12):
                velmar.refine(np.ones((2, width)), 1, 1)
            velmar.read_contours(H500)
            velmar.find_centres(grid.values)
            velmar.shade(grid.values, [540], strip_rows=0)
            velmar.streamlines(wind.u, wind.v, *wind.place)
            velmar.vorticity(wind.u, wind.v, *wind.place)
            velmar.pull_inside(np.ones((10000, 2)), (0, 2, 0, 2))
            for failing in (WIND, "nowhere.000"):
                with self.assertRaises(velmar.VelmarFileError):
                    velmar.read_grid(failing)

        for k in range(20):
            some_of_each(k)
        before = resident_bytes()
        for k in range(20, 120):
            some_of_each(k)
        self.assertLess(resident_bytes() - before, 4e6)

    def test_calls_of_many_threads_do_not_meet(self):
        fine = velmar.refine(velmar.read_grid(H500).values, 3, 3)

        def points(k):
            if k % 2:
                return velmar.shade(fine, [520 + k], strip_rows=0).points
            return velmar.contour(fine, levels=[520 + k], refined=k % 4 == 0).points

        expected = [points(k) for k in range(6)]
        with concurrent.futures.ThreadPoolExecutor(4) as pool:
            for k, found in enumerate(pool.map(lambda k: points(k % 6), range(120))):
                self.assert_same(found, expected[k % 6])

    def test_arguments_without_sense_are_refused(self):
        for wrong in (lambda: velmar.contour(np.ones(4)), lambda: velmar.shade(np.ones((3, 3)), []),
                      lambda: velmar.clip([[1, 2, 3]], (0, 1, 0, 1)), lambda: velmar.nearest([1], [2, 3], [4]),
                      lambda: velmar.barnes([1], [1], [1], (0, 1.5, 0, 1), (2, 2)),
                      lambda: velmar.analyse_values(STATIONS, method="kriging"),
                      lambda: velmar.analyse_reports(STATIONS, (9, 8, 1, 2)),
                      lambda: velmar.contour_stations([1, 2], [1, 2], [1, 2], interval=1),
                      lambda: velmar.streamlines(np.ones((3, 3)), np.ones((3, 3)), 0, 0, -1, 1)):
            with self.assertRaises(ValueError):
                wrong()


class Texts(LibraryTest):
    def test_quiet_leaves_out_the_texts_of_its_calls_only(self):
        script = ("import velmar, sys\n"
                  "print('before')\n"
                  "with velmar.quiet(), velmar.quiet(): velmar.read_station_values(sys.argv[1])\n"
                  "print('between', flush=True)\n"
                  "velmar.read_station_values(sys.argv[1])\n")
        root = pathlib.Path(velmar.__file__).parents[1]
        library = os.environ.get("VELMAR_LIBRARY")
        settings = os.environ | {"PYTHONPATH": str(root)} | ({"VELMAR_LIBRARY": library} if library else {})
        output = subprocess.run([sys.executable, "-c", script, SAMPLES / "stations/summer_rain.000"], check=True,
                                capture_output=True, env=settings, cwd=START).stdout
        first, second, rest = output.split(b"\n", 2)
        self.assertEqual((first, second), (b"before", b"between"))
        self.assertIn(b"1720", rest)


#: Where a relative VELMAR_LIBRARY counts from.
START = os.getcwd()
