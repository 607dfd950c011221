using System;
using System.Runtime.InteropServices;

// The header of the C library documents these functions: shapes, units, order, errors and ownership.
#pragma warning disable 1591

namespace Velmar
{
    /// <summary>The exports of the native library, as they are.</summary>
    /// <remarks>Paths and names are NUL-terminated bytes: see <see cref="NativeText"/>. Returned blocks are released
    /// with <see cref="freecPointer"/>, or by a <see cref="VelmarBlock"/>. Calls from several threads
    /// wait for each other; those that belong together are kept so by <see cref="Gate"/>, as the typed layer does.</remarks>
    public static class VelmarNative
    {
        /// <summary>The library: velmarBaseA.dll on Windows, libvelmarBaseA.so on Linux.</summary>
        public const string Library = "velmarBaseA";

        /// <summary>The lock that the typed layer holds during each call.</summary>
        public static readonly object Gate = new object();

        private const CallingConvention C = CallingConvention.Cdecl;

        // Release
        [DllImport(Library, CallingConvention = C)]
        public static extern void freecPointer(IntPtr block);

        [DllImport(Library, CallingConvention = C)]
        public static extern void cntrFreeLineVar(IntPtr block);

        [DllImport(Library, CallingConvention = C)]
        public static extern void cntrShadFreeLineVar(IntPtr block);

        [DllImport(Library, CallingConvention = C)]
        public static extern void deleteMap9Ptr(IntPtr block);

        // Probes
        [DllImport(Library, CallingConvention = C)]
        public static extern int mySum(int a, int b, out int sum);

        [DllImport(Library, CallingConvention = C)]
        public static extern int TestArrayOfInts([In, Out] int[] values, int count);

        /// <summary>Replaces an array of five integers.</summary>
        /// <param name="values">from <see cref="Marshal.AllocCoTaskMem"/>; the library releases it, and the caller the
        /// new one with <see cref="Marshal.FreeCoTaskMem"/></param>
        /// <param name="count">number of integers, 5</param>
        [DllImport(Library, CallingConvention = C)]
        public static extern int TestRefArrayOfInts(ref IntPtr values, ref int count);

        // Grid file
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr readVelmar4([In] byte[] path);

        // Contour lines and centres
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr contour2D([In] float[] grid, float missing, int nx, int ny, int mode, float start,
            float end, float interval, [In] float[] levels, int count, float x0, float y0, float dx, float dy);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr contour2DRaw([In] float[] grid, float missing, int nx, int ny, int mode,
            float start, float end, float interval, [In] float[] levels, int count, float x0, float y0, float dx,
            float dy);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr readCntrData([In] byte[] path, int mode, int count, [In] float[] levels);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr findCenters([In] float[] grid, float missing, int nx, int ny, int unused, float x0,
            float y0, float dx, float dy);

        // Shading
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr velmarCntrShad([In] float[] grid, int nx, int ny, [In] float[] levels,
            [In] int[] colours, int nlev, float undefValue, float x0, float y0, float dx, float dy, int stripRows);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr velmarCntrShadJ([In] float[] grid, int nx, int ny, int nClasses, float undefValue,
            float x0, float y0, float dx, float dy, int stripRows);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr velmarCntrShadD([In] float[] grid, int nx, int ny, [In] float[] levels,
            [In] int[] colours, int nlev, float undefValue, int stripRows, [In] float[] xSteps, [In] float[] ySteps);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr readCntrShadData([In] byte[] path, int reserved, int stripRows);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr readByteShadData([In] byte[] path, int stripRows, int mode, float level);

        // Polygon tools. The pointer that polygonfill returns is the end of its outline and may be the one it was
        // given, so the points are passed in memory that does not move.
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr polygonfill(IntPtr points, int n, float xlo, float ylo, float xhi, float yhi,
            out int outCount);

        [DllImport(Library, CallingConvention = C)]
        public static extern int Clip([In, Out] float[] points, float xmin, float ymin, float xmax, float ymax, int n);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr SHClip([In] float[] points, float ex1, float ey1, float ex2, float ey2, int n,
            out int outCount);

