using System;

namespace Velmar
{
    /// <summary>A place on the earth, degrees.</summary>
    public struct Position
    {
        /// <summary>Degrees east.</summary>
        public readonly float Longitude;

        /// <summary>Degrees north.</summary>
        public readonly float Latitude;

        /// <summary>Makes a place.</summary>
        public Position(float longitude, float latitude)
        {
            Longitude = longitude;
            Latitude = latitude;
        }

        internal static float[] Pairs(Position[] points, int room)
        {
            var pairs = new float[2 * room];
            for (int i = 0; i < points.Length; ++i)
            {
                pairs[2 * i] = points[i].Longitude;
                pairs[2 * i + 1] = points[i].Latitude;
            }
            return pairs;
        }
    }

    /// <summary>Where the points of a grid lie: column 0 at the start longitude, row 0 at the start latitude. Degrees;
    /// steps may be negative.</summary>
    public struct Lattice
    {
        /// <summary>Longitude of column 0.</summary>
        public readonly float StartLongitude;

        /// <summary>Latitude of row 0.</summary>
        public readonly float StartLatitude;

        /// <summary>From column to column.</summary>
        public readonly float LongitudeStep;

        /// <summary>From row to row.</summary>
        public readonly float LatitudeStep;

        /// <summary>Makes a lattice.</summary>
        public Lattice(float startLongitude, float startLatitude, float longitudeStep, float latitudeStep)
        {
            StartLongitude = startLongitude;
            StartLatitude = startLatitude;
            LongitudeStep = longitudeStep;
            LatitudeStep = latitudeStep;
        }
    }

    /// <summary>How a grid file wants its contour lines drawn.</summary>
    public struct ContourHints
    {
        /// <summary>Distance of levels, in units of the grid.</summary>
        public readonly float Interval;

        /// <summary>First level.</summary>
        public readonly float Start;

        /// <summary>Last level.</summary>
        public readonly float End;

        /// <summary>Smoothing factor; not used by the library.</summary>
        public readonly float Smoothing;

        /// <summary>The level to be drawn bold.</summary>
        public readonly float BoldValue;

        internal ContourHints(BlockCursor cursor)
        {
            Interval = cursor.Next();
            Start = cursor.Next();
            End = cursor.Next();
            Smoothing = cursor.Next();
            BoldValue = cursor.Next();
        }
    }

    /// <summary>A grid of values.</summary>
    public sealed class Grid
    {
        /// <summary>The value of points without data in files.</summary>
        public const float FileMissing = 9999;

        /// <summary>Makes a grid; the values are not copied.</summary>
        /// <param name="columns">number of columns, nx</param>
        /// <param name="rows">number of rows, ny</param>
        /// <param name="lattice">where its points lie</param>
        /// <param name="values">nx * ny values, row after row; null for a grid of place and size only</param>
        /// <param name="missing">value of points without data</param>
        /// <exception cref="ArgumentException">the number of values is another</exception>
        public Grid(int columns, int rows, Lattice lattice, float[] values, float missing)
        {
            if (values != null && values.Length != Size(columns, rows))
                throw new ArgumentException("not columns * rows values", "values");
            Columns = columns;
            Rows = rows;
            Lattice = lattice;
            Values = values;
            Missing = missing;
        }

        /// <summary>Number of columns.</summary>
        public int Columns { get; private set; }

        /// <summary>Number of rows.</summary>
        public int Rows { get; private set; }

        /// <summary>Where the points lie.</summary>
        public Lattice Lattice { get; private set; }

        /// <summary>The values, row after row; null when only place and size are known.</summary>
        public float[] Values { get; private set; }

        /// <summary>The value of points without data.</summary>
        public float Missing { get; private set; }

        /// <summary>How the file wanted its lines drawn; zeros for a grid that was not read.</summary>
        public ContourHints Hints { get; private set; }

        /// <summary>The value of a column and a row, from 0 on.</summary>
        public float this[int column, int row] { get { return Values[row * Columns + column]; } }

        /// <summary>Reads a grid file (type 4).</summary>
        /// <exception cref="VelmarException">the file cannot be read; codes -1 to -5 and -7</exception>
        public static Grid Read(string path)
        {
            using (VelmarBlock block = NativeCall.Read("readVelmar4", path, ErrorWords.Grid, VelmarNative.readVelmar4))
            {
                BlockCursor cursor = block.Cursor();
                cursor.Skip(1);
                int columns = cursor.NextInt(), rows = cursor.NextInt();
                Lattice lattice = cursor.NextLattice();
                cursor.Skip(2);
                float[] values = cursor.Floats(Size(columns, rows));
                return new Grid(columns, rows, lattice, values, FileMissing) { Hints = new ContourHints(cursor) };
            }
        }

        /// <summary>Refines the grid by piecewise cubic Hermite interpolation.</summary>
        /// <param name="alongRows">into how many parts intervals along rows are divided, at least 1</param>
        /// <param name="alongColumns">the same for intervals along columns</param>
        /// <exception cref="VelmarException">a factor is below 1, or the grid is empty</exception>
        public Grid Refine(int alongRows, int alongColumns)
        {
            using (VelmarBlock block = NativeCall.Make("gagexps", () => VelmarNative.gagexps(Values, Columns, Rows,
                       alongRows, alongColumns, Missing)))
            {
                int columns = (Columns - 1) * alongRows + 1, rows = (Rows - 1) * alongColumns + 1;
                var lattice = new Lattice(Lattice.StartLongitude, Lattice.StartLatitude,
                                          Lattice.LongitudeStep / alongRows, Lattice.LatitudeStep / alongColumns);
                return new Grid(columns, rows, lattice, block.Cursor().Floats(columns * rows), Missing);
            }
        }

        /// <summary>Number of values: 0 when columns or rows are not positive.</summary>
        internal static int Size(int columns, int rows)
        {
            return columns > 0 && rows > 0 ? checked(columns * rows) : 0;
        }

        /// <summary>A grid of this place and size with other values.</summary>
        internal Grid With(float[] values) { return new Grid(Columns, Rows, Lattice, values, Missing); }
    }
}
