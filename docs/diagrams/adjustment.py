#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Curves of the picture adjustment, by its formula."""
from canvas import pyplot, save

SAMPLES = range(256)


def adjusted(x, gain, offset):
    quotient = (x * gain & 0xFFFF) >> 6
    return min(255, max(0, min(32767, quotient + offset)))


def curves(name, title, settings, points=False):
    figure, axes = pyplot.subplots(figsize=(5.2, 4.2))
    for gain, offset, label in settings:
        values = [adjusted(x, gain, offset) for x in SAMPLES]
        if points:
            axes.plot(SAMPLES, values, ".", markersize=3, label=label)
        else:
            axes.plot(SAMPLES, values, linewidth=1.6, label=label)
    axes.set(title=title, xlabel="sample", ylabel="adjusted sample", xlim=(0, 255), ylim=(-6, 261))
    axes.set_xticks(range(0, 257, 32))
    axes.set_yticks(range(0, 257, 32))
    axes.grid(color="#dddddd", linewidth=0.6)
    axes.legend(fontsize=8, framealpha=0.9)
    figure.tight_layout()
    save(figure, name)


def main():
    curves("adjustment-gain", "Gains, in 1/64, without an offset",
           [(g, 0, f"gain {g}") for g in (32, 64, 96, 128, 257)])
    curves("adjustment-offset", "Offsets, with a gain of 64", [(64, o, f"offset {o}") for o in (-64, -20, 0, 20, 64)])
    curves("adjustment-middle", "Gain about the middle: offset 128 - 2 * gain",
           [(g, 128 - 2 * g, f"gain {g}, offset {128 - 2 * g}") for g in (0, 32, 64, 96, 128)])
    curves("adjustment-wrap", "Products beyond 16 bits", [(512, 0, "gain 512"), (300, 0, "gain 300")], points=True)


if __name__ == "__main__":
    main()
