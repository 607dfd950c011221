# closed.sh PROGRAM REPORT
# Runs a test program with standard output closed. What it would say there of failures is taken from its report.
rm -f "$2"
"$1" --gtest_output="xml:$2" >&- && exit
grep -B 1 -A 4 '<failure' "$2"
exit 1
