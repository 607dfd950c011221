using System;
using System.Text;

namespace Velmar
{
    /// <summary>The named boundaries of a file (type 10), which the library holds once for the life of the
    /// process.</summary>
    public static class Regions
    {
        private static readonly string[] LoadWords = {
            "cannot be opened, has no head or no region, or a file was loaded before"
        };

        /// <summary>How names are encoded. The default keeps each byte, so that any name that was handed out finds its
        /// region. For files with GBK names set Encoding.GetEncoding(936), for which .NET has to have its code pages
        /// registered and Mono needs I18N.CJK.</summary>
        public static Encoding NameEncoding { get; set; } = Encoding.GetEncoding("iso-8859-1");

        /// <summary>Loads a file, once for the life of the process.</summary>
        /// <returns>false when it breaks off: the regions up to there are loaded</returns>
        /// <exception cref="VelmarException">the file cannot be read, or one was loaded before; code -1</exception>
        public static bool Load(string path)
        {
            byte[] bytes = NativeText.Path(path);
            int result;
            lock (VelmarNative.Gate) result = VelmarNative.readRegionData(bytes);
            if (result < 0) throw NativeCall.Failure("readRegionData", path, result, LoadWords);
            return result > 0;
        }

        /// <summary>The name of the first region that holds a place; null when there is none.</summary>
        public static string NameAt(Position place)
        {
            byte[] name;
            lock (VelmarNative.Gate)
                name = NativeText.Bytes(VelmarNative.countyNameFromRegion(place.Longitude, place.Latitude));
            return name.Length == 1 && name[0] == ' ' ? null : NameEncoding.GetString(name);
        }

        /// <summary>The boundary of the region at a place in the file, from 0 on; null when there is none.</summary>
        public static Position[] Boundary(int index)
        {
            lock (VelmarNative.Gate)
            {
                int count;
                return Points(VelmarNative.getSingleRegionBoundaryByOrder(index, out count), count);
            }
        }

        /// <summary>The boundary of the first region of a name; null when there is none.</summary>
        public static Position[] Boundary(string name)
        {
            byte[] bytes = NativeText.Name(name, NameEncoding);
            lock (VelmarNative.Gate)
            {
                int count;
                return Points(VelmarNative.getSingleRegionBoundaryByName(bytes, out count), count);
            }
        }

        /// <summary>The boundaries of all regions of a name.</summary>
        /// <exception cref="VelmarException">no file has been loaded</exception>
        public static Position[][] AllBoundaries(string name)
        {
            byte[] bytes = NativeText.Name(name, NameEncoding);
            int total = 0;
            using (VelmarBlock block = NativeCall.Make("getAllRegionBoundaryByName",
                       () => VelmarNative.getAllRegionBoundaryByName(bytes, out total)))
            {
                BlockCursor cursor = block.Cursor();
                var boundaries = new Position[cursor.NextCount()][];
                for (int i = 0; i < boundaries.Length; ++i) boundaries[i] = cursor.Positions(cursor.NextCount());
                return boundaries;
            }
        }

        private static Position[] Points(IntPtr points, int count)
        {
            return points == IntPtr.Zero ? null : new BlockCursor(points).Positions(count);
        }
    }
}
