#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A screen reader that writes down what it would say: screen_reader.py FILE PROGRAM [ARG...]. (The
distribution's own Python: only that one has the distribution's modules.)

It runs the program, and ends with it and with its status. It adds "attached" to FILE once it is notified of
what happens in the program, and then "focused NAME", "unselected NAME" and the like, and "named NAME". On
standard input it takes
  tree      adds a line for each thing in the active window, "ROLE: NAME (DESCRIPTION) [STATE, ...]"
  do NAME   takes the first action of the thing with that name in the active window
  old       asks again for what the trees so far showed, and adds how much of it is there: "COUNT answer"
"""

import os
import subprocess
import sys

import pyatspi
from gi.repository import GLib

TOLD_STATES = ["checked", "focused", "selected"]
said = open(sys.argv[1], "w", encoding="utf-8", buffering=1)
seen = []


def say(*words):
    print(*words, file=said)


def heard(event):
    if event.type.major == "property-change":
        say("named", event.source.name)
    else:
        say(("" if event.detail1 else "un") + event.type.minor, event.source.name)


def attached():
    name = os.path.basename(sys.argv[2])
    if name not in [program.name for program in pyatspi.Registry.getDesktop(0) if program]:
        return True  # look again
    say("attached")
    return False


def active_window():
    windows = [window for program in pyatspi.Registry.getDesktop(0) for window in program]
    return next(window for window in windows if window.getState().contains(pyatspi.STATE_ACTIVE))


def below(thing):
    yield thing
    for child in thing:
        yield from below(child)


def describe(thing):
    states = [name for name in TOLD_STATES if thing.getState().contains(getattr(pyatspi, "STATE_" + name.upper()))]
    say(f"{thing.getRoleName()}: {thing.name} ({thing.description}) [{', '.join(states)}]")


def answers(thing):
    try:
        thing.getState()
        return thing.queryComponent().getExtents(pyatspi.DESKTOP_COORDS) is not None
    except Exception:  # whatever the bus says of what is gone
        return False


def obey(command, name):
    if command == "tree":
        seen.extend(below(active_window()))
        for thing in below(active_window()):
            describe(thing)
    elif command == "do":
        next(thing for thing in below(active_window()) if thing.name == name).queryAction().doAction(0)
    elif command == "old":
        say(sum(answers(thing) for thing in seen), "answer")


def read(stream, _condition):
    lines = os.read(stream, 4096).decode()  # several may come at once
    for line in lines.splitlines():
        command, _, name = line.partition(" ")
        obey(command, name)
    return bool(lines)


def main():
    pyatspi.Registry.registerEventListener(
        heard, "object:state-changed:focused", "object:state-changed:selected", "object:property-change:accessible-name"
    )
    pyatspi.setTimeout(60000, 60000)  # milliseconds: the machine may be busy
    GLib.timeout_add(100, attached)
    program = subprocess.Popen(sys.argv[2:], stdin=subprocess.DEVNULL)
    GLib.child_watch_add(program.pid, lambda *_: pyatspi.Registry.stop())
    GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN, read)
    pyatspi.Registry.start()
    sys.exit(program.wait())


main()
