// Calls every family of the library on the sample files and checks what comes back.
// Usage: Host SAMPLES-DIRECTORY
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;
using System.Threading.Tasks;
using Velmar;

internal static class Host
{
    private static string samples;
    private static int failures;

    private static int Main(string[] arguments)
    {
        if (arguments.Length != 1)
        {
            Console.Error.WriteLine("usage: Host SAMPLES-DIRECTORY");
            return 2;
        }
        samples = arguments[0];
        Action[] families = { Probes, Texts, Grids, ContourLines, ContourScale, StationLines, Shades, Images, Polygons,
                              Analyses, Winds, StreamlineFields, Stations, Maps, Soundings, Rain, RegionTable, Sphere,
                              RawRest, Failures, Threads };
        foreach (Action family in families) Run(family);
        Console.Error.WriteLine(failures == 0 ? families.Length + " families passed" : failures + " checks failed");
        return failures == 0 ? 0 : 1;
    }

    private static void Run(Action family)
    {
        try
        {
            family();
        }
        catch (Exception error)
        {
            Check(false, family.Method.Name + ": " + error);
        }
    }

    private static void Check(bool holds, string what)
    {
        if (holds) return;
        ++failures;
        Console.Error.WriteLine("FAILED " + what);
    }

    private static void Equal<T>(T expected, T got, string what)
    {
        Check(Equals(expected, got), what + ": expected " + expected + ", got " + got);
    }

    private static void Near(double expected, double got, double tolerance, string what)
    {
        Check(Math.Abs(expected - got) <= tolerance, what + ": expected " + expected + ", got " + got);
    }

    private static void Fails(int code, string file, Action call, string what, string words = "")
    {
        try
        {
            call();
            Check(false, what + ": no failure");
        }
        catch (VelmarException error)
        {
            Equal(code, error.Code, what + ", code");
            Equal(file, error.File, what + ", file");
            Check(file == null || error.Message.Contains(file + ": " + words), what + ": " + error.Message);
        }
    }

    private static string Sample(string name) { return Path.Combine(samples, name); }

    /// <summary>A grid of 4 by 3 points whose values are their columns. Columns are 1 degree apart, rows
    /// 2 degrees.</summary>
    private static Grid Ramp()
    {
        var values = new float[] { 0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3 };
        return new Grid(4, 3, new Lattice(100, 20, 1, 2), values, 9999);
    }

    private static void Probes()
    {
        Marshal.PrelinkAll(typeof(VelmarNative));
        Equal(53, typeof(VelmarNative).GetMethods().Count(m => m.IsStatic), "declared exports");
        int sum;
        Equal(5, VelmarNative.mySum(2, 3, out sum), "mySum");
        Equal(5, sum, "mySum, sum");
        var values = new[] { 1, 2, 3 };
        Equal(6, VelmarNative.TestArrayOfInts(values, 3), "TestArrayOfInts");
        Equal(103, values[2], "TestArrayOfInts writes back");

        var five = new[] { 1, 2, 3, 4, 5 };
        int count = 5;
        IntPtr array = Marshal.AllocCoTaskMem(sizeof(int) * count);
        Marshal.Copy(five, 0, array, count);
        Equal(15, VelmarNative.TestRefArrayOfInts(ref array, ref count), "TestRefArrayOfInts");
        Marshal.Copy(array, five, 0, count);
        Marshal.FreeCoTaskMem(array);
        Check(count == 5 && five.SequenceEqual(new[] { 101, 102, 103, 104, 105 }), "TestRefArrayOfInts, array");
    }

    private static void Texts()
    {
        Check(NativeText.Path("é.000").SequenceEqual(new byte[] { 0xC3, 0xA9, 0x2E, 0x30, 0x30, 0x30, 0 }), "a path");
        string copy = Path.Combine(Directory.GetCurrentDirectory(), "高度.000");
        File.Copy(Sample("grids/rh700_asia.000"), copy, true);
        Equal(37, Grid.Read(copy).Columns, "a path beyond ASCII");
        try
        {
            NativeText.Path("a\0b");
            Check(false, "a path with a NUL is refused");
        }
        catch (ArgumentException)
        {
        }
    }

