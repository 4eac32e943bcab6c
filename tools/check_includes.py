#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the house to its order (tools/house.py): reads every include and reports each one that goes where it must not.

    tools/check_includes.py ROOT --qt-headers DIR

ROOT is the project; DIR is the folder that holds QtCore/, QtNetwork/ ... (it tells which module <QThing> is from).
Prints one line a fault, as FILE:LINE: TEXT, and ends with 1 when there is any.
"""
import argparse
import re
import sys
from pathlib import Path

from house import ROOMS, top_of

# Folders that aren't rooms: they may include what they measure or test.
NOT_ROOMS = {"tests", "bench", "cmake", "tools", "samples", "docs"}
SKIPPED = {"build", ".git", ".ci", ".cache"}

QT_MODULES = {"platform/services": {"QtCore", "QtNetwork"}}  # other rooms: QtCore alone; desktop: any
XML_ROOMS = {"libxml/": "platform/xml", "libxslt/": "platform/xml", "expat": "platform/xml", "xercesc/": "platform/schemas platform/samples"}

SPDX = "SPDX-License-Identifier: GPL-3.0-or-later"
SPDX_SUFFIXES = {".h", ".cpp", ".py", ".sh", ".cmake"}
SPDX_LINES = 3  # a script's first line is its interpreter's

COMMENT = re.compile(r"/\*.*?\*/", re.DOTALL)
INCLUDE = re.compile(r"\s*#\s*include\b\s*(.*)")
TARGET = re.compile(r'(<([^>]+)>|"([^"]+)")')


def is_desktop(room):
    return top_of(room) == "desktop"


class House:
    def __init__(self, root, qt_headers, rooms=ROOMS):
        self.root = root
        self.rooms = rooms
        self.tops = {top_of(room) for room in rooms.line}
        self.qt_headers = qt_headers
        self.faults = []

    def fault(self, path, line, text):
        self.faults.append(f"{path}:{line}: {text}")

    def check(self):
        for path in sorted(self.root.rglob("*")):
            relative = path.relative_to(self.root)
            if relative.parts[0] in SKIPPED or not path.is_file():
                continue
            if path.suffix in SPDX_SUFFIXES or path.name == "CMakeLists.txt":
                self.check_licence(path, relative)
            if path.suffix in {".h", ".cpp"} and relative.parts[0] not in NOT_ROOMS:
                self.check_source(path, relative)
        return self.faults

    def check_licence(self, path, relative):
        with path.open(encoding="utf-8", errors="replace") as file:
            head = [file.readline() for _ in range(SPDX_LINES)]
        if not any(SPDX in line for line in head):
            self.fault(relative, 1, f'the line "{SPDX}" is missing')

    def check_source(self, path, relative):
        room = relative.parent.as_posix()
        if room not in self.rooms:
            self.fault(relative, 1, f"{room} is not a room: give it a line in tools/house.py")
            return
        text = path.read_text(encoding="utf-8", errors="replace")
        # Blanked, not cut, so that line numbers stay right.
        text = COMMENT.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)
        for number, line in enumerate(text.splitlines(), 1):
            include = INCLUDE.match(line)
            if not include:
                continue
            target = TARGET.match(include.group(1))
            if not target:
                self.fault(relative, number, "an include that only the preprocessor can read")
            elif target.group(3) is not None or top_of(target.group(2)) in self.tops:
                self.check_own(relative, number, room, target.group(3) or target.group(2))
            else:
                self.check_library(relative, number, room, target.group(2))

    def check_own(self, relative, number, room, name):
        if "/" not in name:
            if is_desktop(room) and (name.startswith(("ui_", "moc_")) or name.endswith(".moc")):
                return  # made by the build
            self.fault(relative, number, f'"{name}" must be written from the project root')
            return
        if ".." in name.split("/"):
            self.fault(relative, number, f'"{name}" must be written from the project root')
            return
        folder = name.rpartition("/")[0]
        if folder not in self.rooms:
            self.fault(relative, number, f'"{name}": {folder} is not a room')
        elif why := self.rooms.why_not(room, folder):
            self.fault(relative, number, f'"{name}" {why}')

    def check_library(self, relative, number, room, name):
        for library, xml_room in XML_ROOMS.items():
            if name.startswith(library):
                if room not in xml_room.split():
                    self.fault(relative, number, f"<{name}>: an XML library outside {xml_room}")
                return
        if not is_qt(name) or is_desktop(room):
            return
        allowed = QT_MODULES.get(room, {"QtCore"})
        module = self.qt_module(name)
        if module not in allowed:
            origin = f"of {module}" if module else "of no module that is known here"
            self.fault(relative, number, f"<{name}>: a header {origin}; {room} may use {', '.join(sorted(allowed))}")

    def qt_module(self, name):
        """The Qt module a header belongs to; None when the installed headers don't have it."""
        if "/" in name:
            return name.split("/")[0]
        if (self.qt_headers / name / name).exists():
            return name  # <QtCore>, <QtWidgets>: everything of a module
        found = [folder.name for folder in self.qt_headers.glob("Qt*") if (folder / name).is_file()]
        return "QtCore" if "QtCore" in found else min(found, default=None)


def is_qt(name):
    return re.match(r"Q[A-Za-z]|q[a-z0-9_]+\.h$|qt\w*/|private/q", name) is not None


def main():
    parser = argparse.ArgumentParser(description="Checks the includes of every room.")
    parser.add_argument("root", type=Path)
    parser.add_argument("--qt-headers", type=Path, required=True)
    arguments = parser.parse_args()
    if not (arguments.qt_headers / "QtCore").is_dir():
        parser.error(f"no QtCore in {arguments.qt_headers}")
    faults = House(arguments.root, arguments.qt_headers).check()
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
