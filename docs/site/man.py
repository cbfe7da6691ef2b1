#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the man pages of section 3 from the public headers: man.py VERSION FOLDER, run in the repository's root.

vsurf_show.3 has all of vsurf_show.h. Of vsurf.h, vsurf.3 has the rules for all functions and the records; each family has
a page of its own."""
import os
import re
import sys
import textwrap

from header import blocks

HEADER, SHOW_HEADER = "frame/vsurf.h", "show/vsurf_show.h"
CHANGES, EXAMPLES = "CHANGELOG.md", "README.md"
LIST_ITEM = re.compile(r"@(?:param\S*\s+(\w+)|return)\s+(.*)")
TYPE = re.compile(r"typedef (?:struct|enum) (\w+)")
MEMBER = re.compile(r"\s+(\S.*?)(\w+(?:\[\d\])?);\s*///< (.*)")
VALUE = re.compile(r"\s+()(\w+)(?: = \d+)?,?\s*///< (.*)")


def roff(text):
    text = re.sub(r'@ref \w+ "([^"]*)"', r"\1", text.replace("\\", "\\e"))
    text = re.sub(r"@ref (\w+)", r"\1", text)
    text = re.sub(r"\*\*([^*]+)\*\*", r"\\fB\1\\fP", text)
    return re.sub(r"`([^`]+)`", r"\\fB\1\\fP", text)


def safe(line):
    return "\\&" + line if line.startswith((".", "'")) else line


def paragraph(words):
    return [safe(line) for line in textwrap.wrap(roff(" ".join(words)), 78, break_on_hyphens=False)]


def literal(lines):
    return [".PP", ".EX", *(safe(line.replace("\\", "\\e")) for line in lines), ".EE"]


class Text:
    """The lines of a comment as roff requests."""

    def __init__(self, section):
        self.section = section      # how a titled paragraph begins
        self.out, self.words, self.code, self.lead = [], [], [], ".PP"

    def end_paragraph(self):
        if self.words:
            self.out += [self.lead] if self.lead else []
            self.out += paragraph(self.words)
            self.words, self.lead = [], ".PP"

    def end_code(self):
        while self.code and not self.code[-1]:
            self.code.pop()
        if self.code:
            self.out += literal(self.code)
            self.code = []

    def add(self, line):
        item, title = LIST_ITEM.match(line), re.match(r"@par (.*)", line)
        if line.startswith("    ") and not self.lead.startswith(".TP") or self.code and not line:
            self.end_paragraph()
            self.code.append(line)
            return
        self.end_code()
        if item or title or not line:
            self.end_paragraph()
        if item:
            self.lead, line = f".TP\n\\fB{item.group(1) or 'Returns'}\\fP", item.group(2)
        elif title:
            self.out += self.section(title.group(1))
            return
        copied = re.match(r"@copydetails (\w+)$", line)
        if copied:
            self.end_paragraph()
            line = "" if copied.group(1).endswith("_arguments") else f"Otherwise as {copied.group(1)}()."
        elif line.startswith(("@anchor", "@defgroup", "@{")):
            return
        if line:
            self.words.append(line.strip())

    def lines(self, text):
        for line in text:
            self.add(line)
        self.end_paragraph()
        self.end_code()
        return self.out


def under_heading(title):
    return [f".SS {title}"]


def under_bold(title):
    return [".PP", f"\\fB{title}\\fP", ".br"]


def prototype(block):
    """Its lines: they break between parameters."""
    declaration = " ".join(" ".join(block.code).split(";")[0].split())
    start, parameters = re.match(r"VSURF_API (.+?) VSURF_CALL (\w+\(.*)", declaration).groups()
    whole = f"{start} {parameters};".replace(" ", "\0").replace(",\0", ", ")
    return [line.replace("\0", " ") for line in textwrap.wrap(whole, 78, subsequent_indent="    ")]


def name_of(block):
    match = re.match(r"VSURF_API .+? VSURF_CALL (\w+)\(", block.code[0]) if block.code else None
    return match.group(1) if match else None


def top(name, version, names, brief, synopsis, header=HEADER):
    with open(CHANGES, encoding="utf-8") as changes:
        date = re.search(r"^## .*(\d{4}-\d\d-\d\d)$", changes.read(), re.M).group(1)
    header = os.path.basename(header)
    return ['.\\" SPDX-License-Identifier: MIT', f'.\\" Made from {header}.',
            f'.TH {name.upper()} 3 {date} "vsurf {version}" "vsurf"', ".SH NAME",
            ", ".join(names) + " \\- " + brief.rstrip("."),
            ".SH SYNOPSIS", ".nf", f"#include <{header}>", "", *synopsis, ".fi"]


def see_also(names):
    return [".SH SEE ALSO", ",\n".join(f"\\fB{name}\\fP({section})" for name, section in names)]


def family_page(version, block, arguments, functions):
    name, _ = block.group()
    brief, description = block.text[1], [line for line in block.text[2:] if line != "@{"]
    names = [name_of(function) for function in functions]
    synopsis = [line for function in functions for line in prototype(function)]
    page = top(f"vsurf_{name}", version, names, brief, synopsis)
    page += [".SH DESCRIPTION", *paragraph([brief]), *Text(under_heading).lines(description)]
    if arguments:
        page += [".SH ARGUMENTS"]
        for group in arguments:
            page += [*under_heading(group.group()[1]), *Text(under_heading).lines(group.text[1:])]
    page += [".SH FUNCTIONS"]
    for function in functions:
        page += [*under_heading(f"{name_of(function)}()"), *Text(under_bold).lines(function.text)]
    return page + see_also([("vsurf", 3)])


def record(block):
    name = TYPE.match(block.code[0]).group(1)
    page = [*under_heading(name), *Text(under_bold).lines(block.text)]
    for line in block.code:
        member = MEMBER.match(line) or VALUE.match(line)
        if member:
            page += [".TP", f"\\fB{' '.join(member.groups()[:2]).strip()}\\fP", *paragraph([member.group(3)])]
    return page


def example(header):
    """The first program that includes the header."""
    with open(EXAMPLES, encoding="utf-8") as text:
        programs = re.findall(r"^```c\n(.*?)^```$", text.read(), re.M | re.S)
    include = f"#include <{os.path.basename(header)}>"
    return next(program for program in programs if include in program).splitlines()


def main_page(version, rules, families, records):
    brief = rules[1].removeprefix("vsurf: ")
    page = top("vsurf", version, ["vsurf"], brief, ["cc program.c $(pkg\\-config \\-\\-cflags \\-\\-libs vsurf)"])
    page += [".SH DESCRIPTION", *Text(under_heading).lines(rules[2:])]
    page += [".SH EXAMPLES", *literal(example(HEADER)), ".SH FAMILIES"]
    for block, functions in families:
        page += [".TP", f"\\fBvsurf_{block.group()[0]}\\fP(3)", *paragraph([block.text[1]]), ".br",
                 *paragraph([", ".join(name_of(function) for function in functions)])]
    page += [".SH RECORDS"]
    for block in records:
        page += record(block)
    return page + see_also([("vsurf-play", 1), ("vsurf_show", 3), *((f"vsurf_{block.group()[0]}", 3) for block, _ in families)])


def show_page(version, found):
    rules = found[0].text
    functions = [block for block in found if name_of(block)]
    compile_it = ["cc program.c $(pkg\\-config \\-\\-cflags \\-\\-libs vsurf\\-show)", ""]
    synopsis = compile_it + [line for function in functions for line in prototype(function)]
    page = top("vsurf_show", version, [name_of(block) for block in functions], rules[1], synopsis, SHOW_HEADER)
    page += [".SH DESCRIPTION", *Text(under_heading).lines(rules[2:]), ".SH EXAMPLES", *literal(example(SHOW_HEADER))]
    page += [".SH FUNCTIONS"]
    for function in functions:
        page += [*under_heading(f"{name_of(function)}()"), *Text(under_bold).lines(function.text)]
    page += [".SH RECORDS AND VALUES"]
    for block in found:
        if block.code and TYPE.match(block.code[0]):
            page += record(block)
    return page + see_also([("vsurf", 3), ("vsurf-play", 1)])


def blocks_of(path):
    with open(path, encoding="utf-8") as header:
        return blocks(header.read().splitlines())


def pages(version):
    yield "vsurf_show", show_page(version, blocks_of(SHOW_HEADER))
    found = blocks_of(HEADER)
    families, arguments = [], {}
    for block in found:
        group = block.group()
        if group and group[0].endswith("_arguments"):
            arguments[families[-1][0].group()[0]].append(block)
        elif group:
            families.append((block, []))
            arguments[group[0]] = []
        elif name_of(block):
            families[-1][1].append(block)
    families = [(block, functions) for block, functions in families if functions]
    records = [block for block in found if block.code and block.code[0].startswith("typedef struct")]
    yield "vsurf", main_page(version, found[0].text, families, records)
    for block, functions in families:
        name = block.group()[0]
        yield f"vsurf_{name}", family_page(version, block, arguments[name], functions)


def without_empty_paragraphs(lines):
    return (line for before, line in zip(["", *lines], lines)
            if line != ".PP" or not before.startswith((".SH", ".SS", ".br")))


def main():
    version, folder = sys.argv[1:]
    os.makedirs(folder, exist_ok=True)
    for name, lines in pages(version):
        with open(os.path.join(folder, f"{name}.3"), "w", encoding="utf-8") as page:
            page.write("\n".join(without_empty_paragraphs(lines)) + "\n")


if __name__ == "__main__":
    main()
