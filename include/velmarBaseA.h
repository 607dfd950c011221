/* velmarBaseA: base library of meteorological analysis routines.
 *
 * Plain C interface. It compiles as C99 and as C++.
 *
 * Result arrays
 *   Most exports return one heap block of 32-bit floats. Counts and sizes in it are stored as float values.
 *   Unless a function says otherwise, element 0 is the number of elements of the block, itself included, or,
 *   when it is negative, an error code, and the block then holds this one element only. Test element 0 first.
 *   The caller owns every returned block and releases it once with freecPointer(). docs/results.md draws all
 *   layouts.
 *
 * Error codes of the file readers
 *   -1  the file cannot be opened (reported on standard error, with its path when it should be a grid file)
 *   -2  the first line of the header cannot be read
 *   -3  the type number in it is not the one this reader expects
 *   -4  the keyword in it is not "diamond"
 *   -5  the rest of the header cannot be read
 *   -6  a data value of a globe-circling grid cannot be read
 *   -7  a data value cannot be read
 *   A failure of another kind, such as a lack of memory, is reported with the last of a reader's codes, or
 *   with null when there is no memory for the code either.
 *
 * Grids
 *   nx columns and ny rows of 32-bit floats, row after row: column i of row j is element j * nx + i. Column 0
 *   lies at the start longitude, row 0 at the start latitude; longitudes and latitudes are in degrees, steps
 *   may be negative. A grid whose nx or ny is not positive holds no values.
 *
 * Paths are NUL-terminated 8-bit strings in the code page of the host's file system.
 *
 * Threads
 *   Every export may be called from any thread; calls wait for each other. Those with much to do use threads of their
 *   own, which have ended on return; VELMAR_THREADS in the environment sets their number. A returned block stays
 *   valid until its owner releases it. What else outlives a call is one for the process, not one for each thread, and
 *   is named where the export is described:
 *     polygonfill           the outline of 3 to 9 points, until the next such call
 *     SHClipPntNum          the number of the last SHClip call
 *     contour2DRaw          uses the refinement factors of the last contour2D or readCntrData call
 *     contour2D, contour2DRaw, readCntrData
 *                           return the bold-line value of the last header read by readVelmar4 or readCntrData
 *     streamAnalyse         uses the place of the last file read by readWindData or readWindDivVor, and the
 *                           last colour of the streamlines before
 *     ReadMap9              returns lines once in a process
 *     readRegionData        loads once in a process; names and points of single regions stay valid as long
 *   A host with several threads holds a lock of its own around such calls that belong together. The other
 *   exports keep nothing that a host can see.
 */
#ifndef VELMAR_BASE_A_H
#define VELMAR_BASE_A_H

#include <stdint.h>

#define VELMAR_VERSION "1.0.0"

#if defined(_WIN32)
#define VELMAR_EXPORT __declspec(dllexport)
#elif defined(__GNUC__)
#define VELMAR_EXPORT __attribute__((visibility("default")))
#else
#define VELMAR_EXPORT
#endif

