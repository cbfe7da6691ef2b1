#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks a built site: every export is documented with each of its parameters, and every link inside leads somewhere, in
the site as in the pages that it is made from. Run in the repository's root: check.py HTML_FOLDER XML_FOLDER"""
import glob
import os
import sys
import xml.etree.ElementTree as ElementTree
from html.parser import HTMLParser
from urllib.parse import unquote, urlsplit

from header import FRAME_EXPORTS, SHOW_EXPORTS
from links import dead_paths

EXPORTS = [*FRAME_EXPORTS, *SHOW_EXPORTS]
PAGES = ("*.md", "docs/*.md", "bench/*.md")
LINKS = {"a": "href", "area": "href", "link": "href", "img": "src", "script": "src", "object": "data", "iframe": "src"}


def functions(folder):
    """The functions that belong to a family, with the file of the family."""
    found = {}
    for name in sorted(os.listdir(folder)):
        if name.startswith("group__"):
            for member in ElementTree.parse(os.path.join(folder, name)).iter("memberdef"):
                if member.get("kind") == "function":
                    found[member.findtext("name")] = member
    return found


def text_of(member, part):
    return "".join(member.find(part).itertext()).strip()


def what_lacks(member):
    """What is missing in a function's documentation, in words."""
    lacking = [part for part in ("briefdescription", "detaileddescription") if not text_of(member, part)]
    declared = [name.text for name in member.findall("param/declname")]
    described = {item.findtext("parameternamelist/parametername"): text_of(item, "parameterdescription")
            for item in member.iter("parameteritem")}
    lacking += [f"parameter {name}" for name in declared if not described.get(name)]
    titles = {title.text for title in member.iter("title")}
    if member.findtext("name") in FRAME_EXPORTS and "Reads and writes" not in titles:
        lacking.append("what it reads and writes")
    return lacking


def undocumented(folder):
    found = functions(folder)
    for name in EXPORTS:
        if name not in found:
            yield f"{name}: not documented in any family"
        else:
            yield from (f"{name}: lacks {what}" for what in what_lacks(found[name]))


class Links(HTMLParser):
    """The links of a page, and the places in it that links may lead to."""

    def __init__(self, path):
        super().__init__()
        self.links, self.places = [], set()
        with open(path, encoding="utf-8") as text:
            self.feed(text.read())

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        self.places.update(given[name] for name in ("id", "name") if given.get(name))
        if given.get(LINKS.get(tag)):
            self.links.append(given[LINKS[tag]])


def dead_links(folder):
    pages = {name: Links(os.path.join(folder, name)) for name in sorted(os.listdir(folder)) if name.endswith(".html")}
    for page, content in pages.items():
        for link in content.links:
            parts = urlsplit(link)
            if parts.scheme or parts.netloc:
                continue
            target, place = unquote(parts.path) or page, unquote(parts.fragment)
            if not os.path.exists(os.path.join(folder, target)):
                yield f"{page}: {link} does not exist"
            elif place and target in pages and place not in pages[target].places:
                yield f"{page}: {link} leads to no place in {target}"


def main():
    html, xml = sys.argv[1:]
    pages = [name for pattern in PAGES for name in glob.glob(pattern)]
    faults = [*undocumented(xml), *dead_links(html), *dead_paths(pages)]
    print(*faults, sep="\n", end="\n" if faults else "")
    print(f"{len(EXPORTS)} exports; {len(faults)} faults")
    sys.exit(bool(faults))


if __name__ == "__main__":
    main()
