from datetime import datetime

import numpy as np

import velmar
from .support import SAMPLES, LibraryTest, sample_numbers

STATIONS = SAMPLES / "stations"


class StationFiles(LibraryTest):
    def test_records_are_those_of_the_file(self):
        for read, name, words, shape in (
                (velmar.read_upper_air_reports, "upper500_cities.000", 9, (202, 10)),
                (velmar.read_forecasts, "forecast_capitals.000", 9, (50, 12)),
                (velmar.read_station_list, "heights_north.000", 4, (89, 4))):
            with self.subTest(name):
                self.assert_same(read(STATIONS / name).records,
                                 sample_numbers(f"stations/{name}", words).reshape(shape))
        forecasts = velmar.read_forecasts(STATIONS / "forecast_capitals.000")
        self.assertEqual((forecasts.time, forecasts.extra), ((2011, 10, 8, 0), 72))
        self.assertEqual(velmar.read_station_list(STATIONS / "heights_north.000").time, ())

    def test_surface_reports_have_two_extra_values(self):
        plain = velmar.read_surface_reports(STATIONS / "sfc_95031820.000")
        self.assert_same(plain.records[:, :24],
                         sample_numbers("stations/sfc_95031820.000", 8).reshape(-1, 24))
        self.assertTrue((plain.records[:, 24:] == velmar.MISSING).all())
        extra = velmar.read_surface_reports(STATIONS / "sfc_extra_95031902.000").records
        self.assertTrue((extra[:, 24] != velmar.MISSING).any())

    def test_station_values_of_any_width(self):
        several = velmar.read_station_values(STATIONS / "three_values_95031902.000")
        table = sample_numbers("stations/three_values_95031902.000", -176 * 7).reshape(176, 7)
        self.assert_same(several.stations.numbers, table[:, 0])
        self.assert_same(several.stations.longitudes, table[:, 1])
        self.assert_same(several.stations.heights, table[:, 3])
        self.assert_same(several.stations.values, table[:, 4:])
        rain = velmar.read_station_values(STATIONS / "summer_rain.000")
        self.assertEqual((len(rain.stations), rain.time), (1720, (2010, 8, 31, 20)))
        self.assert_same(rain.contour_levels, [10, 25, 50, 100, 200, 300, 400, 500])

    def test_rain_adds_up_by_station(self):
        start, end = datetime(1995, 3, 18, 2), datetime(1995, 3, 18, 14)
        rain = velmar.add_rain(SAMPLES / "rain6h", start, end, 6)
        totals = {}
        for name in ("95031808.000", "95031814.000"):
            stations = velmar.read_station_values(SAMPLES / "rain6h" / name).stations
            for number, value in zip(stations.numbers, stations.values[:, 0]):
                if value != velmar.MISSING:
                    totals[number] = totals.get(number, 0) + value
        found = {n: v for n, v in zip(rain.numbers, rain.values) if n in totals}
        self.assertEqual(found.keys(), totals.keys())
        for number, total in totals.items():
            self.assertAlmostEqual(found[number], total, places=4)
        with self.assertRaisesRegex(velmar.VelmarError, "no rain from 1995"):
            velmar.add_rain(SAMPLES / "rain6h", end, start, 6)


class Analyses(LibraryTest):
    BOUNDS = (-110, -90, 30, 45)

    def test_files_and_their_arrays_give_one_field(self):
        for method, direct in (("barnes", lambda *lists: velmar.barnes(*lists, self.BOUNDS, (16, 21), radius=10)),
                               ("cressman", lambda *lists: velmar.cressman(*lists, self.BOUNDS, (16, 21)))):
            with self.subTest(method):
                file = velmar.analyse_values(STATIONS / "temp_95031808.000", self.BOUNDS, method=method)
                used = file.stations
                field = direct(used.longitudes, used.latitudes, used.values)
                self.assert_same(field.values, file.field.values)
                self.assertEqual(field.place, (-110, 30, 1, 1))
                self.assertEqual(file.field.place, field.place)
        self.assertIsNone(velmar.analyse_values(STATIONS / "temp_95031808.000", method=None).field)

    def test_a_report_analysis_is_the_grid_that_it_leaves_in_its_file(self):
        field = velmar.analyse_reports(STATIONS / "sfc_95031820.000", self.BOUNDS, element=1, longitude_step=0.7)
        written = velmar.read_grid("OAtestC.000")
        self.assertEqual(field.values.shape, (16, 29))
        np.testing.assert_allclose(field.values, written.values, atol=0.0051)

    def test_a_grid_that_begins_like_an_error_code_is_a_grid(self):
        report = "{} {} {} 0 1 " + "0 " * 7 + "-1 " + "0 " * 11
        rows = [report.format(k, 10 * k, k) for k in range(1, 5)]
        with open("calm.000", "w") as file:
            file.write("diamond 1 calm 2008 7 15 8 4\n" + "\n".join(rows))
        field = velmar.analyse_reports("calm.000", (9, 13, 1, 3), method="barnes")
        self.assert_same(field.values, np.full((3, 5), -1))

    def test_nearest_values(self):
        field = velmar.nearest([10, 14, 0], [50, 50, 0], [3, 8, 1], (9, 15, 49, 51), radius=1.2)
        self.assert_same(field.values[1], [3, 3, 3, -1, 8, 8, 8])
        self.assertEqual(field.place, (9, 49, 1, 1))
        marks = velmar.near_reports(STATIONS / "sfc_95031820.000", self.BOUNDS)
        self.assertEqual(marks.values.shape, (16, 21))
        self.assertEqual(set(marks.values.flat) - {-1, 1}, set())
