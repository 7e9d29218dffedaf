#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the tree against its include rules: check_includes.py [--graph] [ROOT]

The rooms, and what each may include, are in the table of docs/OVERVIEW.md. Project headers are included by their path
from the root, in quotes; headers of sdk/ and of other libraries in angle brackets, so that a line shows the layer of
the header. Prints a line for each wrong include and ends with status 1 if there is one. --graph prints which rooms each
room includes.
"""

import os
import re
import sys
from collections import defaultdict
from pathlib import Path

OVERVIEW = Path(__file__).resolve().parent.parent / "docs" / "OVERVIEW.md"


def read_rules():
    """For each room, the rooms ("a/") and headers that its files may include, and those for .cpp files only."""
    rules = {}
    for line in OVERVIEW.read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.split("|")]
        if len(cells) == 5 and re.fullmatch(r"`[\w/]+/`", cells[1]):
            rules[cells[1].strip("`")] = [re.findall(r"`([\w/.]+)`|(all)", part)
                                          for part in (cells[2] + "; in `.cpp` files ").split("; in `.cpp` files ")[:2]]
    rooms = list(rules)
    return {room: [{name for found, every in part for name in (rooms if every else [found])} for part in parts]
            for room, parts in rules.items()}


RULES = read_rules()

# The headers of the host's services, which only one file of the plug-in may include.
HOST_ACCESS = "module/HostAccess.cpp"
PLUGIN_ROOMS = {"module/", "state/", "ui/"}
HOST_ACCESS_HEADERS = {
    "CFxDocumentManager.h",
    "CFxRecentFileList.h",
    "CFxServices.h",
    "CFxUICustomization.h",
    "OdEdCommandStack.h",
    "OdEditor.h",
}

SOURCE_SUFFIXES = {".cpp", ".h"}
# Not rooms: the build's output, projects of their own, and the wrong includes that test this check.
LEFT_OUT = {"build", "examples", "tests/fixtures"}

DIRECTIVE = re.compile(r"\s*#\s*include\b\s*(?P<what>.*)")
NAME = re.compile(r'(?P<open>[<"])(?P<name>[^<>"]+)[>"]')
# <QLabel>, <QtConcurrent/QtConcurrentMap>, <vector>, <cstdint>; and for symbols of a loaded library
QT_OR_STD = re.compile(r"Q\w+(/Q\w+)?|[a-z_]+|dlfcn\.h")


def room_of(path):
    """The room that a path relative to the root belongs to, or None."""
    return max((room for room in RULES if path.startswith(room)), key=len, default=None)


def sources(root):
    """The C++ files of the tree, in a fixed order."""
    for folder, subfolders, files in os.walk(root):
        inside = Path(folder).relative_to(root)
        # In place, so that the walk skips the folders that are left out.
        subfolders[:] = sorted(
            name for name in subfolders
            if not name.startswith(".") and (inside / name).as_posix() not in LEFT_OUT
        )
        yield from (Path(folder, name) for name in sorted(files) if Path(name).suffix in SOURCE_SUFFIXES)


def is_generated(source, name):
    """True for the build's output, which a source includes by its bare name: tst_a.cpp includes tst_a.moc."""
    return name in {source.stem + ".moc", f"moc_{source.stem}.cpp"}


def reached_room(root, source, opening, name):
    """The room of the included header, None for another library's; and what is wrong with the spelling, or None."""
    if opening == "<":
        if (root / "sdk" / name).is_file():
            return room_of("sdk/" + name), None
        if (root / name).is_file():
            return room_of(name), "a project header is included in quotes"
        return None, None
    if is_generated(source, name):
        return room_of(source.relative_to(root).as_posix()), None
    if ".." in Path(name).parts:
        return None, "a project header is included by its path from the root"
    if (root / "sdk" / name.removeprefix("sdk/")).is_file():
        return None, "an sdk header is included in angle brackets"
    if not (root / name).is_file():
        return None, "there is no such header in the root"
    return room_of(name), None if room_of(name) else "this header belongs to no room"


def objection(root, source, opening, name):
    """Why a source may not have this include, or None."""
    inside = source.relative_to(root).as_posix()
    room = room_of(inside)
    if room is None:
        return "this file belongs to no room"
    reached, misspelt = reached_room(root, source, opening, name)
    if misspelt:
        return misspelt
    if reached is None:
        if room == "sdk/" and not QT_OR_STD.fullmatch(name):
            return "sdk may include only Qt, the standard library and <dlfcn.h>"
        return None
    if room in PLUGIN_ROOMS and name in HOST_ACCESS_HEADERS and inside != HOST_ACCESS:
        return f"in the plug-in, only {HOST_ACCESS} may include this header"
    allowed, allowed_in_cpp = RULES[room]
    if reached == room or {reached, name} & allowed:
        return None
    if {reached, name} & allowed_in_cpp:
        return None if source.suffix == ".cpp" else f"{room} may include this only in a .cpp"
    return f"{room} may not include {reached}"


def includes(root):
    """Every include of the tree: source, line number, line, and the opening quote or bracket with the name."""
    for source in sources(root):
        for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), start=1):
            directive = DIRECTIVE.match(line)
            if directive:
                header = NAME.match(directive["what"])
                yield source, number, line, header and (header["open"], header["name"])


def wrong_includes(root):
    for source, number, line, header in includes(root):
        why = objection(root, source, *header) if header else "a name is expected here"
        if why:
            yield f"{source.relative_to(root).as_posix()}:{number}: {line.strip()}  -- {why}"


def arrows(root):
    """One line for each room that includes others."""
    reached = defaultdict(set)
    for source, _, _, header in includes(root):
        room = room_of(source.relative_to(root).as_posix())
        other = reached_room(root, source, *header)[0]
        if other and other != room:
            reached[room].add((other, source.suffix == ".cpp"))
    for room in RULES:
        in_headers = sorted(other for other, in_cpp in reached[room] if not in_cpp)
        in_cpp = sorted(other for other, in_cpp in reached[room] if in_cpp and (other, False) not in reached[room])
        if in_headers or in_cpp:
            yield " ".join([room, "->", *in_headers, *(["in .cpp files:", *in_cpp] if in_cpp else [])])


def main():
    arguments = sys.argv[1:]
    graph = "--graph" in arguments
    if graph:
        arguments.remove("--graph")
    root = Path(arguments[0] if arguments else OVERVIEW.parent.parent).resolve()
    if not any(sources(root)):
        print(f"no sources under {root}", file=sys.stderr)
        return 2
    wrong = list(wrong_includes(root))
    if graph and not wrong:
        print("\n".join(arrows(root)))
    else:
        print("\n".join(wrong) if wrong else "all includes follow the rules")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
