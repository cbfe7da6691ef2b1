#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Turns the JSON output of vsurf_bench into report.md and a plot for each family of exports."""
import argparse
import sys
from pathlib import Path

from measurements import REGIMES, SAME_TIER, STORE_REGIMES, TWINS, Run, unique
from report_text import FAMILY_NOTES, INTRODUCTION, NOTES, SHARES
from targets import TARGETS, verdicts


def machine(run):
    context = run.context
    caches = ", ".join(f"L{cache['level']} {cache['type'].lower()} {cache['size'] // 1024} KiB"
                       for cache in context["caches"])
    rows = [("processor", f"{context['processor']}, {context['num_cpus']} cores, {context['mhz_per_cpu']} MHz nominal"),
            ("caches", caches),
            ("compiler", f"{context['compiler']}, {context['compiler_flags']}"),
            ("instruction sets", f"vsurf {run.isa}, roof {context['roof_isa']}"),
            ("ring", f"{int(context['ring_bytes']) >> 20} MiB, last-level cache taken as "
                     f"{int(context['last_level_cache_bytes']) >> 20} MiB")]
    return ["| | |", "|---|---|"] + [f"| {name} | {value} |" for name, value in rows] + [""]


def cell(value, form, unit=""):
    return "-" if value is None else format(value, form) + unit


def case_row(run, case):
    time, roof, peer, judged = run.time(case), run.roof(case), run.best_peer(case), verdicts(run, case)
    moved = sum(case.traffic["vsurf:" + run.isa])
    twin = run.twin_time(case)
    cells = [f"`{case.export}`", f"{time * 1e3:.4f}", f"{moved / time / 1e9:.1f}",
             cell(roof / time if roof else None, ".0%"),
             f"{peer[1]}, {peer[0] * 1e3:.4f}" if peer else "-", cell(peer[0] / time if peer else None, ".2f", "x"),
             cell(time / twin if twin else None, ".2f", "x"),
             ", ".join(verdict.goal() for verdict in judged) or "-", ", ".join(map(str, judged)) or "-"]
    return "| " + " | ".join(cells) + " |"


def size_table(run, family, regime, size):
    cases = [run.cases.get((regime, size, export)) for export in run.exports(family)]
    rows = [case_row(run, case) for case in cases if run.time(case)]
    if not rows:
        return []
    return [f"### {family.capitalize()}, {regime}, {size}", "",
            "| export | ms/picture | GB/s | of roof | best peer, ms | speed vs best peer "
            f"| time vs {TWINS.get(family, 'plain')} | target | met |",
            "|---|---:|---:|---:|---|---:|---:|---|---|", *rows, ""]


def family_section(run, family, plot):
    shares = {name: f"{float(run.context[name]):.1%}" for name in SHARES}
    lines = [f"## {family.capitalize()}", "", FAMILY_NOTES.get(family, "").format(**shares).strip(), "",
             f"![Speed of the {family} relative to the roof and to the best peer]({plot})", ""]
    for regime in REGIMES:
        for size in run.sizes(family):
            lines += size_table(run, family, regime, size)
    return lines


def score_cells(verdicts):
    """The target, how often it was met, and the case that is furthest from it."""
    if not verdicts:
        return ["-", "-", "-"]
    met, beyond = sum(result.met for _, result in verdicts), sum(result.beyond for _, result in verdicts)
    case, worst = min(verdicts, key=lambda pair: pair[1].distance())
    goals = unique(result.goal() for _, result in verdicts)
    return [" / ".join(goals), f"{met} of {len(verdicts)}" + (f" ({beyond} beyond the roof)" if beyond else ""),
            f"{worst.target.show(worst.value)} (`{case.export}`, {case.size})"]


def score(run):
    judged = [(case, verdict) for case in run.cases.values() for verdict in verdicts(run, case)]
    lines = ["| class | target, hot | met | furthest from it | target, cold | met | furthest from it |",
             "|---|---|---|---|---|---|---|"]
    for target in TARGETS:
        of_class = [pair for pair in judged if pair[1].target == target]
        if of_class:
            cells = [cell for regime in REGIMES
                     for cell in score_cells([pair for pair in of_class if pair[0].regime == regime])]
            lines.append(f"| {target.title} | " + " | ".join(cells) + " |")
    return lines + [""]


