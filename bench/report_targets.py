# SPDX-License-Identifier: MIT
"""The end of the report: the targets, and the cells that miss them."""
from measurements import REGIMES, unique
from targets import TARGETS, UNITS, verdicts


def score_cells(judged):
    """The target, how often it was met, and the cell that is furthest from it."""
    if not judged:
        return ["-", "-", "-"]
    target, worst = judged[0].target, min(judged, key=lambda verdict: verdict.distance())
    met, beyond = sum(verdict.met for verdict in judged), sum(verdict.beyond for verdict in judged)
    goals = sorted({verdict.factor for verdict in judged}, reverse=True)
    return [" / ".join(f"{goal:.2f}x" for goal in goals) + f" {UNITS[target.measure]}",
            f"{met} of {len(judged)}" + (f" ({beyond} beyond the roof)" if beyond else ""),
            f"{worst.value:.2f}x (`{worst.case.export}`, {worst.case.kind}, {worst.case.size})"]


def score(judged):
    lines = ["| class | target, hot | met | furthest from it | target, cold | met | furthest from it |",
             "|---|---|---|---|---|---|---|"]
    for target in TARGETS:
        of_class = [verdict for verdict in judged if verdict.target == target]
        if of_class:
            cells = [text for regime in REGIMES
                     for text in score_cells([verdict for verdict in of_class if verdict.case.regime == regime])]
            lines.append(f"| {target.title} | " + " | ".join(cells) + " |")
    return lines + [""]


def missed_cell(verdict):
    roof = f", roof {verdict.limit:.2f}" if verdict.limit else ""
    named = "" if verdict.target.measure == "kind" else f"{verdict.case.kind} "
    return f"{named}{verdict.case.size} {verdict.value:.2f}{roof}"


def missed(judged):
    """One line for each export in each regime: which cells, what they reach, what the roof would."""
    misses = [verdict for verdict in judged if not verdict.met]
    lines = []
    for target in TARGETS:
        of_class = [verdict for verdict in misses if verdict.target == target]
        if of_class:
            lines += ["", f"**{target.title}**", ""]
        for export, regime in unique((verdict.case.export, verdict.case.regime) for verdict in of_class):
            cells = [missed_cell(verdict) for verdict in of_class
                     if (verdict.case.export, verdict.case.regime) == (export, regime)]
            lines.append(f"- `{export}`, {regime}: {'; '.join(cells)}")
    return lines or ["None."]


def target_section(run):
    judged = verdicts(run)
    return ["## Internal targets", "",
            "What the project wants to reach, as a minimum or maximum. *Peer*: at least this speed, compared with the "
            "best peer. *Loader's time*: at most this time, compared with the loader that takes a mixer's place where "
            "there is no subpicture. *Time at 64*: at most this time at the natural pitch, compared with the same "
            "export on a surface at multiples of 64. *Beyond the roof*: even an export as fast as the roof would miss "
            "the target.", "",
            *score(judged), "### Missed cells", "",
            "What they reach, and what an export as fast as the roof would reach.",
            *missed(judged), ""]
