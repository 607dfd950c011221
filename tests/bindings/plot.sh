# plot.sh SCRATCH
# Runs the example that draws a chart, with coasts, and looks at the colours of the picture: those of lines, highs, lows
# and coasts are there, each on about as many pixels as it should be.
set -eu
scratch=$1
: "${source:?}" "${lib:?}"

rm -rf "$scratch"
mkdir -p "$scratch"
cd "$scratch"
export PYTHONPATH="$source/bindings/python" VELMAR_LIBRARY="$lib/libvelmarBaseA.so"
python3 "$source/bindings/python/examples/plot.py" "$source/samples/grids/h500_global.000" h500.png \
    "$source/samples/lines/map_world.009"
python3 - <<'END'
from matplotlib.image import imread
import numpy as np

picture = np.rint(imread("h500.png")[..., :3] * 255).astype(int)
assert picture.shape == (660, 1200, 3), picture.shape
print(len(np.unique(picture.reshape(-1, 3), axis=0)), "colours")
for name, colour, fewest, most in (("lines", (0x1a, 0x2a, 0x6c), 2000, 40000), ("highs", (0x0b, 0x3f, 0xd6), 300, 5000),
                                   ("lows", (0xc4, 0, 0), 300, 5000), ("coasts", (0xa0, 0xa0, 0xa0), 500, 20000)):
    pixels = np.all(picture == colour, axis=-1).sum()
    print(name, pixels)
    assert fewest <= pixels <= most, name
END
