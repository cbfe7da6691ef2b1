# SPDX-License-Identifier: MIT
"""The report's section on vsurf_show(): speeds over other libraries, and what its parts cost."""
from measurements import KINDS, REGIMES, SHOW_FAMILIES, mean
from report_summary import LIBRARIES, spread
from report_text import SHOW
from targets import WHOLE

ODD = {"853x479": "864x480", "333x217": "336x218"}  # with the next size of whole blocks
PLAIN = "show_i420_bgrx"


def cases_of(run, regime, family="show"):
    return [case for case in run.cases.values() if case.family == family and case.regime == regime]


def over(run, case, size, export):
    """Time over that of another export or size, on the same kind of surface."""
    time, other = run.time(case), run.time(run.cases.get((case.regime, case.kind, size, export)))
    return time / other if time and other else None


def over_plain(export, sizes=WHOLE):
    """The ratios to the plain export, in one regime."""
    return lambda run, regime: [over(run, case, case.size, PLAIN) for case in cases_of(run, regime)
                                if case.export == export and case.size in sizes]


def over_loaders(run, regime):
    return [run.time(case) / run.loader_time(case) for case in cases_of(run, regime)
            if case.export == case.plain and case.size in WHOLE and run.time(case) and run.loader_time(case)]


def pixels(size):
    width, height = map(int, size.split("x"))
    return width * height


def over_whole(odd):
    """By pixel, of every export."""
    scale = pixels(ODD[odd]) / pixels(odd)
    return lambda run, regime: [scale * ratio for case in cases_of(run, regime) if case.size == odd
                                and (ratio := over(run, case, ODD[odd], case.export))]


# What is compared, the most that it is to be, and the ratios.
PARTS = (
    ("I420 over `loadimage_*`, whole blocks", 1.03, over_loaders),
    *((f"{odd} over {whole}, a pixel", 1.08, over_whole(odd)) for odd, whole in ODD.items()),
    ("BT.709 over BT.601", 1.05, over_plain(PLAIN + "-709")),
    ("full range over limited", 1.05, over_plain(PLAIN + "-full")),
    ("NV12 over I420", 1.05, over_plain("show_nv12_bgrx")),
    ("1080p with a subtitle over without", 1.3, over_plain(PLAIN + "-subtitle", ("1920x1080",))),
    ("the same as 8-bit coverage", 1.3, over_plain(PLAIN + "-coverage", ("1920x1080",))),
)


def extent(ratios, bound):
    """Mean and extremes; bold where the mean is beyond the bound."""
    ratios = [ratio for ratio in ratios if ratio]
    if not ratios:
        return "-"
    text = f"{mean(ratios):.2f}"
    return (text if mean(ratios) <= bound else f"**{text}**") + f" ({min(ratios):.2f} to {max(ratios):.2f})"


def parts_table(run):
    lines = ["| time | at most | " + " | ".join(REGIMES) + " |", "|---|---:|" + "---:|" * len(REGIMES)]
    for words, bound, ratios in PARTS:
        cells = [extent(ratios(run, regime), bound) for regime in REGIMES]
        lines.append(f"| {words} | {bound:.2f}x | " + " | ".join(cells) + " |")
    return lines + [""]


def call_line(run):
    """Nanoseconds of one call, hot, beyond those of the loader."""
    cases = cases_of(run, "hot", SHOW_FAMILIES[1])
    found = {case.kind: 1e9 * (run.time(case) - run.loader_time(case)) for case in cases
             if run.time(case) and run.loader_time(case)}
    if not found:
        return []
    words = ", ".join(f"{found[kind]:.0f} ns ({KINDS[kind]})" for kind in KINDS if kind in found)
    return ["A call that shows 64x32 pixels as RGB32, hot, is to take at most 400 ns more than `loadimage_rgb32`: it "
            f"takes {words}.", ""]


def peers_table(run):
    exports = [export for export in run.exports("show") if not export.endswith(("-subtitle", "-coverage"))]
    lines = ["| speed over | " + " | ".join(f"{regime}, {name}" for regime in REGIMES for name in LIBRARIES) + " |",
             "|---|" + "---:|" * len(REGIMES) * len(LIBRARIES)]
    for export in exports:
        cells = [spread(speed for case in cases_of(run, regime) if case.export == export
                        and (speed := run.speed(case, (library,)))) for regime in REGIMES for library in LIBRARIES]
        lines.append(f"| `{export}` | " + " | ".join(cells) + " |")
    return lines + [""]


def show_section(run, plot):
    if "show" not in run.families():
        return call_line(run)
    lines = ["## Any picture: vsurf_show", "", SHOW.strip(), ""]
    if plot:
        lines += [f"![Speed of vsurf_show over the best peer]({plot.name})", ""]
    return lines + peers_table(run) + parts_table(run) + call_line(run)
