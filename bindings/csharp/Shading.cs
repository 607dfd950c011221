using System;
using System.IO;

namespace Velmar
{
    /// <summary>A polygon of filled contours; its last point is its first again.</summary>
    public sealed class ShadedPolygon
    {
        internal ShadedPolygon(BlockCursor cursor)
        {
            int points = cursor.NextCount();
            Level = cursor.Next();
            Colour = cursor.NextInt();
            Points = cursor.Positions(points);
        }

        /// <summary>The level at the bottom of its band; for a hole the last level of the list.</summary>
        public float Level { get; private set; }

        /// <summary>Its colour, 0 to 99.</summary>
        public int Colour { get; private set; }

        /// <summary>Its outline.</summary>
        public Position[] Points { get; private set; }
    }

    /// <summary>Fills the bands between levels with polygons, to be painted in their order.</summary>
    /// <remarks>The library fills a grid in strips of rows. Strips of one row are painted right everywhere; those of
    /// several rows are faster and hold fewer polygons. Below 1 means one strip. The list of polygons is empty when
    /// there is nothing to fill, and also when a trace fails: what failed is printed on standard output.</remarks>
    public static class Shading
    {
        /// <summary>Shades a grid.</summary>
        /// <param name="grid">its columns and rows are at least 2, or there is nothing to fill</param>
        /// <param name="levels">ascending levels</param>
        /// <param name="colours">as many colours, each of the band above its level</param>
        /// <param name="stripRows">rows of cells in a strip</param>
        public static ShadedPolygon[] Fill(Grid grid, float[] levels, int[] colours, int stripRows)
        {
            Require.SameLength("levels", levels, colours);
            Lattice at = grid.Lattice;
            return Polygons(NativeCall.Take(() => VelmarNative.velmarCntrShad(grid.Values, grid.Columns, grid.Rows,
                levels, colours, levels.Length, grid.Missing, at.StartLongitude, at.StartLatitude, at.LongitudeStep,
                at.LatitudeStep, stripRows)));
        }

        /// <summary>Shades a grid of class numbers 0, 1, ..., classes - 1, which are also the colours.</summary>
        public static ShadedPolygon[] FillClasses(Grid grid, int classes, int stripRows)
        {
            Lattice at = grid.Lattice;
            return Polygons(NativeCall.Take(() => VelmarNative.velmarCntrShadJ(grid.Values, grid.Columns, grid.Rows,
                classes, grid.Missing, at.StartLongitude, at.StartLatitude, at.LongitudeStep, at.LatitudeStep,
                stripRows)));
        }

        /// <summary>Shades a grid whose columns and rows are not evenly spaced.</summary>
        /// <param name="grid">the grid; its lattice is not used</param>
        /// <param name="levels">ascending levels</param>
        /// <param name="colours">as many colours</param>
        /// <param name="stripRows">rows of cells in a strip</param>
        /// <param name="columnSteps">position of column 0, then the spacing of each following column; one number more
        /// than columns</param>
        /// <param name="rowSteps">the same for rows</param>
        public static ShadedPolygon[] FillUneven(Grid grid, float[] levels, int[] colours, int stripRows,
                                                 float[] columnSteps, float[] rowSteps)
        {
            Require.SameLength("levels", levels, colours);
            if (columnSteps.Length != grid.Columns + 1 || rowSteps.Length != grid.Rows + 1)
                throw new ArgumentException("steps have one number more than columns or rows", "columnSteps");
            return Polygons(NativeCall.Take(() => VelmarNative.velmarCntrShadD(grid.Values, grid.Columns, grid.Rows,
                levels, colours, levels.Length, grid.Missing, stripRows, columnSteps, rowSteps)));
        }

        /// <summary>Reads a grid file and shades it by the levels of its header, with colour k at level k.</summary>
        /// <exception cref="VelmarException">the file cannot be read; codes -1 to -6</exception>
        public static ShadedPolygon[] FillFile(string path, int stripRows)
        {
            byte[] bytes = NativeText.Path(path);
            VelmarBlock block = NativeCall.Take(() => VelmarNative.readCntrShadData(bytes, 0, stripRows));
            if (!block.IsInvalid) NativeCall.CheckCode("readCntrShadData", path, ErrorWords.ShadedGrid, block);
            return Polygons(block);
        }

        /// <summary>Reads a byte image (type 13) and shades it at all levels, 0 to 255.</summary>
        /// <exception cref="VelmarException">there is no such file; one that is no image looks like one with nothing
        /// to fill</exception>
        public static ShadedPolygon[] FillImage(string path, int stripRows)
        {
            return FillImage(path, stripRows, 0, 0);
        }

        /// <summary>Reads a byte image (type 13) and shades it at one level, with colour 0.</summary>
        /// <exception cref="VelmarException">as for all levels</exception>
        public static ShadedPolygon[] FillImage(string path, int stripRows, float level)
        {
            return FillImage(path, stripRows, 1, level);
        }

        private static ShadedPolygon[] FillImage(string path, int stripRows, int mode, float level)
        {
            byte[] bytes = NativeText.Path(path);
            if (!File.Exists(path)) throw NativeCall.Failure("readByteShadData", path, 0, null);
            return Polygons(NativeCall.Take(() => VelmarNative.readByteShadData(bytes, stripRows, mode, level)));
        }

        private static ShadedPolygon[] Polygons(VelmarBlock block)
        {
            using (block)
            {
                if (block.IsInvalid) return new ShadedPolygon[0];
                BlockCursor cursor = block.Cursor();
                cursor.Skip(1);
                var polygons = new ShadedPolygon[cursor.NextCount()];
                for (int i = 0; i < polygons.Length; ++i) polygons[i] = new ShadedPolygon(cursor);
                return polygons;
            }
        }
    }
}
