"""Prints one Markdown table: this library beside its peers, on the same data, in the same run.

  python3 -m peers BUILD SAMPLES
"""
import os
import sys
import tempfile
from pathlib import Path

import velmar

from . import contours, files, flow, stations


def print_row(table, *cells):
    print("| " + " | ".join(cells) + " |", file=table, flush=True)


def main():
    build, samples = (Path(argument).resolve() for argument in sys.argv[1:])
    table = os.fdopen(os.dup(1), "w")
    print_row(table, "work", "data", "velmarBaseA, ms", "peer", "peer, ms", "ratio")
    print_row(table, "---", "---", "---:", "---", "---:", "---:")
    # The library writes diagnostic files into the current directory.
    with tempfile.TemporaryDirectory() as folder, velmar.quiet():
        os.chdir(folder)
        for subject in (files.rows(samples, build), contours.rows(samples), flow.rows(samples), stations.rows(samples)):
            for row in subject:
                print_row(table, row.work, row.data, f"{row.own:.2f}", row.peer_name, f"{row.peer:.1f}",
                          f"{row.peer / row.own:.1f}")
        os.chdir(samples)


main()
