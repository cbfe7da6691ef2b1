# SPDX-License-Identifier: MIT
"""lint_units.py TREE SOURCE...: prints the files that clang-tidy has to read so that it sees every SOURCE.

A changed header is seen through a file that includes it. Kernels are compiled once per instruction set, and the tests
compile them once more for an emulated one: only the library's last, widest one is kept, since the text is the same. The
reduced list of commands is left in TREE/units.
"""

import json
import os
import shlex
import subprocess
import sys


def included_files(entry):
    command = shlex.split(entry["command"])
    output = command.index("-o")
    result = subprocess.run(command[:output] + command[output + 2:] + ["-MM", "-MF", "-"],
                            cwd=entry["directory"], capture_output=True, text=True)
    if result.returncode != 0:
        return {entry["file"]}  # clang-tidy itself will say what is wrong with it
    names = result.stdout.replace("\\\n", " ").partition(":")[2].split()
    return {os.path.realpath(os.path.join(entry["directory"], name)) for name in names}


def is_of_its_own_folder(entry, tree):
    built_in = os.path.relpath(entry["directory"], tree)
    return built_in == "." or os.path.relpath(entry["file"]).startswith(built_in + os.sep)


def main():
    tree, wanted = sys.argv[1], {os.path.realpath(name) for name in sys.argv[2:]}
    with open(os.path.join(tree, "compile_commands.json"), encoding="utf-8") as commands:
        entries = {os.path.realpath(entry["file"]): entry for entry in json.load(commands)
                   if is_of_its_own_folder(entry, tree)}
    os.makedirs(os.path.join(tree, "units"), exist_ok=True)
    with open(os.path.join(tree, "units", "compile_commands.json"), "w", encoding="utf-8") as reduced:
        json.dump(list(entries.values()), reduced)

    chosen = [name for name in entries if name in wanted]
    unseen = wanted.difference(*(included_files(entries[name]) for name in chosen))
    for name, entry in entries.items():
        if unseen and name not in chosen and unseen & (seen := included_files(entry)):
            chosen.append(name)
            unseen -= seen
    print("\n".join(chosen))
    for name in sorted(unseen):
        print(f"not part of this build, only its format is checked: {os.path.relpath(name)}", file=sys.stderr)


main()