    private static void Grids()
    {
        Grid grid = Grid.Read(Sample("grids/h500_global.000"));
        Check(grid.Columns == 144 && grid.Rows == 73 && grid.Values.Length == 144 * 73, "size of the grid");
        Near(-2.5, grid.Lattice.LatitudeStep, 0, "latitude step");
        Check(grid.Values.Min() > 450 && grid.Values.Max() < 620, "heights of 500 hPa in decametres");
        Check(grid.Hints.Interval == 4 && grid.Hints.BoldValue == 588, "hints of the header");

        Grid fine = Ramp().Refine(2, 3);
        Check(fine.Columns == 7 && fine.Rows == 7 && fine[1, 4] == 0.5f && fine[6, 0] == 3, "a refined grid");
        Check(fine.Lattice.LongitudeStep == 0.5f && fine.Lattice.LatitudeStep == 2f / 3, "its steps");

        Grid pressure = Grid.Read(Sample("grids/mslp_global.000"));
        Centre[] centres = Centre.Find(pressure);
        Check(centres.Any(c => c.IsHigh) && centres.Any(c => !c.IsHigh), "highs and lows");
        Check(centres.All(c => c.Steps > 0 && c.Value == pressure[(int)(c.Position.Longitude / 2.5f),
                                                                  (int)((90 - c.Position.Latitude) / 2.5f)]),
              "pressures of centres");
    }

    private static void ContourLines()
    {
        string path = Sample("grids/h500_global.000");
        Contours file = Contours.OfFile(path, Levels.FromHeader);
        Contours drawn = Contours.Draw(file.Grid, Levels.Range(file.Lines[0].Level, 1000, 4));
        Equal(145, file.Grid.Columns, "columns of a closed grid");
        Equal(588f, file.BoldValue, "bold value");
        Equal(file.Lines.Length, drawn.Lines.Length, "lines from the file and from its grid");
        Check(file.Lines.Zip(drawn.Lines, (a, b) => a.Level == b.Level && a.Points.SequenceEqual(b.Points)).All(x => x),
              "points from the file and from its grid");
        Check(Contours.OfFile(path, Levels.Of(500, 560)).Lines.Select(l => l.Level).Distinct()
                  .SequenceEqual(new[] { 500f, 560f }), "listed levels");
        Check(Contours.OfFile(path, Levels.Automatic(10)).Lines.Length > 10, "automatic levels");
        Fails(0, null, () => Contours.Draw(new Grid(4, 3, new Lattice(), null, 9999), Levels.Of(1)), "no values");
    }

    private static void ContourScale()
    {
        // A grid of 4 columns is refined 4 times, and the next raw drawing has that in its positions.
        ContourLine line = Contours.Draw(Ramp(), Levels.Of(1.5f)).Lines.Single();
        Check(line.Points.All(p => Math.Abs(p.Longitude - 101.5f) < 1e-4f), "a line at 101.5 E");
        Near(24, line.Points.Max(p => p.Latitude), 1e-4, "its northern end");
        Contours raw = Contours.DrawRaw(Ramp(), Levels.Of(1.5f));
        Check(raw.Lines.Single().Points.All(p => Math.Abs(p.Longitude - 100.375f) < 1e-4f), "a raw line");
    }

    private static void StationLines()
    {
        StationValues rain = StationValues.Read(Sample("stations/summer_rain.000"));
        float[] longitudes = rain.Stations.Select(s => s.Position.Longitude).ToArray();
        float[] latitudes = rain.Stations.Select(s => s.Position.Latitude).ToArray();
        float[] values = rain.Stations.Select(s => s.Values[0]).ToArray();
        float[] before = (float[])values.Clone();
        ContourLine[] lines = StationContours.At(longitudes, latitudes, values, 200, 300);
        Check(lines.Length > 2 && lines.All(l => l.Level == 200 || l.Level == 300), "lines of stations");
        Check(lines.All(l => l.Points.Length > 0 && l.Points.All(p => p.Latitude >= latitudes.Min() &&
                                                                           p.Latitude <= latitudes.Max())),
              "lines lie among the stations");
        Check(values.SequenceEqual(before), "values of the caller stay");
        Check(StationContours.Multiples(longitudes, latitudes, values, 100).Length > 4, "multiples");
        Check(StationContours.From(longitudes, latitudes, values, 100, 150).Length > 2, "from a start");
        Equal(0, StationContours.At(longitudes, latitudes, values, 1e6f).Length, "lines far above");
    }

