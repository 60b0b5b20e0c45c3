"""The manual pages tell of every command and option that there is, and of no other.

BROOMTIDE, BROOMTIDE_CLI   the programs that are described
"""

import re
import unittest
from pathlib import Path

from helptext import WINDOW, help_of, helps

PAGES = Path(__file__).resolve().parents[2] / "packaging/man"


def parts(page, macro):
    """The text below each heading `macro` of a page, by the heading."""
    pieces = re.split(rf"^\.{macro} (.+)\n", page, flags=re.M)
    return dict(zip(pieces[1::2], pieces[2::2]))


def listed(text):
    """Every option that a list of `text` describes, with the values that may follow it."""
    options = {}
    for item in re.findall(r"^\.It (Fl .+)$", text, re.M):
        names, _, values = item.partition(" Ar ")
        for name in re.findall(r"Fl (\S+)", names):
            options[f"-{name}"] = values.split(" | ") if "|" in values else []
    return options


class ManualOfTheCommandLine(unittest.TestCase):
    def setUp(self):
        self.page = (PAGES / "broomtide-cli.1").read_text()
        self.helps = helps()
        self.assertTrue(self.helps[""].commands)

    def test_describes_each_command_with_its_options_and_their_values(self):
        sections = parts(parts(self.page, "Sh")["COMMANDS"], "Ss")
        described = {name: listed(text) for name, text in sections.items() if listed(text)}
        self.assertEqual(described, {command or "Without a command": help.options
                                     for command, help in self.helps.items()})

    def test_its_synopsis_is_that_of_each_command(self):
        shown = {}
        for usage in parts(self.page, "Sh")["SYNOPSIS"].split(".Nm\n"):
            command = re.match(r"\.Cm (\w+)\n", usage)
            if command:
                options = {f"-{name}" for name in re.findall(r"Fl (\S+)", usage)}
                shown[command[1]] = (options, usage.endswith(".Ar folder\n"))
        self.assertEqual(shown, {command: (help.long_options() - {"--help"}, help.takes_folder)
                                 for command, help in self.helps.items() if command})

    def test_mentions_no_option_that_there_is_not(self):
        mentioned = {f"-{name}" for name in re.findall(r"\bFl (\S+)", self.page)}
        written = set(re.findall(r"(?<=\s)--[\w-]+", self.page))
        known = {name for help in self.helps.values() for name in help.options}
        self.assertEqual((mentioned | written) - known, set())
        self.assertTrue(written)


class ManualOfTheWindow(unittest.TestCase):
    def test_describes_every_option(self):
        page = (PAGES / "broomtide.1").read_text()
        options = help_of(WINDOW).options
        self.assertEqual(listed(page), options)
        synopsis = re.findall(r"Fl (\S+)", parts(page, "Sh")["SYNOPSIS"])
        self.assertEqual({f"-{name}" for name in synopsis}, options.keys())


if __name__ == "__main__":
    unittest.main()