#ifdef __cplusplus
#define VELMAR_NOEXCEPT noexcept
extern "C" {
#else
#define VELMAR_NOEXCEPT
#endif

/* ---- Release ------------------------------------------------------------------------------------------- */

/* Releases a block that an export returned; null is allowed. The three names are the same function. */
VELMAR_EXPORT void freecPointer(void* block) VELMAR_NOEXCEPT;
VELMAR_EXPORT void cntrFreeLineVar(void* block) VELMAR_NOEXCEPT;
VELMAR_EXPORT void cntrShadFreeLineVar(void* block) VELMAR_NOEXCEPT;

/* ---- Probes: how a host's marshalling of integers, pointers and arrays is checked ---------------------- */

/* Stores a + b, wrapped to 32 bits, in *sum (when sum is not null) and returns it. */
VELMAR_EXPORT int mySum(int a, int b, int* sum) VELMAR_NOEXCEPT;

/* Returns the sum of count integers, wrapped to 32 bits, and then adds 100 to each in place. A count below 1
 * or a null array gives 0 and changes nothing. */
VELMAR_EXPORT int TestArrayOfInts(int* values, int count) VELMAR_NOEXCEPT;

/* Replaces *values by a new array of five integers, each 100 above the element it stands for, sets *count to
 * 5 and returns the sum of the first *count elements of the old array (0 when *count is below 1), wrapped to
 * 32 bits. Five elements of the old array are read whatever *count is: hosts pass five. Ownership: the old
 * array is released and the new one allocated with CoTaskMemFree and CoTaskMemAlloc on Windows, with free and
 * malloc elsewhere. On a null argument or a lack of memory it returns 0 and changes nothing. */
VELMAR_EXPORT int TestRefArrayOfInts(int** values, int* count) VELMAR_NOEXCEPT;

/* ---- Grid file ----------------------------------------------------------------------------------------- */

/* Reads a grid file ("diamond" type 4).
 *
 *   path  the file
 *
 * Result, with n = nx * ny values (0 when nx or ny is not positive):
 *   0             n + 16, the element count
 *   1, 2          nx, ny as the file has them
 *   3, 4          start longitude, start latitude
 *   5, 6          end longitude, end latitude
 *   7, 8          longitude step, latitude step
 *   9, 10         largest and smallest value, missing ones (9999) included; -1e36 and 1e36 without values
 *   11 to 10 + n  the values, row after row from the start latitude
 *   11 + n ...    contour interval, start and end contour value, smoothing factor, bold-line value
 *
 * Errors: -1 to -5 and -7, in a one-element block. Release with freecPointer(). */
VELMAR_EXPORT float* readVelmar4(const char* path) VELMAR_NOEXCEPT;

/* ---- Contour lines ------------------------------------------------------------------------------------- */

/* Draws the contour lines of a grid.
 *
 * contour2D first refines the grid by cubic Hermite interpolation: 200 / nx times along rows and 50 / ny
 * times along columns (whole numbers; above 5 means 4, below 1 means 1). contour2DRaw traces the grid as it
 * is, but divides positions by the factors of the last contour2D call of the process, even one that returned
 * null (1 before the first): a host that mixes the two must know this.
 *
 *   grid          ny rows of nx values; not changed
 *   missing       value of grid points without data; no line passes an edge that touches one
 *   nx, ny        columns and rows
 *   mode          0: levels start + k * interval up to end
 *                 1: levels chosen from the data: about count intervals, rounded to one digit
 *                 2: the count levels of the list
 *   start, end    first and last level (mode 0)
 *   interval      distance of levels (mode 0); negative where start is above end
 *   levels        list of count levels (mode 2), otherwise unused and may be null
 *   count         mode 1: wanted number of intervals; mode 2: length of the list; mode 0: unused
 *   x0, y0        longitude of column 0 and latitude of row 0, degrees
 *   dx, dy        longitude step and latitude step, degrees
 *
 * More than 1,000,000 levels are taken for a mistake: no line is drawn.
 *
 * Result, with L lines of P(1) ... P(L) points and n = nx * ny:
 *   0             15 + 3 L + 2 (P(1) + ... + P(L)) + n, the element count
 *   1             L
 *   per line      its number of points P, its level, 0, then P pairs longitude, latitude; the lines of one
 *                 level stand together, levels in the order of the level list; a closed line repeats its
 *                 first point
 *   then          -1, a separator
 *   next 8        nx, ny, x0, y0, longitude of the last column, latitude of the last row, dx, dy
 *   next n        the grid as passed in
 *   last 4        bold-line value of the last grid file that readVelmar4 or readCntrData has read (0 before
 *                 the first), start, end, interval. In mode 1, when the data do not straddle zero, start is
 *                 the one chosen from the data.
 *
 * Returns null when mode is not 0, 1 or 2, when a pointer that is needed is null, or for lack of memory.
 * Release with cntrFreeLineVar(). */
VELMAR_EXPORT float* contour2D(const float* grid, float missing, int nx, int ny, int mode, float start,
                               float end, float interval, const float* levels, int count, float x0, float y0,
                               float dx, float dy) VELMAR_NOEXCEPT;
VELMAR_EXPORT float* contour2DRaw(const float* grid, float missing, int nx, int ny, int mode, float start,
                                  float end, float interval, const float* levels, int count, float x0,
                                  float y0, float dx, float dy) VELMAR_NOEXCEPT;

/* Reads a grid file and draws its contour lines as contour2D does, with 9999 as the missing value.
 *
 *   path    the file
 *   mode    0: levels from the file's header; 1: chosen from the data; 2: the levels of the list
 *   count   as in contour2D
 *   levels  as in contour2D
 *
 * No levels are used when the header asks for more than 10,000.
 *
 * A grid that circles the globe (nx times the longitude step between 359.5 and 360.01) gets one more column,
 * equal to its first, so that lines cross the seam; the result then counts that column.
 *
 * Result: that of contour2D. Errors: -1 to -7 in a one-element block; null when mode is not 0, 1 or 2
 * (nothing is read then) or when mode is 2 and levels is null. Release with cntrFreeLineVar(). */
VELMAR_EXPORT float* readCntrData(const char* path, int mode, int count, const float* levels) VELMAR_NOEXCEPT;

/* ---- Centres ------------------------------------------------------------------------------------------- */

/* Finds the centres of highs and lows: inner grid points above or below their eight neighbours. A point may
 * equal its neighbour in the next column, and a low is not compared with its neighbour in the column before
 * and the row before.
 *
 *   grid      ny rows of nx values; not changed
 *   missing   value left out of the data range; such a point is still compared like any other
 *   nx, ny    columns and rows
 *   unused    0
 *   x0, y0    longitude of column 0 and latitude of row 0, degrees
 *   dx, dy    longitude step and latitude step, degrees
 *
 * Result, with K centres ordered by column, then by row; 7 K + 2 elements:
 *   0         K (not the element count)
 *   per centre  -1 for a low, 1 for a high; longitude; latitude; grid value; strength divided by the data
 *               range; number of grid steps that the strength was taken over; class of strength (a whole
 *               number, which may be negative)
 *   last        0
 * The strength, in units of the grid, adds up the slopes in the four directions. A slope is the mean
 * difference per grid step of a walk from the centre, as long as values rise from a low or fall from a high; of
 * a walk that comes to the edge of the grid it is the sum of the differences. The walk towards higher rows
 * takes each row's difference from the row before: its first one is that of the walk towards lower rows, and it
 * mostly ends with the second. Where a centre equals its neighbour in the next column, the strength is not a
 * number.
 *
 * Returns null when grid is null but should hold values, or for lack of memory. Release with freecPointer().
 */
VELMAR_EXPORT float* findCenters(const float* grid, float missing, int nx, int ny, int unused, float x0,
                                 float y0, float dx, float dy) VELMAR_NOEXCEPT;

/* ---- Shading ------------------------------------------------------------------------------------------- */

/* Shades a grid: fills the bands between levels with polygons.
 *
 *   grid        ny rows of nx values; not changed
 *   nx, ny      columns and rows, at least 2 each, or there is nothing to fill
 *   levels      nlev levels, ascending, in units of the grid
 *   colours     nlev colours, each of the band above its level
 *   nlev        length of both lists; no level is used when it is above 1,000,000
 *   undefValue  value of grid points without data; values that are not finite are undefined too
 *   x0, y0      longitude of column 0 and latitude of row 0, degrees
 *   dx, dy      longitude step and latitude step, degrees
 *   stripRows   the grid is filled in strips of this many rows of cells, from row 0 on; below 1: in one strip
 *
 * Draw the polygons in their order, each filled with its colour: later ones cover earlier ones. What is
 * painted in strips of one row is right everywhere. Strips of several rows are faster and hold fewer polygons,
 * but some places are painted wrongly, such as islands inside a hole (docs/limitations.md names them
 * all).
 *
 * The trace of a region has room for nx * ny points, the closing point included. One that needs more
 * ends the call: that of a grid of two rows or two columns that lies above a level as a whole, or of a
 * checkerboard in one strip.
 *
 * Result, with P polygons of n(1) ... n(P) points and n = nx * ny:
 *   0             12 + 3 P + 2 (n(1) + ... + n(P)) + n, the element count
 *   1             P
 *   per polygon   its number of points, its level, its colour, then its points: pairs longitude, latitude
 *   then          -1, the end mark of the polygons
 *   next 8        nx, ny, x0, y0, longitude of the last column, latitude of the last row, dx, dy
 *   next n        the grid as passed in
 *   last          0, without a meaning
 * The last point of a polygon is its first again. Colours below 0 become 0, those above 99 become 99.
 * Polygons of holes come at the end of their strip, and the level recorded for them is the last of the
 * list.
 *
 * Returns null when there is no polygon (all values below the levels), when a trace fails, when nx or
 * ny is not positive or a pointer is null, or for lack of memory; what failed is printed on standard
 * output. Release with cntrShadFreeLineVar(). */
VELMAR_EXPORT float* velmarCntrShad(const float* grid, int nx, int ny, const float* levels,
                                    const int* colours, int nlev, float undefValue, float x0, float y0,
                                    float dx, float dy, int stripRows) VELMAR_NOEXCEPT;

/* Shades a grid of class numbers 0, 1, ..., nClasses - 1: as velmarCntrShad with levels and colours 0,
 * 1, ..., nClasses - 1; no class is used when there are more than 1,000,000. Result, null and release as there. */
VELMAR_EXPORT float* velmarCntrShadJ(const float* grid, int nx, int ny, int nClasses, float undefValue,
                                     float x0, float y0, float dx, float dy, int stripRows) VELMAR_NOEXCEPT;

/* Shades a grid whose columns and rows are not evenly spaced.
 *
 *   xSteps  nx + 1 numbers: the position of column 0, then the spacing of each following column
 *   ySteps  ny + 1 numbers: the same for rows
 *   others  as in velmarCntrShad
 *
 * Positions of polygons are in the units of the tables: a whole number m of grid steps becomes the sum
 * of entries 0 to m, and a fraction adds that part of entry m + 1. Polygons of holes are counted from 1
 * instead of 0 and so lie one column and one row too far; only they reach the last entry of the tables.
 * The eight values after the polygons are those of columns and rows counted from 0:
 * nx, ny, 0, 0, nx - 1, ny - 1, 1, 1.
 *
 * Result, null and release as for velmarCntrShad. */
VELMAR_EXPORT float* velmarCntrShadD(const float* grid, int nx, int ny, const float* levels,
                                     const int* colours, int nlev, float undefValue, int stripRows,
                                     const float* xSteps, const float* ySteps) VELMAR_NOEXCEPT;

/* Reads a grid file and shades it as velmarCntrShad does, with 9999 as the value of points without data
 * and the levels of the file's header: start value + k * interval up to the end value, with colour k.
 *
 *   path       the file
 *   reserved   not used
 *   stripRows  as in velmarCntrShad
 *
 * No levels are used when the header asks for more than 10,000. A grid that circles the globe (nx times the
 * longitude step between 359.5 and 360.01) gets one more column, equal to its first; the result then
 * counts that column.
 *
 * Result, null and release as for velmarCntrShad. Errors, in a one-element block: -1 to -4; -5 when the
 * header or a value of a grid that circles the globe cannot be read; -6 when a value of another grid
 * cannot be read, or for lack of memory. */
VELMAR_EXPORT float* readCntrShadData(const char* path, int reserved, int stripRows) VELMAR_NOEXCEPT;

/* Reads a byte image file ("March" type 13) and shades it as velmarCntrShad does. Byte 255 counts as
 * -1. Points of value 20 have no data in images of kind 5; in other images every point has.
 *
 *   path       the file
 *   stripRows  as in velmarCntrShad
 *   mode       1: one level, with colour 0; any other: levels 0, 1, ..., 255 with their numbers as colours
 *   level      the level (mode 1)
 *
 * Result, null and release as for velmarCntrShad. Null too, without an error code, when the file cannot
 * be opened (this is reported on standard error), has another keyword, or is shorter than its header says.
 */
VELMAR_EXPORT float* readByteShadData(const char* path, int stripRows, int mode, float level) VELMAR_NOEXCEPT;

/* ---- Polygon tools: polygons are arrays of pairs x, y; the last point joins the first ------------------ */

/* Pulls a polygon into a rectangle, so that it can be filled as it stands: points inside or on a side
 * are kept, points outside are moved to the nearest place of the rectangle, and where the outline
 * passes a side, the crossing is inserted. The segment from the last point to the first brings no
 * crossing.
 *
 *   points    n pairs; not changed
 *   n         number of points
 *   xlo, ylo  lower bounds of the rectangle
 *   xhi, yhi  upper bounds
 *   outCount  receives the number of points of the outline, less than 2 n
 *
 * Returns the END of the outline, not its start, which is the returned pointer minus 2 * *outCount
 * floats.
 *   n below 10   the outline belongs to the library and is valid until the next call of polygonfill with n
 *                from 3 to 9, from whatever thread
 *   n from 10    the start of the outline is a block of the caller: release that with freecPointer()
 * With n below 3, or for lack of memory, it returns points and *outCount is 0. The same when points or
 * outCount is null.
 *
 * Each call writes marks of its progress to a file named C:\clipdebug.txt, in the current directory
 * where this names no drive. When that cannot be opened, or is a link, it returns null and leaves *outCount
 * alone. */
VELMAR_EXPORT float* polygonfill(float* points, int n, float xlo, float ylo, float xhi, float yhi,
                                 int* outCount) VELMAR_NOEXCEPT;

/* Clips a polygon by a rectangle, after Sutherland and Hodgman (1974): by its bottom, right, top and
 * left side in this order. Parts of a concave polygon stay joined along a side.
 *
 *   points      n pairs; receives the clipped polygon
 *   xmin, ymin  lower bounds of the rectangle, whose sides count as inside
 *   xmax, ymax  upper bounds
 *   n           number of points
 *
 * The clipped polygon may have MORE than n points, and the array must have room for them. A side makes
 * at most k + k / 2 points of k, so room for 81 n / 16 points is always enough. A convex polygon gains
 * one point per side at most, unless rounding has made it concave.
 *
 * Returns the number of points of the clipped polygon: 0 when nothing is left, when n is not positive
 * or points is null, or for lack of memory (the array is as it was then). */
VELMAR_EXPORT int Clip(float* points, float xmin, float ymin, float xmax, float ymax, int n) VELMAR_NOEXCEPT;

/* Clips a polygon by the line of one directed edge, horizontal or vertical: one stage of Clip. What
 * lies on the left of the edge, or on its line, is kept.
 *
 *   points    n pairs; not changed
 *   ex1, ey1  where the edge begins
 *   ex2, ey2  where it ends; with both ends equal nothing is kept
 *   n         number of points
 *   outCount  receives the number of points of the clipped polygon; may be null
 *
 * Returns a block of 2 max(1, n) pairs: the clipped polygon, at most n + n / 2 points, then zeros.
 * Null, with *outCount 0, when points is null and n positive, or for lack of memory. Release with
 * freecPointer(). */
VELMAR_EXPORT float* SHClip(const float* points, float ex1, float ey1, float ex2, float ey2, int n,
                            int* outCount) VELMAR_NOEXCEPT;

/* Returns the number of points that the last SHClip call of the process left, from whatever thread it came; 0 before
 * the first. */
VELMAR_EXPORT int SHClipPntNum(void) VELMAR_NOEXCEPT;

/* ---- Objective analysis: scattered stations onto a grid ------------------------------------------------ */

/* Spreads station values onto a grid with Gaussian weights, after Barnes (1964): a first guess from all
 * stations within a radius, then five passes that pull the grid towards the stations, each with a
 * smaller radius and a sharper weight.
 *
 *   kappa               width of the first guess's Gaussian, exp(-d^2 / (4 kappa)), square degrees
 *   radius              how far a station reaches in the first guess, degrees
 *   gamma               convergence: the width of pass p is kappa * gamma^p, its radius radius / (p + 2)
 *   nx, ny              columns and rows, end bounds included
 *   startLon, endLon    longitudes of the first and last column, whole degrees
 *   startLat, endLat    latitudes of the first and last row, whole degrees
 *   n                   number of stations
 *   lon, lat, value     n longitudes, latitudes (degrees) and values; not changed
 *   maskRadius          above 0 (degrees): the grid is capped by the largest value of the stations so near,
 *                       and -9999 where there is none
 *
 * The distance d is that of a flat earth, the difference of longitudes shrunk by the cosine of the mean
 * latitude. A point at a station's very place takes its value. The first station of the list takes no part
 * in the first guess, which is 0 where no other is near. The state before each pass is printed: the
 * largest and the mean absolute residual of the stations, and the root of the summed squares of their
 * deviations from the mean.
 *
 * Returns the bare grid of nx * ny values, row after row; no count stands before it. Null when nx or ny
 * is not positive, when a list is null and n positive, or for lack of memory. Release with
 * freecPointer(). */
VELMAR_EXPORT float* barnes(float kappa, float radius, float gamma, int nx, int ny, int startLon, int endLon,
                            int startLat, int endLat, int n, const float* lon, const float* lat,
                            const float* value, float maskRadius) VELMAR_NOEXCEPT;

/* Spreads station values onto a grid by successive corrections, after Cressman (1959).
 *
 *   nscan               number of scans
 *   radii               nscan influence radii in grid lengths, in the order of the scans
 *   nx, ny              columns and rows, end bounds included
 *   startLon, endLon    longitudes of the first and last column, degrees
 *   startLat, endLat    latitudes of the first and last row, degrees
 *   n                   number of stations
 *   lon, lat, value     n longitudes, latitudes (degrees) and values; -9999 is no value; not changed
 *   maskRadius          as in barnes
 *
 * Stations west of the grid are looked for a circle further east, those east of it further west. The first
 * guess is the SUM of the values of all stations in the grid. Points that no station reaches in the third
 * scan are -9999 in the end; with fewer scans they keep the first guess.
 *
 * Returns the bare grid of nx * ny values, row after row; no count stands before it. Null when nx or ny
 * is not positive, when a list is null and its length positive, when the values add up to exactly -9999
 * ("retrn" is printed), or for lack of memory ("err!" is printed). Release with freecPointer(). */
VELMAR_EXPORT float* cressman(int nscan, const float* radii, int nx, int ny, float startLon, float endLon,
                              float startLat, float endLat, int n, const float* lon, const float* lat,
                              const float* value, float maskRadius) VELMAR_NOEXCEPT;

/* Reads a file of surface reports ("diamond" type 1; the keyword is not checked) and analyses one element of
 * them.
 *
 *   path                the file
 *   method              0: as cressman does, with scan radii of 25, 10, 5, 2 and 1 grid lengths
 *                       1: as barnes does, with kappa 0.25, radius 20, gamma 0.3, and the bounds cut to
 *                       whole degrees; any other: nothing is analysed
 *   element             0: field 13 of a report, 9999 and above counting as -1
 *                       1: field 20; 2, 3 and 4: field 8; any other: no station
 *   autoBounds          0: the bounds given; else those of the stations with a value, the last one of them too,
 *                       a degree wider on each side, within 0 to 360 and -90 to 90
 *   startLon, endLon    longitudes of the grid, degrees
 *   startLat, endLat    latitudes of the grid, degrees
 *   latStep, lonStep    distance of rows, then of columns, degrees
 *   maskRadius          as in barnes, degrees
 *
 * There are nx = (endLon - startLon) / lonStep + 1 columns and as many rows by latitude, in single precision
 * and cut to whole numbers. The last column lies at endLon and the last row at endLat, even where that makes
 * the distances between them other than the ones asked for.
 *
 * A report whose value is 9999 or 999999, fractions left aside, has no value. Reading ends at the first
 * report that is incomplete. Of the reports read the last is not used, nor is the last of the stations with a
 * value. The k-th value found is analysed at the place of the k-th report of the file: after a report
 * without a value the two are out of step.
 *
 * The grid is also written to a grid file OAtestC.000 in the current directory, but not through a link, nor over
 * the file itself; its contour values are the smallest and the largest value, its interval 5. The numbers of
 * stations and the limits of their values are printed, and with values below -1000 a line per station.
 *
 * Returns the bare grid of nx * ny values, row after row; no count stands before it. Null, and no file, for
 * another method or where the analysis gives null. Errors, in a one-element block: -1 (reported on standard
 * error) to -3; -4 when the date or the number of reports cannot be read, or for lack of memory. A grid may
 * begin with such a value too. Release with freecPointer(). */
VELMAR_EXPORT float* OAReadVelmar1(const char* path, int method, int element, int autoBounds, float startLon,
                                   float endLon, float startLat, float endLat, float latStep, float lonStep,
                                   float maskRadius) VELMAR_NOEXCEPT;

/* Reads a file of station values ("diamond" type 3, one value a station; the keyword is not checked) and
 * analyses them.
 *
 *   path        the file
 *   method      below 0: no grid; 0: as in OAReadVelmar1; 1: as there, but with radius 10; above 1: a grid of
 *               undefined points
 *   autoBounds  as in OAReadVelmar1; stations without a value count too
 *   others      as in OAReadVelmar1
 *
 * A station whose value is 9999 or 999999, fractions left aside, has no value and is left out. Reading ends at
 * the first station that is incomplete. Stations left out before it keep their places then: as many follow the
 * others and are analysed like them. The first of them is the incomplete station, with the items of a station
 * without a value right before it in place of those that it lacks, or 0; the others are zeros.
 *
 * Result, with S stations, L contour levels and n = nx * ny (nx and ny as in OAReadVelmar1, 0 and 0 without a
 * grid; n is 0 when one is not positive):
 *   0             n + 5 S + L + 11, the element count
 *   1             S
 *   2, 3          nx, ny
 *   4 to 7        startLon, endLon, startLat, endLat
 *   8, 9          lonStep, latStep as asked for
 *   10            L
 *   next L        the contour levels
 *   per station   number, height, longitude, latitude, value
 *   next n        the grid, row after row; -1e20 at each point when the method or the analysis gives none
 *
 * Errors, in a one-element block: -1 (reported on standard error) to -3; -4 the second line; -5 a contour level;
 * -6 the items in front of the boundary; -7 the boundary; -8 another number of values per station than one;
 * -9 the number of stations, or a lack of memory. Errors -2 to -7 are also printed. Release with
 * freecPointer(). */
VELMAR_EXPORT float* OAReadVelmar3(const char* path, int method, int autoBounds, float startLon, float endLon,
                                   float startLat, float endLat, float latStep, float lonStep,
                                   float maskRadius) VELMAR_NOEXCEPT;

/* Reads a file of surface reports as OAReadVelmar1 does and marks what lies near to a kind of them.
 *
 *   path     the file
 *   unused   not used
 *   element  what is looked at: 0: whether field 19 of a report lies between 10 and 12 (mist);
 *            1: whether field 17 is above 0; any other: no station
 *   radius   degrees, on an earth that is flat nearby, as in barnes
 *   others   as in OAReadVelmar1
 *
 * A point is 1 when the nearest station is less than the radius away and what is looked at is so there, else
 * -1. Of several nearest stations the first counts. Values and positions are in step. Of the reports read the
 * last is not used, nor is the last of the stations with a value.
 *
 * Result, with n = nx * ny (0 when one is not positive):
 *   0         n + 9, the element count
 *   1 to 4    startLon, endLon, startLat, endLat
 *   5, 6      lonStep, latStep
 *   7, 8      nx, ny
 *   next n    the field, row after row
 * The field is also written to a grid file OAtestttq.000 in the current directory, as OAtestC.000 is.
 *
 * Errors and release as in OAReadVelmar1. */
VELMAR_EXPORT float* ReadVelmar1Tqq(const char* path, int unused, int element, int autoBounds, float startLon,
                                    float endLon, float startLat, float endLat, float latStep, float lonStep,
                                    float radius) VELMAR_NOEXCEPT;

/* Gives each grid point the value of the nearest station.
 *
 *   lon, lat, value     n longitudes, latitudes (degrees) and values; not changed
 *   n                   number of stations
 *   radius              degrees, as in ReadVelmar1Tqq
 *   others              as in OAReadVelmar1
 *
 * Stations without a value (9999 or 999999, fractions left aside) take no part, nor does the last station
 * that has one. A point is -1 when no station is less than the radius away, when those that are lie twice the
 * radius or more away in longitude (towards the poles), or when the nearest value is negative.
 *
 * Result as for ReadVelmar1Tqq; the field is also written to a grid file OATQQ.000 in the current directory.
 * Null when a list is null and n positive, or for lack of memory. Release with freecPointer(). */
VELMAR_EXPORT float* TqqOA(const float* lon, const float* lat, const float* value, int n, int autoBounds,
                           float startLon, float endLon, float startLat, float endLat, float latStep,
                           float lonStep, float radius) VELMAR_NOEXCEPT;

/* Refines a grid by piecewise cubic Hermite interpolation, rows first, then columns. The slope at a point
 * is half the difference of its two neighbours, or the difference across the interval itself where one of
 * them is undefined or beyond the edge. Grid points keep their values; an interval with an undefined end is
 * undefined inside.
 *
 *   grid    ny rows of nx values; not changed
 *   fx, fy  into how many parts the intervals along rows and along columns are divided, at least 1
 *   undef   value of points without data
 *
 * Returns the bare grid of ((nx - 1) fx + 1) * ((ny - 1) fy + 1) values, row after row. Null when a factor
 * is below 1, when nx or ny is not positive, when grid is null, or for lack of memory. Release with
 * freecPointer(). */
VELMAR_EXPORT float* gagexps(const float* grid, int nx, int ny, int fx, int fy, float undef) VELMAR_NOEXCEPT;

/* ---- Wind ---------------------------------------------------------------------------------------------- */

/* Reads a wind file ("diamond" type 11, though any type number is accepted): the eastward wind u, then the
 * northward wind v. Rows of a file whose latitude step is not above 0 are turned round, so that they always
 * run from south to north: the latitude step changes its sign, start and end latitude change places.
 *
 *   path  the file
 *
 * Result, with n = nx * ny:
 *   0              8 n + 15, kept to 32 bits; this is NOT the element count, which is 2 n + 15
 *   1 to 6         year, month, day, hour, forecast hours, level
 *   7, 8           longitude step, latitude step (0 or more)
 *   9, 10          start and end longitude
 *   11, 12         start and end latitude
 *   13, 14         nx, ny
 *   15 ...         n values of u, then n values of v, both row after row, the southernmost first
 *
 * Errors, in a one-element block: -1 (reported on standard error); -2 the first line; -3 the keyword in it is not
 * "diamond"; -4 the rest of the header, or nx or ny not positive; -5 a value of u and -6 one of v in a file
 * from south to north; -7 and -8 the same in a file from north to south (-8 also for lack of memory). Release
 * with freecPointer(). */
VELMAR_EXPORT float* readVelmarData11(const char* path) VELMAR_NOEXCEPT;

/* Draws streamlines of a wind field, evenly spaced: the field is divided into fine cells, a line starts in the
 * lower left corner of every cell, row after row, that has no line near it, runs both with and against the
 * flow, and ends where it comes to a cell that a line has passed, to a point without data, to a calm (both
 * components below 0.1) or to the edge.
 *
 *   u, v              ny rows of nx values each, eastward and northward wind, m/s, the southernmost row first
 *   c                 what the lines are coloured by, of the same size; not needed when colourFlag is 0
 *   nx, ny            columns and rows
 *   uUndef, vUndef, cUndef  values of points without data in u, v and c
 *   colourFlag        0: all lines have colour 1
 *   levels, colours   levelCount ascending levels and as many colours: colour k is that of the values from
 *                     level k to below level k + 1. The first colour also has all that is below, the last all
 *                     that is above and what is not a number. Without levels the colour is 1; where c has no
 *                     data it is 15. Pieces with a colour below 0 are left out; colours above 99 count as 99.
 *   levelCount        length of both; below 1: no levels
 *   density           5 is usual; larger values give more lines, and cells of 1/10 grid length at most
 *
 * The grids lie where the last wind file lay that readWindData or readWindDivVor read (at 0 before that, with
 * steps of 0).
 *
 * Result, with P points, A arrows, B = 4 P + 6 A and n = nx * ny; B + 2 n + 12 elements:
 *   0          B + 2 n + 11; this is one less than the element count
 *   1          B + 2
 *   per point  0 to start a line here or 1 to draw to here from the point before, longitude, latitude, colour.
 *              Each line starts twice at one place: for the part with the flow, then for that against it.
 *              These starts carry the colour of the piece before, the first of a call that of the call
 *              before (0 before the first). Where pieces have been left out, a line starts again.
 *   per arrow  2, longitude and latitude of its tail, then of its head (downstream), colour
 *   next 2     0, -1
 *   next 8     nx, ny, start longitude, start latitude, end longitude, end latitude, longitude step, latitude
 *              step
 *   next 2 n   u and v of each grid point in turn, row after row
 * A result without arrows is reported on standard output.
 *
 * Returns null when nx or ny is not positive, when a pointer that is needed is null, or for lack of memory
 * (reported on standard output when it is the memory of the cells). Release with freecPointer(). */
VELMAR_EXPORT float* streamAnalyse(const float* u, const float* v, const float* c, int nx, int ny,
                                   float uUndef, float vUndef, float cUndef, int colourFlag,
                                   const float* levels, const int* colours, int levelCount,
                                   int density) VELMAR_NOEXCEPT;

/* Reads a wind file as readVelmarData11 does and draws its streamlines as streamAnalyse does, coloured by
 * speed: colour k, from 0 to 39, is that of 2 k to below 2 k + 2 m/s, 39 that of all from 78 m/s on. The value
 * 9999 is no data.
 *
 *   path     the file
 *   density  as in streamAnalyse
 *
 * Result: that of streamAnalyse. Errors: those of readVelmarData11; a lack of memory for the streamlines gives
 * null. Release with freecPointer(). */
VELMAR_EXPORT float* readWindData(const char* path, int density) VELMAR_NOEXCEPT;

/* Divergence and relative vorticity of a wind field on the sphere, by centred differences over two grid
 * lengths:
 *   hdiv   (dp/dx + d(q cos lat)/dy) / (a cos lat); with p = u and q = v the divergence
 *   hvor   (dp/dx - d(q cos lat)/dy) / (a cos lat); with p = v and q = u the relative vorticity
 * where x and y are longitude and latitude in radians and the earth's radius a is 6370 km.
 *
 *   p, q                ny rows of nx values each, m/s; not changed
 *   nx, ny              columns and rows
 *   missing             value of points without data
 *   startLon, startLat  longitude of column 0 and latitude of row 0, degrees
 *   lonStep, latStep    longitude step and latitude step, degrees
 *
 * A point is missing on the edges of the grid, where one of its four neighbours that are needed is missing, and
 * at the poles. Pi is taken as 3.1416.
 *
 * Returns the bare grid of nx * ny values in 1/s; no count stands before it. Null when nx or ny is not
 * positive, when p or q is null, or for lack of memory. Release with freecPointer(). */
VELMAR_EXPORT float* hdiv(const float* p, const float* q, int nx, int ny, float missing, float startLon,
                          float startLat, float lonStep, float latStep) VELMAR_NOEXCEPT;
VELMAR_EXPORT float* hvor(const float* p, const float* q, int nx, int ny, float missing, float startLon,
                          float startLat, float lonStep, float latStep) VELMAR_NOEXCEPT;

/* Return 0 and do nothing: out is NOT written. They stand for hosts that call them; use hdiv and hvor. */
VELMAR_EXPORT int ffhdiv(float* out, const float* p, const float* q, int nx, int ny, float missing,
                         float startLon, float startLat, float lonStep, float latStep) VELMAR_NOEXCEPT;
VELMAR_EXPORT int ffhvor(float* out, const float* p, const float* q, int nx, int ny, float missing,
                         float startLon, float startLat, float lonStep, float latStep) VELMAR_NOEXCEPT;

/* Reads a wind file as readVelmarData11 does and says where it lies. It computes NO field: use hdiv and hvor
 * on the grids of readVelmarData11.
 *
 *   path                      the file
 *   vorticity                 not used
 *   startLonOut, startLatOut  receive longitude of column 0 and latitude of the southernmost row, degrees
 *   lonStepOut, latStepOut    receive the steps, degrees
 *   nxOut, nyOut              receive columns and rows
 * Outputs that are null are left out; on an error no output is written.
 *
 * Returns a bare block of nx * ny values, all 9999. Errors: those of readVelmarData11. Release with
 * freecPointer(). */
VELMAR_EXPORT float* readWindDivVor(const char* path, int vorticity, float* startLonOut, float* startLatOut,
                                    float* lonStepOut, float* latStepOut, int* nxOut,
                                    int* nyOut) VELMAR_NOEXCEPT;

/* ---- Station files ------------------------------------------------------------------------------------- */

/* Read station files whose records are rows of numbers. Type number and keyword are not checked. Header items
 * are stored in the order of the file, then the records that can be read, in its order: reading stops at the
 * first that is incomplete, and the count is that of the records read. With a count of 0 or less in the file
 * the header alone is returned, with that count.
 *
 *                       header                                          numbers of a record
 *   ReadVelmarData1     0 to 3 year, month, day, hour; 4 count          26: the 24 fields of a surface report,
 *                                                                       then two extra values
 *   ReadVelmarData2     0 to 3 the same; 4 a fifth item; 5 count        10, of upper-air reports
 *   ReadVelmarData8     as ReadVelmarData2                              12, of forecasts
 *   ReadVelmarData16    0 count                                         4
 *
 * The file has the extra values of a surface report only where its fields 23 and 24 are 1 and 2; they are 9999
 * otherwise. No element count stands before the block.
 *
 * Return null when the file cannot be opened, the header is incomplete, none of the records that it promises
 * can be read, or for lack of memory. Release with freecPointer(). */
VELMAR_EXPORT float* ReadVelmarData1(const char* path) VELMAR_NOEXCEPT;
VELMAR_EXPORT float* ReadVelmarData2(const char* path) VELMAR_NOEXCEPT;
VELMAR_EXPORT float* ReadVelmarData8(const char* path) VELMAR_NOEXCEPT;
VELMAR_EXPORT float* ReadVelmarData16(const char* path) VELMAR_NOEXCEPT;

/* Reads a file of station values ("diamond" type 3; the keyword is not checked), with any number of values a
 * station.
 *
 *   path  the file
 *
 * Result, with K values a station, N stations, C contour levels and P points of the boundary:
 *   0 to 4         year, month, day, hour, level
 *   5, 6, 7        K as the file has it, N, C
 *   next C         the contour levels
 *   per station    number, longitude, latitude, height, then K values
 *   then           P
 *   next 2 P       the boundary, pairs of longitude and latitude
 * No element count stands before it; there are (K + 4) N + C + 2 P + 9 elements, where a K below 0 counts as 0.
 * Reading ends at the first station without number, place, height and first value, and before there would be more
 * elements than the file has bytes. A further value that cannot be read is 0, and the next one is read from there
 * on. The number of stations that the file promises is printed.
 *
 * Errors, in a one-element block: -1 (reported on standard error) to -3; -4 the second line; -5 a contour level;
 * -6 the items in front of the boundary; -7 the boundary; -9 the counts of values and stations, or a lack of
 * memory. Errors -2 to -7 are also printed. Release with freecPointer(). */
VELMAR_EXPORT float* ReadVelmarData3(const char* path) VELMAR_NOEXCEPT;

/* ---- Lines and maps ------------------------------------------------------------------------------------ */

/* Read a file of one line: type 780, and types 777 and 778, which have three more items in front. The keyword
 * is not checked.
 *
 *   path  the file
 *
 * Result, with N points:
 *   0         2 N + 6, the element count
 *   1 to 4    four header integers; 0 where they cannot be read
 *   5         N
 *   next 2 N  pairs of longitude and latitude
 *
 * Return null when the file cannot be opened (reported on standard error), has another type, when anything else than
 * the four integers cannot be read, or for lack of memory. Release with freecPointer(). */
VELMAR_EXPORT float* ReadVelmarData780(const char* path) VELMAR_NOEXCEPT;
VELMAR_EXPORT float* ReadVelmarData777(const char* path) VELMAR_NOEXCEPT;

/* Reads a map file (type 9), whose keyword is "diamond" or "March". ONLY THE FIRST CALL of a process
 * that gets past the head of its file returns lines (or, when it breaks off among them, the call after it returns
 * the lines up to there); later calls read and check their file, but return its counts only.
 *
 *   path  the file
 *
 * Result, with L lines of P points in all:
 *   0         3 L + 2 P + 1, the index of the last element
 *   1         L
 *   per line  its number of points, two attributes, then pairs of longitude and latitude, degrees; longitudes
 *             below 0 have 360 added
 * Files of the "diamond" form have 1 and 0 in front whatever follows; attributes of their lines are 1 and 0. The
 * block is long enough for what element 0 says and for the lines, and for a host that steps through L of them;
 * elements without a line are 0.
 *
 * Each call writes a log named C:\readmap9.txt, in the current directory where this names no drive; but none through
 * a link, nor over the file itself.
 *
 * Returns null when the file cannot be opened (reported on standard error) or read to its end, or for lack of
 * memory. Release with deleteMap9Ptr() or freecPointer(). */
VELMAR_EXPORT float* ReadMap9(const char* path) VELMAR_NOEXCEPT;

/* Releases a block of this library. A null pointer is allowed. */
VELMAR_EXPORT void deleteMap9Ptr(float* block) VELMAR_NOEXCEPT;

/* ---- Soundings ----------------------------------------------------------------------------------------- */

/* Reads a file of soundings (type 5; keyword "diamond" or "March") and derives freezing level, K index and total
 * totals of each. They stay inside the library. The number of each sounding is printed. Reading ends at the first
 * sounding that is incomplete. Returns 0, also when the file cannot be opened (reported on standard error) or read. */
VELMAR_EXPORT int readVelmarData5(const char* path) VELMAR_NOEXCEPT;

/* ---- Rainfall ------------------------------------------------------------------------------------------ */

/* Adds up the rain of stations over a span of time. Files of station values (type 3, one value a station) are
 * read for each time from the start on, but not the start itself, to the first that is not before the end. The
 * file of 8 h on 15 July 2008 is 08071508.000, after the directory and a backslash; where a backslash is no separator
 * and there is no such file, after the directory and a slash.
 *
 *   startYear ... startHour  the start; years below 100 have 2000 added
 *   endYear ... endHour      the end, which is after the start
 *   directory                where the files are
 *   stepHours                hours from file to file, at least 1. Unless it is 1, hours must be 2, 8, 14 or 20; 5
 *                            may be that of the end, and of the start when it is that of the end
 *
 * February is taken to have 29 days in every year. Steps of more than 24 hours carry one day only.
 *
 * Stations of later files are found by their number; others are appended. A station's total starts with its
 * value in the first file that has it, then grows by values above 0.011; 9999 counts as missing. Stations of number
 * 0 in later files are not appended.
 *
 * Result, with C stations:
 *   0            5 C + 1, the element count
 *   per station  number, longitude, latitude, height, total, in the order in which stations have come
 *
 * Returns null when start, end or step is not as said, when a file cannot be opened (reported on standard error) or
 * read, when there is no station, or for lack of memory. Release with freecPointer(). */
VELMAR_EXPORT float* DiscreteAdd(int startYear, int startMonth, int startDay, int startHour, int endYear,
                                 int endMonth, int endDay, int endHour, const char* directory,
                                 int stepHours) VELMAR_NOEXCEPT;

/* ---- Regions ------------------------------------------------------------------------------------------- */

/* Loads a file of named boundaries, once for the life of the process: a later call, with whatever file, changes
 * nothing. Names are cut at 47 bytes. Returns
 *    1  when it has been read
 *    0  when a point could not be read; the regions up to there, with the points that could, are there, but no
 *       place lies in the last of them
 *   -1  when the file cannot be opened or has no head or no region, when one has been loaded before, or for
 *       lack of memory */
VELMAR_EXPORT int readRegionData(const char* path) VELMAR_NOEXCEPT;

/* Returns the name of the first region of the file that holds a place, or " " (one blank) when there is none. A
 * place is inside when the line from longitude 0 to it crosses the boundary an odd number of times or, when it
 * crosses it nowhere, the line from there to longitude 360 does. Both numbers are printed for each region tried.
 * The name, which ends with a NUL, has the bytes of the file. It belongs to the library and is valid for the life
 * of the process.
 *
 *   x, y  longitude and latitude, degrees */
VELMAR_EXPORT const char* countyNameFromRegion(float x, float y) VELMAR_NOEXCEPT;

/* Return the boundary of one region, pairs of longitude and latitude: of the region at a place in the file, from
 * 0 on, or of the first of a name, compared byte by byte. *count (which may be null) receives the number of points.
 * Null, with 0 points, when there is no such region; what is returned for a region without points may be null or not,
 * and nothing can be read there. The points belong to the library, must not be changed, and are valid for the life of
 * the process. */
VELMAR_EXPORT const float* getSingleRegionBoundaryByOrder(int index, int* count) VELMAR_NOEXCEPT;
VELMAR_EXPORT const float* getSingleRegionBoundaryByName(const char* name, int* count) VELMAR_NOEXCEPT;

/* Returns the boundaries of all regions of a name.
 *
 *   name   compared byte by byte
 *   total  receives the number of points of all of them; may be null
 *
 * Result:
 *   0           number of regions of the name (not the element count)
 *   per region  its number of points, then pairs of longitude and latitude
 * Without a region of the name, element 0 is the only one.
 *
 * Returns null, with a total of 0, when no file has been loaded, when name is null, or for lack of memory. Release
 * with deleteMap9Ptr() or freecPointer(). */
VELMAR_EXPORT float* getAllRegionBoundaryByName(const char* name, int* total) VELMAR_NOEXCEPT;

/* ---- Triangles and the sphere -------------------------------------------------------------------------- */

/* Draws contour lines straight from station values, over a triangulation (docs/limitations.md says what
 * its rules make of odd arrangements of stations).
 *
 *   x, y        n longitudes and latitudes, degrees; not changed
 *   values      n values. THEY ARE CHANGED: one less than 0.035 from a level moves by 0.05, up from a level above
 *               0, down from another
 *   levels      list of levels (mode 2), otherwise unused and may be null
 *   n           number of stations, at least 3
 *   mode        0: multiples of the interval within the range of the values. Where the smallest value is between
 *                  -interval and 0, the level 0 is left out.
 *               1: start + k * interval for k from 0 to 49, if start is not above the largest value
 *               2: the levels of the list
 *   start       mode 1
 *   interval    modes 0 (above 0) and 1
 *   levelCount  length of the list, below 50; printed with what was at their places before
 *
 * There are 50 levels at most. The first triangle is that of station 0, the station nearest to it, and the station
 * nearest to the middle between them that is more than 2 degrees off their line. Each open edge is then extended to
 * the station beyond it that sees it under the largest angle; station 0 is never that one.
 *
 * Result, with L lines of P(1) ... P(L) points:
 *   0         1 + 2 L + 2 (P(1) + ... + P(L)), the element count
 *   per line  its number of points, its level, then P pairs x, y; levels in their order; a closed line repeats its
 *             first point, or one less than 0.005 degrees from it
 * The element count, and after each line the index of the next free element, are printed.
 *
 * Returns the ADDRESS of the block as an integer, as wide as a pointer; 0 when there is no line, when n is below 3,
 * when mode is another, when a pointer that is needed is null, or for lack of memory. Release the block with
 * freecPointer(). */
VELMAR_EXPORT intptr_t SanJiao(const float* x, const float* y, float* values, const float* levels, int n,
                               int mode, float start, float interval, int levelCount) VELMAR_NOEXCEPT;

/* Gives the path from one place to another along a great circle, on a sphere of 6371.11 km.
 *
 *   lon1, lat1  the start, degrees
 *   lon2, lat2  the end, degrees
 *   bearing     receives the direction at the start, radians clockwise from north, 0 to 2 pi
 *   angle       receives the angle at the earth's centre, radians
 *   distance    receives the distance, km
 * Outputs may be null. The same place gives 0 for all three.
 *
 * The cosine of the angle is kept in single precision, and small angles are lost in it: distances of 100 km are
 * right to some 40 m, those of 10 km to some 400 m, and places 1 km apart may come out 9 km apart. Nearly opposite
 * places may give a not-a-number, and so may a start at a pole for the bearing. */
VELMAR_EXPORT void FJJS2(float lon1, float lat1, float lon2, float lat2, float* bearing, float* angle,
                         float* distance) VELMAR_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif
