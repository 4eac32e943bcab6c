#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plants each kind of violation in a small house and expects the include check to name it, and nothing else."""
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True  # no folder of byte code among the sources
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import check_includes  # noqa: E402
import house  # noqa: E402

ROOMS = house.Rooms({"9.1": "desktop", "9.0": "desktop/models", "7": "shell", "4.1": "nodes/dialogs", "4.0": "nodes textview",
                     "1": "core/model", "0.1": "platform/xml platform/services platform/controls", "0.0": "platform/text"},
                    beside={("textview", "nodes")})
LICENCE = "// SPDX-License-Identifier: GPL-3.0-or-later\n"


class IncludeCheck(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "house"
        self.qt = Path(folder.name) / "qt6"
        for module, headers in {"QtCore": ["QString", "qglobal.h"], "QtNetwork": ["QTcpSocket"],
                                "QtWidgets": ["QWidget"], "QtGui": ["QIcon"]}.items():
            (self.qt / module).mkdir(parents=True)
            for header in [module, *headers]:
                (self.qt / module / header).touch()
        # A house in order: every kind of include that is allowed.
        self.write("platform/text/TextTools.h", "#pragma once\n#include <QString>\n#include <string>\n")
        self.write("platform/xml/Loader.cpp", '#include "platform/text/TextTools.h"\n#include <libxml/parser.h>\n')
        self.write("platform/services/Http.cpp", "#include <QTcpSocket>\n#include <QtCore/qglobal.h>\n")
        self.write("core/model/Application.h", '#include "platform/xml/Loader.h"\n#include "core/model/Other.h"\n')
        self.write("nodes/dialogs/frmEditNodes.cpp", '#include "nodes/Clipboard.h"\n')
        self.write("textview/Find.cpp", '#include "nodes/Clipboard.h"\n#include "platform/text/TextTools.h"\n')
        self.write("shell/frmMDIMain.cpp", '#include "core/model/Application.h"\n#include <vector>\n')
        self.write("desktop/main.cpp", '#include "ui_frame.h"\n#include <QWidget>\n#include "desktop/models/Tree.h"\n'
                                       '#include "shell/frmMDIMain.h"\n')
        self.write("tests/core/test.cpp", '#include "shell/frmMDIMain.h"\n#include <QWidget>\n')
        self.write("build/dev/any.cpp", "#include <QWidget>\n", licence="")

    def write(self, name, text, licence=LICENCE):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(licence + text, encoding="utf-8")

    def faults(self):
        return check_includes.House(self.root, self.qt, ROOMS).check()

    def expect(self, name, text, *words, licence=LICENCE):
        """One more file brings exactly one fault, in that file, that holds all the words."""
        self.write(name, text, licence)
        faults = self.faults()
        self.assertEqual(len(faults), 1, faults)
        for word in (name + ":", *words):
            self.assertIn(word, faults[0])
        (self.root / name).unlink()

    def test_house_in_order_has_no_fault(self):
        self.assertEqual(self.faults(), [])

    def test_include_that_goes_up(self):
        self.expect("core/model/A.cpp", '#include <QString>\n#include "shell/frmMDIMain.h"\n', ":3:", "line 1", "line 7")
        self.expect("platform/text/A.h", '  #  include "core/model/Application.h"\n', "goes up")
        self.expect("nodes/A.cpp", '#include <nodes/dialogs/frmEditNodes.h>\n', "goes up")
        self.expect("desktop/models/Tree.h", '#include "desktop/main.h"\n', "goes up")

    def test_other_room_of_the_same_line(self):
        self.expect("nodes/A.cpp", '#include "textview/FillText.h"\n', "same line")
        self.expect("nodes/dialogs/A.cpp", '#include "textview/FillText.h"\n', "same line")
        self.expect("platform/xml/A.cpp", '#include "platform/controls/TreeView.h"\n', "same line")
        self.assertEqual({pair for pair in house.BESIDE if pair[::-1] in house.BESIDE}, set())

    def test_headers_that_a_room_may_not_use(self):
        for header, word in [("QWidget", "QtWidgets"), ("QtWidgets/QWidget", "QtWidgets"), ("QtWidgets", "QtWidgets"),
                             ("QIcon", "QtGui"), ("QTcpSocket", "QtNetwork"), ("QNotInstalled", "no module")]:
            self.expect("nodes/A.cpp", f"#include <{header}>\n", word)
        self.expect("platform/services/A.cpp", "#include <QIcon>\n", "QtGui")
        self.expect("core/model/A.cpp", "#include <libxml/tree.h>\n", "platform/xml")

    def test_include_that_hides_its_target(self):
        self.expect("shell/A.cpp", '#include "../desktop/main.h"\n', "project root")
        self.expect("shell/A.cpp", '#include "frmMDIMain.h"\n', "project root")
        self.expect("shell/A.cpp", "#include SECRET\n", "preprocessor")

    def test_unknown_room(self):
        self.expect("attic/A.cpp", "", "not a room")
        self.expect("core/A.cpp", "", "not a room")
        self.expect("shell/A.cpp", '#include "core/Application.h"\n', "core is not a room")

    def test_licence_line(self):
        self.expect("tests/core/A.cpp", "int a;\n", "SPDX", licence="")
        self.expect("tests/core/CMakeLists.txt", "", "SPDX", licence="")
        self.expect("shell/A.h", "int a;\n", "SPDX", licence="// SPDX-License-Identifier: MIT\n")

    def test_include_in_a_comment_is_none(self):
        self.write("core/model/A.cpp", '// #include "desktop/main.h"\n/*\n#include <QWidget>\n*/\n')
        self.assertEqual(self.faults(), [])


if __name__ == "__main__":
    unittest.main()
