using System;

namespace Velmar
{
    /// <summary>Sums of rain.</summary>
    public static class Rainfall
    {
        /// <summary>Adds up the rain of stations over a span of time, from files of station values that are named by
        /// time: 08071508.000 is that of 8 h on 15 July 2008.</summary>
        /// <param name="start">the start, whose own file is not read; minutes do not count</param>
        /// <param name="end">the end, after the start</param>
        /// <param name="directory">where the files are</param>
        /// <param name="stepHours">hours from file to file; unless it is 1, hours must be 2, 8, 14 or 20</param>
        /// <returns>the stations, in the order in which they have come, each with its total</returns>
        /// <exception cref="VelmarException">times or step are not as said, a file cannot be read, or there is no
        /// station</exception>
        public static Station[] Add(DateTime start, DateTime end, string directory, int stepHours)
        {
            using (VelmarBlock block = NativeCall.Read("DiscreteAdd", directory, bytes => VelmarNative.DiscreteAdd(
                       start.Year, start.Month, start.Day, start.Hour, end.Year, end.Month, end.Day, end.Hour, bytes,
                       stepHours)))
            {
                BlockCursor cursor = block.Cursor();
                var stations = new Station[(cursor.NextCount() - 1) / 5];
                for (int i = 0; i < stations.Length; ++i)
                {
                    int number = cursor.NextInt();
                    Position position = cursor.NextPosition();
                    stations[i] = new Station(number, position, cursor.Next(), cursor.Floats(1));
                }
                return stations;
            }
        }
    }
}
