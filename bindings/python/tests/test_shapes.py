import numpy as np

import velmar
from .support import SAMPLES, LibraryTest, sample_numbers

TRIANGLE = [[0, 0], [4, 0], [2, 5]]


class PolygonTools(LibraryTest):
    def test_a_clipped_polygon_has_the_area_inside(self):
        clipped = velmar.clip(TRIANGLE, (1, 3, 1, 3))
        x, y = clipped.T
        self.assertAlmostEqual(np.sum(x * np.roll(y, -1) - y * np.roll(x, -1)) / 2, 3.9, places=5)
        self.assertEqual(velmar.clip(TRIANGLE, (8, 9, 8, 9)).shape, (0, 2))
        np.testing.assert_allclose(velmar.clip_edge(TRIANGLE, (0, 1), (9, 1)), [[0.4, 1], [3.6, 1], [2, 5]])

    def test_small_and_large_polygons_are_pulled_inside(self):
        self.assert_same(velmar.pull_inside(TRIANGLE, (0, 4, 0, 5)), TRIANGLE)
        angle = np.linspace(0, 2 * np.pi, 50)
        pulled = velmar.pull_inside(np.column_stack([3 * np.cos(angle), np.sin(angle)]), (-2, 2, -2, 2))
        self.assertEqual((pulled.min(0).round(2).tolist(), pulled.max(0).round(2).tolist()), ([-2, -1], [2, 1]))
        with self.assertRaises(ValueError):
            velmar.pull_inside(TRIANGLE[:2], (0, 1, 0, 1))


class Geometry(LibraryTest):
    def test_lines_over_triangles_lie_on_their_level(self):
        x, y = (np.append(c, c + 0.5) for c in np.meshgrid(np.arange(0, 40, 5.0), np.arange(0, 30, 5.0)))
        x, y = x.astype(np.float32), y.astype(np.float32)
        values = x + y
        before = values.copy()
        lines = velmar.contour_stations(x, y, values, levels=[21.3, 33.4])
        np.testing.assert_allclose(lines.points.sum(1), np.repeat(lines.levels, np.diff(lines.offsets)), atol=1e-3)
        self.assert_same(np.unique(lines.levels), [21.3, 33.4])
        self.assert_same(values, before)
        self.assertEqual(len(velmar.contour_stations(x, y, values, levels=[1000])), 0)
        self.assertEqual(set(velmar.contour_stations(x, y, values, interval=10.5).levels % 10.5), {0})

    def test_a_quarter_of_the_globe(self):
        way = velmar.great_circle(0, 0, 90, 0)
        np.testing.assert_allclose(way, [np.pi / 2, np.pi / 2, np.pi / 2 * 6371.11], rtol=1e-5)


class MapsAndRegions(LibraryTest):
    """One map and one file of regions can be read in a process."""

    def test_a_boundary(self):
        for name, words in (("iceland.777", 11), ("srilanka.778", 11), ("madagascar.780", 8)):
            boundary = velmar.read_boundary(SAMPLES / "lines" / name)
            self.assertEqual(boundary.header, (2011, 10, 8, 0))
            self.assert_same(boundary.points, sample_numbers(f"lines/{name}", words).reshape(-1, 2))

    def test_the_map(self):
        with self.assertRaisesRegex(velmar.VelmarFileError, "keyword March"):
            velmar.read_map(SAMPLES / "lines/map_africa.009")
        world = velmar.read_map(SAMPLES / "lines/map_world.009")
        self.assertEqual((len(world), world.offsets[-1]), (595, len(world.points)))
        np.testing.assert_allclose(world[0][0], [178.12, -17.51], rtol=1e-6)
        self.assertEqual(set(map(tuple, world.attributes)), {(1, 4), (2, 7)})
        self.assertIs(velmar.read_map(SAMPLES / "lines/map_world.009"), world)
        with self.assertRaisesRegex(velmar.VelmarError, "one map"):
            velmar.read_map(SAMPLES / "lines/iceland.777")

    def test_the_regions(self):
        self.assertTrue(velmar.load_regions(SAMPLES / "regions/us_states.dat"))
        self.assertEqual(velmar.region_at(255.01, 39.74), "Colorado")
        self.assertIsNone(velmar.region_at(0, 0))
        self.assert_same(velmar.region_boundary(0), velmar.region_boundary("Alabama"))
        self.assertEqual(velmar.region_boundary(0).shape, (112, 2))
        outlines = velmar.region_boundaries("Michigan")
        self.assert_same(outlines[0], velmar.region_boundary("Michigan"))
        for wrong in ("Atlantis", 1000, -1):
            with self.assertRaises(LookupError):
                velmar.region_boundary(wrong)
        with self.assertRaises(LookupError):
            velmar.region_boundaries("Atlantis")
        with self.assertRaises(velmar.VelmarError):
            velmar.load_regions(SAMPLES / "regions/us_states.dat")
