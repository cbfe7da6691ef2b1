#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The block rule: blocks and passes of a picture, and how a width that is not whole blocks drifts."""
from canvas import ACCENT, CHROMA_U, FAINT, LUMA, Canvas

X, LINE_HEIGHT = 74, 20
PASSES = ("#cfe0f3", "#dfe9d8", "#f4e5cd")


def frame(canvas, scale, width, height, top):
    """The picture as its caller sees it."""
    canvas.outline(X, top, width * scale, height * LINE_HEIGHT, ACCENT, dashed=True)


def label_middle(left, right, edge):
    """Where a label is in the middle and the edge of the picture does not cross it."""
    return ((edge if left < edge < right else left) + right) / 2


def lines(canvas, scale, top, shift, blocks, count, picture):
    width, height = picture
    for line in range(count):
        of_pass, y = line // 2, top + line * LINE_HEIGHT
        canvas.note(X - 8, y + LINE_HEIGHT / 2, f"line {line}", ha="right")
        for block in range(blocks):
            left = shift * of_pass + 16 * block
            canvas.box(X + left * scale, y, 16 * scale, LINE_HEIGHT, fill=PASSES[of_pass])
            if line % 2 == 1:
                middle = label_middle(left, left + 16, width if line < height else 0)
                canvas.text(X + middle * scale, y + LINE_HEIGHT / 2, f"pass {of_pass}, block {block}", ha="center")


def regular():
    scale = 8
    canvas = Canvas(X + 40 * scale, 146)
    canvas.text(X, 12, "width 32, height 4: two passes of two blocks, r = 0")
    lines(canvas, scale, 36, 0, 2, 4, (32, 4))
    frame(canvas, scale, 32, 4, 36)
    canvas.note(X, 132, "the picture, dashed, and the blocks that are read and written are the same")
    canvas.save("blocks")


def drifting():
    scale, r = 8, 12
    canvas = Canvas(X + 60 * scale, 192)
    canvas.text(X, 12, "width 20, height 3: blocks = 2, passes = 2, r = 32 - 20 = 12")
    lines(canvas, scale, 46, r, 2, 4, (20, 3))
    frame(canvas, scale, 20, 3, 46)
    canvas.arrow((X, 38), (X + 20 * scale, 38), ACCENT, both=True)
    canvas.note(X + 10 * scale, 30, "20 pixels", ha="center")
    canvas.arrow((X + 20 * scale, 38), (X + 32 * scale, 38), both=True)
    canvas.note(X + 26 * scale, 30, "written beyond", ha="center")
    y = 46 + 4 * LINE_HEIGHT + 8
    canvas.arrow((X, y), (X + r * scale, y), both=True)
    canvas.note(X + r * scale / 2, y + 10, "r = 12 pixels", ha="center")
    canvas.note(X, y + 32, "The second pass starts r pixels to the right, and processes a fourth line for a height of 3.")
    canvas.save("blocks-drift")


def counter():
    """How the counter goes down: one step of 16 a block."""
    scale = 5
    canvas = Canvas(X + 70 * scale + 110, 150)
    for row, (width, values) in enumerate(((0, [0]), (16, [16]), (20, [20, 4]), (48, [48, 32, 16]))):
        y = 28 + row * 30
        canvas.text(X - 8, y + 11, f"width {width}", ha="right")
        for block, value in enumerate(values):
            canvas.box(X + block * 16 * scale, y, 16 * scale, 22, fill=LUMA)
            middle = label_middle(16 * block, 16 * block + 16, width)
            canvas.text(X + middle * scale, y + 11, f"counter {value}", ha="center")
        canvas.outline(X, y, max(width, 0.2) * scale, 22, ACCENT, dashed=True)
        after = values[-1] - 16
        canvas.text(X + 50 * scale, y + 11, f"{values[-1]} - 16: " + ("borrow" if after < 0 else "0") + ", the end",
                    color=FAINT)
    canvas.text(X, 12, "each block lowers the counter by 16")
    canvas.save("blocks-counter")


def chroma():
    """Which chroma the two lines of a pass share."""
    scale = 22
    canvas = Canvas(X + 16 * scale + 10, 108)
    for line in range(2):
        canvas.note(X - 8, 20 + line * 24, f"luma, line {line}", ha="right")
        for i in range(16):
            canvas.box(X + i * scale, 8 + line * 24, scale, 24, f"Y{i}", LUMA)
    canvas.note(X - 8, 76, "chroma", ha="right")
    for i in range(8):
        canvas.box(X + i * 2 * scale, 64, 2 * scale, 24, f"U{i} V{i}", CHROMA_U)
    canvas.note(X, 100, "A block of planar loaders: 16 luma samples of each line, 8 of U and of V for both.")
    canvas.save("blocks-chroma")


def main():
    regular()
    drifting()
    counter()
    chroma()


if __name__ == "__main__":
    main()
