using System;
using System.Collections.Generic;

namespace Velmar
{
    /// <summary>A part of a streamline: from its start with the flow, or against it.</summary>
    public sealed class Streamline
    {
        internal Streamline(List<Position> points, List<int> colours)
        {
            Points = points.ToArray();
            Colours = colours.ToArray();
        }

        /// <summary>Its points, at least one.</summary>
        public Position[] Points { get; private set; }

        /// <summary>The colour of the piece that leads to each point; that of the first point is of no piece.</summary>
        public int[] Colours { get; private set; }
    }

    /// <summary>An arrow on a streamline.</summary>
    public sealed class Arrow
    {
        internal Arrow(BlockCursor cursor)
        {
            Tail = cursor.NextPosition();
            Head = cursor.NextPosition();
            Colour = cursor.NextInt();
        }

        /// <summary>Upstream end.</summary>
        public Position Tail { get; private set; }

        /// <summary>Downstream end.</summary>
        public Position Head { get; private set; }

        /// <summary>Its colour.</summary>
        public int Colour { get; private set; }
    }

    /// <summary>Evenly spaced streamlines of a wind field.</summary>
    public sealed class Streamlines
    {
        private Streamlines(BlockCursor cursor)
        {
            var lines = new List<Streamline>();
            var arrows = new List<Arrow>();
            var points = new List<Position>();
            var colours = new List<int>();
            cursor.Skip(1);
            for (int left = cursor.NextCount() - 2; left > 0;)
            {
                int kind = cursor.NextInt();
                if (kind == 2)
                {
                    arrows.Add(new Arrow(cursor));
                    left -= 6;
                    continue;
                }
                if (kind == 0) Finish(lines, points, colours);
                points.Add(cursor.NextPosition());
                colours.Add(cursor.NextInt());
                left -= 4;
            }
            Finish(lines, points, colours);
            Lines = lines.ToArray();
            Arrows = arrows.ToArray();
            cursor.Skip(2);
            int columns = cursor.NextInt(), rows = cursor.NextInt();
            Field = new Grid(columns, rows, cursor.NextLattice(), null, Grid.FileMissing);
        }

        /// <summary>The lines, each in two parts, or more where pieces are left out for their colour.</summary>
        public Streamline[] Lines { get; private set; }

        /// <summary>The arrows.</summary>
        public Arrow[] Arrows { get; private set; }

        /// <summary>Place and size of the field, without values.</summary>
        public Grid Field { get; private set; }

        /// <summary>Reads a wind file and draws its streamlines, coloured by speed: colour k is that of 2 k to below
        /// 2 k + 2 m/s.</summary>
        /// <param name="path">the file</param>
        /// <param name="density">5 is usual; larger values give more lines</param>
        /// <exception cref="VelmarException">the file cannot be read; codes -1 to -8</exception>
        public static Streamlines OfFile(string path, int density)
        {
            using (VelmarBlock block = NativeCall.Read("readWindData", path, ErrorWords.Wind,
                       bytes => VelmarNative.readWindData(bytes, density)))
                return new Streamlines(block.Cursor());
        }

        /// <summary>Draws the streamlines of a field that lies where a wind file lies.</summary>
        /// <param name="placeFile">a wind file of the same place and size: the library takes the place of the field
        /// from the last wind file that it read for drawing</param>
        /// <param name="eastward">eastward wind, m/s, the southernmost row first</param>
        /// <param name="northward">northward wind, of the same size</param>
        /// <param name="colouredBy">what the lines are coloured by, of the same size; null for one colour</param>
        /// <param name="levels">ascending levels of that</param>
        /// <param name="colours">colour k is that of the values from level k to below level k + 1</param>
        /// <param name="density">5 is usual</param>
        /// <exception cref="VelmarException">the file cannot be read, or for lack of memory</exception>
        public static Streamlines Draw(string placeFile, Grid eastward, Grid northward, Grid colouredBy,
                                       float[] levels, int[] colours, int density)
        {
            Grid c = colouredBy ?? eastward;
            Require.SameLength("northward", eastward.Values, northward.Values, c.Values);
            if (colouredBy != null) Require.SameLength("levels", levels, colours);
            lock (VelmarNative.Gate)
            {
                Place(placeFile, eastward);
                using (VelmarBlock block = NativeCall.Make("streamAnalyse", () => VelmarNative.streamAnalyse(
                           eastward.Values, northward.Values, c.Values, eastward.Columns, eastward.Rows,
                           eastward.Missing, northward.Missing, c.Missing, colouredBy == null ? 0 : 1, levels, colours,
                           levels == null ? 0 : levels.Length, density)))
                    return new Streamlines(block.Cursor());
            }
        }

        private static void Place(string file, Grid field)
        {
            int columns = 0, rows = 0;
            float unused;
            NativeCall.Read("readWindDivVor", file, ErrorWords.Wind, bytes => VelmarNative.readWindDivVor(bytes, 0,
                out unused, out unused, out unused, out unused, out columns, out rows)).Dispose();
            if (columns != field.Columns || rows != field.Rows)
                throw new ArgumentException("the file has another size than the field", "placeFile");
        }

        private static void Finish(List<Streamline> lines, List<Position> points, List<int> colours)
        {
            if (points.Count > 0) lines.Add(new Streamline(points, colours));
            points.Clear();
            colours.Clear();
        }
    }
}
