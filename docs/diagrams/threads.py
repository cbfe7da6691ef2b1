#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A picture in bands, each a call of its own."""
from canvas import Canvas

BANDS = (("#cfe0f3", 0, 192), ("#dfe9d8", 192, 200), ("#f4e5cd", 392, 184))
SCALE = 0.27


def main():
    canvas = Canvas(600, 190)
    for x, width, title in ((20, 170, "source"), (240, 170, "surface")):
        canvas.text(x + width / 2, 12, title, ha="center", weight="bold")
        for number, (colour, first, count) in enumerate(BANDS):
            canvas.box(x, 24 + first * SCALE, width, count * SCALE, f"band {number}", colour)
    for number, (_, first, count) in enumerate(BANDS):
        y = 24 + (first + count / 2) * SCALE
        canvas.arrow((194, y), (236, y))
        canvas.note(422, y, f"thread {number}: lines {first} to {first + count - 1}, height {count}")
    canvas.save("bands")


if __name__ == "__main__":
    main()
