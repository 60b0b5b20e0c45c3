"""The built programs carry what the build's hardening options are meant to give them.

BROOMTIDE, BROOMTIDE_CLI   the programs to look at
BROOMTIDE_LIBRARIES        the archives that they are linked from, separated by colons
"""

import os
import re
import subprocess
import unittest


def readelf(option, path):
    command = ["readelf", "--wide", option, path]
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def segments(program):
    """Each program header's type and flags."""
    rows = (line.split() for line in readelf("--segments", program).splitlines())
    # Type, offset, two addresses, two sizes, flags of one to three words, alignment.
    return [(row[0], "".join(row[6:-1])) for row in rows if len(row) >= 8 and row[1].startswith("0x")]


def dynamic(program):
    """What each dynamic entry says, in words, by its tag."""
    lines = re.findall(r"^ 0x[0-9a-f]+ \((\w+)\) *(.*)$", readelf("--dynamic", program), re.M)
    return {tag: value.split() for tag, value in lines}


def imports(program):
    """The names, without versions, that shared libraries must bring."""
    return set(re.findall(r" UND (\w+)", readelf("--dyn-syms", program)))


class Program:
    def test_it_is_loaded_anywhere(self):
        self.assertRegex(readelf("--file-header", self.program), r"Type: +DYN ")
        self.assertIn("PIE", dynamic(self.program).get("FLAGS_1", []))

    def test_addresses_of_functions_are_bound_at_the_start_and_cannot_be_changed(self):
        entries = dynamic(self.program)
        self.assertIn(("GNU_RELRO", "R"), segments(self.program))
        self.assertIn("BIND_NOW", entries.get("FLAGS", []))
        self.assertNotIn("TEXTREL", [*entries, *entries.get("FLAGS", [])])

    def test_nothing_that_can_be_written_is_executed_least_of_all_the_stack(self):
        found = segments(self.program)
        self.assertIn(("GNU_STACK", "RW"), found)
        self.assertEqual([kind for kind, flags in found if {"W", "E"} <= set(flags)], [])

    def test_its_libraries_come_from_the_system_alone(self):
        self.assertEqual({"RPATH", "RUNPATH"} & dynamic(self.program).keys(), set())

    def test_overruns_end_it(self):
        names = imports(self.program)
        self.assertTrue({"__stack_chk_fail", "_ZSt21__glibcxx_assert_failPKciS0_S0_"} <= names, names)
        self.assertTrue(any(re.fullmatch(r"__\w+_chk", name) for name in names), names)


class Window(Program, unittest.TestCase):
    program = os.environ["BROOMTIDE"]


class CommandLine(Program, unittest.TestCase):
    program = os.environ["BROOMTIDE_CLI"]


class Libraries(unittest.TestCase):
    """A whole program says so only if the start files of the C library do as well."""

    def test_jumps_and_returns_are_checked_where_the_processor_can(self):
        if not re.search(r"Machine: .*(X86-64|80386)", readelf("--file-header", CommandLine.program)):
            self.skipTest("only such processors check them")
        for library in os.environ["BROOMTIDE_LIBRARIES"].split(":"):
            with self.subTest(library=os.path.basename(library)):
                members = readelf("--notes", library).split("\nFile: ")[1:]
                self.assertNotEqual(members, [])
                self.assertEqual([member.splitlines()[0] for member in members
                                  if "x86 feature: IBT, SHSTK" not in member], [])


if __name__ == "__main__":
    unittest.main(verbosity=2)  # says why a test was skipped
