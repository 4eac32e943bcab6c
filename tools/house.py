# SPDX-License-Identifier: GPL-3.0-or-later
"""The order of the rooms: the one table that check_includes.py and check_symbols.py hold the house to.

A room may use every room of a lower line. Rooms of one line don't know each other, but for two cases: inside one top
folder a room may use those of a lower sub-line ("3.1" may use "3.0"), and the pairs of BESIDE hold. A new room is a new word here.
"""

LINES = {
    "8.5": "desktop",
    "8.4": "desktop/frame",
    "8.3": "desktop/dialogs",
    "8.2": "desktop/text desktop/nodes desktop/chart desktop/table",
    "8.1": "desktop/bind desktop/drag",
    "8.0": "desktop/base desktop/browser",
    "7": "shell",
    "6": "window",
    "5.1": "exchange/dialogs",
    "5.0": "exchange integration",
    "4.1": "schema/dialogs",
    "4.0": "table schema schema/infer",
    "3.1": "nodes/dialogs textview/dialogs",
    "3.0": "nodes textview",
    "2": "core/edit",
    "1": "core/model",
    "0.1": "platform/xml platform/controls platform/services platform/schemas",
    "0.0": "platform/text platform/samples",
}

# (user, used) of one line and two top folders. Never both ways.
BESIDE = set()


def top_of(room):
    return room.split("/")[0]


class Rooms:
    def __init__(self, lines, beside=frozenset()):
        self.line = {room: line for line, rooms in lines.items() for room in rooms.split()}
        self.beside = beside

    def __contains__(self, room):
        return room in self.line

    def why_not(self, room, other):
        """Why a room must not use another one; empty when it may."""
        if room == other or (room, other) in self.beside:
            return ""
        (own, own_sub), (its, its_sub) = self.place(room), self.place(other)
        within = top_of(room) == top_of(other)
        if its < own or (its == own and within and its_sub < own_sub):
            return ""
        verb = "goes up" if its > own or (within and its_sub > own_sub) else "goes to another room of the same line"
        return f"{verb}: {room} is on line {self.line[room]}, {other} on line {self.line[other]}"

    def place(self, room):
        line, _, sub = self.line[room].partition(".")
        return int(line), int(sub or 0)


ROOMS = Rooms(LINES, BESIDE)
