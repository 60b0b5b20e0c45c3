"""The Debian package holds what it should, and what its programs need comes with what it depends on.

BROOMTIDE_PACKAGE   the package
BROOMTIDE_BUILD     the build that it was made from
"""

import gzip
import os
import re
import stat
import subprocess
import tempfile
import unittest
from pathlib import Path

PACKAGE = os.environ["BROOMTIDE_PACKAGE"]
BUILD = os.environ["BROOMTIDE_BUILD"]
ICON_SIDES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
PROGRAMS = ("usr/bin/broomtide", "usr/bin/broomtide-cli")
# What cmake --install gives everybody, and what there is besides without Debian and in its package.
EVERYWHERE = {
    *PROGRAMS,
    "usr/share/applications/broomtide.desktop",
    "usr/share/bash-completion/completions/broomtide-cli",
    "usr/share/doc/broomtide/changelog.gz",
    "usr/share/fish/vendor_completions.d/broomtide-cli.fish",
    "usr/share/icons/hicolor/scalable/apps/broomtide.svg",
    *(f"usr/share/icons/hicolor/{side}x{side}/apps/broomtide.png" for side in ICON_SIDES),
    "usr/share/man/man1/broomtide-cli.1.gz",
    "usr/share/man/man1/broomtide.1.gz",
    "usr/share/metainfo/example.broomtide.broomtide.metainfo.xml",
}
OTHERWISE = {
    "usr/share/doc/broomtide/LICENSE",
    "usr/share/zsh/site-functions/_broomtide-cli",
}
IN_DEBIAN = {
    "usr/share/doc/broomtide/changelog.Debian.gz",
    "usr/share/doc/broomtide/copyright",
    "usr/share/lintian/overrides/broomtide",
    "usr/share/zsh/vendor-completions/_broomtide-cli",
}


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True, timeout=60).stdout


def field(name):
    return output("dpkg-deb", "--field", PACKAGE, name).strip()


def packages_of(name):
    """The packages that a field of the control file names, without versions."""
    return [re.match(r"[\w.+-]+", entry)[0] for entry in field(name).split(", ")]


def files_below(root):
    return {str(path.relative_to(root)) for path in Path(root).rglob("*") if not path.is_dir()}


class Installed(unittest.TestCase):
    def test_below_any_root_are_these_files_and_no_others(self):
        with tempfile.TemporaryDirectory() as root:
            subprocess.run(["cmake", "--install", BUILD, "--prefix", "/usr"], check=True, capture_output=True,
                           env={**os.environ, "DESTDIR": root})
            self.assertEqual(files_below(root), EVERYWHERE | OTHERWISE)


class Unpacked(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = Path(folder.name)
        subprocess.run(["dpkg-deb", "--extract", PACKAGE, cls.root], check=True)

    def test_holds_these_files_and_no_others(self):
        self.assertEqual(files_below(self.root), EVERYWHERE | IN_DEBIAN)

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
        files = output("dpkg-query", "--listfiles", *packages_of("Depends")).splitlines()
        provided = {os.path.basename(file) for file in files}
        for program in PROGRAMS:
            needed = re.findall(r"\(NEEDED\) .*\[(.+)\]", output("readelf", "--wide", "--dynamic", self.root / program))
            self.assertIn("libc.so.6", needed)
            self.assertEqual(set(needed) - provided, set(), program)

    def test_what_it_recommends_and_suggests_exists(self):
        for package in [*packages_of("Recommends"), *packages_of("Suggests")]:
            with self.subTest(package):
                self.assertIn(f"\nPackage: {package}\n", "\n" + output("apt-cache", "show", "--no-all-versions", package))

    def test_icons_have_the_size_of_their_folder(self):
        for side in ICON_SIDES:
            picture = (self.root / f"usr/share/icons/hicolor/{side}x{side}/apps/broomtide.png").read_bytes()
            size = [int.from_bytes(picture[at:at + 4], "big") for at in (16, 20)]
            self.assertEqual((picture[:4], size), (b"\x89PNG", [side, side]))
            # One colour would need next to nothing.
            self.assertGreater(len(picture), 10 * side)

    def test_the_licence_is_told_in_full(self):
        licence = (Path(__file__).resolve().parents[2] / "LICENSE").read_text()
        copyright = (self.root / "usr/share/doc/broomtide/copyright").read_text()
        paragraphs = copyright.replace("\n .\n", "\n\n ").replace("\n ", " ").split()
        permission = licence[licence.index("Permission"):].split()
        self.assertIn(" ".join(permission), " ".join(paragraphs))
        self.assertIn(re.search(r"Copyright \(c\) (.+)", licence)[1], copyright)

    def test_compressed_documents_are_those_of_the_sources(self):
        sources = Path(__file__).resolve().parents[2]
        for installed, source in (("man/man1/broomtide.1.gz", "packaging/man/broomtide.1"),
                                  ("man/man1/broomtide-cli.1.gz", "packaging/man/broomtide-cli.1"),
                                  ("doc/broomtide/changelog.gz", "CHANGELOG.md")):
            packed = (self.root / "usr/share" / installed).read_bytes()
            self.assertEqual(gzip.decompress(packed), (sources / source).read_bytes(), installed)
            self.assertEqual(int.from_bytes(packed[4:8], "little"), 0, f"{installed} has a date in it")


if __name__ == "__main__":
    unittest.main()
