#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""From a schema to a document and back, in the real program with keys alone: a valid sample with everything in it passes the check against
the schema that it names, and a schema is made of that sample, to which it is bound."""
import os
import sys

from desk import desk, wait_for

SCHEMA = """<?xml version="1.0" encoding="UTF-8"?>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:o" xmlns="urn:o" elementFormDefault="qualified">
\t<xs:element name="order"><xs:complexType><xs:sequence>
\t\t<xs:element name="item" maxOccurs="unbounded"><xs:complexType><xs:attribute name="sku" use="required"><xs:simpleType>
\t\t\t<xs:restriction base="xs:string"><xs:pattern value="[A-Z]{3}-\\d{4}"/></xs:restriction></xs:simpleType></xs:attribute>
\t\t\t</xs:complexType></xs:element>
\t\t<xs:element name="shipped" type="xs:date" minOccurs="0"/>
\t</xs:sequence><xs:attribute name="id" type="xs:ID" use="required"/></xs:complexType></xs:element>
</xs:schema>"""


def keep(person, name):
    """Pictures for a person who wants to look at the dialogs."""
    if folder := os.environ.get("VANTREL_PICTURES"):
        person.run("import", "-window", "root", f"{folder}/{name}.png")


def main():
    with desk() as person:
        path = person.folder / "order.xsd"
        path.write_text(SCHEMA)
        person.start([sys.argv[1], path.name], person.environment, cwd=person.folder)
        person.window(rf"Vantrel - \[\*?{path}\]")
        person.keys("alt+c", "Up", "Up", "Up", "Return")  # the two extensions, the valid sample
        person.window("Valid Sample")
        keep(person, "valid-sample")
        person.keys("alt+e", "space", "Return")
        person.window(r"Vantrel - \[\*new\d+.xml\]")
        person.keys("alt+v", "Up", "Up", "Up", "Return")  # schema, browser, text view
        person.keys("alt+x", "Down", "Down", "Return")  # show the schema, apply one, check
        person.window("Vantrel")
        keep(person, "checked")
        person.keys("Return")
        person.window(r"Vantrel - \[\*new\d+.xml\]")
        person.keys("ctrl+s")
        person.window(".*[Ss]ave.*")
        saved = person.folder / "order.xml"
        person.keys("ctrl+a")
        person.type(str(saved))
        person.keys("Return")
        wait_for("the saved sample", saved.exists)
        text = saved.read_text()
        assert "<shipped>" in text and 'xsi:schemaLocation="urn:o ' in text, text

        person.window(rf"Vantrel - \[\*?{saved}\]")
        person.keys("alt+x", "Up", "Return")  # the last entry that is offered
        person.window("Infer Schema")
        keep(person, "infer-schema")
        person.keys("Return")
        person.window("Vantrel")
        keep(person, "inferred")
        person.keys("Right", "Return")  # No
        person.window(r"Vantrel - \[\*new\d+.xsd\]")


if __name__ == "__main__":
    main()
