#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A schema is designed in the real program with keys alone: a key is inserted from the context menu and saved, which the file is compared
for; the check tells that it lacks its parts, and passes once the key is taken back."""
import sys

from desk import desk, wait_for

SCHEMA = """<?xml version="1.0" encoding="UTF-8"?>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
\t<xs:element name="order" type="xs:string"></xs:element>
</xs:schema>"""

INSERTED = SCHEMA.replace('"xs:string">', '"xs:string">\n\t\t<xs:key></xs:key>\n\t')


def check(person):
    person.keys("alt+x", "Return")  # the first entry that is offered in the text view


def main():
    with desk() as person:
        path = person.folder / "order.xsd"
        path.write_text(SCHEMA)
        person.start([sys.argv[1], path.name], person.environment, cwd=person.folder)
        frame = rf"Vantrel - \[\*?{path}\]"
        person.window(frame)
        person.keys("Down", "Down", "Right", "Down")  # declaration, schema (opened), element
        person.keys("Menu", "Down", "Right", *["Down"] * 3, "Return")  # complexType, simpleType, annotation, key
        person.window(rf"Vantrel - \[\*{path}\]")
        person.keys("ctrl+s")
        wait_for("the saved file", lambda: path.read_text() == INSERTED)

        person.keys("alt+v", "Up", "Up", "Up", "Return")  # browser, compact, text view
        check(person)
        person.window("Schema error!")
        person.keys("Return")
        person.window(frame)
        person.keys("ctrl+z")
        check(person)
        person.window("Vantrel")
        person.keys("Return")
        person.window(frame)
        person.keys("ctrl+s")
        wait_for("the saved file", lambda: path.read_text() == SCHEMA)


if __name__ == "__main__":
    main()
