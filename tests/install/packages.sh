# packages.sh BUILD SCRATCH LIBDIR GRID
# Installs the build tree, then builds and runs a host program that finds the library by CMake's package and by
# pkg-config's. CC and CFLAGS name the compiler and the flags that fit the library.
set -eu
build=$1 scratch=$2 libdir=$3 grid=$4
consumer=$(dirname "$0")/consumer

rm -rf "$scratch"
cmake --install "$build" --prefix "$scratch/installed"
# Neither package may depend on where it was installed first.
prefix=$scratch/moved
mv "$scratch/installed" "$prefix"

cmake -S "$consumer" -B "$scratch/cmake" -DCMAKE_PREFIX_PATH="$prefix"
cmake --build "$scratch/cmake"
"$scratch/cmake/consumer" "$grid" >"$scratch/cmake.txt"

export PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig"
pkg-config --atleast-version 1.0 velmarBaseA
# The flags come quoted for a shell, in case the path holds blanks.
eval "set -- $(pkg-config --cflags --libs velmarBaseA)"
$CC $CFLAGS -std=c99 "$consumer/main.c" -o "$scratch/consumer" "$@"
LD_LIBRARY_PATH="$prefix/$libdir" "$scratch/consumer" "$grid" >"$scratch/pkgconfig.txt"

cat "$scratch/pkgconfig.txt"
LC_ALL=C grep -aqE '^144 columns, 73 rows, [1-9][0-9]* lines, [1-9][0-9]* centres$' "$scratch/pkgconfig.txt"
cmp "$scratch/cmake.txt" "$scratch/pkgconfig.txt"
