# SPDX-License-Identifier: MIT
"""The beginning of the report: wins and losses in a table of ten lines, and what a user gains in three."""
import re

from measurements import KINDS, REGIMES, mean

# Kinds of work that have a peer, and patterns of the exports that do it.
WORK = (
    ("YV12 to RGB32", r"loadimage_rgb32(_ajust)?"),
    ("YV12 to RGB24, RGB16", r"loadimage_rgb24(_ajust)?|loadimage_rgb16(_ajust)?-565"),
    ("YV12 to YUY2", r"loadimage_yuy2(_ajust)?"),
    ("YV12 to YV12", r"loadimage_yv12_ajust"),
    ("YUY2 to RGB32", r"LoadYUY2_RGB32(_adjust)?"),
    ("YUY2 to RGB24, RGB16", r"LoadYUY2_RGB(24|16).*"),
    ("YUY2 to YUY2", r"LoadYUY2_YUY2(_adjust)?"),
    ("pictures and planes enlarged", r"strech_pic.*|yuy2_strech_.*"),
    ("subpicture mixed in", r"mix_.*"),
    ("colour fills", r"LoadColorKey.*"),
)
LIBRARIES = ("libyuv", "swscale")


def speeds(run, pattern, regime, kinds=tuple(KINDS), peers=("",)):
    """(speed over the best peer, case) of every cell of this work."""
    cases = (case for case in run.cases.values()
             if case.regime == regime and case.kind in kinds and re.fullmatch(pattern, case.export))
    return [(speed, case) for case in cases if (speed := run.speed(case, peers))]


def work_speed(run, pattern, regime, kind):
    return mean(speed for speed, _ in speeds(run, pattern, regime, (kind,)))


def gain(run, regime, kind):
    """Every kind of work counts once."""
    return mean(work_speed(run, pattern, regime, kind) for _, pattern in WORK)


def gain_line(run, regime, explanation):
    gains = {words: gain(run, regime, kind) for kind, words in KINDS.items()}
    parts = [f"{value:.2f} ({words})" for words, value in gains.items() if value]
    return f"- **{regime.capitalize()}** ({explanation}), speed over the best peer: {', '.join(parts)}."


def extremes_line(run):
    cells = [pair for regime in REGIMES for _, pattern in WORK for pair in speeds(run, pattern, regime)]
    if not cells:
        return "- No export with a peer was measured."
    faster = sum(speed >= 1 for speed, _ in cells)
    means = {(work, regime): mean(speed for speed, _ in speeds(run, pattern, regime))
             for work, pattern in WORK for regime in REGIMES}
    means = {key: value for key, value in means.items() if value}
    most, least = max(means, key=means.get), min(means, key=means.get)

    def words(key):
        return f"{key[0]}, {key[1]}, {means[key]:.2f} times"
    return (f"- vsurf is faster in {faster} of {len(cells)} cells ({faster / len(cells):.0%}). Furthest ahead: "
            f"{words(most)}. Furthest behind: {words(least)}.")


def gains(run):
    return [gain_line(run, "hot", "picture and surface stay in the caches"),
            gain_line(run, "cold", "neither is in a cache, as in a player"), extremes_line(run), ""]


def spread(values):
    values = list(values)
    if not values:
        return "-"
    text = f"{mean(values):.2f}"
    return (text if mean(values) >= 1 else f"**{text}**") + f" ({min(values):.1f} to {max(values):.1f})"


def work_table(run):
    lines = ["| work | " + " | ".join(f"{regime}, {library}" for regime in REGIMES for library in LIBRARIES) + " |",
             "|---|" + "---:|" * len(REGIMES) * len(LIBRARIES)]
    for work, pattern in WORK:
        cells = [spread(speed for speed, _ in speeds(run, pattern, regime, peers=(library,)))
                 for regime in REGIMES for library in LIBRARIES]
        if any(cell != "-" for cell in cells):
            lines.append(f"| {work} | " + " | ".join(cells) + " |")
    return lines + [""]
