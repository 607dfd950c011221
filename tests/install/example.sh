# example.sh DOCUMENT SECTION SCRATCH
# Runs the example of a section of a document in an empty folder. The lines that the document says it prints must come
# out, in their order; the library prints others among them. What the commands need of the environment is told in the
# document.
set -eu
script=$(cd "$(dirname "$0")" && pwd)/example.awk document=$1 section=$2 scratch=$3

rm -rf "$scratch"
mkdir -p "$scratch"
cd "$scratch"
awk -v section="$section" -f "$script" "$document"
sh -eux ./commands >output || { cat output; exit 1; }
LC_ALL=C grep -aFxf expected output | diff expected - || { cat output; exit 1; }
