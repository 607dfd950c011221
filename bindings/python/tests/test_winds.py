import os

import numpy as np

import velmar
from .support import SAMPLES, LibraryTest, plain_block, sample_numbers

WIND = SAMPLES / "winds/wind850_namerica.000"


class Winds(LibraryTest):
    def test_rows_come_from_south_to_north(self):
        wind = velmar.read_wind(WIND)
        u, v = sample_numbers("winds/wind850_namerica.000", 17).reshape(2, 19, 29)
        self.assert_same(wind.u, u[::-1])
        self.assert_same(wind.v, v[::-1])
        self.assertEqual((wind.place, wind.time, wind.forecast_hour, wind.level),
                         ((-130, 15, 2.5, 2.5), (2011, 10, 8, 0), 72, 850))

    def test_solid_rotation_has_vorticity_and_no_divergence(self):
        latitude = np.radians(np.arange(20, 61, 2.5))
        u = np.repeat(30 * np.cos(latitude)[:, None], 12, axis=1)
        place = (0, 20, 2.5, 2.5)
        vorticity = velmar.vorticity(u, 0 * u, *place)[1:-1, 1:-1]
        np.testing.assert_allclose(vorticity, np.repeat(2 * 30 / 6.37e6 * np.sin(latitude[1:-1])[:, None], 10, axis=1),
                                   rtol=2e-3)
        self.assertLess(np.abs(velmar.divergence(u, 0 * u, *place)[1:-1, 1:-1]).max(), 1e-9)
        with self.assertRaises(ValueError):
            velmar.vorticity(u, u[1:], *place)


class Streamlines(LibraryTest):
    def test_parts_and_arrows_are_those_of_the_block(self):
        end = int(plain_block("readWindData", os.fsencode(WIND), 5, length=2)[1])
        elements = list(plain_block("readWindData", os.fsencode(WIND), 5, length=end))
        place, points, arrows = 2, [], []
        while place < end:
            width, rows = (6, arrows) if elements[place] == 2 else (4, points)
            rows.append(elements[place:place + width])
            place += width
        points, arrows = np.array(points), np.array(arrows)
        lines = velmar.read_streamlines(WIND)
        self.assert_same(lines.points, points[:, 1:3])
        self.assert_same(lines.colours[1:], points[1:, 3])
        self.assert_same(lines.offsets[:-1], np.flatnonzero(points[:, 0] == 0))
        self.assert_same(lines.arrows.reshape(-1, 4), arrows[:, 1:5])
        self.assert_same(lines.arrow_colours, arrows[:, 5])

    def test_arrays_give_the_lines_of_their_file_wherever_the_last_one_lay(self):
        wind, expected = velmar.read_wind(WIND), velmar.read_streamlines(WIND, 7)
        velmar.read_streamlines(SAMPLES / "winds/wind500_global.000")
        speeds = {"colour_by": wind.speed.values, "levels": np.arange(0, 80, 2)}
        lines = velmar.streamlines(wind.u, wind.v, *wind.place, density=7, **speeds)
        self.assert_same(lines.points, expected.points)
        self.assert_same(lines.colours[1:], expected.colours[1:])
        turned = velmar.streamlines(wind.u[::-1], wind.v[::-1], -130, 60, 2.5, -2.5, density=7)
        self.assert_same(turned.points, expected.points)
        self.assertEqual(set(turned.colours[1:]), {1})

    def test_results_whose_length_is_rounded_are_read_to_their_end(self):
        lines = velmar.read_streamlines(SAMPLES / "winds/wind10m_global_1deg.000", 14)
        self.assertGreater(4 * len(lines.points) + 6 * len(lines.arrows), 2 ** 24)
        for points in (lines.points, lines.arrows.reshape(-1, 2)):
            self.assertTrue(((points >= [-1, -91]) & (points <= [360, 91])).all())
        self.assertLess(np.abs(np.diff(lines.arrows, axis=1)).max(), 2)
        self.assertLessEqual(lines.arrow_colours.max(), 39)
