#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A screen reader that writes its speech to a file: screen_reader.py FILE PROGRAM [ARG...]. (It needs the
distribution's Python, which has the distribution's modules.)

It runs the program, and ends with it and with its status. It adds "attached" to FILE once it is notified of
events in the program, and then "focused NAME", "unselected NAME" and the like, and "named NAME". On
standard input it takes
  tree      adds a line for each item in the active window, "ROLE: NAME (DESCRIPTION) [STATE, ...]"
  do NAME   runs the first action of the item with that name in the active window
  old       adds how many items of the trees so far still exist: "COUNT answer"
"""

import os
import subprocess
import sys

import pyatspi
from gi.repository import GLib

REPORTED_STATES = ["checked", "focused", "selected"]
output = open(sys.argv[1], "w", encoding="utf-8", buffering=1)
seen = []


def report(*words):
    print(*words, file=output)


def notified(event):
    if event.type.major == "property-change":
        report("named", event.source.name)
    else:
        report(("" if event.detail1 else "un") + event.type.minor, event.source.name)


def attached():
    name = os.path.basename(sys.argv[2])
    if name not in [program.name for program in pyatspi.Registry.getDesktop(0) if program]:
        return True  # look again
    report("attached")
    return False


def active_window():
    windows = [window for program in pyatspi.Registry.getDesktop(0) for window in program]
    return next(window for window in windows if window.getState().contains(pyatspi.STATE_ACTIVE))


def below(item):
    yield item
    for child in item:
        yield from below(child)


def describe(item):
    states = [name for name in REPORTED_STATES if item.getState().contains(getattr(pyatspi, "STATE_" + name.upper()))]
    report(f"{item.getRoleName()}: {item.name} ({item.description}) [{', '.join(states)}]")


def answers(item):
    try:
        item.getState()
        return item.queryComponent().getExtents(pyatspi.DESKTOP_COORDS) is not None
    except Exception:  # the bus has several for deleted items
        return False


def obey(command, name):
    if command == "tree":
        seen.extend(below(active_window()))
        for item in below(active_window()):
            describe(item)
    elif command == "do":
        next(item for item in below(active_window()) if item.name == name).queryAction().doAction(0)
    elif command == "old":
        report(sum(answers(item) for item in seen), "answer")


def read(stream, _condition):
    lines = os.read(stream, 4096).decode()  # several may come at once
    for line in lines.splitlines():
        command, _, name = line.partition(" ")
        obey(command, name)
    return bool(lines)


def main():
    pyatspi.Registry.registerEventListener(
        notified, "object:state-changed:focused", "object:state-changed:selected", "object:property-change:accessible-name"
    )
    pyatspi.setTimeout(60000, 60000)  # milliseconds: the machine may be busy
    GLib.timeout_add(100, attached)
    program = subprocess.Popen(sys.argv[2:], stdin=subprocess.DEVNULL)
    GLib.child_watch_add(program.pid, lambda *_: pyatspi.Registry.stop())
    GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN, read)
    pyatspi.Registry.start()
    sys.exit(program.wait())


main()
