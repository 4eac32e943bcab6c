#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program is killed at random moments while somebody types, and started again: it offers the document, and at most the last
seconds of typing are lost. killed_at_work.py PROGRAM [TIMES]: so many kills, 3 unless told."""
import random
import re
import signal
import sys
import time

from desk import desk, wait_for

MOST_LOST = 5  # seconds


def work_and_kill(person, program, path, rest):
    """Types numbers into the document until it is killed; when each of them was typed, and the moment of the end."""
    running = person.start([program, path.name], person.environment, cwd=person.folder)
    person.window(rf"Vantrel - \[{path}\]")
    person.keys("F6", "F6", "Right", "Tab")  # path box, tabs, the tab of the text, the text
    person.keys("ctrl+End", *["Left"] * len("</notes>"))
    typed = []
    end = time.monotonic() + rest
    while time.monotonic() < end:
        person.type(f" n{len(typed)}.")
        typed.append(time.monotonic())
    running.send_signal(signal.SIGKILL)
    running.wait()
    return typed, time.monotonic()


def numbers_after_return(person, program, path):
    """Starts again, says Yes to the offer and saves; the numbers that the file holds then."""
    running = person.start([program], person.environment, cwd=person.folder)
    wait_for("the offer", lambda: len(person.titles()) >= 2)
    person.keys("Return")
    person.window(rf"Vantrel - \[\*?{re.escape(str(path))}.*\]")
    person.keys("ctrl+s")

    def saved():
        return re.findall(r" n(\d+)\.", path.read_text())
    numbers = wait_for("the saved file", saved)
    running.send_signal(signal.SIGKILL)
    running.wait()
    return [int(number) for number in numbers]


def main():
    times = int(sys.argv[2]) if len(sys.argv) > 2 else 3
    worst = 0.0
    with desk() as person:
        for turn in range(times):
            path = person.folder / f"notes{turn}.xml"
            path.write_text("<notes>one</notes>")
            typed, end = work_and_kill(person, sys.argv[1], path, random.uniform(3, 9))
            numbers = numbers_after_return(person, sys.argv[1], path)
            assert numbers == list(range(len(numbers))), f"not what was typed: {numbers}"
            lost = end - typed[len(numbers)] if len(numbers) < len(typed) else 0
            worst = max(worst, lost)
            assert lost <= MOST_LOST, f"{lost:.1f} seconds of typing are lost"
    print(f"{times} kills, at most {worst:.1f} seconds lost")


if __name__ == "__main__":
    main()
