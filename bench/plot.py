"""The plot of a vsurf_bench run: every export's speed relative to the roof and to the best peer."""
import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt
from matplotlib.lines import Line2D
from matplotlib.ticker import FuncFormatter, NullFormatter

from measurements import PEER_TARGETS, REGIMES, ROOF_EXPORTS, ROOF_TARGET, SIZES, column

COLOURS = {"hot": "#d1495b", "cold": "#2e6f95"}
MARKERS = dict(zip(SIZES, ("o", "s", "D")))
LANES = {(regime, size): 0.36 - 0.145 * (3 * i + j)
         for i, regime in enumerate(REGIMES) for j, size in enumerate(SIZES)}


def points(run, ratio):
    """(row, ratio, case) for every case that has the ratio."""
    for row, export in enumerate(run.exports()):
        for regime, size in LANES:
            case = run.cases.get((regime, size, export))
            value = ratio(case) if case and run.time(case) else None
            if value:
                yield row, value, case


def scatter(axes, run, ratio, target):
    for row, value, case in points(run, ratio):
        height = -row + LANES[case.regime, case.size]
        axes.plot(value, height, MARKERS[case.size], color=COLOURS[case.regime], markersize=4.5, alpha=0.9)
        goal = target(case)
        if goal:
            axes.plot([goal, goal], [height - 0.075, height + 0.075], color="black", linewidth=1.1)


def dress(axes, run, title, label):
    rows = len(run.exports())
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


def of_peer(run, case):
    peer = run.best_peer(case)
    return peer[0] / run.time(case) if peer else None


def roof_goal(case):
    return ROOF_TARGET if case.export in ROOF_EXPORTS else None


def peer_goal(case):
    goal = PEER_TARGETS.get(case.export.split("-")[0]) if case.export == case.plain else None
    return goal[column(case)] if goal else None


def draw(run, path):
    plt.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "vsurf", "font.family": "sans-serif"})
    rows = run.exports()
    figure, (left, right) = plt.subplots(1, 2, sharey=True, figsize=(12, 1.6 + 0.48 * len(rows)),
                                         width_ratios=(1, 1.25))
    scatter(left, run, lambda case: of_roof(run, case), roof_goal)
    dress(left, run, "Speed relative to the streaming roof", "share of the roof's speed")
    left.set_yticks([-row for row in range(len(rows))], rows, fontfamily="monospace")
    highest = max((value for _, value, _ in points(run, lambda case: of_roof(run, case))), default=1)
    left.set_xlim(0, 1.05 * max(1, highest))
    left.xaxis.set_major_formatter(FuncFormatter(lambda value, _: f"{value:.0%}"))
    left.axvline(1, color="black", linewidth=1, linestyle="--")

    scatter(right, run, lambda case: of_peer(run, case), peer_goal)
    dress(right, run, "Speed relative to the best peer", "times as fast as the best of libyuv and libswscale")
    right.set_xscale("log")
    right.set_xticks([0.5, 0.7, 1, 1.5, 2, 3, 5, 8, 12])
    right.xaxis.set_major_formatter(FuncFormatter(lambda value, _: f"{value:g}x"))
    right.xaxis.set_minor_formatter(NullFormatter())
    right.axvline(1, color="black", linewidth=1, linestyle="--")

    legend = [Line2D([], [], marker=MARKERS[size], color=COLOURS[regime], linestyle="", label=f"{regime} {size}")
              for regime in REGIMES for size in SIZES]
    legend.append(Line2D([], [], marker="|", color="black", linestyle="", markersize=9, label="target"))
    figure.legend(handles=legend, loc="upper center", ncol=len(legend), fontsize=9, frameon=False)
    figure.tight_layout(rect=(0, 0, 1, 1 - 0.4 / figure.get_figheight()))
    figure.savefig(path, metadata={"Date": None, "Creator": None})
    plt.close(figure)
