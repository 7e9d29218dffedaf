#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A window of another toolkit that takes everything that is dropped on it: gtk_window.py X Y WIDTH HEIGHT [late]
(It needs the distribution's Python, which has the distribution's modules.)

Its output:
  ready            it is on screen, at its place
  enter            a drag has entered it
  dropped          something was dropped; with "late" the data is fetched after a line on standard input
  data FORMAT HEX  one of the formats that the drag has
  finished         all data is there
"""

import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk  # noqa: E402


def report(*words):
    print(*words, flush=True)


class Target:
    def __init__(self, window, late):
        self.late = late
        self.wanted = []
        self.label = Gtk.Label(label="drop something here", wrap=True)
        window.add(self.label)
        window.drag_dest_set(0, [], Gdk.DragAction.COPY)
        window.connect("drag-motion", self.motion)
        window.connect("drag-drop", self.drop)
        window.connect("drag-data-received", self.received)
        self.is_over = False

    def motion(self, _window, context, _x, _y, time):
        if not self.is_over:
            report("enter")
        self.is_over = True
        Gdk.drag_status(context, Gdk.DragAction.COPY, time)
        return True

    def drop(self, window, context, _x, _y, time):
        self.is_over = False
        self.wanted = context.list_targets()
        report("dropped")
        if self.late:
            GLib.io_add_watch(
                sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IO_IN, self.fetch_late, window, context, time
            )
        else:
            self.fetch_next(window, context, time)
        return True

    def fetch_late(self, _file, _condition, window, context, time):
        sys.stdin.readline()
        self.fetch_next(window, context, time)
        return False

    def fetch_next(self, window, context, time):
        if self.wanted:
            window.drag_get_data(context, self.wanted.pop(0), time)
        else:
            Gtk.drag_finish(context, True, False, time)
            report("finished")

    def received(self, window, context, _x, _y, selection, _info, time):
        data = selection.get_data() if selection.get_length() >= 0 else None
        name = selection.get_target().name()
        report("data", name, "-" if data is None else data.hex())
        self.label.set_text(f"{self.label.get_text()}\n{name}: {selection.get_length()} bytes")
        self.fetch_next(window, context, time)


def main():
    x, y, width, height = map(int, sys.argv[1:5])
    window = Gtk.Window(title="other program")
    window.set_decorated(False)
    window.set_accept_focus(False)  # the popup would close
    window.set_default_size(width, height)
    window.move(x, y)
    window.target = Target(window, "late" in sys.argv[5:])

    def ready_at_place(*_):
        if window.get_mapped() and window.get_window().get_origin()[1:] == (x, y):
            report("ready")
            return False
        return True

    window.show_all()
    GLib.timeout_add(10, ready_at_place)
    GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, 15, Gtk.main_quit)
    Gtk.main()


main()
