"""Each rule on includes is broken once in a small tree, and must be found there and only there."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "scripts/check-includes"
ALLOWED = [
    ("src/core/Size.h", '#include <string>\n#include "core/Size.h"'),
    ("src/platform/Folder.cpp", '#include <sys/stat.h>\n#include "core/Size.h"'),
    ("src/app/Model.cpp", '#include "scanner/Scan.h"\n#include "cleanup/Trash.h"'),
    ("src/ui/Window.cpp", '#include <QWidget>\n#include "app/Model.h"\n#include "Window.moc"'),
    ("src/cli/main.cpp", '#include <unistd.h>\n#include "app/Model.h"'),
    ("tests/scanner/ScanTest.cpp", '#include <fcntl.h>\n#include "support/Tree.h"\n#include "scanner/Scan.h"'),
]
BROKEN = [
    ("src/core/Bad.h", '#include "platform/Folder.h"', "core must not include platform"),
    ("src/cleanup/Bad.cpp", '#include "rules/Rules.h"', "cleanup must not include rules"),
    ("src/cli/Bad.cpp", '  #  include "scanner/Scan.h"', "cli must not include scanner"),
    ("tests/cli/Bad.cpp", '#include "cleanup/Trash.h"', "cli must not include cleanup"),
    ("src/core/Bad.h", '#include "Size.h"', 'not written as "room/File.h"'),
    ("src/scanner/Bad.h", '#include "core/../cleanup/Trash.h"', 'not written as "room/File.h"'),
    ("src/core/Bad.h", "#include <scanner/Scan.h>", "not written in quotes"),
    ("src/attic/Bad.h", "#include <string>", "src/attic is no room"),
    ("src/Bad.h", "#include <string>", "is no room"),
    ("src/cli/Bad.h", "#include <QtCore/QString>", "cli must not see Qt"),
    ("src/scanner/Bad.cpp", "#include <unistd.h>", "scanner must not call the system"),
    ("src/cli/Bad.cpp", "#include <fcntl.h>", "cli must not call the system"),
]


class CheckIncludes(unittest.TestCase):
    def test_each_violation_is_told_where_it_stands(self):
        for name, line, reason in [("src/core/None.h", "", ""), *BROKEN]:
            with self.subTest(name=name, line=line), tempfile.TemporaryDirectory() as root:
                for file, text in [*ALLOWED, (name, f"#pragma once\n{line}")]:
                    Path(root, file).parent.mkdir(parents=True, exist_ok=True)
                    Path(root, file).write_text(text + "\n")
                result = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True)
                told = [f"{name}:2: "] if reason else []
                self.assertEqual([line[:len(f"{name}:2: ")] for line in result.stdout.splitlines()], told)
                self.assertEqual((result.returncode, reason in result.stdout, result.stderr), (len(told), True, ""))


if __name__ == "__main__":
    unittest.main()
