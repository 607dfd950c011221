# library.sh OBJDUMP DLL LIST
# The DLL exports the functions of the list and no others, undecorated, and needs nothing that Windows does not have.
set -eu
objdump=$1 library=$2 list=$3
scratch=$(mktemp -d)
trap 'rm -r "$scratch"' EXIT
export LC_ALL=C

"$objdump" -p "$library" >"$scratch/headers"
sort "$list" >"$scratch/listed"
sed -n '/^\[Ordinal\/Name Pointer\]/,/^$/s/^\t\[ *[0-9]*\] //p' "$scratch/headers" | sort >"$scratch/exported"
diff "$scratch/listed" "$scratch/exported"

sed -n 's/^\tDLL Name: //p' "$scratch/headers" | tr a-z A-Z | sort >"$scratch/needed"
printf 'KERNEL32.DLL\nMSVCRT.DLL\nOLE32.DLL\n' | diff - "$scratch/needed"
