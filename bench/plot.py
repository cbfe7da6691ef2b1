# SPDX-License-Identifier: MIT
"""The pictures of a vsurf_bench run: speeds over the best peer."""
import io
from math import log

import matplotlib
from PIL import Image

matplotlib.use("agg")
import matplotlib.pyplot as plt
from matplotlib.colors import LinearSegmentedColormap
from matplotlib.lines import Line2D
from matplotlib.ticker import FuncFormatter, NullFormatter

from measurements import KINDS, REGIMES, mean
from report_summary import WORK, work_speed

# From losses to wins, in the logarithm of the speed; about 1 it is nearly white.
MAP = LinearSegmentedColormap.from_list("speeds", ["#c0504d", "#e9a6a0", "#f7f3ee", "#9fcbb4", "#3b8a63"])
MOST = 3.0
STYLES = {"64": ("o", "#2e6f95"), "natural": ("D", "#d1495b"), "base8": ("^", "#edae49"), "pixel": ("v", "#66a182")}
TICKS = (0.3, 0.5, 0.7, 1, 1.5, 2, 3, 5, 8, 12, 20)


def save(figure, path):
    """In few colours, which makes a small file."""
    drawn = io.BytesIO()
    figure.savefig(drawn, dpi=110)
    plt.close(figure)
    Image.open(drawn).convert("RGB").quantize(48, dither=Image.Dither.NONE).save(path, optimize=True)


def dress_speeds(axes, names, title):
    axes.set_title(title, fontsize=11, loc="left")
    axes.set_ylim(len(names) - 0.5, -0.5)
    axes.set_yticks(range(len(names)), names)
    axes.set_xscale("log")
    axes.set_xticks(TICKS)
    axes.xaxis.set_major_formatter(FuncFormatter(lambda value, _: f"{value:g}x"))
    axes.xaxis.set_minor_formatter(NullFormatter())
    axes.axvline(1, color="black", linewidth=1)
    axes.grid(axis="x", color="#dddddd", linewidth=0.7)
    axes.set_axisbelow(True)
    for row in range(0, len(names), 2):
        axes.axhspan(row - 0.5, row + 0.5, color="#f5f5f5", zorder=0)
    for side in ("top", "right", "left"):
        axes.spines[side].set_visible(False)
    axes.tick_params(axis="y", length=0)
    axes.tick_params(axis="x", which="minor", length=0)


def draw_summary(run, path):
    """Every kind of work on every kind of surface, hot and cold."""
    figure, panels = plt.subplots(1, 2, sharey=True, figsize=(10, 4.6))
    for axes, regime in zip(panels, REGIMES):
        values = [1]
        for row, (_, pattern) in enumerate(WORK):
            for lane, (kind, (marker, colour)) in enumerate(STYLES.items()):
                speed = work_speed(run, pattern, regime, kind)
                if speed:
                    values.append(speed)
                    axes.plot(speed, row + (lane - 1.5) * 0.16, marker, color=colour, markersize=5.5)
        dress_speeds(axes, [work for work, _ in WORK], f"{regime}: times as fast as the best peer")
        axes.set_xlim(min(values) / 1.15, max(values) * 1.15)
    marks = [Line2D([], [], marker=marker, color=colour, linestyle="", label=KINDS[kind])
             for kind, (marker, colour) in STYLES.items()]
    figure.legend(handles=marks, loc="lower center", ncol=len(marks), frameon=False, fontsize=9.5)
    figure.tight_layout(rect=(0, 0.05, 1, 1))
    save(figure, path)


def position(speed):
    """On the colour map: the middle for 1, an end for MOST or more or as many times slower."""
    return min(max(0.5 + 0.5 * log(speed) / log(MOST), 0.0), 1.0)


def grid(exports, columns, speed_of):
    """Rows of speeds, and only of exports that have any."""
    rows = [(export, [speed_of(export, *column) for column in columns]) for export in exports]
    return [(export, values) for export, values in rows if any(values)]


def draw_grid(rows, columns, width, title, path):
    """A table in colours; columns are named by the regime and more."""
    if not rows:
        return False
    half = len(columns) // len(REGIMES)
    heads = ["\n".join([regime if i % half == 0 else "", *names]) for i, (regime, *names) in enumerate(columns)]
    figure, axes = plt.subplots(figsize=(width, 1.1 + 0.22 * len(rows)))
    for y, (_, values) in enumerate(rows):
        for x, value in enumerate(values):
            if value:
                shade = position(value)
                axes.add_patch(plt.Rectangle((x - 0.5, y - 0.5), 1, 1, color=MAP(shade), linewidth=0))
                text = f"{value:.2f}" if value < 0.995 else f"{value:.1f}"
                axes.text(x, y, text, ha="center", va="center", fontsize=8)
    axes.set_xlim(-0.5, len(heads) - 0.5)
    axes.set_ylim(len(rows) - 0.5, -0.5)
    axes.set_yticks(range(len(rows)), [export for export, _ in rows], fontsize=8)
    axes.set_xticks(range(len(heads)), heads, fontsize=8)
    axes.xaxis.tick_top()
    axes.tick_params(length=0)
    axes.axvline(half - 0.5, color="white", linewidth=4)
    for side in axes.spines.values():
        side.set_visible(False)
    axes.set_title(title, fontsize=10, loc="left", pad=8)
    figure.tight_layout()
    save(figure, path)
    return True


def draw_family(run, family, path):
    """Every export that has peers on every kind of surface, over all sizes. False if there is none."""
    sizes = run.sizes(family)

    def speed(export, regime, kind):
        cases = (run.cases.get((regime, kind, size, export)) for size in sizes)
        return mean(run.speed(case) for case in cases if case)
    columns = [(regime, kind) for regime in REGIMES for kind in KINDS]
    rows = grid(run.exports(family), columns, speed)
    return draw_grid([row for row in rows if all(row[1])], columns, 8.2,
                     f"{family.capitalize()}: times as fast as the best peer, mean of all sizes", path)


def draw_cells(run, family, path):
    """Every cell, for a look at it on demand."""
    def speed(export, regime, kind, size):
        case = run.cases.get((regime, kind, size, export))
        return run.speed(case) if case else None
    columns = [(regime, kind, size) for regime in REGIMES for kind in KINDS for size in run.sizes(family)]
    rows = grid(run.exports(family), columns, speed)
    draw_grid(rows, columns, 4 + 0.62 * len(columns), f"{family.capitalize()}: times as fast as the best peer", path)
