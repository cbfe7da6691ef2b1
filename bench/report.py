#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Turns the JSON output of vsurf_bench into report.md and its pictures."""
import argparse
import sys
from pathlib import Path

from measurements import SHOW_FAMILIES, Run
from report_details import family_section, stores_table, tier_table
from report_show import show_section
from report_summary import gains, work_table
from report_targets import target_section
from report_text import DETAILS, MEASURED, TABLE


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


def warn_of_the_impossible(run):
    for case in run.cases.values():
        time, roof = run.time(case), run.roof(case)
        if time and roof and time < 0.7 * roof:
            cell = f"{case.regime}/{case.kind}/{case.size}/{case.export}"
            print(f"report.py: {cell} is {roof / time:.1f} times as fast as the roof; does it do its work?",
                  file=sys.stderr)


def report(run, stores, commands, summary, plots):
    lines = ["# How fast vsurf is", "", *work_table(run), TABLE.strip(), "", *gains(run),
             f"![Speed over the best peer]({summary.name})", "",
             "## How it was measured", "", MEASURED.strip(), "", *machine(run),
             "```", *commands, "```", "", "## Every export", "", DETAILS.strip(), ""]
    for family in run.families():
        if family not in SHOW_FAMILIES:
            lines += family_section(run, family, plots.get(family))
    lines += show_section(run, plots.get(SHOW_FAMILIES[0]))
    lines += tier_table(run)
    if stores and stores.stores:
        lines += stores_table(stores)
    lines += target_section(run)
    return "\n".join(lines).rstrip() + "\n"


def picture_path(output, name):
    return output.with_name(f"{output.stem}-{name.replace(' ', '-')}.png")


def draw_all(run, output, every_cell):
    """The summary's picture, and by family those that were drawn."""
    # Here, so that a wrong argument need not wait for the plotting library.
    from plot import draw_cells, draw_family, draw_summary
    summary = picture_path(output, "summary")
    draw_summary(run, summary)
    plots = {}
    for family in run.families():
        path = picture_path(output, family)
        if draw_family(run, family, path):
            plots[family] = path
        if every_cell:
            draw_cells(run, family, every_cell / path.name)
    return summary, plots


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("json", help="what vsurf_bench wrote with --benchmark_out")
    parser.add_argument("--stores", help="the same of a run with --stores")
    parser.add_argument("--command", action="append", default=[], help="a command line to show in the report")
    parser.add_argument("--plots", type=Path, help="a folder for large pictures of every cell")
    parser.add_argument("--output", type=Path, default=Path(__file__).parent / "report.md")
    arguments = parser.parse_args()
    try:
        run = Run(arguments.json)
        stores = Run(arguments.stores) if arguments.stores else None
    except (OSError, ValueError, KeyError) as error:
        print(f"report.py: cannot read the measurements: {error}", file=sys.stderr)
        return 2
    warn_of_the_impossible(run)
    if arguments.plots:
        arguments.plots.mkdir(parents=True, exist_ok=True)
    summary, plots = draw_all(run, arguments.output, arguments.plots)
    arguments.output.write_text(report(run, stores, arguments.command, summary, plots), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
