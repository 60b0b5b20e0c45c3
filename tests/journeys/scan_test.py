"""Scans as people do: odd names, wrong words, signals, terminals.

BROOMTIDE_CLI   the program to test
"""

import json
import os
import re
import signal
import subprocess
import sys
import unicodedata
import unittest

from journey import CLI, PATIENCE, EndlessGit, Journey, on_terminal

sys.path.append(os.path.join(os.path.dirname(__file__), "../oracle"))
import nasty_names  # noqa: E402

INVALID_ROOT = "The selected folder no longer exists or is not a directory."


class Names(Journey):
    """What is shown takes the lines it should and holds nothing that acts."""

    def check_harmless(self, text, lines):
        text = text.decode()  # which fails for what is no UTF-8
        self.assertEqual(text.count("\n"), lines)
        acting = {character for character in text
                  if character != "\n" and unicodedata.category(character) in ("Cc", "Cf", "Zl", "Zp", "Cs")}
        self.assertEqual(acting, set())

    def test_no_argument_can_forge_a_complaint(self):
        together = b"".join(nasty_names.DECEIVING_NAMES)
        for arguments, lines in [
            *((["scan", b"/missing/" + name], 1) for name in nasty_names.DECEIVING_NAMES),
            ([together], 2), (["scan", "--mode", together, "."], 2),
            (["scan", b"--" + together, "."], 2), (["clean", "--yes", "--item", together, self.root], 1),
        ]:
            with self.subTest(arguments=arguments):
                result = self.cli(*arguments)
                self.assertEqual((result.returncode, result.stdout), (lines, b""))
                self.check_harmless(result.stderr, lines)

    def test_no_name_acts_on_a_terminal_while_a_scan_goes_on(self):
        root = os.path.join(os.fsencode(self.root), b"\x1b[2J\r\xc2\x9b31m")
        os.makedirs(root + b"/.next/x")
        with open(root + b"/package.json", "wb"):
            pass
        shown, status = on_terminal(CLI, "scan", root)
        progress, vanished, result = shown.rpartition(b"\r\x1b[K")
        self.assertEqual(status, 0)
        self.assertIn(rb"\x1b[2J\r", progress)  # so the path was shown at least once
        self.assertTrue(vanished and result.startswith(b"\x1b[1;32mSafe to Clean\x1b[0m"), shown)
        own = re.compile(rb"\r\n|\r\x1b\[K|\x1b\[(?:1(?:;3[123])?|[02])m")
        self.assertFalse([byte for byte in own.sub(b"", shown) if byte < 32 or byte == 127], shown)
        self.assertNotIn(b"\xc2\x9b", shown)
        self.assertNotIn(b"\x1b[1;32m", on_terminal(CLI, "scan", root, NO_COLOR="1")[0])


class Surroundings(Journey):
    def setUp(self):
        super().setUp()
        self.write("work/package.json")
        self.write("work/.next/x")

    def test_failures_and_wrong_words_are_told_apart_and_say_why(self):
        self.write("file")
        for arguments, status, words in [
            ([], 2, "Run broomtide-cli --help for more information."),
            (["scna", "."], 2, "'scna'"), (["scan"], 2, "Run broomtide-cli scan --help"), (["scan", ""], 2, "FOLDER"),
            (["scan", "--mode", "2", "."], 2, "--mode"), (["scan", ".", "extra"], 2, "extra"),
            (["scan", "-rf"], 2, "no option '-rf' here. Put -- before a folder"),
            (["scan", self.path("missing")], 1, INVALID_ROOT), (["scan", self.path("file")], 1, INVALID_ROOT),
            (["scan", "x" * 5000], 1, INVALID_ROOT), (["scan", "/"], 1, "Choose a folder below it"),
        ]:
            with self.subTest(arguments=arguments):
                result = self.cli(*arguments)
                self.assertEqual((result.returncode, result.stdout), (status, b""), result.stderr)
                self.assertIn(words, result.stderr.decode())

    def test_an_output_that_cannot_be_written_is_a_failure(self):
        os.mkdir(self.path("empty"))
        for folder, said in [("work", b".next"), ("empty", b"othing")]:
            self.assertIn(said, self.cli("scan", self.path(folder)).stdout)
            with open("/dev/full", "w") as full:
                result = subprocess.run([CLI, "scan", self.path(folder)], stdout=full, stderr=subprocess.PIPE)
            self.assertEqual(result.returncode, 1)
            self.assertIn(b"No space left on device", result.stderr)

    def test_closed_streams_and_ignored_children_change_nothing(self):
        subprocess.run("git init -q && git add -f . && git -c user.name=t -c user.email=t@e.org commit -qm a",
                       shell=True, cwd=self.work, check=True)

        def unusual():
            signal.signal(signal.SIGCHLD, signal.SIG_IGN)
            os.close(0)
            os.close(2)

        result = subprocess.run([CLI, "scan", "--json", self.work], stdout=subprocess.PIPE, timeout=PATIENCE,
                                preexec_fn=unusual)
        self.assertEqual(json.loads(result.stdout)["candidates"], [])  # all of it is tracked

    def test_ctrl_c_ends_a_scan_and_an_endless_git(self):
        os.mkdir(self.path("work/.git"))
        git = EndlessGit(self)
        scan = self.start("scan", self.work, git=self.stubbed_git(git.script))
        self.assertTrue(git.has_started())
        scan.send_signal(signal.SIGINT)
        out, err = scan.communicate(timeout=PATIENCE)
        self.assertEqual((scan.returncode, out), (130, b""))
        self.assertIn(b"Scan cancelled. No files were changed.", err)
        self.assertTrue(git.has_ended(), "a child of the scan is still running")


if __name__ == "__main__":
    unittest.main()
