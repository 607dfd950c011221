using System;
using System.Collections.Generic;

namespace Velmar
{
    /// <summary>Contour lines straight from station values, over a network of triangles.</summary>
    public static class StationContours
    {
        /// <summary>Draws the multiples of an interval above 0 within the range of the values.</summary>
        public static ContourLine[] Multiples(float[] longitudes, float[] latitudes, float[] values, float interval)
        {
            return Draw(longitudes, latitudes, values, 0, 0, interval, null);
        }

        /// <summary>Draws start + k * interval for k from 0 to 49, if start is not above the largest value.</summary>
        public static ContourLine[] From(float[] longitudes, float[] latitudes, float[] values, float start,
                                         float interval)
        {
            return Draw(longitudes, latitudes, values, 1, start, interval, null);
        }

        /// <summary>Draws the levels of a list of fewer than 50.</summary>
        public static ContourLine[] At(float[] longitudes, float[] latitudes, float[] values, params float[] levels)
        {
            return Draw(longitudes, latitudes, values, 2, 0, 0, levels);
        }

        private static ContourLine[] Draw(float[] longitudes, float[] latitudes, float[] values, int mode, float start,
                                          float interval, float[] levels)
        {
            Require.SameLength("values", longitudes, latitudes, values);
            int levelCount = levels == null ? 0 : levels.Length;
            if (levelCount >= 50) throw new ArgumentException("50 levels or more", "levels");
            // Values near a level are moved in place.
            var moved = (float[])values.Clone();
            using (VelmarBlock block = NativeCall.Take(() => VelmarNative.SanJiao(longitudes, latitudes, moved, levels,
                       moved.Length, mode, start, interval, levelCount)))
            {
                var lines = new List<ContourLine>();
                if (block.IsInvalid) return lines.ToArray();
                BlockCursor cursor = block.Cursor();
                for (int left = cursor.NextCount() - 1; left > 0;)
                {
                    int points = cursor.NextCount();
                    lines.Add(new ContourLine(cursor.Next(), cursor.Positions(points)));
                    left -= 2 + 2 * points;
                }
                return lines.ToArray();
            }
        }
    }
}
