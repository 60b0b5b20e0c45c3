"""Each rule on includes is broken once in a small tree, and must be found there and only there."""

import importlib.machinery
import importlib.util
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
CHECK = ROOT / "scripts/check-includes"


def load(script):
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("check_includes", str(script))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


check_includes = load(CHECK)

CLEAN = {
    "src/core/Size.h": "#include <string>\n#include <queue>\n",
    "src/core/Size.cpp": '#include "core/Size.h"\n',
    "src/platform/Folder.cpp": '#include <fcntl.h>\n#include <sys/stat.h>\n#include "core/Size.h"\n',
    "src/rules/Rules.h": '#include "core/Size.h"\n',
    "src/context/Git.cpp": '#include "platform/Folder.h"\n#include "rules/Rules.h"\n',
    "src/scanner/Scan.cpp": '#include "context/Git.h"\n#include "rules/Rules.h"\n',
    "src/cleanup/Trash.cpp": '#include "context/Git.h"\n#include "platform/Folder.h"\n',
    "src/app/Model.cpp": '#include "scanner/Scan.h"\n#include "cleanup/Trash.h"\n',
    "src/ui/Window.cpp": '#include <QWidget>\n#include <QtSvg/QSvgWidget>\n#include "app/Model.h"\n'
    '#include "ui/widgets/Badge.h"\n#include "Window.moc"\n',
    "src/cli/main.cpp": '#include <csignal>\n#include <unistd.h>\n#include "app/Model.h"\n',
    "tests/support/Tree.cpp": '#include <sys/stat.h>\n#include "platform/Folder.h"\n',
    "tests/scanner/ScanTest.cpp": '#include <gtest/gtest.h>\n#include "support/Tree.h"\n'
    '#include "scanner/Scan.h"\n',
    "tests/fuzz/Input.h": "#include <string_view>\n",
    "tests/fuzz/Sizes.cpp": '#include "fuzz/Input.h"\n#include "cli/Print.h"\n',
    "tests/soak/Round.cpp": '#include <sys/stat.h>\n#include "cli/Print.h"\n#include "support/Tree.h"\n',
    "tests/journeys/WindowTest.cpp": '#include <QTest>\n#include "ui/Window.h"\n',
}

BROKEN = [
    ("src/core/Bad.h", '#include "platform/Folder.h"', "core must not include platform"),
    ("src/platform/Bad.h", '#include "rules/Rules.h"', "platform must not include rules"),
    ("src/rules/Bad.h", '#include "platform/Folder.h"', "rules must not include platform"),
    ("src/context/Bad.h", '#include "scanner/Scan.h"', "context must not include scanner"),
    ("src/scanner/Bad.cpp", '#include "cleanup/Trash.h"', "scanner must not include cleanup"),
    ("src/cleanup/Bad.cpp", '#include "scanner/Scan.h"', "cleanup must not include scanner"),
    ("src/cleanup/Bad.cpp", '#include "rules/Rules.h"', "cleanup must not include rules"),
    ("src/app/Bad.cpp", '#include "ui/Window.h"', "app must not include ui"),
    ("src/ui/Bad.cpp", '#include "cli/Print.h"', "ui must not include cli"),
    ("src/cli/Bad.cpp", '#include "ui/Window.h"', "cli must not include ui"),
    ("src/cli/Bad.cpp", '  #  include "scanner/Scan.h"', "cli must not include scanner"),
    ("src/core/Bad.h", '#include "support/Tree.h"', 'not written as "room/File.h"'),
    ("src/core/Bad.h", '#include "Size.h"', 'not written as "room/File.h"'),
    ("src/scanner/Bad.h", '#include "../cleanup/Trash.h"', 'not written as "room/File.h"'),
    ("src/scanner/Bad.h", '#include "core/../cleanup/Trash.h"', 'not written as "room/File.h"'),
    ("src/core/Bad.h", "#include <scanner/Scan.h>", "not written in quotes"),
    ("src/attic/Bad.h", "#include <string>", "src/attic is no room"),
    ("src/Bad.h", "#include <string>", "is no room"),
    ("src/app/Bad.h", "#include <QString>", "app must not see Qt"),
    ("src/cli/Bad.h", "#include <QtCore/QString>", "cli must not see Qt"),
    ("src/core/Bad.h", "#include <qglobal.h>", "core must not see Qt"),
    ("src/scanner/Bad.cpp", "#include <unistd.h>", "scanner must not call the system"),
    ("src/cleanup/Bad.cpp", "#include <sys/stat.h>", "cleanup must not call the system"),
    ("src/context/Bad.cpp", "#include <spawn.h>", "context must not call the system"),
    ("src/app/Bad.cpp", "#include <csignal>", "app must not call the system"),
    ("src/core/Bad.cpp", "#include <linux/stat.h>", "core must not call the system"),
    ("src/cli/Bad.cpp", "#include <fcntl.h>", "cli must not call the system"),
    ("tests/core/Bad.cpp", '#include "scanner/Scan.h"', "core must not include scanner"),
    ("tests/cli/Bad.cpp", '#include "cleanup/Trash.h"', "cli must not include cleanup"),
    ("tests/fuzz/Bad.cpp", '#include "ui/Window.h"', "fuzz must not include ui"),
    ("tests/soak/Bad.cpp", '#include "ui/Window.h"', "soak must not include ui"),
    ("tests/core/Bad.cpp", '#include "fuzz/Input.h"', "core must not include fuzz"),
    ("tests/app/Bad.cpp", "#include <QTest>", "app must not see Qt"),
]


class CheckIncludesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, files):
        for name, text in files.items():
            path = self.root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)

    def complaints(self):
        return [(str(name), line, why) for name, line, why in check_includes.complaints(self.root)]

    def test_clean_tree_passes(self):
        self.write(CLEAN)
        self.assertEqual(self.complaints(), [])

    def test_each_violation_is_found_where_it_stands(self):
        self.write(CLEAN)
        for name, line, reason in BROKEN:
            with self.subTest(name=name, line=line):
                self.write({name: f"#pragma once\n{line}\n"})
                found = self.complaints()
                (self.root / name).unlink()
                self.assertEqual([each[:2] for each in found], [(name, 2)])
                self.assertIn(reason, found[0][2])

    def test_the_program_tells_every_line_and_fails(self):
        text = '#include "ui/Window.h"\n#include <string>\n#include <fcntl.h>\n'
        self.write({**CLEAN, "src/core/Bad.h": text})
        command = [sys.executable, str(CHECK), str(self.root)]
        result = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stderr), (1, ""))
        places = [line.split(": ")[0] for line in result.stdout.splitlines()]
        self.assertEqual(places, ["src/core/Bad.h:1", "src/core/Bad.h:3"])


if __name__ == "__main__":
    unittest.main()
