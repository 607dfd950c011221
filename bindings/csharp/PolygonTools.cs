using System;
using System.Runtime.InteropServices;

namespace Velmar
{
    /// <summary>Clips polygons by rectangles. The last point of a polygon joins its first.</summary>
    public static class PolygonTools
    {
        private const int PointsOfLibrary = 10;

        /// <summary>Clips a polygon by a rectangle, after Sutherland and Hodgman (1974).</summary>
        /// <param name="polygon">not changed</param>
        /// <param name="low">lower bounds of the rectangle, whose sides count as inside</param>
        /// <param name="high">upper bounds</param>
        public static Position[] Clip(Position[] polygon, Position low, Position high)
        {
            // Each of the four sides makes at most half as many points again.
            float[] pairs = Position.Pairs(polygon, checked(81 * polygon.Length / 16 + 1));
            int count;
            lock (VelmarNative.Gate)
                count = VelmarNative.Clip(pairs, low.Longitude, low.Latitude, high.Longitude, high.Latitude,
                                          polygon.Length);
            var clipped = new Position[count];
            for (int i = 0; i < count; ++i) clipped[i] = new Position(pairs[2 * i], pairs[2 * i + 1]);
            return clipped;
        }

        /// <summary>Keeps what lies on the left of a horizontal or vertical directed edge, or on its line.</summary>
        /// <exception cref="VelmarException">for lack of memory</exception>
        public static Position[] ClipByEdge(Position[] polygon, Position begin, Position end)
        {
            int count = 0;
            float[] pairs = Position.Pairs(polygon, polygon.Length);
            using (VelmarBlock block = NativeCall.Make("SHClip", () => VelmarNative.SHClip(pairs, begin.Longitude,
                       begin.Latitude, end.Longitude, end.Latitude, polygon.Length, out count)))
                return block.Cursor().Positions(count);
        }

        /// <summary>Pulls a polygon into a rectangle: points outside move to its nearest place. The library writes a
        /// file, C:\clipdebug.txt, at each call; elsewhere than on Windows it lies in the current directory.</summary>
        /// <exception cref="VelmarException">that file cannot be opened</exception>
        public static Position[] PullInto(Position[] polygon, Position low, Position high)
        {
            float[] pairs = Position.Pairs(polygon, polygon.Length);
            GCHandle pinned = GCHandle.Alloc(pairs, GCHandleType.Pinned);
            try
            {
                // Small outlines are valid until the next call, so they are copied under the lock.
                lock (VelmarNative.Gate)
                {
                    int count;
                    IntPtr end = VelmarNative.polygonfill(pinned.AddrOfPinnedObject(), polygon.Length, low.Longitude,
                                                          low.Latitude, high.Longitude, high.Latitude, out count);
                    if (end == IntPtr.Zero) throw NativeCall.Failure("polygonfill", null, 0, null);
                    return Outline(end, count, polygon.Length >= PointsOfLibrary);
                }
            }
            finally
            {
                pinned.Free();
            }
        }

        private static Position[] Outline(IntPtr end, int count, bool owned)
        {
            if (count == 0) return new Position[0];
            IntPtr start = new IntPtr(end.ToInt64() - 2L * sizeof(float) * count);
            if (!owned) return new BlockCursor(start).Positions(count);
            using (var block = new VelmarBlock(start)) return block.Cursor().Positions(count);
        }
    }
}
