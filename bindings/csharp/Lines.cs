using System;
using System.Collections.Generic;

namespace Velmar
{
    /// <summary>A file of one boundary line.</summary>
    public sealed class BoundaryLine
    {
        private BoundaryLine(BlockCursor cursor)
        {
            cursor.Skip(1);
            Header = new int[4];
            for (int i = 0; i < Header.Length; ++i) Header[i] = cursor.NextInt();
            Points = cursor.Positions(cursor.NextCount());
        }

        /// <summary>Four integers of the file.</summary>
        public int[] Header { get; private set; }

        /// <summary>The line.</summary>
        public Position[] Points { get; private set; }

        /// <summary>Reads a line of type 780.</summary>
        /// <exception cref="VelmarException">the file cannot be read</exception>
        public static BoundaryLine Read780(string path)
        {
            return Read("ReadVelmarData780", path, VelmarNative.ReadVelmarData780);
        }

        /// <summary>Reads a line of type 777 or 778.</summary>
        /// <exception cref="VelmarException">the file cannot be read</exception>
        public static BoundaryLine Read777(string path)
        {
            return Read("ReadVelmarData777", path, VelmarNative.ReadVelmarData777);
        }

        private static BoundaryLine Read(string function, string path, Func<byte[], IntPtr> read)
        {
            using (VelmarBlock block = NativeCall.Read(function, path, read)) return new BoundaryLine(block.Cursor());
        }
    }

    /// <summary>A line of a map.</summary>
    public sealed class MapLine
    {
        internal MapLine(int points, BlockCursor cursor)
        {
            Attribute1 = cursor.NextInt();
            Attribute2 = cursor.NextInt();
            Points = cursor.Positions(points);
        }

        /// <summary>First attribute: 1 on a coast and 2 on a border in the sample files.</summary>
        public int Attribute1 { get; private set; }

        /// <summary>Second attribute.</summary>
        public int Attribute2 { get; private set; }

        /// <summary>Its points, longitudes from 0 on.</summary>
        public Position[] Points { get; private set; }
    }

    /// <summary>A map file (type 9).</summary>
    public sealed class MapFile
    {
        private MapFile(BlockCursor cursor)
        {
            cursor.Skip(1);
            LineCount = cursor.NextCount();
            var lines = new List<MapLine>();
            for (int i = 0; i < LineCount; ++i)
            {
                int points = cursor.NextCount();
                if (points == 0) break;
                lines.Add(new MapLine(points, cursor));
            }
            Lines = lines.ToArray();
        }

        /// <summary>Number of lines that the file holds; 0 for files of the "diamond" form, whose counts are not
        /// handed on.</summary>
        public int LineCount { get; private set; }

        /// <summary>The lines up to the first without points. Only the first call of a process returns
        /// any.</summary>
        public MapLine[] Lines { get; private set; }

        /// <summary>Reads a map file. The library writes a log, C:\readmap9.txt, at each call; elsewhere than on
        /// Windows it lies in the current directory.</summary>
        /// <exception cref="VelmarException">the file cannot be read</exception>
        public static MapFile Read(string path)
        {
            using (VelmarBlock block = NativeCall.Read("ReadMap9", path, VelmarNative.ReadMap9))
                return new MapFile(block.Cursor());
        }
    }
}
