/* A host in its smallest form: reads a grid file, contours it and finds its centres. */
#include <stdio.h>
#include <velmarBaseA.h>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    float* grid = readVelmar4(argv[1]);
    if (!grid || grid[0] < 0) return 1;
    const int nx = (int)grid[1];
    const int ny = (int)grid[2];
    const float* values = grid + 11;
    const float* hints = values + nx * ny;
    float* lines = contour2D(values, 9999, nx, ny, 0, hints[1], hints[2], hints[0], 0, 0, grid[3], grid[4],
                             grid[7], grid[8]);
    float* centres = findCenters(values, 9999, nx, ny, 0, grid[3], grid[4], grid[7], grid[8]);
    if (!lines || !centres) return 1;
    printf("%d columns, %d rows, %d lines, %d centres\n", nx, ny, (int)lines[1], (int)centres[0]);
    freecPointer(centres);
    cntrFreeLineVar(lines);
    freecPointer(grid);
    return 0;
}
