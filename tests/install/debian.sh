# debian.sh BUILD SCRATCH LIBDIR
# Makes the Debian package, unpacks it, looks at what it holds, and runs its program and hosts against its library. The
# environment is that of example.sh.
set -eu
build=$1 scratch=$2 libdir=$3
: "${source:?}"
here=$(cd "$(dirname "$0")" && pwd)
fail() { echo "$*"; exit 1; }

rm -rf "$scratch"
mkdir -p "$scratch/root"
cd "$scratch"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$scratch" >cpack.txt || { cat cpack.txt; exit 1; }
set -- ./*.deb
[ $# -eq 1 ] || fail "not one package: $*"
package=$1
dpkg-deb --info "$package"
dpkg-deb --field "$package" Depends | grep -F 'libc6 (>=' || fail 'it depends on no C library'
[ "$(dpkg-deb --field "$package" Architecture)" = "$(dpkg --print-architecture)" ] || fail 'another architecture'
dpkg-deb --ctrl-tarfile "$package" | tar -xO ./shlibs | grep '^libvelmarBaseA 1 velmarbasea '
dpkg-deb --ctrl-tarfile "$package" | tar -xO ./postinst | grep ldconfig

dpkg-deb -x "$package" root
export prefix="$PWD/root/usr" lib="$PWD/root/usr/$libdir"
(cd root && find . ! -type d) | sort | tee files.txt
for file in bin/velmar include/velmarBaseA.h share/doc/velmarbasea/hosts.md "$libdir/libvelmarBaseA.so" \
    "$libdir/libvelmarBaseA.so.1" "$libdir/pkgconfig/velmarBaseA.pc" \
    "$libdir/cmake/velmarBaseA/velmarBaseAConfig.cmake" "$libdir/cmake/velmarBaseA/velmarBaseAConfigVersion.cmake"; do
    [ -e "$prefix/$file" ] || fail "no $file"
done
! grep -v '^\./usr/' files.txt || fail 'files outside /usr'
! grep -rlF -e "$build" -e "$scratch" root || fail 'the package remembers where it was made'

for section in pkg-config CMake; do
    sh "$here/example.sh" "$source/docs/hosts.md" $section "$scratch/$section"
done
"$prefix/bin/velmar" info "$source/samples/grids/h500_global.000" | grep '144'
"$prefix/bin/velmar" chart "$source/samples/grids/h500_global.000" -o chart.png
[ "$(head -c 8 chart.png | od -An -tx1 | tr -d ' ')" = 89504e470d0a1a0a ] || fail 'no chart'