def slowest(ratios):
    ratio = min((ratio for ratio in ratios if ratio), default=None)
    return "-" if ratio is None else f"{ratio:.2f}x" if ratio >= 1 else f"**{ratio:.2f}x**"


def tier_row(run, pairs, regime, export, sizes):
    cases = [run.cases[key] for size in sizes if (key := (regime, size, export)) in run.cases]
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
             "Speed relative to the fastest peer that is limited to the same instruction set, at the size where it is "
             "lowest; 1 or more is the target. The last column is the largest factor between the scalar code's time "
             f"and that of {run.isa}.", "",
             "| export | " + " | ".join(heads) + " | scalar, times |", "|---|" + "---:|" * (len(heads) + 1)]
    for family in run.families():
        plain = unique(case.plain for case in run.cases.values() if case.family == family)
        rows = [tier_row(run, pairs, regime, export, run.sizes(family)) for export in plain for regime in REGIMES]
        lines += [row for row in rows if row]
    return lines + [""]


def stores_cell(case):
    if not case:
        return "-"
    ordinary, streamed, chosen = (case.times[f"stores:{kind}"] for kind in ("ordinary", "nontemporal", "chosen"))
    return f"{ordinary * 1e3:.4f} / {streamed * 1e3:.4f} / {chosen * 1e3:.4f} ({ordinary / streamed:.2f}x)"


def stores_table(run):
    lines = ["## Ordinary and non-temporal stores", "",
             "The same export with each kind of stores forced, and as the library chooses: ordinary / non-temporal / "
             "chosen, ms a picture, and how many times as fast the non-temporal ones are. *Readback* reads the whole "
             "surface on the same core after every picture, inside the clock.", "",
             "| | surface written, MB | " + " | ".join(STORE_REGIMES) + " |", "|---|---:|" + "---|" * 3]
    for export, size in unique((case.export, case.size) for case in run.stores.values()):
        cases = [run.stores.get((regime, size, export)) for regime in STORE_REGIMES]
        written = next(case for case in cases if case).traffic["stores:ordinary"][1]
        lines.append(f"| `{export}` {size} | {written / 1e6:.2f} | " + " | ".join(map(stores_cell, cases)) + " |")
    return lines + [""]


def warn_of_the_impossible(run):
    for case in run.cases.values():
        time, roof = run.time(case), run.roof(case)
        if time and roof and time < 0.8 * roof:
            print(f"report.py: {case.regime}/{case.size}/{case.export} is {roof / time:.1f} times as fast as the roof; "
                  "does it do its work?", file=sys.stderr)


def report(run, stores, commands, plots):
    lines = [INTRODUCTION, *machine(run), "Measured with:", "", "```", *commands, "```", "", "## Targets", "",
             *score(run), NOTES.strip(), ""]
    for family in run.families():
        lines += family_section(run, family, plots[family].name)
    lines += tier_table(run)
    if stores and stores.stores:
        lines += stores_table(stores)
    return "\n".join(lines).rstrip() + "\n"


def plots_of(run, output):
    """One for each family, beside the report."""
    return {family: output.with_name(f"{output.stem}-{family.replace(' ', '-')}.svg") for family in run.families()}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("json", help="what vsurf_bench wrote with --benchmark_out")
    parser.add_argument("--stores", help="the same of a run with --stores")
    parser.add_argument("--command", action="append", default=[], help="a command line to show in the report")
    parser.add_argument("--output", type=Path, default=Path(__file__).parent / "report.md")
    arguments = parser.parse_args()
    try:
        run = Run(arguments.json)
        stores = Run(arguments.stores) if arguments.stores else None
    except (OSError, ValueError, KeyError) as error:
        print(f"report.py: cannot read the measurements: {error}", file=sys.stderr)
        return 2
    from plot import draw  # here, so that a wrong argument is told without waiting for the plotting library
    warn_of_the_impossible(run)
    plots = plots_of(run, arguments.output)
    for family, path in plots.items():
        draw(run, family, path)
    arguments.output.write_text(report(run, stores, arguments.command, plots), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
