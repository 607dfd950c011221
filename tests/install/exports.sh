# exports.sh LIBRARY LIST HEADER
# The shared object defines, and the header declares, the functions of the list and no others. Hosts are linked against
# the name libvelmarBaseA.so.1.
set -eu
library=$1 list=$2 header=$3
scratch=$(mktemp -d)
trap 'rm -r "$scratch"' EXIT
export LC_ALL=C

sort "$list" >"$scratch/listed"
# A symbol of type A is the name of the version.
nm -D --defined-only "$library" | awk '$2 != "A" { sub(/@.*/, "", $3); print $3 }' | sort >"$scratch/defined"
sed -n 's/^VELMAR_EXPORT [^(]*[ *]\([A-Za-z0-9_]*\)(.*/\1/p' "$header" | sort >"$scratch/declared"

diff "$scratch/listed" "$scratch/defined"
diff "$scratch/listed" "$scratch/declared"
readelf -d "$library" | grep -F "(SONAME)" | grep -F "[libvelmarBaseA.so.1]"
