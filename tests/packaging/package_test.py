"""The Debian package holds what it should, and what its programs need comes with what it depends on.

BROOMTIDE_PACKAGE   the package
"""

import os
import re
import stat
import subprocess
import tempfile
import unittest
from pathlib import Path

PACKAGE = os.environ["BROOMTIDE_PACKAGE"]
ICON_SIDES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
PROGRAMS = ("usr/bin/broomtide", "usr/bin/broomtide-cli")
FILES = {
    *PROGRAMS,
    "usr/share/applications/broomtide.desktop",
    "usr/share/bash-completion/completions/broomtide-cli",
    "usr/share/doc/broomtide/changelog.Debian.gz",
    "usr/share/doc/broomtide/changelog.gz",
    "usr/share/doc/broomtide/copyright",
    "usr/share/fish/vendor_completions.d/broomtide-cli.fish",
    "usr/share/icons/hicolor/scalable/apps/broomtide.svg",
    *(f"usr/share/icons/hicolor/{side}x{side}/apps/broomtide.png" for side in ICON_SIDES),
    "usr/share/lintian/overrides/broomtide",
    "usr/share/man/man1/broomtide-cli.1.gz",
    "usr/share/man/man1/broomtide.1.gz",
    "usr/share/metainfo/example.broomtide.broomtide.metainfo.xml",
    "usr/share/zsh/vendor-completions/_broomtide-cli",
}


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True, timeout=60).stdout


def field(name):
    return output("dpkg-deb", "--field", PACKAGE, name).strip()


class Unpacked(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = Path(folder.name)
        subprocess.run(["dpkg-deb", "--extract", PACKAGE, cls.root], check=True)

    def test_holds_these_files_and_no_others(self):
        self.assertEqual({str(path.relative_to(self.root)) for path in self.root.rglob("*") if not path.is_dir()}, FILES)

    def test_everybody_may_read_and_only_the_administrator_write(self):
        for path in self.root.rglob("*"):
            name = str(path.relative_to(self.root))
            runs = path.is_dir() or name in PROGRAMS
            with self.subTest(name):
                self.assertEqual(stat.filemode(path.lstat().st_mode)[1:], "rwxr-xr-x" if runs else "rw-r--r--")

    def test_programs_run(self):
        version = field("Version").partition("-")[0]
        for program in PROGRAMS:
            self.assertEqual(output(self.root / program, "--version"), f"{Path(program).name} {version}\n")

    def test_every_library_comes_with_a_package_that_it_depends_on(self):
        files = output("dpkg-query", "--listfiles", *re.findall(r"(?:^|, )([\w.+-]+)", field("Depends"))).splitlines()
        provided = {os.path.basename(file) for file in files}
        for program in PROGRAMS:
            needed = re.findall(r"\(NEEDED\) .*\[(.+)\]", output("readelf", "--wide", "--dynamic", self.root / program))
            self.assertIn("libc.so.6", needed)
            self.assertEqual(set(needed) - provided, set(), program)


if __name__ == "__main__":
    unittest.main()
