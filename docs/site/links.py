#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Looks for links of Markdown pages that lead to no file: links.py FOLDER goes through all pages below the folder."""
import glob
import os
import re
import sys


def dead_paths(pages):
    """As a repository browser follows them; Doxygen checks the names of sections."""
    for page in sorted(pages):
        with open(page, encoding="utf-8") as text:
            for target in re.findall(r"\]\(([^)\s#]+)[^)\s]*\)", text.read()):
                if "://" not in target and not os.path.exists(os.path.join(os.path.dirname(page), target)):
                    yield f"{page}: {target} does not exist"


if __name__ == "__main__":
    below = glob.glob(os.path.join(sys.argv[1], "**/*.md"), recursive=True)
    faults = list(dead_paths(below))
    print(*faults, f"{len(below)} pages; {len(faults)} faults", sep="\n")
    sys.exit(bool(faults) or not below)
