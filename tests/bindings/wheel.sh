# wheel.sh SCRATCH VERSION
# Makes the wheel, installs it into a folder, and runs the example of the README with what is in it.
set -eu
scratch=$1 version=$2
: "${source:?}" "${lib:?}"

rm -rf "$scratch"
mkdir -p "$scratch"
cd "$scratch"
"$source/bindings/python/build-wheel" "$lib/libvelmarBaseA.so" wheels
ls wheels
wheel=wheels/velmar-$version-py3-none-linux_$(uname -m).whl
python3 -m pip install --quiet --no-deps --no-index --target site "$wheel"
cmp "$lib/libvelmarBaseA.so" site/velmar/libvelmarBaseA.so

ln -s "$source/samples" samples
awk -f "$source/tests/install/example.awk" "$source/bindings/python/README.md"
unset VELMAR_LIBRARY
PYTHONPATH=site python3 contours.py >output
LC_ALL=C grep -ax '588.0 [1-9][0-9]*' output
LC_ALL=C grep -ax 'low 471.8' output
