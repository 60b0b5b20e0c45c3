"""What the programs say of themselves.

BROOMTIDE, BROOMTIDE_CLI   the programs to ask
"""

import dataclasses
import os
import re
import subprocess

WINDOW = os.environ["BROOMTIDE"]
CLI = os.environ["BROOMTIDE_CLI"]


@dataclasses.dataclass
class Help:
    commands: list
    options: dict  # every name, long and short, with the values that may follow it
    takes_folder: bool

    def long_options(self):
        return {name for name in self.options if name.startswith("--")}


def output(program, *arguments):
    return subprocess.run([program, *arguments], capture_output=True, text=True, check=True, timeout=60).stdout


def help_of(program, *command):
    """What `program command --help` lists."""
    text = output(program, *command, "--help")
    options = {}
    for names, said in re.findall(r"^  ((?:-\w, ?)?--[\w-]+)(.*)$", text, re.M):
        values = re.match(r" (\w+(?:\|\w+)+)", said)
        for name in re.split(", ?", names):
            options[name] = values[1].split("|") if values else []
    _, _, below = text.partition("\nSubcommands:\n")
    return Help(re.findall(r"^  (\w+) ", below, re.M), options, "\n  FOLDER " in text)


def helps():
    """The help of broomtide-cli for each command, and for none of them."""
    general = help_of(CLI)
    return {"": general, **{command: help_of(CLI, command) for command in general.commands}}
