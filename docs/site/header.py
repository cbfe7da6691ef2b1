#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reads the comments of the public headers. Called as a program it is Doxygen's input filter: header.py FILE

Arguments that several functions share stand once in the header, in a group whose name ends with _arguments. The site
shows them with each function, and the groups not at all. Names of pages become links."""
import re
import sys
from dataclasses import dataclass, field

SHARED = re.compile(r"/// @defgroup (\w+_arguments) ")
COPY = re.compile(r"/// @copydetails (\w+)$")
PAGE = re.compile(r"\bdocs/([\w-]+)\.md\b")


def names_in(path):
    with open(path, encoding="utf-8") as index:
        return re.findall(r"^EXPORT\((\w+)", index.read(), re.MULTILINE)


# What each library exports. get_contrast_data() is in no index.
FRAME_EXPORTS = ["get_contrast_data", *names_in("frame/exports.inc")]
SHOW_EXPORTS = names_in("show/exports.inc")


@dataclass
class Block:
    """A comment, without its slashes, and the declaration that follows it."""
    text: list
    code: list = field(default_factory=list)

    def group(self):
        match = re.match(r"@defgroup (\w+) (.*)", self.text[0])
        return match.groups() if match else None


def blocks(lines):
    found = []
    for line in lines:
        if line.startswith("///"):
            if not found or found[-1].code:
                found.append(Block([]))
            found[-1].text.append(line[3:].removeprefix(" "))
        elif found:
            found[-1].code.append(line)
    return found


def shared_arguments(lines):
    """By name of the group: its lines from the first argument on."""
    found, name = {}, None
    for line in lines:
        match = SHARED.match(line)
        name = match.group(1) if match else name if line.startswith("///") else None
        if name and (line.startswith("/// @param") or found.get(name)):
            found.setdefault(name, []).append(line)
    return found


def for_site(lines):
    arguments, hidden = shared_arguments(lines), False
    for line in lines:
        hidden = bool(SHARED.match(line)) or hidden and line.startswith("///")
        match = COPY.match(line)
        if match and match.group(1) in arguments:
            yield from arguments[match.group(1)]
        elif not hidden:
            yield PAGE.sub(r'@ref \1 "docs/\1.md"', line) if line.startswith("///") else line


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as header:
        print(*for_site(header.read().splitlines()), sep="\n")
