"""What the shells offer for broomtide-cli, and that it is what the program takes.

BROOMTIDE, BROOMTIDE_CLI   the programs
"""

import unittest

from helptext import helps
from shells import EVERY

# What is typed before a tab, and the words in the end.
COMPLETED = (
    ("sc", ["scan"]),
    ("scan --det", ["scan", "--details"]),
    ("scan --mode ca", ["scan", "--mode", "caches"]),
    ("scan --mode=ca", ["scan", "--mode=caches"]),
    ("scan My", ["scan", "My Projects/"]),
    ("clean --mode downloads My", ["clean", "--mode", "downloads", "My Projects/"]),
    ("clean --yes My", ["clean", "--yes", "My Projects/"]),
    ("scan src/a", ["scan", "src/app/"]),
    ("scan it", ["scan", "it's: $me/"]),
    ("scan --json it\\'s:\\ \\$me --so", ["scan", "--json", "it's: $me", "--sort"]),
)
# What is typed before a tab, and nothing is offered.
NOTHING = ("clean --item My", "history My", "xyz")


class Shells:
    def setUp(self):
        self.shell = self.kind()
        self.addCleanup(self.shell.close)
        self.folders = {"My Projects", "it's: $me", "src"}
        for folder in *self.folders, "src/app":
            (self.shell.folder / folder).mkdir()
        (self.shell.folder / "My file").touch()

    def test_lines_are_completed(self):
        for line, words in COMPLETED:
            with self.subTest(line):
                self.assertEqual(self.shell.completed(line), words)

    def test_nothing_is_offered_where_nothing_is_known(self):
        for line in NOTHING:
            with self.subTest(line):
                self.assertEqual(self.shell.completed(line), line.split())

    def test_all_folders_are_offered_and_no_files(self):
        self.assertEqual({name.rstrip("/") for name in self.shell.offered("scan ")}, self.folders)

    def test_what_is_offered_is_what_the_program_takes(self):
        known = helps()
        self.assertTrue(known[""].commands)
        commands = {word for word in self.shell.offered("") if not word.startswith("-")}
        self.assertEqual(commands, set(known[""].commands))
        for command, help in known.items():
            with self.subTest(command):
                options = {word for word in self.shell.offered(f"{command} -".lstrip()) if word.startswith("--")}
                self.assertEqual(options, help.long_options())
            for option, values in help.options.items():
                if values:
                    with self.subTest(command, option=option):
                        self.assertEqual(self.shell.offered(f"{command} {option} "), set(values))


for kind in EVERY:
    globals()[kind.__name__] = type(kind.__name__, (Shells, unittest.TestCase), {"kind": kind})


if __name__ == "__main__":
    unittest.main()
