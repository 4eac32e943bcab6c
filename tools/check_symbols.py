#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the house to its order (tools/house.py) by what is really called: reads the symbols of the objects of a build.

    tools/check_symbols.py ROOT BUILD [--nm NM] [--unbuilt TOP...]

Rooms are static libraries, so a call that goes up links all the same, and a circle of files inside a room is seen by no
include check. Reports calls to a room that stands higher or beside, and circles of rooms, of top folders and of the files of
one room, each arrow with the symbols that make it, the easiest to cut first. TOP is a top folder that this build leaves out.
Ends with 1 when there is anything to report.
"""
import argparse
import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

from house import ROOMS, top_of


def files(room, names):
    return frozenset(f"{room}/{name}.cpp" for name in names.split())


# Circles that stand for now. One that is gone or has changed must go from here, or change with it.
KNOWN_CIRCLES = []

SHOWN = 6  # symbols of one arrow

# Typeinfo is left out: the sanitizers refer to it wherever an object is merely used through an interface, and calling up
# through an interface is what breaks a circle. Who derives from a class or makes one uses a constructor or its vtable besides.
NO_CALLS = "typeinfo "
NM_LINE = re.compile(r"(.*\.o):[0-9a-f ]*? (\w) (.*)")


def read_objects(root, build, rooms):
    """{object: source, relative to the root}; an object without a source is left from a file that was moved, or is one of moc's."""
    objects = {}
    for path in build.rglob("*.o"):
        room, _, rest = path.relative_to(build).as_posix().partition("/CMakeFiles/")
        name = rest.partition("/")[2].removesuffix(".o")
        if room in rooms and "/" not in name and (root / room / name).is_file():
            objects[path] = f"{room}/{name}"
    return objects


def read_symbols(objects, nm):
    """(owners {symbol: source}, uses {source: symbols}).

    An object that needs an inline routine, a template or the vtable of a pure interface has its own, so there is no arrow to
    see. Where it doesn't and a single other one has it, it relies on that one (a template instantiated by hand); of several
    none is the owner. Demangled, the several symbols of a constructor are one.
    """
    lines = subprocess.run([nm, "-A", "-C", "-g", *objects], check=True, capture_output=True, text=True).stdout
    definitions, uses = defaultdict(set), defaultdict(set)
    for path, kind, symbol in map(lambda line: NM_LINE.fullmatch(line).groups(), lines.splitlines()):
        source = objects[Path(path)]
        if kind in "Uwv":
            uses[source].add(symbol)
        elif not symbol.startswith(NO_CALLS):
            definitions[symbol].add(source)
    return {symbol: min(sources) for symbol, sources in definitions.items() if len(sources) == 1}, uses


def arrows_between_files(owners, uses):
    arrows = defaultdict(set)
    for source, symbols in uses.items():
        for symbol in symbols & owners.keys():
            if owners[symbol] != source:
                arrows[source, owners[symbol]].add(symbol)
    return arrows


def gathered(arrows, group):
    """The same arrows, from group to group."""
    result = defaultdict(set)
    for (source, target), symbols in arrows.items():
        if group(source) != group(target):
            result[group(source), group(target)] |= symbols
    return result


def circles(arrows):
    """The largest sets in which each member reaches each other one."""
    reach = {source: reached(source, arrows) for source, _ in arrows}
    found = {frozenset(other for other in there if start in reach.get(other, ()))
             for start, there in reach.items() if start in there}
    return sorted(found, key=sorted)


def reached(start, arrows):
    found, waiting = set(), [start]
    while waiting:
        last = waiting.pop()
        new = {target for source, target in arrows if source == last} - found
        found |= new
        waiting.extend(new)
    return found


def room_of(source):
    return source.rpartition("/")[0]


class House:
    def __init__(self, root, build, nm="nm", rooms=ROOMS, known=KNOWN_CIRCLES, unbuilt=()):
        self.rooms, self.unbuilt, self.faults = rooms, unbuilt, []
        self.known = [circle for circle in known if top_of(min(circle)) not in unbuilt]
        objects = read_objects(root, build, rooms)
        self.check_built(root, set(objects.values()))
        self.arrows = arrows_between_files(*read_symbols(objects, nm)) if objects else {}

    def check_built(self, root, built):
        for room in self.rooms.line:
            missing = {path.name for path in (root / room).glob("*.cpp") if f"{room}/{path.name}" not in built}
            if missing and top_of(room) not in self.unbuilt:
                self.faults.append(f"{room}: no object of {', '.join(sorted(missing))}: build first")

    def check(self):
        inside = {pair: symbols for pair, symbols in self.arrows.items() if room_of(pair[0]) == room_of(pair[1])}
        by_room = gathered(self.arrows, room_of)
        for room, other in sorted(by_room):
            if why := self.rooms.why_not(room, other):
                self.report(f"a call {why}", lambda source, target: (room_of(source), room_of(target)) == (room, other), self.arrows)
                del by_room[room, other]  # it would close a circle of everything in between
        found = [circle for arrows in (inside, by_room, gathered(by_room, top_of)) for circle in self.check_circles(arrows)]
        for circle in self.known:
            if circle not in found:
                self.faults.append(f"no such circle any more, so take it out of KNOWN_CIRCLES: {', '.join(sorted(circle))}")
        return self.faults

    def check_circles(self, arrows):
        found = circles(arrows)
        for circle in found:
            if circle not in self.known:
                self.report(f"a circle of {len(circle)}: {', '.join(sorted(circle))}",
                            lambda source, target: {source, target} <= circle, arrows)
        return found

    def report(self, headline, concerned, arrows):
        """A line, and one for each arrow that makes it."""
        self.faults.append(headline)
        for (source, target), symbols in sorted(arrows.items(), key=lambda item: (len(item[1]), item[0])):
            if concerned(source, target):
                rest = f", and {len(symbols) - SHOWN} more" if len(symbols) > SHOWN else ""
                self.faults.append(f"    {source} -> {target}: {', '.join(sorted(symbols)[:SHOWN])}{rest}")


def main():
    parser = argparse.ArgumentParser(description="Checks what the files of every room call.")
    parser.add_argument("root", type=Path)
    parser.add_argument("build", type=Path)
    parser.add_argument("--nm", default="nm")
    parser.add_argument("--unbuilt", nargs="*", default=[])
    arguments = parser.parse_args()
    faults = House(arguments.root, arguments.build, arguments.nm, unbuilt=arguments.unbuilt).check()
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
