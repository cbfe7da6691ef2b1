# SPDX-License-Identifier: MIT
"""What every class of exports is to reach, and whether it did."""
import re
from dataclasses import dataclass

from measurements import REGIMES

# Cold, the smallest pictures are to reach this share of a speed: calls are short there.
SMALLEST, SMALLEST_SHARE = "352x288", 0.8


@dataclass(frozen=True)
class Target:
    title: str
    exports: str  # a pattern of whole names
    measure: str  # "peer": speed over the best peer's; "loader": time over that of the loader that takes the export's
    #               place; "kind": time at the natural pitch over that at multiples of 64
    factors: dict  # by regime, or by regime and size

    @property
    def faster_is_more(self):
        return self.measure == "peer"

    def factor(self, case):
        factor = self.factors.get((case.regime, case.size), self.factors.get(case.regime))
        if factor and self.faster_is_more and case.regime == "cold" and case.size == SMALLEST:
            return SMALLEST_SHARE * factor
        return factor


def over_peer(title, exports, hot, cold):
    return Target(title, exports, "peer", {"hot": hot, "cold": cold})


def over_loader(title, exports, hot, cold):
    return Target(title, exports, "loader", {"hot": hot, "cold": cold})


WHOLE = ("352x288", "720x576", "864x480", "1920x1080")  # sizes of whole blocks that vsurf_show() shares with loaders

_FULL_HD = 1.15
_SMALLER = 1.3

TARGETS = (
    over_peer("YV12 to RGB32", "loadimage_rgb32", 1.5, 1.45),
    over_peer("YV12 to RGB32, adjusted", "loadimage_rgb32_ajust", 1.4, 1.35),
    over_peer("YV12 to RGB24", "loadimage_rgb24", 2.5, 2.2),
    over_peer("YV12 to RGB24, adjusted", "loadimage_rgb24_ajust", 1.9, 1.8),
    over_peer("YV12 to RGB16", "loadimage_rgb16-.*", 3.3, 2.6),
    over_peer("YV12 to RGB16, adjusted", "loadimage_rgb16_ajust-.*", 2.5, 2.3),
    over_peer("YV12 to YUY2", "loadimage_yuy2", 1.0, 1.0),
    over_peer("YV12 to YUY2, adjusted", "loadimage_yuy2(_mono)?_ajust", 0.9, 1.2),
    over_peer("YUY2 to RGB32", "LoadYUY2_RGB32", 1.2, 1.2),
    over_peer("YUY2 to RGB32, adjusted", "LoadYUY2_RGB32_adjust", 1.0, 1.0),
    over_peer("YUY2 to YUY2, over a plain copy", "LoadYUY2_YUY2", 0.95, 1.2),
    over_peer("YUY2 to YUY2, adjusted, over a plain copy", "LoadYUY2_YUY2_adjust", 0.85, 1.1),
    over_peer("YV12 to YV12, adjusted, over a plain copy", "loadimage_yv12_ajust", 0.9, 1.2),
    over_peer("planes 1X2", "strech_pic_1X2.*|strech_picture_1X2_yv12_ajust", 1.2, 1.3),
    over_peer("planes 2X2", "strech_pic_2X2.*|strech_picture_2X2_yv12_ajust", 1.7, 1.8),
    over_peer("fills", "LoadColorKey.*", 0.9, 1.3),
    over_peer("mixers, any alpha", "mix_.*", 1.1, 1.1),
    over_loader("half-width mixer, alpha clear", "mix_ayuy2_half_.*-clear", 1.25, 1.2),
    over_loader("half-width mixer, subtitle", "mix_ayuy2_half_.*-subtitle", 1.5, 1.3),
    over_loader("half-width mixer, random alpha", "mix_ayuy2_half_.*-random", 2.2, 1.6),
    over_peer("show: any picture to RGB32", "show_.*_bgrx(-709|-full)?", 1.4, 1.4),
    over_peer("show: other surfaces", "show_i420_(bgr24|rgb565|nv12)", 1.0, 1.0),
    Target("show: I420, whole blocks, over loadimage", "show_i420_(bgrx|bgr24|rgb565)", "loader",
           {(regime, size): 1.03 for regime in REGIMES for size in WHOLE}),
    Target("natural pitch, compared with multiples of 64", ".*", "kind",
           {("cold", "352x288"): _SMALLER, ("cold", "720x576"): _SMALLER, ("cold", "864x480"): _SMALLER,
            ("cold", "1920x1080"): _FULL_HD}),
)

UNITS = {"peer": "peer", "loader": "loader's time", "kind": "time at 64"}


@dataclass
class Verdict:
    target: Target
    case: object
    factor: float
    value: float
    limit: float  # what the roof's speed would make of it; None where that is unknown

    @property
    def met(self):
        return self._reaches(self.value)

    @property
    def beyond(self):
        """Not even an export as fast as the roof would meet the target."""
        return self.limit is not None and not self._reaches(self.limit)

    def _reaches(self, value):
        return value >= self.factor if self.target.faster_is_more else value <= self.factor

    def distance(self):
        """Above 1 where the target is met."""
        return self.value / self.factor if self.target.faster_is_more else self.factor / self.value


def reached(run, case, target):
    """What the export reaches of the target's measure, and what one as fast as the roof would; None for unknown."""
    time, roof = run.time(case), run.roof(case)
    if not time:
        return None
    if target.measure == "peer":
        peer = run.best_peer(case)
        return (peer[0] / time, peer[0] / roof if roof else None) if peer else None
    if target.measure == "loader":
        loader = run.loader_time(case)
        return (time / loader, roof / loader if roof else None) if loader else None
    aligned = run.elsewhere(case, "64") if case.kind == "natural" else None
    if not run.time(aligned):
        return None
    best = run.roof(aligned)
    return time / run.time(aligned), roof / best if roof and best else None


def verdicts(run):
    """Every cell that has a target and was measured."""
    found = []
    for case in run.cases.values():
        for target in TARGETS:
            factor = target.factor(case) if re.fullmatch(target.exports, case.export) else None
            values = reached(run, case, target) if factor else None
            if values:
                found.append(Verdict(target, case, factor, *values))
    return found