    private static void Shades()
    {
        string path = Sample("grids/t850_global_s2n.000");
        ShadedPolygon[] polygons = Shading.FillFile(path, 1);
        Check(polygons.Length > 100 && polygons.All(p => p.Colour >= 0 && p.Colour <= 99), "polygons of a file");
        Check(polygons.All(p => p.Points.All(q => Math.Abs(q.Latitude) <= 90)), "polygons lie on the globe");

        var colours = new[] { 7, 8 };
        ShadedPolygon[] bands = Shading.Fill(Ramp(), new[] { 0.5f, 1.5f }, colours, 0);
        Check(bands.Length == 2 && bands[0].Colour == 7 && bands[1].Level == 1.5f, "two bands");
        Near(101.5, bands[1].Points.Min(p => p.Longitude), 1e-4, "where the second band begins");
        Near(24, bands[1].Points.Max(p => p.Latitude), 1e-4, "where it ends in the north");
        Equal(0, Shading.Fill(Ramp(), new[] { 50f }, new[] { 1 }, 0).Length, "nothing to fill");
        Check(Shading.FillClasses(Ramp(), 4, 0).Any(p => p.Colour == 2), "classes");
        ShadedPolygon[] uneven = Shading.FillUneven(Ramp(), new[] { 0.5f, 1.5f }, colours, 0,
                                                    new float[] { 10, 1, 2, 4, 1 }, new float[] { 50, 1, 1, 1 });
        Near(12, uneven[1].Points.Min(p => p.Longitude), 1e-4, "uneven columns");
    }

    private static void Images()
    {
        string path = Sample("images/cloud_total_global.img");
        ShadedPolygon[] overcast = Shading.FillImage(path, 1, 200);
        Check(overcast.Length > 10 && overcast.All(p => p.Colour == 0 && p.Level == 200), "one level of an image");
        Check(Shading.FillImage(path, 0).Any(p => p.Colour == 99), "all levels of an image");
    }

    private static void Polygons()
    {
        var low = new Position(0, 0);
        var high = new Position(2, 2);
        var triangle = new[] { new Position(-1, 1), new Position(3, 1), new Position(1, 5) };
        Position[] clipped = PolygonTools.Clip(triangle, low, new Position(2, 4));
        Check(clipped.Min(p => p.Longitude) == 0 && clipped.Max(p => p.Longitude) == 2 &&
              clipped.Min(p => p.Latitude) == 1 && clipped.Max(p => p.Latitude) == 4, "a clipped triangle");
        Equal(0, PolygonTools.Clip(triangle, new Position(9, 9), new Position(10, 10)).Length, "nothing is left");
        Equal(4, PolygonTools.ClipByEdge(triangle, new Position(2, 0), new Position(2, 2)).Length, "one edge");
        Equal(4, VelmarNative.SHClipPntNum(), "points of the last edge");

        // From 10 points on the outline is a block of its own.
        Func<double, float> stretch = x => (float)(1 + 2 * x);
        Position[] many = Enumerable.Range(0, 24).Select(k => k * Math.PI / 12)
            .Select(angle => new Position(stretch(Math.Cos(angle)), stretch(Math.Sin(angle)))).ToArray();
        foreach (Position[] polygon in new[] { triangle, many })
        {
            Position[] pulled = PolygonTools.PullInto(polygon, low, high);
            Check(pulled.Length >= polygon.Length, "points are kept");
            Check(pulled.All(p => p.Longitude >= 0 && p.Longitude <= 2), "inside along x");
            Check(pulled.All(p => p.Latitude >= 0 && p.Latitude <= 2), "inside along y");
        }
        Equal(0, PolygonTools.PullInto(new[] { low, high }, low, high).Length, "too few points to pull");
    }

