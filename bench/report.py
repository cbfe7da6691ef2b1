#!/usr/bin/env python3
"""Turns the JSON output of vsurf_bench into report.md and a plot."""
import argparse
import sys
from pathlib import Path

from measurements import REGIMES, SAME_TIER, SIZES, Run, verdict

INTRODUCTION = """# How fast vsurf is

Each loader is measured beside a streaming roof (a loop with the same bytes read and written and no arithmetic, the
better one of ordinary, prefetched and non-temporal stores) and beside the nearest calls of libyuv and libswscale, on
one thread, in one process, the contenders of a group interleaved at random. The fastest repetition counts. *Hot* uses
the same picture and surface again and again; *cold* walks a ring of pictures and surfaces that is larger than the
last-level cache, as a player does. `vsurf` is the instruction set that the library chooses on this machine.
"""
NOTES = """
- *best peer* is the fastest of libyuv at each of its instruction sets and of libswscale; a speed above 1 means that
  vsurf is faster. Adjusted loaders are compared with the peers of their plain twin, which adjust nothing.
- No peer writes the 664 and 655 layouts; theirs is the call for 565. `loadimage_yuy2` writes 7/8 of the surface, its
  peers all of it. `loadimage_yv12` has lines that later ones replace; its roof and its GB/s count the bytes that
  remain, 1.25 a pixel, where its peers move 1.5. No peer halves the width into YUY2 in one call: libyuv's figure is
  two calls.
- *target* is met as measured, without allowance. *(roof: ...)* tells what the roof itself would reach where that is
  short of the target: no loader that moves these bytes can meet it.
"""


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


def cell(value, form):
    return "-" if value is None else format(value, form)


def case_row(run, case):
    time, roof, peer, judged = run.time(case), run.roof(case), run.best_peer(case), verdict(run, case)
    moved = sum(case.traffic["vsurf:" + run.isa])
    twin = run.time(run.twin(case)) if case.export != case.plain else None
    cells = [f"`{case.export}`", f"{time * 1e3:.4f}", f"{moved / time / 1e9:.1f}",
             cell(roof / time if roof else None, ".0%"),
             f"{peer[1]}, {peer[0] * 1e3:.4f}" if peer else "-", cell(peer[0] / time if peer else None, ".2f") + "x",
             cell(time / twin if twin else None, ".2f") + ("x" if twin else ""),
             judged.target if judged else "-", str(judged) if judged else "-"]
    return "| " + " | ".join(cells) + " |"


def size_table(run, regime, size):
    cases = [run.cases.get((regime, size, export)) for export in run.exports()]
    rows = [case_row(run, case) for case in cases if case and run.time(case)]
    if not rows:
        return []
    return [f"### {regime.capitalize()}, {size}", "",
            "| export | ms/picture | GB/s | of roof | best peer, ms | speed vs best peer | time vs plain | target "
            "| met |", "|---|---:|---:|---:|---|---:|---:|---|---|", *rows, ""]


def score(run):
    judged = [(case, verdict(run, case)) for case in run.cases.values()]
    judged = [(case, result) for case, result in judged if result]
    lines = ["| | targets met | missed, within the roof | missed, beyond the roof |", "|---|---:|---:|---:|"]
    for regime in REGIMES:
        for size in SIZES:
            here = [result for case, result in judged if (case.regime, case.size) == (regime, size)]
            if here:
                met = sum(result.met for result in here)
                beyond = sum(not result.met and bool(result.bound) for result in here)
                lines.append(f"| {regime} {size} | {met} of {len(here)} | {len(here) - met - beyond} | {beyond} |")
    return lines + [""]


def tier_table(run):
    """Each instruction set against the peers at the same one, and SSE2 against the next one as well."""
    tiers = [isa for isa in SAME_TIER if any(run.time(case, isa) for case in run.cases.values())]
    beyond_tier = ("libyuv-ssse3", "swscale-ssse3") if "sse2" in tiers else ()
    heads = [f"{isa} vs peers' {isa}" for isa in tiers] + (["sse2 vs peers' ssse3"] if beyond_tier else [])
    lines = ["## Same instruction set", "",
             "Speed relative to the fastest peer that is limited to the same instruction set; 1 or more is the "
             "target.", "",
             "| export | " + " | ".join(heads) + " | scalar, ms |", "|---|" + "---:|" * (len(heads) + 1)]
    for case in run.cases.values():
        if case.export != case.plain:
            continue
        pairs = [(isa, SAME_TIER[isa]) for isa in tiers] + ([("sse2", beyond_tier)] if beyond_tier else [])
        cells = []
        for isa, names in pairs:
            time, peer = run.time(case, isa), run.best_peer(case, names)
            ratio = peer[0] / time if time and peer else None
            cells.append("-" if ratio is None else f"{ratio:.2f}x" if ratio >= 1 else f"**{ratio:.2f}x**")
        scalar = run.time(case, "scalar")
        cells.append(cell(scalar * 1e3 if scalar else None, ".4f"))
        lines.append(f"| {case.regime} {case.size} `{case.export}` | " + " | ".join(cells) + " |")
    return lines + [""]


def stores_table(run):
    lines = ["## Ordinary and non-temporal stores", "",
             "The same loader with each kind of stores forced, and as the library chooses. *Readback* reads the whole "
             "surface on the same core after every picture, inside the clock.", "",
             "| | surface written, MB | ordinary, ms | non-temporal, ms | non-temporal faster by | chosen, ms |",
             "|---|---:|---:|---:|---:|---:|"]
    for case in run.stores.values():
        ordinary, streamed, chosen = (case.times[f"stores:{kind}"] for kind in ("ordinary", "nontemporal", "chosen"))
        written = case.traffic["stores:ordinary"][1]
        lines.append(f"| {case.regime} {case.size} `{case.export}` | {written / 1e6:.2f} | {ordinary * 1e3:.4f} | "
                     f"{streamed * 1e3:.4f} | {ordinary / streamed:.2f}x | {chosen * 1e3:.4f} |")
    return lines + [""]


def warn_of_the_impossible(run):
    for case in run.cases.values():
        time, roof = run.time(case), run.roof(case)
        if time and roof and time < 0.8 * roof:
            print(f"report.py: {case.regime}/{case.size}/{case.export} is {roof / time:.1f} times as fast as the roof; "
                  "does it do its work?", file=sys.stderr)


def report(run, stores, commands, plot):
    lines = [INTRODUCTION, *machine(run), "Measured with:", "", "```", *commands, "```", "",
             f"![Speed relative to the roof and to the best peer]({plot})", "", *score(run), NOTES.strip(), ""]
    for regime in REGIMES:
        for size in SIZES:
            lines += size_table(run, regime, size)
    lines += tier_table(run)
    if stores and stores.stores:
        lines += stores_table(stores)
    return "\n".join(lines).rstrip() + "\n"


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
    plot = arguments.output.with_suffix(".svg")
    draw(run, plot)
    arguments.output.write_text(report(run, stores, arguments.command, plot.name), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
