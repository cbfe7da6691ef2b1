"""The plots of a vsurf_bench run: every export's speed relative to the roof and to the best peer."""
import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt
from matplotlib.lines import Line2D
from matplotlib.ticker import FuncFormatter, NullFormatter

from measurements import REGIMES
from targets import factor_of, target_of

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


def of_peer(run, case):
    """Of the peers that the export's target counts."""
    target = target_of(case.export)
    peer = run.best_peer(case, target.peers if target else ("",))
    return peer[0] / run.time(case) if peer else None


def roof_goal(case):
    target = target_of(case.export)
    if not target or target.measure not in ("roof", "slower"):
        return None
    factor = factor_of(target, case)
    return factor if target.measure == "roof" else 1 / factor


def peer_goal(case):
    target = target_of(case.export)
    return factor_of(target, case) if target and target.measure == "peer" else None


def legend(figure, run, family):
    marks = [Line2D([], [], marker=marker, color=COLOURS[regime], linestyle="", label=f"{regime} {size}")
             for (regime, size), (_, marker) in lanes(run, family).items()]
    marks.append(Line2D([], [], marker="|", color="black", linestyle="", markersize=9, label="target"))
    figure.legend(handles=marks, loc="upper center", ncol=len(marks), fontsize=9, frameon=False)


def draw(run, family, path):
    plt.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "vsurf", "font.family": "sans-serif"})
    rows = run.exports(family)
    figure, (left, right) = plt.subplots(1, 2, sharey=True, figsize=(13, 1.6 + 0.56 * len(rows)),
                                         width_ratios=(1, 1.25))
    scatter(left, run, family, of_roof, roof_goal)
    dress(left, len(rows), "Speed relative to the streaming roof", "share of the roof's speed")
    left.set_yticks([-row for row in range(len(rows))], rows, fontfamily="monospace")
    left.set_xlim(0, 1.05 * max([1.0] + [value for _, _, value, _ in points(run, family, of_roof)]))
    left.xaxis.set_major_formatter(FuncFormatter(lambda value, _: f"{value:.0%}"))
    left.axvline(1, color="black", linewidth=1, linestyle="--")

    scatter(right, run, family, of_peer, peer_goal)
    dress(right, len(rows), "Speed relative to the best peer", "times as fast as the best of libyuv and libswscale")
    right.set_xscale("log")
    right.set_xticks([0.5, 0.7, 1, 1.5, 2, 3, 5, 8, 12, 20])
    right.xaxis.set_major_formatter(FuncFormatter(lambda value, _: f"{value:g}x"))
    right.xaxis.set_minor_formatter(NullFormatter())
    right.axvline(1, color="black", linewidth=1, linestyle="--")

    legend(figure, run, family)
    figure.tight_layout(rect=(0, 0, 1, 1 - 0.4 / figure.get_figheight()))
    figure.savefig(path, metadata={"Date": None, "Creator": None})
    plt.close(figure)