        [DllImport(Library, CallingConvention = C)]
        public static extern int SHClipPntNum();

        // Objective analysis
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr barnes(float kappa, float radius, float gamma, int nx, int ny, int startLon,
            int endLon, int startLat, int endLat, int n, [In] float[] lon, [In] float[] lat, [In] float[] value,
            float maskRadius);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr cressman(int nscan, [In] float[] radii, int nx, int ny, float startLon,
            float endLon, float startLat, float endLat, int n, [In] float[] lon, [In] float[] lat, [In] float[] value,
            float maskRadius);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr OAReadVelmar1([In] byte[] path, int method, int element, int autoBounds,
            float startLon, float endLon, float startLat, float endLat, float latStep, float lonStep,
            float maskRadius);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr OAReadVelmar3([In] byte[] path, int method, int autoBounds, float startLon,
            float endLon, float startLat, float endLat, float latStep, float lonStep, float maskRadius);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadVelmar1Tqq([In] byte[] path, int unused, int element, int autoBounds,
            float startLon, float endLon, float startLat, float endLat, float latStep, float lonStep, float radius);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr TqqOA([In] float[] lon, [In] float[] lat, [In] float[] value, int n,
            int autoBounds, float startLon, float endLon, float startLat, float endLat, float latStep, float lonStep,
            float radius);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr gagexps([In] float[] grid, int nx, int ny, int fx, int fy, float undef);

        // Wind
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr readVelmarData11([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr streamAnalyse([In] float[] u, [In] float[] v, [In] float[] c, int nx, int ny,
            float uUndef, float vUndef, float cUndef, int colourFlag, [In] float[] levels, [In] int[] colours,
            int levelCount, int density);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr readWindData([In] byte[] path, int density);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr hdiv([In] float[] p, [In] float[] q, int nx, int ny, float missing, float startLon,
            float startLat, float lonStep, float latStep);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr hvor([In] float[] p, [In] float[] q, int nx, int ny, float missing, float startLon,
            float startLat, float lonStep, float latStep);

        [DllImport(Library, CallingConvention = C)]
        public static extern int ffhdiv([In, Out] float[] output, [In] float[] p, [In] float[] q, int nx, int ny,
            float missing, float startLon, float startLat, float lonStep, float latStep);

        [DllImport(Library, CallingConvention = C)]
        public static extern int ffhvor([In, Out] float[] output, [In] float[] p, [In] float[] q, int nx, int ny,
            float missing, float startLon, float startLat, float lonStep, float latStep);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr readWindDivVor([In] byte[] path, int vorticity, out float startLon,
            out float startLat, out float lonStep, out float latStep, out int nx, out int ny);

        // Station files
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadVelmarData1([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadVelmarData2([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadVelmarData8([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadVelmarData16([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadVelmarData3([In] byte[] path);

        // Lines and maps
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadVelmarData780([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadVelmarData777([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr ReadMap9([In] byte[] path);

        // Soundings and rainfall
        [DllImport(Library, CallingConvention = C)]
        public static extern int readVelmarData5([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr DiscreteAdd(int startYear, int startMonth, int startDay, int startHour,
            int endYear, int endMonth, int endDay, int endHour, [In] byte[] directory, int stepHours);

        // Regions: names and single boundaries belong to the library
        [DllImport(Library, CallingConvention = C)]
        public static extern int readRegionData([In] byte[] path);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr countyNameFromRegion(float x, float y);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr getSingleRegionBoundaryByOrder(int index, out int count);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr getSingleRegionBoundaryByName([In] byte[] name, out int count);

        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr getAllRegionBoundaryByName([In] byte[] name, out int total);

        // Triangles and the sphere
        [DllImport(Library, CallingConvention = C)]
        public static extern IntPtr SanJiao([In] float[] x, [In] float[] y, [In, Out] float[] values,
            [In] float[] levels, int n, int mode, float start, float interval, int levelCount);

        [DllImport(Library, CallingConvention = C)]
        public static extern void FJJS2(float lon1, float lat1, float lon2, float lat2, out float bearing,
            out float angle, out float distance);
    }
}
