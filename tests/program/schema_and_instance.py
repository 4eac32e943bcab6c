#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A schema is edited in the real program through the instance that it describes, by keys and by the mouse; a document is made from
it, and a schema from that, to which the document is bound. The files are compared at the end."""
import sys

from desk import desk, wait_for

SCHEMA = """<?xml version="1.0" encoding="UTF-8"?>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
\t<xs:element name="order" type="OrderT"></xs:element>
\t<xs:complexType name="OrderT">
\t\t<xs:sequence>
\t\t\t<xs:element ref="item"></xs:element>
\t\t</xs:sequence>
\t\t<xs:attribute name="id" type="xs:int"></xs:attribute>
\t</xs:complexType>
\t<xs:element name="item" type="xs:date"></xs:element>
</xs:schema>"""

EDITED = SCHEMA.replace('"item"', '"piece"').replace("""
\t\t</xs:sequence>""", """
\t\t\t<xs:element name="note">
\t\t\t\t<xs:complexType>
\t\t\t\t\t<xs:attribute name="lang"></xs:attribute>
\t\t\t\t</xs:complexType>
\t\t\t</xs:element>
\t\t</xs:sequence>""").replace('name="id"', 'name="number"')

SAMPLE = """<order number="2"%s>
\t<piece>1999-05-31</piece>
\t<note lang=""></note>
</order>"""
INSTANCE = ' xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:noNamespaceSchemaLocation="%s"'


def edit(person):
    person.keys("alt+v", "Up", "Up", "Return")  # browser, compact view
    person.keys("Down", "F2")
    person.type("piece")
    person.keys("Return")
    person.keys("Home", "alt+x", "Return")  # a new child, which Escape takes back
    person.type("gone")
    person.keys("Escape", "alt+x", "Return")
    person.type("note")
    person.keys("Return")
    person.keys("alt+x", "Down", "Return")  # an attribute
    person.type("lang")
    person.keys("Return")


def rename_by_mouse(person, window):
    person.click(window, 265, 150)  # the instance's root
    person.click(window, 520, 203)  # its attribute in the list
    person.keys("F2")
    person.type("number")
    person.keys("Return")


def save_as(person, path):
    person.keys("ctrl+s")
    person.window("(?i).*save.*")
    person.type(str(path))
    person.keys("Return")


def main():
    with desk() as person:
        path, sample = person.folder / "order.xsd", person.folder / "order.xml"
        path.write_text(SCHEMA)
        person.start([sys.argv[1], path.name], person.environment, cwd=person.folder)
        frame = rf"Vantrel - \[\*?{path}\]"
        window = person.window(frame)
        edit(person)
        rename_by_mouse(person, window)
        person.keys("ctrl+s")
        wait_for("the edited schema", lambda: path.read_text() == EDITED)

        person.keys("alt+c", "Return")  # the document of the schema
        person.window(r"Vantrel - \[\*new1.xml\]")
        save_as(person, sample)
        bound = INSTANCE % path
        wait_for("the sample", lambda: sample.exists() and sample.read_text().replace("  ", " ") == SAMPLE % bound)

        person.window(rf"Vantrel - \[{sample}\]")
        person.keys("alt+x", "Up", "Up", "Return")  # the schema of the document
        person.window("Vantrel")  # bind it?
        person.keys("Return")
        person.window("Vantrel")  # it is bound already: bind it to the new one?
        person.keys("Return")
        person.window(r"Vantrel - \[\*new2.xsd\]")
        person.keys("ctrl+Tab")
        person.window(rf"Vantrel - \[\*{sample}\]")
        person.keys("ctrl+s")
        wait_for("the bound document", lambda: sample.read_text() == SAMPLE % (INSTANCE % "new2.xsd"))


if __name__ == "__main__":
    main()
