/* host.exe GRID VERSION: loads velmarBaseA.dll by its bare name from the current directory, as managed runtimes do. */
#include <stdio.h>
#include <string.h>
#include <windows.h>

typedef float* (*GridReader)(const char*);
typedef void (*Release)(float*);
typedef int (*Probe)(int**, int*);
typedef void (*Function)(void);

static int fail(const char* what) {
    fprintf(stderr, "%s: error %lu\n", what, GetLastError());
    return 1;
}

static int hasVersion(const char* library, const char* version) {
    static unsigned char information[4096];
    void* text = NULL;
    UINT length = 0;
    return GetFileVersionInfoA(library, 0, sizeof information, information) &&
           VerQueryValueA(information, "\\StringFileInfo\\040904B0\\ProductVersion", &text, &length) &&
           strcmp(text, version) == 0;
}

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    HMODULE library = LoadLibraryA("velmarBaseA.dll");
    if (!library) return fail("LoadLibrary");
    if (!hasVersion("velmarBaseA.dll", argv[2])) return fail("version");

    GridReader readGrid = (GridReader)(Function)GetProcAddress(library, "readVelmar4");
    Release release = (Release)(Function)GetProcAddress(library, "freecPointer");
    Probe probe = (Probe)(Function)GetProcAddress(library, "TestRefArrayOfInts");
    if (!readGrid || !release || !probe) return fail("GetProcAddress");

    float* grid = readGrid(argv[1]);
    if (!grid || grid[1] != 144 || grid[2] != 73) return fail("readVelmar4");
    release(grid);

    int count = 5;
    int* array = CoTaskMemAlloc(5 * sizeof *array);
    for (int k = 0; k < 5; ++k) array[k] = k;
    if (probe(&array, &count) != 10 || count != 5 || array[4] != 104) return fail("TestRefArrayOfInts");
    CoTaskMemFree(array);
    return FreeLibrary(library) ? 0 : fail("FreeLibrary");
}
