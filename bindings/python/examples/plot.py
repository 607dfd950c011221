"""Draws the contour lines of a grid file with its centres of highs and lows, and over the lines of a map file.

  plot.py GRID PNG [MAP]
"""
import sys

import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402: the backend comes first
import numpy as np  # noqa: E402
from matplotlib.collections import LineCollection  # noqa: E402

import velmar  # noqa: E402

LINE_COLOUR, HIGH_COLOUR, LOW_COLOUR, MAP_COLOUR = "#1a2a6c", "#0b3fd6", "#c40000", "#a0a0a0"
PAPER = {"facecolor": "white", "edgecolor": "none", "pad": 0.5}
REFINEMENT = 4
CENTRE_SPACING = 14  # degrees
LABEL_SPACING, SAME_LINE_SPACING, FRAME_SPACING = 45, 280, 20  # pixels
STEEPEST_LABEL = 60  # degrees

# Titles may be Chinese.
plt.rcParams["font.family"] = ["DejaVu Sans", "WenQuanYi Micro Hei"]


def smooth_lines(grid):
    """The lines that the header asks for, of the refined grid; one around the globe is closed first."""
    values = grid.values
    if 359.5 < values.shape[1] * grid.longitude_step < 360.01:
        values = np.hstack([values, values[:, :1]])
    fine = velmar.refine(values, REFINEMENT, REFINEMENT)
    return velmar.contour(fine, grid.start_longitude, grid.start_latitude, grid.longitude_step / REFINEMENT,
                          grid.latitude_step / REFINEMENT, start=grid.start_level, end=grid.end_level,
                          interval=grid.interval, refined=False)


def chosen_centres(grid):
    """Places, kinds and values of the stronger centres, the strongest first, none near another."""
    centres = velmar.find_centres(grid.values, *grid.place)
    chosen = []
    for k in np.argsort(-np.abs(np.nan_to_num(centres.strengths)), kind="stable"):
        place = np.array([centres.longitudes[k], centres.latitudes[k]])
        if centres.classes[k] != 0 and all(np.hypot(*(place - other)) > CENTRE_SPACING for other, *_ in chosen):
            chosen.append((place, centres.is_high[k], centres.values[k]))
    return chosen


def draw_centres(axes, centres):
    """Returns where they are, in pixels."""
    for place, is_high, value in centres:
        style = {"ha": "center", "va": "center", "weight": "bold", "color": HIGH_COLOUR if is_high else LOW_COLOUR}
        axes.annotate("H" if is_high else "L", place, fontsize=14, **style)
        axes.annotate(f"{value:.1f}", place, (0, -12), textcoords="offset points", fontsize=7, bbox=PAPER, **style)
    return [axes.transData.transform(place) for place, *_ in centres]


def draw_lines(axes, lines, bold_level, taken):
    """Labels keep away from the frame, from each other and from the pixels that are taken."""
    is_bold = lines.levels == bold_level
    axes.add_collection(LineCollection(list(lines), colors=LINE_COLOUR, linewidths=np.where(is_bold, 1.8, 0.7)))
    for level, bold, points in zip(lines.levels, is_bold, lines):
        pixels = axes.transData.transform(points)
        own = []
        for k in range(20, len(points) - 20, 5):
            east, north = pixels[k + 4] - pixels[k - 4]
            angle = (np.degrees(np.arctan2(north, east)) + 90) % 180 - 90
            inside = axes.bbox.padded(-FRAME_SPACING).contains(*pixels[k])
            if abs(angle) < STEEPEST_LABEL and inside and is_free(pixels[k], taken, LABEL_SPACING) and \
                    is_free(pixels[k], own, SAME_LINE_SPACING):
                axes.annotate(f"{level:g}", points[k], rotation=angle, ha="center", va="center", fontsize=7,
                              color=LINE_COLOUR, weight="bold" if bold else "normal", bbox=PAPER)
                own.append(pixels[k])
                taken.append(pixels[k])


def is_free(pixel, others, spacing):
    return all(np.hypot(*(pixel - other)) > spacing for other in others)


def draw_map(axes, path, west):
    """Lines are broken where they leave the map on one side and come back on the other."""
    lines = []
    for longitudes, latitudes in (line.T for line in velmar.read_map(path)):
        longitudes = west + (longitudes - west) % 360
        jumps = np.flatnonzero(np.abs(np.diff(longitudes)) > 180) + 1
        lines += np.split(np.column_stack([longitudes, latitudes]), jumps)
    axes.add_collection(LineCollection(lines, colors=MAP_COLOUR, linewidths=0.8, zorder=1))


def title_of(path):
    """What the first line of a file says behind its keyword and its type."""
    with open(path, encoding="gbk", errors="replace") as file:
        return " ".join(file.readline().split()[2:])


def longitude_text(longitude, _=None):
    longitude = (longitude + 180) % 360 - 180
    return f"{abs(longitude):g}°{'' if longitude in (0, -180) else 'E' if longitude > 0 else 'W'}"


def latitude_text(latitude, _=None):
    return f"{abs(latitude):g}°{'N' if latitude > 0 else 'S' if latitude < 0 else ''}"


def empty_map(title, note, west, east, south, north):
    figure, axes = plt.subplots(figsize=(12, 6.6), layout="constrained")
    axes.set(xlim=(west, east), ylim=(south, north))
    axes.xaxis.set_major_locator(matplotlib.ticker.MultipleLocator(30))
    axes.yaxis.set_major_locator(matplotlib.ticker.MultipleLocator(20))
    axes.xaxis.set_major_formatter(longitude_text)
    axes.yaxis.set_major_formatter(latitude_text)
    axes.grid(linestyle=":", color="grey", linewidth=0.6)
    axes.set_title(title, loc="left", weight="bold")
    axes.set_xlabel(note, loc="left")
    figure.draw_without_rendering()
    return figure, axes


def main():
    path, png, *maps = sys.argv[1:]
    with velmar.quiet():
        grid = velmar.read_grid(path)
        lines = smooth_lines(grid)
        centres = chosen_centres(grid)
    note = f"lines {grid.start_level:g} to {grid.end_level:g} every {grid.interval:g}, bold {grid.bold_level:g}"
    longitudes = lines.points[:, 0]
    figure, axes = empty_map(title_of(path), note, longitudes.min(), longitudes.max(),
                             *sorted((grid.start_latitude, grid.end_latitude)))
    for map_path in maps:
        draw_map(axes, map_path, longitudes.min())
    draw_lines(axes, lines, grid.bold_level, draw_centres(axes, centres))
    figure.savefig(png, dpi=100)


if __name__ == "__main__":
    main()
