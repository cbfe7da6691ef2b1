# SPDX-License-Identifier: MIT
"""The plots of a vsurf_bench run: every export's speed relative to the roof and to the best peer."""
import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt
from matplotlib.lines import Line2D
from matplotlib.ticker import FuncFormatter, NullFormatter

from measurements import REGIMES, TWINS
from targets import factor_of, targets_of

COLOURS = {"hot": "#d1495b", "cold": "#2e6f95"}
MARKERS = ("o", "s", "D", "^")


def lanes(run, family):
    """A height within an export's row for every regime and size, and a marker for every size."""
    sizes = run.sizes(family)
    step = 0.87 / (len(REGIMES) * len(sizes))
    return {(regime, size): (0.5 * 0.87 - step * (len(sizes) * i + j + 0.5), MARKERS[j])
            for i, regime in enumerate(REGIMES) for j, size in enumerate(sizes)}


def points(run, family, ratio):
    """(height, marker, ratio, case) for every case that has the ratio."""
    for row, export in enumerate(run.exports(family)):
        for (regime, size), (lane, marker) in lanes(run, family).items():
            case = run.cases.get((regime, size, export))
            value = ratio(run, case) if run.time(case) else None
            if value:
                yield lane - row, marker, value, case


def scatter(axes, run, family, ratio, goal):
    for height, marker, value, case in points(run, family, ratio):
        axes.plot(value, height, marker, color=COLOURS[case.regime], markersize=4.5, alpha=0.9)
        wanted = goal(case)
        if wanted:
            axes.plot([wanted, wanted], [height - 0.06, height + 0.06], color="black", linewidth=1.1)


def dress(axes, rows, title, label):
    axes.set_title(title, fontsize=11, loc="left")
    axes.set_xlabel(label, fontsize=9)
    axes.set_ylim(-rows + 0.5, 0.5)
    axes.grid(axis="x", color="#dddddd", linewidth=0.7)
    axes.set_axisbelow(True)
    for row in range(0, rows, 2):
        axes.axhspan(-row - 0.5, -row + 0.5, color="#f5f5f5", zorder=0)
    for side in ("top", "right", "left"):
        axes.spines[side].set_visible(False)
    axes.tick_params(axis="y", length=0)
    axes.tick_params(labelsize=8.5)


def of_roof(run, case):
    roof = run.roof(case)
    return roof / run.time(case) if roof else None


def target_of(case, measures):
    return next((target for target in targets_of(case.export) if target.measure in measures), None)


def of_peer(run, case):
    """Of the peers that the export's target counts."""
    target = target_of(case, ("peer",))
    peer = run.best_peer(case, target.peers if target else ("",))
    return peer[0] / run.time(case) if peer else None


def of_twin(run, case):
    twin = run.twin_time(case)
    return twin / run.time(case) if twin else None


def goal(case, *measures):
    """The speed that the target stands for."""
    target = target_of(case, measures)
    factor = factor_of(target, case) if target else None
    return factor if not factor or target.faster_is_more else 1 / factor


def roof_goal(case):
    return goal(case, "roof", "slower")


def peer_goal(case):
    return goal(case, "peer")


def twin_goal(case):
    return goal(case, "loader", "opaque")


def legend(figure, run, family):
    marks = [Line2D([], [], marker=marker, color=COLOURS[regime], linestyle="", label=f"{regime} {size}")
             for (regime, size), (_, marker) in lanes(run, family).items()]
    marks.append(Line2D([], [], marker="|", color="black", linestyle="", markersize=9, label="target"))
    figure.legend(handles=marks, loc="upper center", ncol=len(marks), fontsize=9, frameon=False)


def draw_roof(axes, run, family):
    scatter(axes, run, family, of_roof, roof_goal)
    dress(axes, len(run.exports(family)), "Speed relative to the streaming roof", "share of the roof's speed")
    axes.set_xlim(0, 1.05 * max([1.0] + [value for _, _, value, _ in points(run, family, of_roof)]))
    axes.xaxis.set_major_formatter(FuncFormatter(lambda value, _: f"{value:.0%}"))


def draw_ratio(axes, run, family, ratio, wanted, title, label):
    scatter(axes, run, family, ratio, wanted)
    dress(axes, len(run.exports(family)), title, label)
    axes.set_xscale("log")
    axes.set_xticks([0.2, 0.3, 0.5, 0.7, 1, 1.5, 2, 3, 5, 8, 12, 20])
    axes.xaxis.set_major_formatter(FuncFormatter(lambda value, _: f"{value:g}x"))
    axes.xaxis.set_minor_formatter(NullFormatter())
    values = [value for _, _, value, _ in points(run, family, ratio)] + [1]
    axes.set_xlim(min(values) / 1.15, max(values) * 1.15)


def draw(run, family, path):
    plt.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "vsurf", "font.family": "sans-serif"})
    rows = run.exports(family)
    beside = run.has_loaders(family)
    figure, panels = plt.subplots(1, 3 if beside else 2, sharey=True, figsize=(13, 1.6 + 0.56 * len(rows)),
                                  width_ratios=(1, 1, 1) if beside else (1, 1.25))
    panels[0].set_yticks([-row for row in range(len(rows))], rows, fontfamily="monospace")
    draw_roof(panels[0], run, family)
    draw_ratio(panels[-1], run, family, of_peer, peer_goal, "Speed relative to the best peer",
               "times as fast as the best of the peers")
    if beside:
        draw_ratio(panels[1], run, family, of_twin, twin_goal, f"Speed relative to the {TWINS[family]}",
                   f"times as fast as the {TWINS[family]}")
    for axes in panels:
        axes.axvline(1, color="black", linewidth=1, linestyle="--")

    legend(figure, run, family)
    figure.tight_layout(rect=(0, 0, 1, 1 - 0.4 / figure.get_figheight()))
    figure.savefig(path, metadata={"Date": None, "Creator": None})
    plt.close(figure)
