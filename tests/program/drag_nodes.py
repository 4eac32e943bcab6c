#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Real drags in the real program: a node onto another one, one that is given up, a line of the text to another place, and a node
out of a second program. What the drags did is compared in the saved file."""
import sys

from desk import desk, wait_for

DOCUMENT = """<!-- by hand -->
<order number="7">
\t<customer>Yamada</customer>
\t<item sku="PN-014">Pen</item>
</order>"""

WITH_COPY = DOCUMENT.replace("Pen</item>", "Pen<customer>Yamada</customer>\n\t</item>")
MOVED = WITH_COPY.replace("<!-- by hand -->\n", "") + "\n<!-- by hand -->"
WITH_CARD = MOVED.replace("</order>", "\t<card></card>\n</order>")

TREE = "150x400+0+85"  # without the splitter
LEFT = 110  # a column that all labels below the second level reach


def main():
    with desk() as person:
        path = person.folder / "order.xml"
        path.write_bytes(DOCUMENT.encode())
        person.start([sys.argv[1], path.name], person.environment, cwd=person.folder)
        window = person.window(rf"Vantrel - \[{path}\]")

        def saves(expected, what):
            person.run("xdotool", "windowactivate", "--sync", window)
            person.keys("ctrl+s")
            try:
                wait_for(what, lambda: path.read_bytes() == expected.encode())
            except AssertionError:
                print(f"wanted:\n{expected}\nsaved:\n{path.read_text()}")
                raise

        # Comment, order (opened). The edges of what a step down changes are those of the two rows.
        person.keys("Home", "Down", "Down", "Right")
        _, customer = person.changes(window, TREE, "Down")
        _, item = person.changes(window, TREE, "Down")
        row = person.place
        person.drag(row(window, LEFT, customer - 6), row(window, LEFT, item - 6), "Escape")
        person.drag(row(window, LEFT, customer - 6), row(window, LEFT, item - 6))
        saves(WITH_COPY, "the copied node")

        # The first line is selected and pulled below the text, where its end is.
        person.keys("F6", "F6", "Right", "ctrl+Home")
        line, _ = person.changes(window, "300x200+300+130", "shift+Down")
        person.drag(row(window, 330, line + 6), row(window, 600, 600))
        saves(MOVED, "the moved line")
        person.keys("shift+F6", "shift+F6", "shift+F6", "Home")
        _, order = person.changes(window, TREE, "Down")

        # A second program beside it: to this one the node is a text from elsewhere.
        gift = person.folder / "gift.xml"
        gift.write_text("<gift><card/></gift>")
        person.start([sys.argv[1], gift.name], person.environment, cwd=person.folder)
        other = person.window(rf"Vantrel - \[{gift}\]")
        person.run("xdotool", "windowsize", "--sync", other, "600", "400")
        person.run("xdotool", "windowmove", "--sync", other, "640", "400")
        person.run("xdotool", "windowactivate", "--sync", other)
        person.keys("Home", "Down")  # it is open
        _, card = person.changes(other, TREE, "Down")
        person.drag(row(other, LEFT, card - 6), row(window, LEFT, order - 6))
        saves(WITH_CARD, "the node out of the other program")


if __name__ == "__main__":
    main()
