"""The measurements of a vsurf_bench run, read from its JSON output: fastest repetition, ratios, targets."""
import json
from dataclasses import dataclass, field

SIZES = ("720x576", "1920x1080", "3840x2160")
REGIMES = ("hot", "cold")

# Speed relative to the best peer: hot 720x576, hot larger pictures, cold.
PEER_TARGETS = {
    "loadimage_rgb32": (1.25, 1.0, 2.0),
    "loadimage_rgb24": (1.2, 1.1, 2.0),
    "loadimage_rgb16": (2.8, 2.5, 2.5),
    "loadimage_yuy2": (1.4, 1.1, 2.0),
}
ROOF_TARGET = 0.90  # copies and half-size loaders: speed relative to the roof
ROOF_EXPORTS = ("loadimage_yv12", "loadimage_half_yuy2_ajust", "loadimage_half_yv12_ajust")
TWIN_TARGETS = (1.35, 1.1, 1.05)  # an adjusted loader's time relative to its plain twin's

# The peers that use no newer instructions than each of the library's instruction sets.
SAME_TIER = {
    "avx512": ("libyuv-avx512", "libyuv-avx2", "swscale"),
    "avx2": ("libyuv-avx2", "swscale"),
    "sse2": ("libyuv-sse2", "swscale-sse2"),
    "neon": ("libyuv-neon", "swscale"),
}


@dataclass
class Case:
    """One export at one size in one regime: seconds a picture by contender, and what it is compared with."""
    regime: str
    size: str
    export: str
    plain: str = ""
    times: dict = field(default_factory=dict)
    traffic: dict = field(default_factory=dict)


class Run:
    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            document = json.load(file)
        self.context = document["context"]
        self.cases = {}
        self.stores = {}
        for entry in document["benchmarks"]:
            self._add(entry)
        self.isa = self.context["vsurf_isa"]

    def _add(self, entry):
        parts = entry["name"].removesuffix("/real_time").split("/")
        cases = self.stores if parts[0] == "stores" else self.cases
        regime, size, export, contender = parts[-4:]
        case = cases.setdefault((regime, size, export), Case(regime, size, export))
        case.plain = entry["label"]
        scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[entry["time_unit"]]
        seconds = entry["real_time"] * scale
        case.times[contender] = min(seconds, case.times.get(contender, seconds))
        case.traffic[contender] = (entry["bytes_read"], entry["bytes_written"])

    def exports(self):
        """In the order of measurement, but each plain loader before what is compared with it."""
        plain = list(dict.fromkeys(case.plain for case in self.cases.values()))
        names = {(plain.index(case.plain), export != case.plain, export) for (_, _, export), case in self.cases.items()}
        return [export for _, _, export in sorted(names)]

    def twin(self, case):
        return self.cases.get((case.regime, case.size, case.plain))

    def time(self, case, isa=None):
        return case.times.get("vsurf:" + (isa or self.isa))

    def roof(self, case):
        """The better roof: the loader's own, or its plain twin's where both move the same bytes."""
        for source in (case, self.twin(case)):
            times = [time for name, time in source.times.items() if name.startswith("roof:")] if source else []
            if times:
                return min(times)
        return None

    def best_peer(self, case, names=None):
        """Seconds and name of the fastest peer, of all or of those named."""
        source = self.twin(case)
        peers = [(time, name.removeprefix("peer:")) for name, time in (source.times if source else {}).items()
                 if name.startswith("peer:") and (names is None or name.removeprefix("peer:") in names)]
        return min(peers, default=None)


@dataclass
class Verdict:
    target: str
    met: bool
    bound: str = ""  # what the roof would allow at best, where that is less than the target

    def __str__(self):
        return "yes" if self.met else "**no**" + (f" (roof: {self.bound})" if self.bound else "")


def column(case):
    if case.regime == "cold":
        return 2
    return 0 if case.size == SIZES[0] else 1


def verdict(run, case):
    """The target of an export, or None where it has none or lacks a measurement."""
    time, roof = run.time(case), run.roof(case)
    if time is None or roof is None:
        return None
    if case.export in ROOF_EXPORTS:
        return Verdict(f"{ROOF_TARGET:.0%} of roof", roof / time >= ROOF_TARGET)
    if case.export != case.plain:
        limit, plain = TWIN_TARGETS[column(case)], run.time(run.twin(case))
        bound = f"{roof / plain:.2f}x" if roof / plain > limit else ""
        return Verdict(f"{limit:.2f}x plain", time / plain <= limit, bound)
    peer = run.best_peer(case)
    goal = PEER_TARGETS.get(case.export.split("-")[0])
    if peer is None or goal is None:
        return None
    factor = goal[column(case)]
    bound = f"{peer[0] / roof:.2f}x" if peer[0] / roof < factor else ""
    return Verdict(f"{factor:.2f}x peer", peer[0] / time >= factor, bound)
