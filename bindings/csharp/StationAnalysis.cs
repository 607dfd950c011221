namespace Velmar
{
    /// <summary>Station values of a file (type 3), analysed.</summary>
    public sealed class StationAnalysis
    {
        private const float Undefined = -1e20f;

        private StationAnalysis(BlockCursor cursor)
        {
            cursor.Skip(1);
            int stations = cursor.NextCount(), columns = cursor.NextInt(), rows = cursor.NextInt();
            Lattice lattice = cursor.NextLatticeByAxis();
            ContourLevels = cursor.Floats(cursor.NextCount());
            Stations = new Station[stations];
            for (int i = 0; i < stations; ++i)
            {
                int number = cursor.NextInt();
                float height = cursor.Next();
                Stations[i] = new Station(number, cursor.NextPosition(), height, cursor.Floats(1));
            }
            Grid = new Grid(columns, rows, lattice, cursor.Floats(Grid.Size(columns, rows)), Undefined);
        }

        /// <summary>The contour levels of the file.</summary>
        public float[] ContourLevels { get; private set; }

        /// <summary>The stations with a value; stations left out keep their places as zeros behind them.</summary>
        public Station[] Stations { get; private set; }

        /// <summary>The analysis.</summary>
        public Grid Grid { get; private set; }

        /// <summary>Reads and analyses a file of one value a station.</summary>
        /// <param name="path">the file</param>
        /// <param name="method">0: Cressman with scan radii of 25, 10, 5, 2 and 1 grid lengths; 1: Barnes with kappa
        /// 0.25, radius 10 and gamma 0.3, and bounds cut to whole degrees; above: undefined points; below: no
        /// grid</param>
        /// <param name="bounds">of the grid</param>
        /// <param name="longitudeStep">distance of columns, degrees</param>
        /// <param name="latitudeStep">distance of rows, degrees</param>
        /// <param name="maskRadius">as for <see cref="Analysis.Barnes"/></param>
        /// <exception cref="VelmarException">the file cannot be read; codes -1 to -9</exception>
        public static StationAnalysis OfFile(string path, int method, Bounds bounds, float longitudeStep,
                                             float latitudeStep, float maskRadius)
        {
            using (VelmarBlock block = NativeCall.Read("OAReadVelmar3", path, ErrorWords.StationValues,
                       bytes => VelmarNative.OAReadVelmar3(bytes, method, bounds.Automatic, bounds.StartLongitude,
                           bounds.EndLongitude, bounds.StartLatitude, bounds.EndLatitude, latitudeStep, longitudeStep,
                           maskRadius)))
                return new StationAnalysis(block.Cursor());
        }
    }
}
