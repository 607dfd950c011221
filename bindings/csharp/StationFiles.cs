using System;

namespace Velmar
{
    /// <summary>A station with its values.</summary>
    public sealed class Station
    {
        internal Station(int number, Position position, float height, float[] values)
        {
            Number = number;
            Position = position;
            Height = height;
            Values = values;
        }

        /// <summary>Its number.</summary>
        public int Number { get; private set; }

        /// <summary>Where it is.</summary>
        public Position Position { get; private set; }

        /// <summary>Its height, metres.</summary>
        public float Height { get; private set; }

        /// <summary>Its values.</summary>
        public float[] Values { get; private set; }
    }

    /// <summary>Station values of a file (type 3).</summary>
    public sealed class StationValues
    {
        private StationValues(BlockCursor cursor)
        {
            Year = cursor.NextInt();
            Month = cursor.NextInt();
            Day = cursor.NextInt();
            Hour = cursor.NextInt();
            Level = cursor.NextInt();
            int values = cursor.NextCount(), stations = cursor.NextCount();
            ContourLevels = cursor.Floats(cursor.NextCount());
            Stations = new Station[stations];
            for (int i = 0; i < stations; ++i)
            {
                int number = cursor.NextInt();
                Position position = cursor.NextPosition();
                Stations[i] = new Station(number, position, cursor.Next(), cursor.Floats(values));
            }
            Boundary = cursor.Positions(cursor.NextCount());
        }

        /// <summary>Time of the values, as the file has it.</summary>
        public int Year { get; private set; }

        /// <summary>Month.</summary>
        public int Month { get; private set; }

        /// <summary>Day.</summary>
        public int Day { get; private set; }

        /// <summary>Hour.</summary>
        public int Hour { get; private set; }

        /// <summary>Pressure level, hPa.</summary>
        public int Level { get; private set; }

        /// <summary>The contour levels that the file asks for.</summary>
        public float[] ContourLevels { get; private set; }

        /// <summary>The stations up to the first incomplete one.</summary>
        public Station[] Stations { get; private set; }

        /// <summary>The line that bounds the area.</summary>
        public Position[] Boundary { get; private set; }

        /// <summary>Reads a file.</summary>
        /// <exception cref="VelmarException">the file cannot be read; codes -1 to -7 and -9</exception>
        public static StationValues Read(string path)
        {
            using (VelmarBlock block = NativeCall.Read("ReadVelmarData3", path, ErrorWords.StationValues,
                       VelmarNative.ReadVelmarData3))
                return new StationValues(block.Cursor());
        }
    }

    /// <summary>Records of a station file: rows of numbers.</summary>
    public sealed class StationRecords
    {
        private readonly float[] numbers;

        private StationRecords(BlockCursor cursor, int headerItems, int fields)
        {
            Header = new int[headerItems];
            for (int i = 0; i < headerItems; ++i) Header[i] = cursor.NextInt();
            Count = cursor.NextCount();
            Fields = fields;
            numbers = cursor.Floats(Count * fields);
        }

        /// <summary>Year, month, day and hour, for upper-air reports and forecasts a fifth item; none for a station
        /// list.</summary>
        public int[] Header { get; private set; }

        /// <summary>Number of records read.</summary>
        public int Count { get; private set; }

        /// <summary>Numbers of a record.</summary>
        public int Fields { get; private set; }

        /// <summary>A number of a record, both counted from 0.</summary>
        public float this[int record, int field]
        {
            get
            {
                if (field < 0 || field >= Fields) throw new ArgumentOutOfRangeException("field");
                return numbers[record * Fields + field];
            }
        }

        /// <summary>Reads surface reports (type 1): the 24 fields of a report, then two extra values, 9999 for
        /// none.</summary>
        /// <exception cref="VelmarException">the file cannot be read</exception>
        public static StationRecords ReadSurface(string path)
        {
            return Read("ReadVelmarData1", path, VelmarNative.ReadVelmarData1, 4, 26);
        }

        /// <summary>Reads upper-air reports (type 2): 10 numbers each.</summary>
        /// <exception cref="VelmarException">the file cannot be read</exception>
        public static StationRecords ReadUpperAir(string path)
        {
            return Read("ReadVelmarData2", path, VelmarNative.ReadVelmarData2, 5, 10);
        }

        /// <summary>Reads city forecasts (type 8): 12 numbers each.</summary>
        /// <exception cref="VelmarException">the file cannot be read</exception>
        public static StationRecords ReadForecasts(string path)
        {
            return Read("ReadVelmarData8", path, VelmarNative.ReadVelmarData8, 5, 12);
        }

        /// <summary>Reads a station list (type 16): 4 numbers each.</summary>
        /// <exception cref="VelmarException">the file cannot be read</exception>
        public static StationRecords ReadList(string path)
        {
            return Read("ReadVelmarData16", path, VelmarNative.ReadVelmarData16, 0, 4);
        }

        private static StationRecords Read(string function, string path, Func<byte[], IntPtr> read, int headerItems,
                                           int fields)
        {
            using (VelmarBlock block = NativeCall.Read(function, path, read))
                return new StationRecords(block.Cursor(), headerItems, fields);
        }
    }
}
