import os

import numpy as np

import velmar
from .support import SAMPLES, LibraryTest, plain_block, plain_shapes, sample_numbers

H500 = SAMPLES / "grids/h500_global.000"
NO_LEVELS = np.empty(0, np.float32)


class Grids(LibraryTest):
    def test_a_grid_is_what_its_file_holds(self):
        grid = velmar.read_grid(H500)
        self.assert_same(grid.values, sample_numbers("grids/h500_global.000", 22).reshape(73, 144))
        self.assertEqual(grid.place, (0, 90, 2.5, -2.5))
        self.assertEqual((grid.start_level, grid.end_level, grid.interval, grid.bold_level), (476, 592, 4, 588))
        self.assertEqual((grid.longitudes[-1], grid.latitudes[-1]), (357.5, -90))
        self.assertEqual((grid.largest, grid.smallest), (grid.values.max(), grid.values.min()))

    def test_refining_keeps_the_values_of_the_grid(self):
        values = velmar.read_grid(H500).values
        fine = velmar.refine(values, 3, 2)
        self.assertEqual(fine.shape, (145, 430))
        self.assert_same(fine[::2, ::3], values)

    def test_masked_points_become_missing(self):
        values = np.ma.masked_greater(np.arange(12.0).reshape(3, 4), 10)
        self.assertEqual(velmar.refine(values, 1, 1)[2, 3], velmar.MISSING)


class Contours(LibraryTest):
    def test_lines_are_those_of_the_block(self):
        elements = plain_block("readCntrData", os.fsencode(H500), 0, 0, NO_LEVELS)
        lines = velmar.read_contours(H500)
        self.assertEqual(len(lines), elements[1])
        for k, (head, points) in enumerate(plain_shapes(elements, len(lines), 2, 3)):
            self.assertEqual(lines.levels[k], head[1])
            self.assert_same(lines[k], points)
        self.assertEqual(lines.offsets[-1], len(lines.points))
        self.assertEqual(len(list(lines)), len(lines))

    def test_levels_are_told_in_four_ways(self):
        grid = velmar.read_grid(H500)

        def levels(**arguments):
            return sorted(set(velmar.contour(grid.values, *grid.place, **arguments).levels))

        self.assertEqual(levels(levels=[520, 560]), [520, 560])
        self.assertEqual(levels(start=500, end=540, interval=20), [500, 520, 540])
        self.assertEqual(levels(count=6), levels(levels=np.arange(490, 600, 20)))
        self.assertEqual(sorted(set(velmar.read_contours(H500, levels=[520]).levels)), [520])
        for wrong in ({"levels": [1], "count": 3}, {"interval": 2}, {"start": 1, "end": 2}):
            with self.assertRaises(ValueError):
                levels(**wrong)

    def test_lines_that_are_not_refined_lie_on_the_sides_of_cells_whatever_came_before(self):
        small = np.add.outer(np.arange(4.0), np.arange(5.0))
        velmar.contour(small, count=3)
        line, = velmar.contour(small, 10, 20, 1, 2, levels=[2.5], refined=False)
        columns, rows = line[:, 0] - 10, (line[:, 1] - 20) / 2
        np.testing.assert_allclose(columns + rows, 2.5)
        self.assertEqual(line[:, 0].max(), 12.5)

    def test_centres_are_columns_of_the_block(self):
        grid = velmar.read_grid(H500)
        arguments = (grid.values, 9999, 144, 73, 0, *grid.place)
        count = int(plain_block("findCenters", *arguments, length=1)[0])
        rows = plain_block("findCenters", *arguments, length=7 * count + 1)[1:].reshape(count, 7)
        centres = velmar.find_centres(grid.values, *grid.place)
        self.assert_same(centres.is_high, rows[:, 0] == 1)
        for k, column in enumerate((centres.longitudes, centres.latitudes, centres.values, centres.strengths,
                                    centres.steps, centres.classes)):
            self.assert_same(column, rows[:, k + 1])
        lone = velmar.find_centres(np.pad([[1.0]], 2))
        self.assertEqual((len(lone), lone.values[0], lone.is_high[0]), (1, 1, True))


class Shading(LibraryTest):
    def test_polygons_are_those_of_the_block(self):
        elements = plain_block("readCntrShadData", os.fsencode(H500), 0, 0)
        polygons = velmar.read_shading(H500, strip_rows=0)
        self.assertEqual(len(polygons), elements[1])
        for k, (head, points) in enumerate(plain_shapes(elements, len(polygons), 2, 3)):
            self.assertEqual((polygons.levels[k], polygons.colours[k]), tuple(head[1:]))
            self.assert_same(polygons[k], points)

    def test_classes_and_tables_shade_as_levels_do(self):
        classes = (np.arange(60).reshape(6, 10) % 7 > 3).astype(int)
        by_level = velmar.shade(classes, [0, 1], missing=-1)
        self.assert_same(velmar.shade_classes(classes, 2, missing=-1).points, by_level.points)
        uneven = velmar.shade_uneven(classes, [0, 1], [5] + [2] * 10, np.append(0, np.ones(6)), missing=-1)
        np.testing.assert_allclose(uneven.points, by_level.points * [2, 1] + [5, 0], rtol=1e-6)

    def test_nothing_above_the_levels_is_no_failure_but_a_broken_trace_is(self):
        grid = velmar.read_grid(H500)
        self.assertEqual(len(velmar.shade(grid.values, [5000])), 0)
        self.assertEqual(len(velmar.read_image_shading(SAMPLES / "images/cloud_total_global.img", 300)), 0)
        with self.assertRaisesRegex(velmar.VelmarError, "cannot be shaded"):
            velmar.shade(np.ones((2, 9)), [0])

    def test_a_byte_image_has_its_value_in_the_polygons(self):
        polygons = velmar.read_image_shading(SAMPLES / "images/cloud_total_global.img", strip_rows=0)
        self.assertEqual((polygons.colours.min(), polygons.colours.max()), (0, 99))
        self.assertGreater(len(polygons), len(velmar.read_image_shading(SAMPLES / "images/cloud_total_global.img", 100,
                                                                        strip_rows=0)))
