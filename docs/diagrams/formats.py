#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A diagram of the bytes, bits or planes of every pixel format."""
from canvas import ALPHA, BLUE, CHROMA_U, CHROMA_V, GREEN, INK, LUMA, RED, UNUSED, Canvas

LEFT = 8
BYTE, BIT, SAMPLE, TALL = 46, 34, 28, 26
COLOURS = {"B": BLUE, "G": GREEN, "R": RED, "0": UNUSED, "Y": LUMA, "U": CHROMA_U, "V": CHROMA_V, "A": ALPHA}


def packed(name, labels, pixels):
    """Bytes in a row; `pixels` are runs of bytes that make a pixel, or several."""
    canvas = Canvas(2 * LEFT + 40 + BYTE * len(labels), 78)
    canvas.note(LEFT, 12, "byte")
    for i, label in enumerate(labels):
        x = LEFT + 40 + i * BYTE
        canvas.note(x + BYTE / 2, 12, str(i), ha="center")
        canvas.box(x, 22, BYTE, TALL, label, COLOURS[label[0]])
    x = LEFT + 40
    for length, label in pixels:
        canvas.outline(x, 22, length * BYTE, TALL)
        canvas.note(x + length * BYTE / 2, 62, label, ha="center")
        x += length * BYTE
    canvas.save(name)


def bits(name, parts):
    """The bits of a word, the highest first; `parts` are components with the bits that stay of them."""
    canvas = Canvas(2 * LEFT + 40 + BIT * 16, 78)
    canvas.note(LEFT, 12, "bit")
    canvas.note(LEFT, 62, "byte")
    at = 0
    for component, count in parts:
        start = at
        for i in range(count):
            x = LEFT + 40 + at * BIT
            canvas.note(x + BIT / 2, 12, str(15 - at), ha="center")
            label = "0" if component == "0" else f"{component}{7 - i}"
            canvas.box(x, 22, BIT, TALL, label, COLOURS[component])
            at += 1
        canvas.outline(LEFT + 40 + start * BIT, 22, count * BIT, TALL)
    for half, label in ((0, "1 (the word is little-endian)"), (8, "0")):
        x = LEFT + 40 + half * BIT
        canvas.arrow((x + 2, 52), (x + 8 * BIT - 2, 52), both=True)
        canvas.note(x + 4 * BIT, 64, label, ha="center")
    canvas.save(name)


def plane(canvas, x, y, letter, columns, lines, marked=()):
    for line in range(lines):
        for column in range(columns):
            canvas.box(x + column * SAMPLE, y + line * 22, SAMPLE, 22, f"{letter}{line}{column}", COLOURS[letter])
    for column, line, width, height in marked:
        canvas.outline(x + column * SAMPLE, y + line * 22, width * SAMPLE, height * 22)


def heading(canvas, x, text):
    canvas.text(x, 12, text, weight="bold")


def yv12():
    canvas = Canvas(420, 150)
    heading(canvas, LEFT, "Y plane")
    plane(canvas, LEFT, 24, "Y", 6, 4, [(0, 0, 2, 2)])
    heading(canvas, 200, "U plane")
    plane(canvas, 200, 24, "U", 3, 2, [(0, 0, 1, 1)])
    heading(canvas, 310, "V plane")
    plane(canvas, 310, 24, "V", 3, 2, [(0, 0, 1, 1)])
    canvas.note(LEFT, 132, "Samples are named by line and column. U00 and V00 belong to the four pixels of the square.")
    canvas.save("yv12")


def yv12_surface():
    canvas = Canvas(420, 214)
    width, x = 200, 120
    canvas.text(x + width / 2, 12, "pitch", ha="center")
    canvas.arrow((x, 22), (x + width, 22), both=True)
    canvas.box(x, 28, width, 90, "Y", LUMA)
    canvas.box(x, 118, width / 2, 45, "V", CHROMA_V)
    canvas.box(x, 163, width / 2, 45, "U", CHROMA_U)
    canvas.note(x - 8, 73, "height lines", ha="right")
    canvas.note(x - 8, 140, "height / 2 lines", ha="right")
    canvas.note(x - 8, 185, "height / 2 lines", ha="right")
    canvas.note(x + width / 2 + 8, 140, "at half the pitch: two lines of V")
    canvas.note(x + width / 2 + 8, 152, "lie in the bytes of one of Y")
    canvas.save("yv12-surface")


def ayuy2():
    canvas = Canvas(480, 104)
    for x, title, letter, columns, marked in ((LEFT, "alpha plane", "A", 4, [(1, 0, 1, 1)]),
                                              (134, "Y plane", "Y", 4, [(0, 0, 2, 1)]),
                                              (260, "U plane", "U", 2, [(0, 0, 1, 1)]),
                                              (340, "V plane", "V", 2, [(0, 0, 1, 1)])):
        heading(canvas, x, title)
        plane(canvas, x, 24, letter, columns, 2, marked)
    canvas.note(LEFT, 86, "Every line has its own chroma. U00 and V00 belong to Y00 and Y01, and are mixed by A01.")
    canvas.save("ayuy2")


def surface():
    canvas = Canvas(560, 150)
    x, visible, pitch = 60, 300, 400
    for line in range(4):
        y = 40 + line * 24
        canvas.note(x - 10, y + 12, f"line {line}", ha="right")
        for pixel in range(10):
            canvas.box(x + pixel * 30, y, 30, 24, f"{pixel}" if pixel < 3 else "", LUMA)
        canvas.box(x + visible, y, pitch - visible, 24, "padding" if line == 0 else "", UNUSED)
    canvas.text(x + visible / 2, 12, "width * bytes a pixel", ha="center")
    canvas.arrow((x, 24), (x + visible, 24), both=True)
    canvas.text(x + pitch + 24, 64, "one pitch", ha="left")
    canvas.axes.annotate("", xy=(x + pitch, 76), xytext=(x + pitch, 52),
                         arrowprops={"arrowstyle": "->", "color": INK, "connectionstyle": "arc3,rad=-0.9"})
    canvas.save("surface")


def main():
    surface()
    packed("rgb32", ["B0", "G0", "R0", "0", "B1", "G1", "R1", "0"], [(4, "pixel 0"), (4, "pixel 1")])
    packed("rgb24", [f"{c}{n}" for n in range(4) for c in "BGR"], [(3, f"pixel {n}") for n in range(4)])
    packed("yuy2", ["Y0", "U0", "Y1", "V0", "Y2", "U1", "Y3", "V1"], [(4, "pixels 0 and 1"), (4, "pixels 2 and 3")])
    bits("rgb16-layout0", [("R", 5), ("G", 6), ("B", 5)])
    bits("rgb16-layout1", [("R", 5), ("G", 5), ("B", 5), ("0", 1)])
    bits("rgb16-layout2", [("R", 6), ("G", 6), ("B", 4)])
    bits("rgb16-layout3", [("R", 6), ("G", 5), ("B", 5)])
    yv12()
    yv12_surface()
    ayuy2()


if __name__ == "__main__":
    main()
