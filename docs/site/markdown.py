#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Doxygen's input filter for Markdown pages, run in the repository's root: markdown.py FILE

Headings get the names that a repository browser gives them, links from page to page become references by these names,
which Doxygen checks, and names of exports become links to their documentation. Diagrams become plain images, which the build
copies. Bold text is marked so that it may contain code."""
import os
import re
import sys

from header import FRAME_EXPORTS, SHOW_EXPORTS

MAIN_PAGE = "README.md"
EXPORTS = {*FRAME_EXPORTS, *SHOW_EXPORTS}
LINK = re.compile(r"(!?)\[([^\]]*)\]\(([^)\s]+)\)")
CODE = re.compile(r"`([^`]+)`")
BOLD = re.compile(r"\*\*((?:[^*]|\*(?!\*))+)\*\*")


def page_name(path):
    name = os.path.basename(path)
    return "index" if name == MAIN_PAGE else os.path.splitext(name)[0]


def slug(title):
    return re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-")


def code(match):
    text = match.group(1)
    return f'<code>@ref {text} "{text}"</code>' if text in EXPORTS else match.group(0)


class Page:
    def __init__(self, path):
        self.name = page_name(path)

    def heading(self, match):
        """The first level is the page's title, and the main page has a name of its own. Titles are plain text."""
        marks, title = match.groups()
        if marks == "#" and self.name == "index":
            return match.group(0)
        name = self.name if marks == "#" else f"{self.name}-{slug(title)}"
        return f"{marks} {title.replace('`', '')} {{#{name}}}"

    def link(self, match):
        image, text, target = match.groups()
        if image and target.endswith(".svg"):
            return f'<img src="{os.path.basename(target)}" alt="{text}"/>'  # shrinks on narrow screens, as no object does
        if image or re.match(r"\w+:", target):
            return match.group(0)
        path, _, anchor = target.partition("#")
        plain = text.replace("`", "").replace("\n", " ")
        if not path or path.endswith(".md"):
            page = page_name(path) if path else self.name
            return f'@ref {page}-{anchor} "{plain}"' if anchor else f'@ref {page} "{plain}"'
        if path.endswith((".c", ".cpp", ".h")):
            return f'@ref {os.path.basename(path)} "{plain}"'
        return text  # a file that is not part of the site

    def prose(self, text):
        headed = re.split(r"^(#+ .*)$", text, flags=re.MULTILINE)
        for i, part in enumerate(headed):
            if i % 2:
                headed[i] = re.sub(r"(#+) (.*)", self.heading, part)
            else:
                headed[i] = CODE.sub(code, BOLD.sub(r"<b>\1</b>", LINK.sub(self.link, part)))
        return "".join(headed)

    def text(self, text):
        """Blocks of code, fenced or indented, stay as they are."""
        parts = re.split(r"(^```.*?^```$|^    .*?$)", text, flags=re.MULTILINE | re.DOTALL)
        return "".join(part if i % 2 else self.prose(part) for i, part in enumerate(parts))


def main():
    with open(sys.argv[1], encoding="utf-8") as text:
        sys.stdout.write(Page(sys.argv[1]).text(text.read()))


if __name__ == "__main__":
    main()
