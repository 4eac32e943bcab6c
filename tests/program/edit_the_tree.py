#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The tree is edited in the real program with keys alone: an element is renamed, another one added, then a text and a comment, and the
comment is moved. The saved file is compared to the byte; after a new start it opens from the list of recent files."""
import sys

from desk import desk, wait_for

DOCUMENT = """<?xml version="1.0" encoding="UTF-8"?>
<order number="7">
\t<customer>文具の山田</customer>
\t<item sku="PN-014"></item>
</order>"""

EDITED = """<?xml version="1.0" encoding="UTF-8"?>
<order number="7">
<!--by hand-->
\t<customer>文具の山田</customer>
\t<article sku="PN-014"></article>
\t<note>urgent</note>
</order>"""


def popup(person, entry):
    """Chooses an entry of the tree's context menu by its number."""
    person.keys("Menu", *["Down"] * entry, "Return")


def main():
    with desk() as person:
        path = person.folder / "order.xml"
        path.write_bytes(DOCUMENT.encode())
        program = person.start([sys.argv[1], path.name], person.environment, cwd=person.folder)
        person.window(rf"Vantrel - \[{path}\]")

        # Declaration, order (opened), customer, item.
        person.keys("Down", "Down", "Right", "Down", "Down")
        person.keys("F2")
        person.type("article")
        person.keys("Return")
        popup(person, 2)  # a new node beside it
        person.type("note")
        person.keys("Return")
        popup(person, 4)  # a text in that: its value opens in the list
        person.type("urgent")
        person.keys("Return", "Return")  # out of the cell, and back to the tree
        person.keys("Up", "Up")  # the customer
        popup(person, 5)
        person.type("by hand")
        person.keys("Return", "Return", "alt+Up", "ctrl+s")
        wait_for("the saved file", lambda: path.read_bytes() == EDITED.encode())

        person.keys("ctrl+w")
        person.window("Vantrel")
        person.keys("alt+f", "x")
        wait_for("the program's end", lambda: program.poll() is not None)

        again = person.start([sys.argv[1]], person.environment, cwd=person.folder)
        person.window("Vantrel")
        person.keys("alt+f", "Up", "Up", "Return")  # exit stands last, the newest file above it
        person.window(rf"Vantrel - \[{path}\]")
        person.keys("alt+f", "x")
        wait_for("the program's end", lambda: again.poll() is not None)
        assert path.read_bytes() == EDITED.encode(), "opening changed the file"


if __name__ == "__main__":
    main()
