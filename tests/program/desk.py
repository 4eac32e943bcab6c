# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen with a window manager, and the program on it: keys and clicks go in through the window system."""
import contextlib
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

PATIENCE = 30  # seconds until something that must come counts as missing


def wait_for(what, condition):
    """The condition's first true value; fails when it doesn't come."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise AssertionError(f"waited in vain for {what}")


class Desk:
    """An own X server, home folder and temporary folder; all of it goes with the object."""

    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="vantrel-program-"))
        home = self.folder / "home"
        runtime = self.folder / "runtime"
        home.mkdir()
        runtime.mkdir(mode=0o700)
        self.children = []
        try:
            self.open_screen(home, runtime)
        except BaseException:
            self.close()
            raise

    def open_screen(self, home, runtime):
        reading, writing = os.pipe()
        self.start(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"],
                   os.environ, pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as number:
            display = number.readline().strip()
        assert display, "Xvfb didn't start"
        self.environment = {
            **os.environ, "DISPLAY": f":{display}", "HOME": str(home), "XDG_RUNTIME_DIR": str(runtime),
            "XDG_CONFIG_HOME": str(home / "config"), "XDG_DATA_HOME": str(home / "data"), "XDG_STATE_HOME": str(home / "state"), "XDG_CACHE_HOME": str(home / "cache"),
            "TMPDIR": str(self.folder), "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8",
            # In a sanitized build: what the desktop's plugins keep when they are unloaded can't be told from a leak of ours.
            "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0",
        }
        self.start(["openbox"], self.environment)
        # The window manager is ready once it has put its mark on the root window.
        wait_for("the window manager", lambda: "window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))

    def start(self, command, environment, **more):
        with (self.folder / "said.txt").open("ab") as said:
            child = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=said,
                                     stderr=subprocess.STDOUT, **more)
        self.children.append(child)
        return child

    def report(self):
        """What helps to understand a failure: the screen, and what the programs said."""
        picture = Path(tempfile.gettempdir()) / "vantrel-program-test-failed.png"
        self.run("import", "-window", "root", str(picture))
        print(f"the screen at that moment: {picture}")
        print((self.folder / "said.txt").read_text(errors="replace")[-8000:])
        print("ended already:", [child.args[0] for child in self.children if child.poll() is not None])

    def run(self, *command, patience=PATIENCE):
        """What a command prints; nothing when it doesn't end, as one that waits for a window that is gone."""
        try:
            done = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                  check=False, timeout=patience)
        except subprocess.TimeoutExpired:
            return ""
        return done.stdout.decode(errors="replace").strip()

    def close(self):
        for child in reversed(self.children):
            if child.poll() is None:
                child.send_signal(signal.SIGKILL)
            child.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    # --- what a person does and sees -----------------------------------------------------------------------
    def titles(self):
        """Titles of the visible windows, by window."""
        found = {}
        for window in self.run("xdotool", "search", "--onlyvisible", "--name", ".").split():
            title = self.run("xdotool", "getwindowname", window)
            if title:
                found[window] = title
        return found

    def find(self, title):
        """Waits for a window whose title matches whole; its number."""
        def matching():
            return [window for window, name in self.titles().items() if re.fullmatch(title, name)]
        return wait_for(f"a window {title!r}", matching)[0]

    def window(self, title):
        """The same, and brings it to the front."""
        window = self.find(title)
        self.run("xdotool", "windowactivate", "--sync", window)
        return window

    def keys(self, *keys):
        self.run("xdotool", "key", "--clearmodifiers", *keys)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "5", text)

    def click(self, window, x, y):
        """Clicks into a window; negative places count from its right or bottom edge."""
        shape = dict(line.split("=") for line in self.run("xdotool", "getwindowgeometry", "--shell", window).splitlines())
        x += int(shape["WIDTH"]) if x < 0 else 0
        y += int(shape["HEIGHT"]) if y < 0 else 0
        self.run("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")

    def place(self, window, x, y):
        """A place of a window on the screen; the pointer is there then."""
        self.run("xdotool", "mousemove", "--window", window, str(x), str(y))
        where = dict(line.split("=") for line in self.run("xdotool", "getmouselocation", "--shell").splitlines())
        return where["X"], where["Y"]

    def drag(self, start, end, *keys):
        """Presses at a place of the screen, pulls to another one and lets go there, after pressing `keys`."""
        self.run("xdotool", "mousemove", *start, "sleep", "0.2", "mousedown", "1", "sleep", "0.2")
        for step in range(1, 9):  # a drag begins with several moves, and a place wants to be entered
            way = [str(int(a) + (int(b) - int(a)) * step // 8) for a, b in zip(start, end)]
            self.run("xdotool", "mousemove", *way, "sleep", "0.05")
        if keys:
            self.run("xdotool", "key", *keys)  # keys() would let the button go
        self.run("xdotool", "sleep", "0.3", "mouseup", "1", "sleep", "0.3")

    def picture(self, window, area, file):
        """Takes a picture of a part of a window, once that keeps still."""
        def take():
            self.run("import", "-window", window, "-crop", area, "+repage", str(file))
            return self.run("identify", "-format", "%#", str(file))

        def still():
            first = take()
            time.sleep(0.2)
            return first == take()
        wait_for("a window that keeps still", still)

    def changes(self, window, area, *keys):
        """Upper and lower edge of what keys change in a part of a window; `area` as for colours()."""
        before, after = self.folder / "before.png", self.folder / "after.png"
        self.picture(window, area, before)
        self.keys(*keys)

        def edges():
            self.picture(window, area, after)
            found = self.run("convert", str(before), str(after), "-compose", "difference", "-composite", "-threshold", "20%",
                             "-trim", "-format", "%h %Y", "info:").split()
            return (int(found[1]), int(found[1]) + int(found[0])) if len(found) == 2 and int(found[0]) > 3 else None
        upper, lower = wait_for(f"an effect of {keys}", edges)
        top = int(area.split("+")[2])
        return top + upper, top + lower

    def colours(self, window, area):
        """How many colours a part of a window shows; `area` as WIDTHxHEIGHT+X+Y. 0 for a window that is gone: while
        the picture is waited for, the whole screen stands still, the program with it."""
        count = self.run("import", "-window", window, "-crop", area, "-format", "%k", "info:", patience=3)
        return int(count) if count.isdigit() else 0


@contextlib.contextmanager
def desk():
    one = Desk()
    try:
        yield one
    except BaseException:
        one.report()
        raise
    finally:
        one.close()
