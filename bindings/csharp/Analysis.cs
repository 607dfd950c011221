using System;

namespace Velmar
{
    /// <summary>Bounds of a grid to be made, degrees.</summary>
    public sealed class Bounds
    {
        /// <summary>Longitude of the first column.</summary>
        public readonly float StartLongitude;

        /// <summary>Longitude of the last column.</summary>
        public readonly float EndLongitude;

        /// <summary>Latitude of the first row.</summary>
        public readonly float StartLatitude;

        /// <summary>Latitude of the last row.</summary>
        public readonly float EndLatitude;

        /// <summary>Makes bounds.</summary>
        public Bounds(float startLongitude, float endLongitude, float startLatitude, float endLatitude)
        {
            StartLongitude = startLongitude;
            EndLongitude = endLongitude;
            StartLatitude = startLatitude;
            EndLatitude = endLatitude;
        }

        /// <summary>Those of all stations, a degree wider on each side, within 0 to 360 and -90 to 90.</summary>
        public static readonly Bounds OfStations = new Bounds(0, 0, 0, 0);

        internal int Automatic { get { return this == OfStations ? 1 : 0; } }

        internal Lattice Lattice(int columns, int rows)
        {
            return new Lattice(StartLongitude, StartLatitude, Step(StartLongitude, EndLongitude, columns),
                               Step(StartLatitude, EndLatitude, rows));
        }

        private static float Step(float start, float end, int points)
        {
            return points > 1 ? (end - start) / (points - 1) : 0;
        }
    }

    /// <summary>Spreads values of stations onto grids.</summary>
    public static class Analysis
    {
        /// <summary>What a point is when no station reaches it in a masked or a Cressman analysis.</summary>
        public const float Unreached = -9999;

        /// <summary>Gaussian weights, after Barnes (1964). The first station takes no part in the first
        /// guess.</summary>
        /// <param name="longitudes">of the stations, degrees</param>
        /// <param name="latitudes">of the stations, degrees</param>
        /// <param name="values">of the stations</param>
        /// <param name="bounds">of the grid, whole degrees</param>
        /// <param name="columns">number of columns, end bounds included</param>
        /// <param name="rows">number of rows</param>
        /// <param name="kappa">width of the first Gaussian exp(-d^2 / (4 kappa)), square degrees</param>
        /// <param name="radius">how far a station reaches in the first guess, degrees</param>
        /// <param name="gamma">convergence: the width of pass p is kappa * gamma^p</param>
        /// <param name="maskRadius">above 0: the grid is capped by the largest value of the stations so near, degrees,
        /// and <see cref="Unreached"/> where there is none</param>
        /// <exception cref="VelmarException">the grid is empty, or for lack of memory</exception>
        public static Grid Barnes(float[] longitudes, float[] latitudes, float[] values, Bounds bounds, int columns,
                                  int rows, float kappa, float radius, float gamma, float maskRadius)
        {
            Require.SameLength("values", longitudes, latitudes, values);
            int startLongitude = Whole(bounds.StartLongitude), endLongitude = Whole(bounds.EndLongitude);
            int startLatitude = Whole(bounds.StartLatitude), endLatitude = Whole(bounds.EndLatitude);
            return Bare(bounds, columns, rows, NativeCall.Make("barnes", () => VelmarNative.barnes(kappa, radius,
                gamma, columns, rows, startLongitude, endLongitude, startLatitude, endLatitude, values.Length,
                longitudes, latitudes, values, maskRadius)));
        }

        /// <summary>Successive corrections, after Cressman (1959).</summary>
        /// <param name="longitudes">of the stations, degrees</param>
        /// <param name="latitudes">of the stations, degrees</param>
        /// <param name="values">of the stations; -9999 is no value</param>
        /// <param name="bounds">of the grid</param>
        /// <param name="columns">number of columns, end bounds included</param>
        /// <param name="rows">number of rows</param>
        /// <param name="maskRadius">as for Barnes</param>
        /// <param name="radii">influence radii of the scans, grid lengths</param>
        /// <exception cref="VelmarException">the grid is empty, the values add up to exactly -9999, or for lack of
        /// memory</exception>
        public static Grid Cressman(float[] longitudes, float[] latitudes, float[] values, Bounds bounds, int columns,
                                    int rows, float maskRadius, params float[] radii)
        {
            Require.SameLength("values", longitudes, latitudes, values);
            return Bare(bounds, columns, rows, NativeCall.Make("cressman", () => VelmarNative.cressman(radii.Length,
                radii, columns, rows, bounds.StartLongitude, bounds.EndLongitude, bounds.StartLatitude,
                bounds.EndLatitude, values.Length, longitudes, latitudes, values, maskRadius)));
        }

        /// <summary>The value of the nearest station less than a radius away, -1 where there is none. Also written to
        /// OATQQ.000 in the current directory.</summary>
        /// <exception cref="VelmarException">for lack of memory</exception>
        public static Grid Nearest(float[] longitudes, float[] latitudes, float[] values, Bounds bounds,
                                   float longitudeStep, float latitudeStep, float radius)
        {
            Require.SameLength("values", longitudes, latitudes, values);
            using (VelmarBlock block = NativeCall.Make("TqqOA", () => VelmarNative.TqqOA(longitudes, latitudes, values,
                       values.Length, bounds.Automatic, bounds.StartLongitude, bounds.EndLongitude,
                       bounds.StartLatitude, bounds.EndLatitude, latitudeStep, longitudeStep, radius)))
                return Field(block);
        }

        /// <summary>Reads surface reports (type 1) and marks what lies near to a kind of them: 1 near to it, else
        /// -1. Also written to OAtestttq.000 in the current directory.</summary>
        /// <param name="path">the file</param>
        /// <param name="element">0: mist; 1: field 17 above 0</param>
        /// <param name="bounds">of the field</param>
        /// <param name="longitudeStep">distance of columns, degrees</param>
        /// <param name="latitudeStep">distance of rows, degrees</param>
        /// <param name="radius">degrees</param>
        /// <exception cref="VelmarException">the file cannot be read; codes -1 to -4</exception>
        public static Grid MarkReports(string path, int element, Bounds bounds, float longitudeStep,
                                       float latitudeStep, float radius)
        {
            using (VelmarBlock block = NativeCall.Read("ReadVelmar1Tqq", path, ErrorWords.Reports,
                       bytes => VelmarNative.ReadVelmar1Tqq(bytes, 0, element, bounds.Automatic, bounds.StartLongitude,
                           bounds.EndLongitude, bounds.StartLatitude, bounds.EndLatitude, latitudeStep, longitudeStep,
                           radius)))
                return Field(block);
        }

        private static int Whole(float degrees)
        {
            if (degrees != (int)degrees) throw new ArgumentException("not whole degrees", "bounds");
            return (int)degrees;
        }

        private static Grid Bare(Bounds bounds, int columns, int rows, VelmarBlock block)
        {
            using (block)
                return new Grid(columns, rows, bounds.Lattice(columns, rows),
                                block.Cursor().Floats(Grid.Size(columns, rows)), Unreached);
        }

        private static Grid Field(VelmarBlock block)
        {
            BlockCursor cursor = block.Cursor();
            cursor.Skip(1);
            Lattice lattice = cursor.NextLatticeByAxis();
            int columns = cursor.NextInt(), rows = cursor.NextInt();
            return new Grid(columns, rows, lattice, cursor.Floats(Grid.Size(columns, rows)), -1);
        }
    }
}
