using System;

namespace Velmar
{
    /// <summary>Which levels contour lines are drawn at.</summary>
    public sealed class Levels
    {
        internal readonly int Mode, Count;
        internal readonly float Start, End, Interval;
        internal readonly float[] List;
        internal readonly bool OfHeader;

        private Levels(int mode, float start, float end, float interval, float[] list, int count, bool ofHeader)
        {
            Mode = mode;
            Start = start;
            End = end;
            Interval = interval;
            List = list;
            Count = count;
            OfHeader = ofHeader;
        }

        /// <summary>The levels that the header of a grid file names.</summary>
        public static readonly Levels FromHeader = new Levels(0, 0, 0, 0, null, 0, true);

        /// <summary>start + k * interval up to the end; an interval that is not above 0 gives the first only.</summary>
        public static Levels Range(float start, float end, float interval)
        {
            return new Levels(0, start, end, interval, null, 0, false);
        }

        /// <summary>Chosen from the data: about this many intervals, rounded to one digit.</summary>
        public static Levels Automatic(int intervals) { return new Levels(1, 0, 0, 0, null, intervals, false); }

        /// <summary>The levels of a list.</summary>
        public static Levels Of(params float[] levels)
        {
            return new Levels(2, 0, 0, 0, levels, levels.Length, false);
        }
    }

    /// <summary>A contour line.</summary>
    public sealed class ContourLine
    {
        internal ContourLine(float level, Position[] points)
        {
            Level = level;
            Points = points;
        }

        /// <summary>Its level.</summary>
        public float Level { get; private set; }

        /// <summary>Its points; a closed line repeats its first.</summary>
        public Position[] Points { get; private set; }
    }

    /// <summary>The contour lines of a grid, in the order of their levels.</summary>
    public sealed class Contours
    {
        private Contours(BlockCursor cursor, float missing)
        {
            cursor.Skip(1);
            Lines = new ContourLine[cursor.NextCount()];
            for (int i = 0; i < Lines.Length; ++i)
            {
                int points = cursor.NextCount();
                float level = cursor.Next();
                cursor.Skip(1);
                Lines[i] = new ContourLine(level, cursor.Positions(points));
            }
            cursor.Skip(1);
            int columns = cursor.NextInt(), rows = cursor.NextInt();
            Lattice lattice = cursor.NextLattice();
            Grid = new Grid(columns, rows, lattice, cursor.Floats(Grid.Size(columns, rows)), missing);
            BoldValue = cursor.Next();
        }

        /// <summary>The lines.</summary>
        public ContourLine[] Lines { get; private set; }

        /// <summary>The grid that was contoured; one that circles the globe was closed when it came from a
        /// file.</summary>
        public Grid Grid { get; private set; }

        /// <summary>The level to be drawn bold, of the last grid file read.</summary>
        public float BoldValue { get; private set; }

        /// <summary>Draws the contour lines of a grid, refined to about 200 columns and 50 rows.</summary>
        /// <exception cref="VelmarException">the grid has no values, or for lack of memory</exception>
        public static Contours Draw(Grid grid, Levels levels)
        {
            return Draw("contour2D", VelmarNative.contour2D, grid, levels);
        }

        /// <summary>Draws the contour lines of a grid as it is. Positions are divided by the refinement of the last
        /// <see cref="Draw(Grid, Levels)"/> or <see cref="OfFile"/> of the process.</summary>
        /// <exception cref="VelmarException">the grid has no values, or for lack of memory</exception>
        public static Contours DrawRaw(Grid grid, Levels levels)
        {
            return Draw("contour2DRaw", VelmarNative.contour2DRaw, grid, levels);
        }

        /// <summary>Reads a grid file and draws its contour lines.</summary>
        /// <param name="path">the file</param>
        /// <param name="levels">any but a range</param>
        /// <exception cref="VelmarException">the file cannot be read; codes -1 to -7</exception>
        public static Contours OfFile(string path, Levels levels)
        {
            if (levels.Mode == 0 && !levels.OfHeader) throw new ArgumentException("a range needs a grid", "levels");
            using (VelmarBlock block = NativeCall.Read("readCntrData", path, ErrorWords.Grid,
                       bytes => VelmarNative.readCntrData(bytes, levels.Mode, levels.Count, levels.List)))
                return new Contours(block.Cursor(), Grid.FileMissing);
        }

        private delegate IntPtr Drawing(float[] grid, float missing, int nx, int ny, int mode, float start, float end,
                                        float interval, float[] levels, int count, float x0, float y0, float dx,
                                        float dy);

        private static Contours Draw(string function, Drawing draw, Grid grid, Levels levels)
        {
            bool header = levels.OfHeader;
            float start = header ? grid.Hints.Start : levels.Start, end = header ? grid.Hints.End : levels.End;
            float interval = header ? grid.Hints.Interval : levels.Interval;
            Lattice at = grid.Lattice;
            using (VelmarBlock block = NativeCall.Make(function, () => draw(grid.Values, grid.Missing, grid.Columns,
                       grid.Rows, levels.Mode, start, end, interval, levels.List, levels.Count, at.StartLongitude,
                       at.StartLatitude, at.LongitudeStep, at.LatitudeStep)))
                return new Contours(block.Cursor(), grid.Missing);
        }
    }
}
