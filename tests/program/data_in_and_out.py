#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Through the real program with keys: a delimited text and a table of a database come in, are saved, edited in the table view, and go out
again as text and into a table. The databases are looked at from outside."""
import sqlite3
import sys
import time

from desk import desk, wait_for

CSV = 'name,year,note\r\nRiesling,2019,"dry, ""crisp"""\r\n\r\n赤ワイン,2020,<sweet>\r\n'
XML = ('<data>\r\n\t<row name="Riesling" year="2019" note="dry, &quot;crisp&quot;" />\r\n'
       '\t<row name="赤ワイン" year="2020" note="&lt;sweet&gt;" />\r\n</data>')


def choose(person, *keys):
    """Presses keys of boxes and buttons, each of which takes a moment to move."""
    for key in keys:
        person.keys(key)
        time.sleep(0.4)


def tool(person, dialog, entry):
    """Opens a dialog of the tools menu by the number of its entry, those that can't be chosen not counted."""
    person.keys("alt+t")
    time.sleep(0.5)
    person.keys(*["Down"] * entry, "Return")
    window = person.window(dialog)
    time.sleep(0.5)  # until it has its focus
    return window


def save_as(person, path):
    person.keys("ctrl+shift+s")
    person.window("Save As")
    person.keys("ctrl+a")
    person.type(str(path))
    person.keys("Return")
    person.window(rf"\*?Vantrel - \[{path}\].*|Vantrel - \[{path}\]")
    wait_for("the saved document", path.exists)


def text_in(person):
    source = person.folder / "wine list.csv"
    source.write_bytes(CSV.encode())
    tool(person, "Import Text File", 0)
    person.keys("alt+f")
    person.window("Open file")
    person.type(str(source))
    person.keys("Return")
    dialog = person.window("Import Text File")
    choose(person, "alt+n", "alt+a")
    wait_for("the sample", lambda: person.colours(dialog, "600x200+20+200") > 8)
    person.keys("Return")
    person.window(r"Vantrel - \[.*new1\.xml.*\]")
    saved = person.folder / "wine.xml"
    save_as(person, saved)
    assert saved.read_bytes() == XML.encode(), saved.read_bytes()


def edit_first_cell(person, value, *way):
    """In the table view; `way` leads from the tree's root to the first row."""
    person.keys(*way)
    person.keys("alt+v")
    time.sleep(0.5)
    person.keys("Down", "Return")
    time.sleep(0.7)
    choose(person, "Right", "space", "ctrl+a")
    person.type(value)
    choose(person, "Return")


def text_out(person):
    target = person.folder / "out.txt"
    tool(person, "Export To Text File", 3)
    choose(person, "alt+v", "Return")
    person.window("Save As")
    person.keys("ctrl+a")
    person.type(str(target))
    person.keys("Return")
    wait_for("the exported text", target.exists)
    lines = target.read_text(encoding="utf-8").split("\n")
    assert 'Silvaner\t2019\t"dry, ""crisp"""\t' in lines, lines
    assert "赤ワイン\t2020\t<sweet>\t" in lines, lines


def rows_in(person, path):
    database = sqlite3.connect(path)
    database.executescript("create table wine(no integer, name text); insert into wine values(1, 'Riesling'), (2, null);")
    tool(person, "Import Data From Database", 1)
    person.keys("alt+n")
    person.window("New Data Source")
    person.keys("alt+n")
    person.type("wine list")
    person.keys("alt+f")
    person.type(str(path))
    person.keys("Return")
    dialog = person.window("Import Data From Database")
    wait_for("the statement", lambda: person.colours(dialog, "200x30+20+170") > 4)
    choose(person, "alt+a", "Return")
    person.window(r"Vantrel - \[.*new2\.xml.*\]")
    saved = person.folder / "rows.xml"
    save_as(person, saved)
    assert saved.read_bytes().endswith(b'<data>\r\n\t<row no="1" name="Riesling" />\r\n\t<row no="2" name="" />\r\n</data>')


def rows_out(person, path):
    tool(person, "Export To Database", 4)
    person.keys("Return")
    wait_for("the word on the rows", lambda: "Vantrel" in person.titles().values())
    person.keys("Return")
    rows = sqlite3.connect(path).execute("select no, name from row order by no").fetchall()
    assert rows == [(2, ""), (7, "Riesling")], rows


def main():
    with desk() as person:
        person.environment["ODBCINI"] = str(person.folder / "odbc.ini")
        stock = person.folder / "stock.db"
        person.start([sys.argv[1]], person.environment, cwd=person.folder)
        person.window("Vantrel")
        time.sleep(1)
        text_in(person)
        edit_first_cell(person, "Silvaner", "Down", "Right", "Right")
        text_out(person)
        rows_in(person, stock)
        edit_first_cell(person, "7", "Down", "Down", "Right", "Right")
        rows_out(person, stock)


if __name__ == "__main__":
    main()
