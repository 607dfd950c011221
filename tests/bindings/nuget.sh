# nuget.sh SCRATCH LIBRARY [WINDOWS_DLL]
# Makes the NuGet package, looks at what it holds, and runs the example of its README with what is in it.
set -eu
scratch=$1 library=$2 dll=${3-}
: "${source:?}"

rm -rf "$scratch"
mkdir -p "$scratch/unpacked" "$scratch/host"
"$source/bindings/csharp/pack" "$library" ${dll:+"$dll"} "$scratch"
cd "$scratch/unpacked"
unzip -q ../VelmarBaseA.*.nupkg
find . -type f | LC_ALL=C sort >../files
{
    printf './%s\n' README.md VelmarBaseA.nuspec '[Content_Types].xml' _rels/.rels \
        lib/netstandard2.0/VelmarBaseA.dll lib/netstandard2.0/VelmarBaseA.xml \
        runtimes/linux-x64/native/libvelmarBaseA.so ${dll:+runtimes/win-x64/native/velmarBaseA.dll}
} | LC_ALL=C sort | diff - ../files
cmp "$library" runtimes/linux-x64/native/libvelmarBaseA.so
[ -z "$dll" ] || cmp "$dll" runtimes/win-x64/native/velmarBaseA.dll
python3 -c 'import sys, xml.dom.minidom as xml; [xml.parse(file) for file in sys.argv[1:]]' \
    VelmarBaseA.nuspec _rels/.rels '[Content_Types].xml'

cd ../host
cp ../unpacked/lib/netstandard2.0/VelmarBaseA.dll ../unpacked/runtimes/linux-x64/native/libvelmarBaseA.so .
awk -f "$source/tests/install/example.awk" ../unpacked/README.md
mcs -r:VelmarBaseA.dll Smallest.cs
mono Smallest.exe "$source/samples/grids/h500_global.000" >output
LC_ALL=C grep -ax '588: [1-9][0-9]* points' output
LC_ALL=C grep -ax 'low 471.8' output
