#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compiles a small house with each kind of fault and expects the symbol check to name it, and nothing else."""
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True  # no folder of byte code among the sources
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import check_symbols  # noqa: E402
import house  # noqa: E402

ROOMS = house.Rooms({"3": "shell", "2.1": "nodes/list", "2.0": "nodes text", "1": "shell/base"})

# What every object has that includes it, so none of it may make an arrow to the file that happens to define it.
SHARED = """#pragma once
struct Listener { virtual ~Listener(); virtual void Heard(); };
struct Pure { virtual ~Pure() = default; virtual int Go() { return 1; } };
inline int Counter() { static int counter; return ++counter; }
template <class T> T Twice(T value) { return value + value; }
[[gnu::noinline]] inline int All(Pure& pure) { return pure.Go() + Counter() + Twice(Counter()); }
"""


class SymbolCheck(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root, self.build = Path(folder.name) / "house", Path(folder.name) / "house/build/dev"
        self.root.mkdir()
        (self.root / "Shared.h").write_text(SHARED, encoding="utf-8")

    def compile(self, name, code, *options):
        source = self.root / name
        target = self.build / source.parent.relative_to(self.root) / "CMakeFiles/any.dir" / f"{source.name}.o"
        source.parent.mkdir(parents=True, exist_ok=True)
        target.parent.mkdir(parents=True, exist_ok=True)
        source.write_text(code, encoding="utf-8")
        subprocess.run([os.environ.get("CXX", "c++"), "-I", self.root, *options, "-c", source, "-o", target], check=True)

    def faults(self, **options):
        return check_symbols.House(self.root, self.build, rooms=ROOMS, known=options.pop("known", []), **options).check()

    def expect(self, headline, *arrows, **options):
        found = self.faults(**options)
        self.assertEqual(len(found), 1 + len(arrows), found)
        for words, line in zip((headline, *arrows), found):
            self.assertIn(words, line)

    def test_house_in_order_has_no_fault(self):
        self.compile("shell/base/A.cpp", '#include "Shared.h"\nint a() { Pure pure; return All(pure); }')
        self.compile("nodes/B.cpp", '#include "Shared.h"\nint a(); int b() { Pure pure; return a() + All(pure); }')
        self.compile("nodes/list/C.cpp", '#include "Shared.h"\nint b(); int c() { Pure pure; return b() + All(pure); }')
        # Which of the three serves this one isn't known.
        self.compile("shell/base/Twice.cpp", "template <class T> T Twice(T); int twice() { return Twice(1); }")
        # A call through an interface, with what the sanitizers add to it; the class itself stands in a file that calls this one.
        self.compile("nodes/Store.cpp", '#include "Shared.h"\nvoid Tell(Listener& one) { one.Heard(); }', "-fsanitize=address,undefined")
        self.compile("nodes/Listener.cpp", '#include "Shared.h"\nvoid Tell(Listener&);\n'
                                           "Listener::~Listener() = default; void Listener::Heard() { Tell(*this); }")
        # An object whose source was moved.
        self.compile("nodes/Old.cpp", "int c(); int old() { return c(); }")
        (self.root / "nodes/Old.cpp").unlink()
        self.assertEqual(self.faults(), [])

    def test_calls_that_go_up_or_beside(self):
        self.compile("nodes/list/C.cpp", "int c() { return 1; }")
        self.compile("nodes/B.cpp", "int c(); int b() { return c(); }")
        self.expect("a call goes up: nodes is on line 2.0, nodes/list on line 2.1", "nodes/B.cpp -> nodes/list/C.cpp: c()")
        self.compile("nodes/B.cpp", "int b() { return 1; }")
        self.compile("text/T.cpp", "int b(); int t() { return b(); }")
        self.expect("a call goes to another room of the same line: text", "text/T.cpp -> nodes/B.cpp: b()")
        self.compile("text/T.cpp", "template <class T> T t(T); template int t<int>(int);\ntemplate <class T> T t(T v) { return v; }")
        self.compile("nodes/B.cpp", "template <class T> T t(T); int b() { return t(1); }")
        self.expect("a call goes to another room", "int t<int>(int)")

    def test_circle_of_files_through_a_third(self):
        self.compile("nodes/A.cpp", "int b(); int a() { return b(); } int a1() { return 1; }")
        self.compile("nodes/B.cpp", "int c; int b() { return c; }")
        self.compile("nodes/C.cpp", "int a(); int a1(); extern int c; int user() { return c + a() + a1(); }")
        self.assertEqual(self.faults(), [])
        self.compile("nodes/B.cpp", "int user(); int c; int b() { return user(); }")
        arrows = ["nodes/A.cpp -> nodes/B.cpp: b()", "nodes/B.cpp -> nodes/C.cpp: user()", "nodes/C.cpp -> nodes/B.cpp: c",
                  "nodes/C.cpp -> nodes/A.cpp: a(), a1()"]
        self.expect("a circle of 3: nodes/A.cpp, nodes/B.cpp, nodes/C.cpp", *arrows)
        self.assertEqual(self.faults(known=[check_symbols.files("nodes", "A B C")]), [])

    def test_circle_of_top_folders_that_no_line_forbids(self):
        self.compile("shell/base/A.cpp", "int a() { return 1; }")
        self.compile("nodes/B.cpp", "int a(); int b() { return a(); }")
        self.compile("shell/C.cpp", "int b(); int c() { return b(); }")
        self.expect("a circle of 2: nodes, shell", "nodes -> shell: a()", "shell -> nodes: b()")

    def test_list_of_circles_and_objects_is_kept_up(self):
        self.compile("shell/A.cpp", "int a() { return 1; }")
        known = [check_symbols.files("shell", "A B")]
        self.expect("no such circle any more", known=known)
        (self.root / "nodes").mkdir()
        (self.root / "nodes/B.cpp").touch()
        self.expect("nodes: no object of B.cpp")
        self.assertEqual(self.faults(unbuilt=["nodes"]), [])


if __name__ == "__main__":
    unittest.main()
