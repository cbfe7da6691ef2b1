# SPDX-License-Identifier: MIT
"""The measurements of a vsurf_bench run, read from its JSON output: fastest repetition, ratios."""
import json
import math
from dataclasses import dataclass, field

REGIMES = ("hot", "cold")
STORE_REGIMES = ("hot", "readback", "cold")

# Kinds of surface, as vsurf_bench names them, and in words.
KINDS = {"64": "base and pitch multiples of 64", "natural": "natural pitch", "base8": "base 8 bytes off",
         "pixel": "base one pixel off"}

# By instruction set of the library: the beginnings of the names of peers that use no newer instructions.
SAME_TIER = {
    "avx512": ("libyuv-avx512", "libyuv-avx2", "swscale"),
    "avx2": ("libyuv-avx2", "swscale"),
    "sse2": ("libyuv-sse2", "swscale-sse2"),
    "neon": ("libyuv-neon", "swscale"),
}

# Families of vsurf_show(), with a section of their own: the best instruction set only, and no roof.
SHOW_FAMILIES = ("show", "show, one call")

# By family, what an export is compared with where that is not its group's plain one.
TWINS = {"mixers": "loader", "subpictures": "loader or opaque"}


@dataclass
class Case:
    """One export on one surface in one regime: seconds a picture by contender, and what it is compared with."""
    regime: str
    kind: str
    size: str
    export: str
    family: str = ""
    plain: str = ""
    times: dict = field(default_factory=dict)
    traffic: dict = field(default_factory=dict)


def mean(values):
    """The geometric mean, None of nothing."""
    logs = [math.log(value) for value in values if value]
    return math.exp(sum(logs) / len(logs)) if logs else None


def unique(values):
    """In the order of their first occurrence."""
    return list(dict.fromkeys(values))


class Run:
    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            document = json.load(file)
        self.context = document["context"]
        self.cases = {}
        self.stores = {}
        self._groups = {}
        for entry in document["benchmarks"]:
            self._add(entry)
        self.isa = self.context["vsurf_isa"]

    def _add(self, entry):
        parts = entry["name"].removesuffix("/real_time").split("/")
        cases = self.stores if parts[0] == "stores" else self.cases
        regime, kind, size, export, contender = parts[-5:]
        case = cases.setdefault((regime, kind, size, export), Case(regime, kind, size, export))
        case.family, case.plain = entry["label"].split("/")
        scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[entry["time_unit"]]
        seconds = entry["real_time"] * scale
        case.times[contender] = min(seconds, case.times.get(contender, seconds))
        case.traffic[contender] = (entry["bytes_read"], entry["bytes_written"])

    def families(self):
        return unique(case.family for case in self.cases.values())

    def sizes(self, family):
        return unique(case.size for case in self.cases.values() if case.family == family)

    def exports(self, family):
        """In the order of measurement, but each plain export before what is compared with it."""
        cases = [case for case in self.cases.values() if case.family == family]
        plain = unique(case.plain for case in cases)
        names = {(plain.index(case.plain), case.export != case.plain, case.export) for case in cases}
        return [export for _, _, export in sorted(names)]

    def twin(self, case):
        return self.cases.get((case.regime, case.kind, case.size, case.plain))

    def time(self, case, isa=None):
        return case.times.get("vsurf:" + (isa or self.isa)) if case else None

    def twin_time(self, case):
        """Of what this export is compared with: a loader that takes its place, or else its group's plain one."""
        return self.loader_time(case) or (self.time(self.twin(case)) if case.export != case.plain else None)

    def loader_time(self, case):
        twin = self.twin(case)
        return min((time for name, time in (twin.times if twin else {}).items() if name.startswith("loader:")),
                   default=None)

    def has_loaders(self, family):
        return any(case.family == family and self.loader_time(case) for case in self.cases.values())

    def group(self, case):
        if not self._groups:
            for other in self.cases.values():
                self._groups.setdefault((other.regime, other.kind, other.size, other.plain), []).append(other)
        return self._groups[case.regime, case.kind, case.size, case.plain]

    def roof(self, case):
        """The best roof of those of the group that move the same bytes."""
        moved = case.traffic.get("vsurf:" + self.isa)
        return min((time for other in self.group(case) for name, time in other.times.items()
                    if name.startswith("roof:") and other.traffic[name] == moved), default=None)

    def best_peer(self, case, names=("",)):
        """Seconds and name of the fastest peer, of all or of those whose names begin like one of those given: of the
        export's own or, where it has none, of its group's plain one."""
        twin = self.twin(case)
        peers = self._peers(case) or (self._peers(twin) if twin else [])
        return min((peer for peer in peers if peer[1].startswith(tuple(names))), default=None)

    @staticmethod
    def _peers(case):
        return [(time, name.removeprefix("peer:")) for name, time in case.times.items() if name.startswith("peer:")]

    def speed(self, case, names=("",)):
        """Times as fast as that peer; None where there is none."""
        time, peer = self.time(case), self.best_peer(case, names)
        return peer[0] / time if time and peer else None

    def elsewhere(self, case, kind):
        """The same export and size on another kind of surface."""
        return self.cases.get((case.regime, kind, case.size, case.export))
