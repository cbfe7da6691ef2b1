# SPDX-License-Identifier: MIT
"""The report's tables of single exports, of instruction sets and of kinds of stores."""
from measurements import KINDS, REGIMES, SAME_TIER, SHOW_FAMILIES, STORE_REGIMES, TWINS, mean, unique
from report_text import FAMILY_NOTES, SHARES


def cell(value, form, unit=""):
    return "-" if value is None else format(value, form) + unit


def figures(run, case):
    """Microseconds and the speed over the best peer or, where there is none, the share of the roof's speed."""
    time = run.time(case)
    if not time:
        return "-"
    speed, roof = run.speed(case), run.roof(case)
    compared = f" ({speed:.2f}x)" if speed else f" ({roof / time:.0%})" if roof else ""
    return f"{time * 1e6:.4g}{compared}"


def export_row(run, export, regime, sizes):
    cells, shares, twins = [], [], []
    for size in sizes:
        cases = [run.cases.get((regime, kind, size, export)) for kind in ("64", "natural")]
        cells.append(" / ".join(figures(run, case) for case in cases if case) or "-")
        shares += [run.roof(case) / run.time(case) for case in cases if run.time(case) and run.roof(case)]
        twins += [run.time(case) / run.twin_time(case) for case in cases if run.time(case) and run.twin_time(case)]
    if all(text == "-" for text in cells):
        return None
    return f"| `{export}` | " + " | ".join(cells) + \
        f" | {cell(mean(shares), '.0%')} | {cell(mean(twins), '.2f', 'x')} |"


def family_table(run, family, regime):
    sizes = run.sizes(family)
    rows = [export_row(run, export, regime, sizes) for export in run.exports(family)]
    return [f"### {family.capitalize()}, {regime}", "",
            "| export | " + " | ".join(sizes) + f" | of roof | time vs {TWINS.get(family, 'plain')} |",
            "|---|" + "---:|" * (len(sizes) + 2), *(row for row in rows if row), ""]


def family_section(run, family, plot):
    shares = {name: f"{float(run.context[name]):.1%}" for name in SHARES}
    lines = [f"## {family.capitalize()}", "", FAMILY_NOTES.get(family, "").format(**shares).strip(), ""]
    if plot:
        lines += [f"![Speed of the {family} over the best peer]({plot.name})", ""]
    for regime in REGIMES:
        lines += family_table(run, family, regime)
    return lines


def slowest(ratios):
    ratio = min((ratio for ratio in ratios if ratio), default=None)
    return "-" if ratio is None else f"{ratio:.2f}x" if ratio >= 1 else f"**{ratio:.2f}x**"


def tier_row(run, pairs, regime, export, sizes):
    cases = [run.cases[key] for size in sizes if (key := (regime, "64", size, export)) in run.cases]
    cells = []
    for isa, names in pairs:
        timed = [(run.time(case, isa), run.best_peer(case, names)) for case in cases]
        cells.append(slowest(peer[0] / time if time and peer else None for time, peer in timed))
    best, plainest = ([run.time(case, isa) for case in cases] for isa in (run.isa, "scalar"))
    factors = [slow / fast for fast, slow in zip(best, plainest) if fast and slow]
    if all(text == "-" for text in cells):
        return None
    return f"| {regime} `{export}` | " + " | ".join(cells) + f" | {cell(max(factors, default=None), '.1f')} |"


def tier_table(run):
    """Each instruction set against the peers at the same one, and SSE2 against the next one as well."""
    tiers = [isa for isa in SAME_TIER if any(run.time(case, isa) for case in run.cases.values())]
    pairs = [(isa, SAME_TIER[isa]) for isa in tiers]
    heads = [f"{isa} vs peers' {isa}" for isa in tiers]
    if "sse2" in tiers:
        pairs.append(("sse2", ("libyuv-ssse3", "swscale-ssse3")))
        heads.append("sse2 vs peers' ssse3")
    lines = ["## Same instruction set", "",
             "Speed over the fastest peer that is limited to the same instruction set, at the size where it is lowest. "
             "Surfaces are at multiples of 64; sizes are 720x576 and 1920x1080, for the best instruction set all. The "
             f"last column is the largest factor between the time of the scalar code and that of {run.isa}.", "",
             "| export | " + " | ".join(heads) + " | scalar, times |", "|---|" + "---:|" * (len(heads) + 1)]
    for family in (family for family in run.families() if family not in SHOW_FAMILIES):
        plain = unique(case.plain for case in run.cases.values() if case.family == family)
        rows = [tier_row(run, pairs, regime, export, run.sizes(family)) for export in plain for regime in REGIMES]
        lines += [row for row in rows if row]
    return lines + [""]


def stores_cell(cases):
    """One figure a regime: times as fast with non-temporal stores."""
    ratios = [case.times["stores:ordinary"] / case.times["stores:nontemporal"] if case else None for case in cases]
    return " / ".join(cell(ratio, ".2f") for ratio in ratios)


def stores_table(run):
    lines = ["## Ordinary and non-temporal stores", "",
             "How many times as fast an export is with non-temporal stores, wherever they are possible, as without: "
             + " / ".join(STORE_REGIMES) + ". *Readback* reads the whole surface on the same core after every picture; "
             "the time includes it.", "",
             "| | surface written, MB | " + " | ".join(KINDS.values()) + " |", "|---|---:|" + "---:|" * len(KINDS)]
    for export, size in unique((case.export, case.size) for case in run.stores.values()):
        by_kind = [[run.stores.get((regime, kind, size, export)) for regime in STORE_REGIMES] for kind in KINDS]
        written = next(case for cases in by_kind for case in cases if case).traffic["stores:ordinary"][1]
        lines.append(f"| `{export}` {size} | {written / 1e6:.2f} | " + " | ".join(map(stores_cell, by_kind)) + " |")
    return lines + [""]
