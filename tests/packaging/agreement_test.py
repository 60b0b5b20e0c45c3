"""What surrounds the programs says the same as the programs: manual pages, completions, descriptions.

BROOMTIDE, BROOMTIDE_CLI   the programs
"""

import os
import re
import subprocess
import unittest
from pathlib import Path

PACKAGING = Path(__file__).resolve().parents[2] / "packaging"
WINDOW, CLI = os.environ["BROOMTIDE"], os.environ["BROOMTIDE_CLI"]


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True, timeout=120).stdout


def helps():
    """For each command, and for none of them, its options, long and short, with the values that may follow."""
    found = {}
    for command in ["", *re.findall(r"^  (\w+) ", output(CLI, "--help").partition("\nSubcommands:\n")[2], re.M)]:
        listed = re.findall(r"^  ((?:-\w, ?)?--[\w-]+)( \w+(?:\|\w+)+)?", output(CLI, *command.split(), "--help"), re.M)
        found[command] = {name: values.strip().split("|") if values else []
                          for names, values in listed for name in re.split(", ?", names)}
    return found


class Agreement(unittest.TestCase):
    def test_shells_offer_what_the_program_takes(self):
        takes = {name for command, options in helps().items() for name in [command, *options, *sum(options.values(), [])]}
        for shell, file, offered in [
            ("bash", "broomtide-cli.bash", r'(?<= choices=").+(?=")'),
            ("fish", "broomtide-cli.fish", r"(?<= -l )[a-z-]+(?= -)|(?<= -a )[a-z]+|(?<=    )[a-z]+(?=\\t)"),
            ("zsh", "_broomtide-cli", r"--[a-z-]+|[a-z]+(?=\\:)"),  # each is a name before what it means
        ]:
            path = PACKAGING / "completions" / file
            output(shell, "-n", path)
            words = " ".join(re.findall(offered, path.read_text())).replace("--", "").split()
            self.assertEqual(set(words), {name.removeprefix("--") for name in takes if not re.fullmatch("-.|", name)})

    def test_the_manual_tells_of_every_option(self):
        page = (PACKAGING / "man/broomtide-cli.1").read_text()
        commands = re.split(r"^\.Ss (.+)\n", page.partition("\n.Sh COMMANDS\n")[2].partition("\n.Sh ")[0], flags=re.M)
        described = {}
        for command, text in zip(commands[1::2], commands[2::2]):
            for item in re.findall(r"^\.It (Fl .+)$", text, re.M):
                names, _, values = item.partition(" Ar ")
                described.setdefault(command, {}).update(
                    {f"-{name}": values.split(" | ") if "|" in values else [] for name in re.findall(r"Fl (\S+)", names)})
        self.assertEqual(described, {command or "Without a command": options for command, options in helps().items()})
        window = set(re.findall(r"(?:^  |, ?)(--?[\w-]+)", output(WINDOW, "--help"), re.M))
        page = (PACKAGING / "man/broomtide.1").read_text()
        listed = " ".join(re.findall(r"^\.It (Fl .+)$", page, re.M))
        self.assertEqual({f"-{name}" for name in re.findall(r"Fl (\S+)", listed)}, window)

    def test_the_version_is_the_same_everywhere(self):
        version = output(WINDOW, "--version").split()[1]
        self.assertEqual(output(CLI, "--version"), f"broomtide-cli {version}\n")
        [metainfo] = PACKAGING.glob("*.metainfo.xml")
        self.assertEqual(re.search(r'<release version="(.+?)"', metainfo.read_text())[1], version)
        self.assertTrue((PACKAGING / "debian/changelog").read_text().startswith(f"broomtide ({version}-1) "))


if __name__ == "__main__":
    unittest.main()