    private static void Analyses()
    {
        var longitudes = new float[] { 100, 102, 104, 101, 103 };
        var latitudes = new float[] { 30, 31, 30, 33, 34 };
        var values = new float[] { 1, 2, 3, 4, 5 };
        var bounds = new Bounds(100, 104, 30, 34);
        Grid barnes = Analysis.Barnes(longitudes, latitudes, values, bounds, 5, 5, 0.25f, 20, 0.3f, 0);
        Check(barnes[2, 1] == 2 && barnes[1, 3] == 4 && barnes.Lattice.LongitudeStep == 1, "Barnes keeps stations");
        Grid cressman = Analysis.Cressman(longitudes, latitudes, values, bounds, 9, 9, 0, 5, 3, 2);
        Check(cressman.Values.Length == 81 && cressman.Lattice.LatitudeStep == 0.5f, "size of a Cressman analysis");
        Check(cressman.Values.Any(v => v > 0 && v < 20), "values of a Cressman analysis");
        Near(2, cressman[4, 2], 0.5, "at a station");
        Grid nearest = Analysis.Nearest(longitudes, latitudes, values, bounds, 1, 0.5f, 1);
        Check(nearest.Columns == 5 && nearest.Rows == 9, "size of the field");
        Check(nearest[2, 2] == 2 && nearest[3, 8] == -1, "nearest, but never the last station");

        var states = new Bounds(-126, -66, 24, 50);
        string rainFile = Sample("stations/summer_rain.000");
        StationAnalysis rain = StationAnalysis.OfFile(rainFile, 1, Bounds.OfStations, 1, 1, 0);
        Check(rain.Stations.Length == 1720 && rain.ContourLevels.Length == 8, "stations of the rain");
        Station first = StationValues.Read(rainFile).Stations[0], used = rain.Stations[0];
        Check(used.Number == first.Number && used.Position.Equals(first.Position) && used.Height == first.Height &&
              used.Values[0] == first.Values[0], "the first of them");
        Equal(rain.Grid.Columns * rain.Grid.Rows, rain.Grid.Values.Length, "grid of the rain");
        StationAnalysis warm = StationAnalysis.OfFile(Sample("stations/temp_95031808.000"), 1, states, 1, 0.5f, 0);
        Check(warm.Grid.Columns == 61 && warm.Grid.Rows == 53, "size of the temperature");
        Near(11, warm.Grid[30, 26], 30, "a temperature");

        var america = new Bounds(230, 295, 24, 50);
        Grid marked = Analysis.MarkReports(Sample("stations/sfc_95031820.000"), 1, america, 1, 0.5f, 1);
        Check(marked.Columns == 66 && marked.Rows == 53, "size of the marked field");
        Check(marked.Values.Distinct().OrderBy(v => v).SequenceEqual(new float[] { -1, 1 }), "marked here and there");
    }

    private static void Winds()
    {
        WindField wind = WindField.Read(Sample("winds/wind850_namerica.000"));
        Check(wind.Eastward.Columns == 29 && wind.Eastward.Rows == 19, "size of the wind");
        Check(wind.Eastward.Lattice.LatitudeStep == 2.5f && wind.Level == 850, "rows run north");
        Check(wind.Northward.Values.All(v => Math.Abs(v) < 100), "wind speeds");

        // Both components grow eastward, u twice as fast as v.
        File.WriteAllText("shear.000", "diamond 11 SHEAR 2011 10 8 0 0 500 1 1 10 12 -1 1 3 3 " +
                          "0 2 4 0 2 4 0 2 4  0 1 2 0 1 2 0 1 2", Encoding.ASCII);
        WindField shear = WindField.Read("shear.000");
        double perDegree = 180 / (3.1416 * 6370e3);
        Near(perDegree, shear.Vorticity()[1, 1], 1e-10, "vorticity");
        Near(2 * perDegree, shear.Divergence()[1, 1], 1e-10, "divergence");
        Equal(9999f, shear.Vorticity()[0, 1], "vorticity on the edge");
    }

    private static void StreamlineFields()
    {
        string path = Sample("winds/wind850_asia_s2n.000");
        Streamlines file = Streamlines.OfFile(path, 5);
        Check(file.Lines.Length > 50 && file.Arrows.Length > 10, "streamlines and arrows");
        Check(file.Lines.All(l => l.Points.All(p => p.Longitude > 57.5 && p.Longitude < 152.5)), "in the field");
        Check(file.Lines.All(l => Gaps(l.Points).All(g => g < 2.5)), "points of a line are neighbours");
        Check(file.Field.Columns == 37 && file.Field.Lattice.StartLongitude == 60, "place of the field");

        // Another wind file moves the place that the library remembers.
        Streamlines.OfFile(Sample("winds/wind850_namerica.000"), 5);
        WindField wind = WindField.Read(path);
        Streamlines drawn = Streamlines.Draw(path, wind.Eastward, wind.Northward, null, null, null, 5);
        Check(drawn.Lines.All(l => l.Colours.Skip(1).All(c => c == 1)), "one colour");
        Check(file.Lines.Zip(drawn.Lines, (a, b) => a.Points.SequenceEqual(b.Points)).All(x => x), "the same lines");
        Streamlines coloured = Streamlines.Draw(path, wind.Eastward, wind.Northward, wind.Northward,
                                                new float[] { -99, 0 }, new[] { 3, 4 }, 5);
        int[] arrowColours = coloured.Arrows.Select(a => a.Colour).Distinct().OrderBy(c => c).ToArray();
        Check(arrowColours.SequenceEqual(new[] { 3, 4 }), "colours");
    }

