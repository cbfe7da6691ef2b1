# SPDX-License-Identifier: MIT
"""What the diagrams share: colours, boxes of one kind, and SVG files that come out the same every time."""
import matplotlib

matplotlib.use("svg")
matplotlib.rcParams.update({
    "svg.fonttype": "none",
    "svg.hashsalt": "vsurf",
    "font.family": "sans-serif",
    "font.sans-serif": ["DejaVu Sans", "Verdana", "sans-serif"],
    "font.size": 9,
})
from matplotlib import pyplot
from matplotlib.patches import Rectangle

INK, FAINT, LINE = "#222222", "#666666", "#888888"
LUMA, CHROMA_U, CHROMA_V = "#e8e8e8", "#bcd4f0", "#f3c6c0"
RED, GREEN, BLUE, UNUSED, ALPHA = "#f0a8a0", "#b4dcae", "#a9c4ee", "#ffffff", "#f6e3a1"
ACCENT = "#c2410c"
POINTS_PER_INCH = 72


class Canvas:
    """A drawing in units of points, y downwards."""

    def __init__(self, width, height):
        self.figure = pyplot.figure(figsize=(width / POINTS_PER_INCH, height / POINTS_PER_INCH))
        self.axes = self.figure.add_axes((0, 0, 1, 1))
        self.axes.set_xlim(0, width)
        self.axes.set_ylim(height, 0)
        self.axes.axis("off")

    def box(self, x, y, width, height, text="", fill=LUMA, **style):
        edge = style.pop("edge", LINE)
        self.axes.add_patch(Rectangle((x, y), width, height, facecolor=fill, edgecolor=edge, linewidth=0.8, **style))
        if text:
            self.text(x + width / 2, y + height / 2, text, ha="center")

    def outline(self, x, y, width, height, colour=INK, dashed=False):
        self.axes.add_patch(Rectangle((x, y), width, height, fill=False, edgecolor=colour, linewidth=1.4,
                                      linestyle=(0, (4, 3)) if dashed else "-"))

    def text(self, x, y, text, **style):
        style.setdefault("va", "center")
        style.setdefault("color", INK)
        self.axes.text(x, y, text, **style)

    def note(self, x, y, text, **style):
        self.text(x, y, text, color=FAINT, fontsize=8, **style)

    def arrow(self, start, end, colour=FAINT, both=False):
        self.axes.annotate("", xy=end, xytext=start,
                           arrowprops={"arrowstyle": "<->" if both else "->", "color": colour, "linewidth": 1,
                                       "shrinkA": 0, "shrinkB": 0})

    def save(self, name):
        save(self.figure, name)


def save(figure, name):
    figure.savefig(f"{name}.svg", facecolor="white", metadata={"Date": None, "Creator": None})
    pyplot.close(figure)
