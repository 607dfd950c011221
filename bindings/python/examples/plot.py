"""Draws the contour lines of a grid file with its centres of highs and lows.

  plot.py GRID PNG
"""
import sys

import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402: the backend comes first
import numpy as np  # noqa: E402
from matplotlib.collections import LineCollection  # noqa: E402

import velmar  # noqa: E402

LINE_COLOUR, HIGH_COLOUR, LOW_COLOUR = "#1a2a6c", "#0b3fd6", "#c40000"
PAPER = {"facecolor": "white", "edgecolor": "none", "pad": 0.5}
REFINEMENT = 4
CENTRE_SPACING = 14  # degrees
LABEL_SPACING, SAME_LINE_SPACING, FRAME_SPACING = 45, 280, 20  # pixels
STEEPEST_LABEL = 60  # degrees


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


def empty_map(title, note, west, east, south, north):
    figure, axes = plt.subplots(figsize=(12, 6.6), layout="constrained")
    axes.set(xlim=(west, east), ylim=(south, north))
    axes.xaxis.set_major_locator(matplotlib.ticker.MultipleLocator(30))
    axes.yaxis.set_major_locator(matplotlib.ticker.MultipleLocator(20))
    axes.xaxis.set_major_formatter(lambda x, _: f"{180 - abs(x % 360 - 180):g}°{'W' if x % 360 > 180 else 'E'}")
    axes.yaxis.set_major_formatter(lambda y, _: f"{abs(y):g}°{'S' if y < 0 else 'N'}")
    axes.grid(linestyle=":", color="grey", linewidth=0.6)
    axes.set_title(title, loc="left", weight="bold")
    axes.set_xlabel(note, loc="left")
    figure.draw_without_rendering()
    return figure, axes


def main():
    path, png = sys.argv[1:]
    with velmar.quiet():
        grid = velmar.read_grid(path)
        lines = smooth_lines(grid)
        centres = chosen_centres(grid)
    note = f"lines {grid.start_level:g} to {grid.end_level:g} every {grid.interval:g}, bold {grid.bold_level:g}"
    longitudes = lines.points[:, 0]
    figure, axes = empty_map(path.rpartition("/")[2], note, longitudes.min(), longitudes.max(),
                             *sorted((grid.start_latitude, grid.end_latitude)))
    draw_lines(axes, lines, grid.bold_level, draw_centres(axes, centres))
    figure.savefig(png, dpi=100)


if __name__ == "__main__":
    main()