    private static IEnumerable<float> Gaps(Position[] points)
    {
        return points.Zip(points.Skip(1), (a, b) => Math.Max(Math.Abs(a.Longitude - b.Longitude),
                                                             Math.Abs(a.Latitude - b.Latitude)));
    }

    private static void Stations()
    {
        StationRecords surface = StationRecords.ReadSurface(Sample("stations/sfc_95031820.000"));
        Check(surface.Count == 1067 && surface.Header[1] == 3 && surface[0, 24] == 9999, "surface reports");
        Check(surface[1066, 1] > 180 && surface[1066, 25] == 9999, "the last surface report");
        StationRecords upper = StationRecords.ReadUpperAir(Sample("stations/upper500_cities.000"));
        Check(upper.Count == 202 && upper.Header[4] == 500 && upper[201, 5] > 450, "upper-air reports");
        StationRecords forecasts = StationRecords.ReadForecasts(Sample("stations/forecast_capitals.000"));
        Check(forecasts.Count == 50 && forecasts[49, 1] == -104.82f, "forecasts");
        StationRecords list = StationRecords.ReadList(Sample("stations/heights_north.000"));
        Check(list.Count == 89 && list[0, 0] == 6894 && list[0, 3] == 12, "a station list");
        StationValues three = StationValues.Read(Sample("stations/three_values_95031902.000"));
        Check(three.Stations.Length == 176 && three.Stations[175].Values.Length == 3, "three values a station");
        Equal(158, StationValues.Read(Sample("stations/temp_95031808.000")).Boundary.Length, "points of the boundary");
    }

    private static void Maps()
    {
        Check(BoundaryLine.Read780(Sample("lines/madagascar.780")).Points.Length == 251, "type 780");
        BoundaryLine iceland = BoundaryLine.Read777(Sample("lines/iceland.777"));
        Check(iceland.Points.Length == 453 && iceland.Points[0].Equals(new Position(-15.543f, 66.229f)), "type 777");
        MapFile first = MapFile.Read(Sample("lines/map_world.009"));
        Check(first.Lines.Length == 595 && first.Lines.Sum(l => l.Points.Length) == 8246, "a map");
        Check(first.Lines.All(l => l.Attribute1 == 1 || l.Attribute1 == 2), "coasts and borders");
        MapFile second = MapFile.Read(Sample("lines/map_world.009"));
        Check(second.LineCount == 595 && second.Lines.Length == 0, "a later call hands out counts only");
    }

    private static void Soundings()
    {
        Equal(0, VelmarNative.readVelmarData5(NativeText.Path(Sample("soundings/sounding_march.000"))), "soundings");
    }

    private static void Rain()
    {
        Station[] days = Rainfall.Add(new DateTime(2012, 2, 25, 20, 0, 0), new DateTime(2012, 3, 3, 20, 0, 0),
                                      Sample("rain24h"), 24);
        float[] sums = Directory.GetFiles(Sample("rain24h")).SelectMany(f => StationValues.Read(f).Stations)
                           .GroupBy(s => s.Number).Select(g => g.Sum(s => s.Values[0])).ToArray();
        Station first = StationValues.Read(Sample("rain24h/12022620.000")).Stations[0];
        Check(days.Length == 2 && days[0].Number == first.Number && days[0].Position.Equals(first.Position) &&
              days[0].Height == first.Height, "stations of the rain");
        Near(sums.Sum(), days.Sum(s => s.Values[0]), 0.1, "total of seven days");
        Fails(0, Sample("rain24h"), () => Rainfall.Add(new DateTime(2013, 1, 1), new DateTime(2013, 1, 2),
                                                       Sample("rain24h"), 1), "no files");
    }

