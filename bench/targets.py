# SPDX-License-Identifier: MIT
"""What every class of exports is to reach, and whether it did."""
import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Target:
    title: str
    exports: str  # a pattern of whole names
    measure: str  # "peer": speed over the best peer's; "roof": share of the roof's speed; "slower": time over the
    #               roof's; "plain", "loader": time over the plain twin's or the loader's; "opaque": speed over the
    #               opaque twin's
    factors: tuple  # hot 720x576, hot other sizes, cold; None where nothing is to be reached
    peers: tuple = ("",)  # beginnings of the names of those that count

    @property
    def faster_is_more(self):
        return self.measure in ("peer", "roof", "opaque")

    @property
    def of_twin(self):
        return self.measure in ("plain", "loader", "opaque")

    def show(self, value):
        return f"{value:.0%}" if self.measure == "roof" else f"{value:.2f}x"

    def unit(self):
        named = {"peer": "peer" if self.peers == ("",) else self.peers[0], "roof": "of roof", "slower": "roof's time"}
        return named.get(self.measure, self.measure)


TARGETS = (
    Target("YV12 to RGB32", "loadimage_rgb32", "peer", (1.25, 1.0, 2.0)),
    Target("YV12 to RGB24", "loadimage_rgb24", "peer", (1.2, 1.1, 2.0)),
    Target("YV12 to RGB16", "loadimage_rgb16-.*", "peer", (2.8, 2.5, 2.5)),
    Target("YV12 to YUY2", "loadimage_yuy2", "peer", (1.4, 1.1, 2.0)),
    Target("YV12 copy, half size", "loadimage_(yv12|half_.*)", "roof", (0.9, 0.9, 0.9)),
    Target("YV12, adjusted beside plain", "loadimage_.*_ajust.*", "plain", (1.35, 1.1, 1.05)),
    Target("YUY2 to RGB32", "LoadYUY2_RGB32.*", "peer", (1.15, 1.15, 2.0)),
    Target("YUY2 to RGB24", "LoadYUY2_RGB24.*", "peer", (1.4, 1.4, 2.0)),
    Target("YUY2 to RGB16", "LoadYUY2_RGB16.*", "peer", (3.0, 3.0, 2.8)),
    Target("YUY2 to YUY2", "LoadYUY2_YUY2.*", "roof", (0.9, 0.9, 0.9)),
    Target("planes 2X2, 1X2", "strech_pic_.*|strech_picture_.*_yv12_ajust", "peer", (1.7, 1.7, 2.3)),
    Target("YV12 2X2, 1X2 into YUY2", "strech_picture_.X2_yuy2(_ajust)?", "peer", (2.5, 2.5, 4.0)),
    Target("YV12 1X2 into RGB", "strech_picture_1X2_yuy2_ajust_rgb.*", "peer", (1.8, 1.8, 3.0)),
    Target("YUY2 2X2 into YUY2", "yuy2_strech_.*", "peer", (6.0, 6.0, 7.0), ("swscale",)),
    Target("band, every group at an edge", "strech_opt_yuy2_ajust-edges", "slower", (6.0, 6.0, 3.0)),
    Target("mixer, alpha all 0", "mix_.*-clear", "loader", (1.25, 1.15, 1.15)),
    Target("mixer, a subtitle's alpha", "mix_.*-subtitle", "loader", (1.4, 1.2, 1.2)),
    Target("mixer, random alpha", "mix_.*-random", "loader", (2.2, 1.7, 1.4)),
    Target("mixer, any alpha", "mix_.*", "peer", (2.0, 1.5, 2.0)),
    Target("conversion, transparent", "Convert_.*-transparent", "opaque", (6.0, 6.0, None)),
    Target("fills", "LoadColorKey.*", "roof", (1.0, 1.0, 1.0)),
)


@dataclass
class Verdict:
    target: Target
    factor: float
    value: float
    limit: float  # what the roof's speed would make of it

    @property
    def met(self):
        return self._reaches(self.value)

    @property
    def beyond(self):
        """Not even an export as fast as the roof would meet the target."""
        return not self._reaches(self.limit)

    def _reaches(self, value):
        return value >= self.factor if self.target.faster_is_more else value <= self.factor

    def distance(self):
        """Above 1 where the target is met."""
        return self.value / self.factor if self.target.faster_is_more else self.factor / self.value

    def goal(self):
        return f"{self.target.show(self.factor)} {self.target.unit()}"

    def __str__(self):
        # Where only some peers count, the table's comparison with the best of all tells something else.
        value = f" {self.target.show(self.value)}" if self.target.peers != ("",) else ""
        if self.met:
            return "yes" + value
        return f"**no**{value}" + (f" (roof: {self.target.show(self.limit)})" if self.beyond else "")


def targets_of(export):
    return [target for target in TARGETS if re.fullmatch(target.exports, export)]


def factor_of(target, case):
    if case.regime == "cold":
        return target.factors[2]
    return target.factors[0 if case.size == "720x576" else 1]


def reached(run, case, target):
    """What the export reaches of the target's measure, and what one as fast as the roof would; None for unknown."""
    time, roof = run.time(case), run.roof(case)
    if not time or not roof:
        return None
    if target.measure == "roof":
        return roof / time, 1
    if target.measure == "slower":
        return time / roof, 1
    if target.of_twin:
        twin = run.twin_time(case)
        ratios = (time / twin, roof / twin) if twin else None
        return tuple(1 / ratio for ratio in ratios) if ratios and target.faster_is_more else ratios
    peer = run.best_peer(case, target.peers)
    return (peer[0] / time, peer[0] / roof) if peer else None


def verdicts(run, case):
    """How an export does beside its targets, as far as it has any and was measured."""
    found = [(target, factor_of(target, case), reached(run, case, target)) for target in targets_of(case.export)]
    return [Verdict(target, factor, *values) for target, factor, values in found if factor and values]
