"""Prints the results of the benchmarks (their JSON files) as one Markdown table."""
import json
import sys

COUNTERS = ('lines', 'points', 'centres', 'polygons')


def load(paths):
    runs = {}
    for path in paths:
        with open(path) as file:
            runs.update({run['name'].removesuffix('/iterations:1'): run for run in json.load(file)['benchmarks']})
    return runs


def remarks(name, run, runs):
    texts = [f'{run[counter]:.0f} {counter}' for counter in COUNTERS if counter in run]
    if 'bytes_per_second' in run:
        texts.append(f'{run["bytes_per_second"] / 1e6:.0f} MB/s')
    plain = runs.get(name.replace('readGridFile', 'readWithFscanf'), run)
    if plain is not run:
        texts.append(f'{plain["real_time"] / run["real_time"]:.2f} times as fast as fscanf')
    floor = runs.get(name.replace('/', 'Floor/', 1))
    if floor:
        texts.append(f'{run["real_time"] / floor["real_time"]:.2f} times the floor of memory')
    if 'peakOverFile' in run:
        texts.append(f'peak memory {run["peakOverFile"]:.2f} times the file')
    return ', '.join(texts)


def main():
    runs = load(sys.argv[1:])
    print('| benchmark | time, ms | per value, ns | |\n|---|---:|---:|---|')
    for name, run in runs.items():
        if 'error_message' in run:
            sys.exit(f'{name}: {run["error_message"]}')
        per_value = f'{1e9 * run["perValue"]:.2f}' if 'perValue' in run else ''
        print(f'| {name} | {run["real_time"]:.3f} | {per_value} | {remarks(name, run, runs)} |')


main()