    private static void RegionTable()
    {
        Fails(0, null, () => Regions.AllBoundaries("Colorado"), "no regions are loaded yet");
        Check(Regions.Load(Sample("regions/us_states.dat")), "the regions are whole");
        Equal("Colorado", Regions.NameAt(new Position(255, 39.7f)), "the region of a place");
        Equal(null, Regions.NameAt(new Position(190, -50)), "a place at sea");
        Check(Regions.Boundary("Alabama").SequenceEqual(Regions.Boundary(0)), "a region by name and by order");
        Check(Regions.Boundary("Atlantis") == null && Regions.Boundary(117) == null, "no such region");
        Check(Regions.AllBoundaries("Hawaii").Length > 1, "several outlines of a name");
        string another = Sample("regions/africa_gbk.dat");
        Fails(-1, another, () => Regions.Load(another), "only one file is loaded");
    }

    private static void Sphere()
    {
        var quarter = new GreatCircle(new Position(20, 0), new Position(110, 0));
        Near(Math.PI / 2, quarter.Angle, 1e-5, "a quarter of the globe");
        Near(Math.PI / 2, quarter.Bearing, 1e-5, "due east");
        Near(6371.11 * Math.PI / 2, quarter.Distance, 0.1, "its distance");
    }

    /// <summary>Exports that have no typed form.</summary>
    private static void RawRest()
    {
        byte[] reports = NativeText.Path(Sample("stations/sfc_95031820.000"));
        var analysed = new float[66 * 27];
        using (var block = new VelmarBlock(VelmarNative.OAReadVelmar1(reports, 1, 2, 0, 230, 295, 24, 50, 1, 1, 0)))
        {
            Check(!block.IsInvalid, "OAReadVelmar1");
            Marshal.Copy(block.DangerousGetHandle(), analysed, 0, analysed.Length);
        }
        Grid written = Grid.Read("OAtestC.000");
        Check(written.Columns == 66 && written.Rows == 27, "the file of OAReadVelmar1");
        Check(written.Values.Zip(analysed, (a, b) => Math.Abs(a - b) < 0.006f).All(x => x), "its values");
        var field = new float[] { 7 };
        Equal(0, VelmarNative.ffhdiv(field, field, field, 1, 1, 0, 0, 0, 1, 1), "ffhdiv");
        Equal(0, VelmarNative.ffhvor(field, field, field, 1, 1, 0, 0, 0, 1, 1), "ffhvor");
        Equal(7f, field[0], "the field stays");
        VelmarNative.freecPointer(IntPtr.Zero);
        VelmarNative.cntrFreeLineVar(VelmarNative.readVelmar4(reports));
        VelmarNative.cntrShadFreeLineVar(VelmarNative.readVelmar4(reports));
        VelmarNative.deleteMap9Ptr(VelmarNative.readVelmar4(reports));
    }

    private static void Failures()
    {
        string none = Sample("none.000"), grid = Sample("grids/h500_global.000");
        Fails(-1, none, () => Grid.Read(none), "a grid that is not there");
        Fails(-1, none, () => Contours.OfFile(none, Levels.FromHeader), "its lines");
        Fails(-1, none, () => Shading.FillFile(none, 1), "its polygons");
        Fails(0, none, () => Shading.FillImage(none, 1), "an image that is not there");
        Fails(-1, none, () => WindField.Read(none), "a wind that is not there");
        Fails(0, none, () => StationRecords.ReadSurface(none), "reports that are not there");
        Fails(-3, grid, () => StationValues.Read(grid), "a file of another type", "is of another type");
        File.WriteAllText("cut.000", "diamond 4 CUT 2011 10 8 0 0 500 1 1 0 1 0 1 2 2 1 0 9 0 9 1 2 3", Encoding.ASCII);
        Fails(-7, "cut.000", () => Grid.Read("cut.000"), "a grid that is cut off", "lacks a value");
        Fails(0, null, () => Ramp().Refine(0, 1), "a factor below 1");
    }

    /// <summary>The typed layer holds the lock that the library itself lacks.</summary>
    private static void Threads()
    {
        string path = Sample("grids/h500_global.000"), windPath = Sample("winds/wind850_asia_s2n.000");
        int lines = Contours.OfFile(path, Levels.FromHeader).Lines.Length;
        int streamlines = Streamlines.OfFile(windPath, 5).Lines.Length;
        int odd = 0;
        Parallel.For(0, 40, k =>
        {
            bool same = k % 2 == 0 ? Contours.OfFile(path, Levels.FromHeader).Lines.Length == lines
                                   : Streamlines.OfFile(windPath, 5).Lines.Length == streamlines;
            if (!same) Interlocked.Increment(ref odd);
        });
        Equal(0, odd, "results that depend on other threads");
    }
}
