using System;

namespace Velmar
{
    /// <summary>A wind field; rows run from south to north.</summary>
    public sealed class WindField
    {
        private WindField(BlockCursor cursor)
        {
            cursor.Skip(1);
            Year = cursor.NextInt();
            Month = cursor.NextInt();
            Day = cursor.NextInt();
            Hour = cursor.NextInt();
            ForecastHours = cursor.NextInt();
            Level = cursor.NextInt();
            float longitudeStep = cursor.Next(), latitudeStep = cursor.Next(), startLongitude = cursor.Next();
            cursor.Skip(1);
            float startLatitude = cursor.Next();
            cursor.Skip(1);
            int columns = cursor.NextInt(), rows = cursor.NextInt(), size = Grid.Size(columns, rows);
            var lattice = new Lattice(startLongitude, startLatitude, longitudeStep, latitudeStep);
            Eastward = new Grid(columns, rows, lattice, cursor.Floats(size), Grid.FileMissing);
            Northward = Eastward.With(cursor.Floats(size));
        }

        /// <summary>Time of the analysis, or the start of the forecast, as the file has it.</summary>
        public int Year { get; private set; }

        /// <summary>Month.</summary>
        public int Month { get; private set; }

        /// <summary>Day.</summary>
        public int Day { get; private set; }

        /// <summary>Hour.</summary>
        public int Hour { get; private set; }

        /// <summary>Hours after that time.</summary>
        public int ForecastHours { get; private set; }

        /// <summary>Pressure level, hPa.</summary>
        public int Level { get; private set; }

        /// <summary>Eastward wind, m/s.</summary>
        public Grid Eastward { get; private set; }

        /// <summary>Northward wind, m/s.</summary>
        public Grid Northward { get; private set; }

        /// <summary>Reads a wind file (type 11).</summary>
        /// <exception cref="VelmarException">the file cannot be read; codes -1 to -8</exception>
        public static WindField Read(string path)
        {
            using (VelmarBlock block = NativeCall.Read("readVelmarData11", path, ErrorWords.Wind,
                       VelmarNative.readVelmarData11))
                return new WindField(block.Cursor());
        }

        /// <summary>Divergence, 1/s; missing on the edges.</summary>
        public Grid Divergence() { return Differences("hdiv", VelmarNative.hdiv, Eastward, Northward); }

        /// <summary>Relative vorticity, 1/s; missing on the edges.</summary>
        public Grid Vorticity() { return Differences("hvor", VelmarNative.hvor, Northward, Eastward); }

        private delegate IntPtr Routine(float[] p, float[] q, int nx, int ny, float missing, float startLon,
                                        float startLat, float lonStep, float latStep);

        private static Grid Differences(string function, Routine routine, Grid p, Grid q)
        {
            Lattice at = p.Lattice;
            using (VelmarBlock block = NativeCall.Make(function, () => routine(p.Values, q.Values, p.Columns, p.Rows,
                       p.Missing, at.StartLongitude, at.StartLatitude, at.LongitudeStep, at.LatitudeStep)))
                return p.With(block.Cursor().Floats(p.Values.Length));
        }
    }
}
