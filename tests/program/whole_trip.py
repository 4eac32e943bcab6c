#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Through the real program with keys and clicks: open, walk the tree, change the text, see the tree follow, save, close, open
again, save under another name. What the tree shows is seen by its effect: the caret goes to the node that is selected there."""
import sys

from desk import desk, wait_for

DOCUMENT = """<?xml version="1.0" encoding="UTF-8"?>
<!-- Spring order -->
<order number="7">
\t<customer>文具の山田</customer>
\t<item sku="PN-014">Pen &amp; ink</item>
\t<note>Caf\u00e9\u00a0blend</note>
</order>"""

# A memo goes in front of the item, where the tree was walked to; a comment in front of the memo, once the tree has it.
WITH_MEMO = DOCUMENT.replace('\t<item sku', '\t<memo>urgent</memo>\n\t<item sku')
WITH_COMMENT = WITH_MEMO.replace('\t<memo>', '<!-- first -->\n\t<memo>')


def text_tab(person):
    """From the tree to the text: path box, tabs, one tab to the right."""
    person.keys("F6", "F6", "Right")


def main():
    with desk() as person:
        path = person.folder / "spring order.xml"
        path.write_bytes(DOCUMENT.encode())
        program = person.start([sys.argv[1], path.name], person.environment, cwd=person.folder)
        window = person.window(rf"Vantrel - \[{path}\]")

        # The keys walk: declaration, comment, order (opened), customer, item. In the text it is marked: what is typed goes in front.
        person.keys("Down", "Down", "Down", "Right", "Down", "Down")
        text_tab(person)
        person.type("<memo>urgent</memo>")
        # A click beside the tree's nodes leaves the text: the tree is built anew, with the item's predecessor in it.
        person.click(window, 60, -90)
        # The text still shows, and its caret follows the tree.
        person.keys("Home", "Down", "Down", "Down", "Down", "Down")
        person.keys("F6", "F6", "F6")
        person.type("<!-- first -->")
        person.keys("ctrl+s")
        wait_for("the saved file", lambda: path.read_bytes() == WITH_COMMENT.encode())

        person.keys("ctrl+w")
        person.window("Vantrel")
        person.keys("ctrl+o")
        person.window("Open file")
        person.type(str(path))
        person.keys("Return")
        person.window(rf"Vantrel - \[{path}\]")

        other = person.folder / "copy.xml"
        person.keys("ctrl+shift+s")
        person.window("Save As")
        person.keys("ctrl+a")
        person.type(str(other))
        person.keys("Return")
        person.window(rf"Vantrel - \[{other}\]")
        wait_for("the copy", other.exists)
        assert other.read_bytes() == WITH_COMMENT.encode(), "the copy differs"

        # Escape keeps a changed document; the menu's exit ends at once and writes nothing.
        text_tab(person)
        person.keys("ctrl+End")
        person.type("<!--late-->")
        person.keys("ctrl+w")
        person.window("Vantrel")
        person.keys("Escape")
        person.window(rf"Vantrel - \[\*{other}\]")
        person.keys("alt+f", "x")
        wait_for("the program's end", lambda: program.poll() is not None)
        assert program.returncode == 0, f"ended with {program.returncode}"
        assert path.read_bytes() == other.read_bytes() == WITH_COMMENT.encode(), "ending changed a file"
        assert sorted(entry.name for entry in person.folder.glob("*.xml*")) == ["copy.xml", "spring order.xml"]


if __name__ == "__main__":
    main()
