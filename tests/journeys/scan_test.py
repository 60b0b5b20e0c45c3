"""Runs broomtide-cli as people do: odd folders, odd names, signals, terminals.

BROOMTIDE_CLI   the program to test
"""

import json
import os
import pwd
import re
import resource
import shutil
import signal
import subprocess
import sys
import unicodedata
import unittest
import urllib.parse

from journey import CLI, EndlessGit, Journey, environment, on_terminal

sys.path.append(os.path.join(os.path.dirname(__file__), "../oracle"))
import nasty_names  # noqa: E402

INVALID_ROOT = "The selected folder no longer exists or is not a directory."
PERMISSION_DENIED = (
    "Broomtide does not have permission to access this folder. "
    "Choose it again or grant access in macOS Settings."
)


class Folders(Journey):
    def test_refusals_name_the_folder_and_the_reason(self):
        self.write("file")
        os.symlink("nowhere", self.path("dangling"))
        for folder in ["missing", "file", "file/below", "dangling", "x" * 5000]:
            for mode in ["project", "caches", "downloads"]:
                result = self.scan("--mode", mode, self.path(folder))
                self.assertEqual((result.returncode, result.stdout), (1, b""), folder)
                self.assertIn(INVALID_ROOT, result.stderr.decode())
        result = self.scan("/")
        self.assertEqual(result.returncode, 1)
        self.assertIn("Choose a folder below it", result.stderr.decode())

    def test_a_working_folder_that_is_gone_is_a_failure(self):
        gone = self.path("gone")
        os.mkdir(gone)

        def lose_working_folder():
            os.chdir(gone)
            os.rmdir(gone)

        result = self.scan("anything", preexec_fn=lose_working_folder)
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertIn(b"No such file or directory", result.stderr)

    def test_a_folder_that_may_not_be_read_is_refused(self):
        folder, program, user = self.path("closed"), CLI, {}
        os.mkdir(folder, 0o300)
        if os.getuid() == 0:
            nobody = pwd.getpwnam("nobody")
            user = {"user": nobody.pw_uid, "group": nobody.pw_gid}
            os.chown(folder, nobody.pw_uid, nobody.pw_gid)
            os.chmod(self.root, 0o755)
            program = shutil.copy(CLI, self.path("cli"))  # a build may be closed to everybody else
        result = subprocess.run([program, "scan", "--json", folder], capture_output=True, timeout=60, **user)
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertIn(PERMISSION_DENIED, result.stderr.decode())


class Names(Journey):
    """What is shown takes the lines it should and holds nothing that acts, and JSON tells each byte."""

    NAMES = sorted({*nasty_names.DECEIVING_NAMES, *nasty_names.ODD_NAMES})

    def plant(self):
        """A project for each name, with one artefact, below a folder that is no better."""
        root = os.path.join(os.fsencode(self.root), nasty_names.DECEIVING_NAMES[0])
        for name in self.NAMES:
            os.makedirs(os.path.join(root, name, b".next", name))
            with open(os.path.join(root, name, b"package.json"), "wb"):
                pass
        return root

    def check_harmless(self, text, lines):
        text = text.decode()  # which fails for what is no UTF-8
        self.assertEqual(text.count("\n"), lines)
        acting = {character for character in text
                  if character != "\n" and unicodedata.category(character) in ("Cc", "Cf", "Zl", "Zp", "Cs")}
        self.assertEqual(acting, set())

    def test_no_name_can_forge_output(self):
        root = self.plant()
        items = [os.path.join(name, b".next") for name in self.NAMES]
        self.check_harmless(self.scan(root).stdout, 1 + len(items) + 1 + 2)
        details = self.scan("--details", root).stdout.decode()
        self.check_harmless(details.encode(), details.count("\n"))
        self.assertIn(r"a\nSafe to Clean · 9 items/.next", details)
        document = self.document(root)
        self.assertEqual(urllib.parse.unquote_to_bytes(document["root"]), b"file://" + root)
        self.assertEqual(
            sorted((urllib.parse.unquote_to_bytes(item["url"]), item["relativePath"]) for item in document["candidates"]),
            [(b"file://" + root + b"/" + item, item.decode("utf-8", "replace")) for item in sorted(items)])
        roots = {urllib.parse.unquote_to_bytes(project["root"]) for project in document["projects"]}
        self.assertEqual(roots, {b"file://" + root + b"/" + name for name in self.NAMES})

    def test_no_name_can_forge_a_cleanup(self):
        root = self.plant()
        env = environment(XDG_DATA_HOME=self.path("data"))

        def run(*arguments):
            return subprocess.run([CLI, *arguments], capture_output=True, timeout=120, env=env)

        shown = run("clean", "--yes", "--dry-run", root).stdout
        self.check_harmless(shown, 1 + len(self.NAMES) + 1 + 2)
        document = json.loads(run("clean", "--yes", "--json", root).stdout)
        self.assertEqual(sorted(urllib.parse.unquote_to_bytes(item["url"]) for item in document["moved"]),
                         sorted(b"file://" + os.path.join(root, name, b".next") for name in self.NAMES))
        self.check_harmless(run("history").stdout, 1)
        self.assertEqual(json.loads(run("history", "--json").stdout)[0]["rootPath"], root.decode())

    def test_no_argument_can_forge_a_complaint(self):
        for name in nasty_names.DECEIVING_NAMES:
            for arguments, lines in [
                ([name], 2), (["scan", b"/missing/" + name], 1), (["scan", "--mode", name, "."], 2),
                (["scan", ".", name], 2), (["scan", b"--" + name, "."], 2), (["scan", b"--json=" + name, "."], 2),
                (["clean", "--yes", "--item", name, self.root], 1), (["history", name], 2),
            ]:
                with self.subTest(arguments=arguments):
                    result = subprocess.run([CLI, *arguments], capture_output=True, timeout=60, env=environment())
                    self.assertIn(result.returncode, (1, 2))
                    self.assertEqual(result.stdout, b"")
                    self.check_harmless(result.stderr, lines)


class Sizes(Journey):
    @staticmethod
    def few_files():
        resource.setrlimit(resource.RLIMIT_NOFILE, (256, 256))

    def test_ten_thousand_levels_with_few_open_files(self):
        self.write("package.json")
        os.makedirs(self.path("node_modules"))
        subprocess.run(
            ["sh", "-c", "i=0; while [ $i -lt 100 ]; do p=$p/l; i=$((i+1)); done;"
             "i=0; while [ $i -lt 100 ]; do mkdir -p .$p && cd -P .$p && echo x > f || exit 1; i=$((i+1)); done"],
            cwd=self.path("node_modules"), check=True,
        )
        document = self.document(self.root, preexec_fn=self.few_files)
        self.assertEqual(document["entriesScanned"], 2 + 2 + 10_000 + 100)
        self.assertEqual((document["candidates"][0]["size"], document["issues"]), (100 * 4096, []))
        # The same chain again, now walked instead of measured.
        os.rename(self.path("node_modules"), self.path("sources"))
        document = self.document(self.root, preexec_fn=self.few_files)
        self.assertEqual(document["entriesScanned"], 2 * (2 + 10_000 + 100))
        self.assertEqual(document["issues"], [])

    def test_a_flat_folder_of_two_hundred_thousand_files(self):
        os.makedirs(self.path("flat"))
        folder = os.open(self.path("flat"), os.O_RDONLY)
        for number in range(200_000):
            os.close(os.open(f"{number}.pdf" if number % 1000 == 0 else str(number),
                             os.O_CREAT | os.O_WRONLY, dir_fd=folder))
        os.close(folder)
        document = self.document("--mode", "downloads", self.path("flat"), preexec_fn=self.few_files)
        self.assertEqual(document["entriesScanned"], 200_000)
        self.assertEqual(len(document["candidates"]), 200)


class Git(Journey):
    def setUp(self):
        super().setUp()
        self.write("app/package.json")
        self.write("app/.next/x", "x")
        os.makedirs(self.path("app/.git"))

    def test_closed_streams_and_ignored_children_change_nothing(self):
        shutil.rmtree(self.path("app/.git"))
        subprocess.run("git init -q && git add -f . && git -c user.name=t -c user.email=t@e.org commit -qm a",
                       shell=True, cwd=self.path("app"), check=True)
        self.assertEqual(self.paths(self.path("app")), [])  # all of it is tracked

        def unusual():
            signal.signal(signal.SIGCHLD, signal.SIG_IGN)
            os.close(0)
            os.close(2)

        result = subprocess.run([CLI, "scan", "--json", self.path("app")], stdout=subprocess.PIPE,
                                timeout=60, preexec_fn=unusual)
        self.assertEqual(json.loads(result.stdout)["candidates"], [])

    def test_interrupting_an_endless_git_leaves_no_child_behind(self):
        git = EndlessGit(self)
        scan = subprocess.Popen(
            [CLI, "scan", self.path("app")], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            env=self.stubbed_git(git.script),
        )
        self.assertTrue(git.has_started())
        scan.send_signal(signal.SIGINT)
        out, err = scan.communicate(timeout=30)
        self.assertEqual((scan.returncode, out), (130, b""))
        self.assertIn(b"Scan cancelled. No files were changed.", err)
        self.assertTrue(git.has_ended(), "a child of the scan is still running")


class Usage(Journey):
    def run_cli(self, *arguments):
        return subprocess.run([CLI, *arguments], capture_output=True, timeout=60, text=True)

    def test_wrong_usage_is_told_apart_from_failure(self):
        for arguments in [
            [], ["scan"], ["scan", ""], ["bogus"], ["scan", "--mode", "everything", "."],
            ["scan", "--mode", "2", "."],
            ["scan", "--sort", "colour", "."], ["scan", ".", "extra"], ["scan", "--unknown", "."],
        ]:
            result = self.run_cli(*arguments)
            self.assertEqual((result.returncode, result.stdout), (2, ""), arguments)
            command = " scan" if "scan" in arguments else ""
            self.assertIn(f"\nRun broomtide-cli{command} --help for more information.\n", result.stderr)
        self.assertIn("no command or option 'scna\\x1b'", self.run_cli("scna\x1b", ".").stderr)
        self.assertIn("no option '-rf' here. Put -- before a folder", self.run_cli("scan", "-rf").stderr)
        self.assertRegex(self.run_cli("history", "-n").stderr, r"no option '-n' here\.\nRun")
        for arguments in [["--help"], ["scan", "--help"], ["--version"]]:
            result = self.run_cli(*arguments)
            self.assertEqual((result.returncode, result.stderr), (0, ""), arguments)
            self.assertIn("broomtide-cli", result.stdout)

    def test_an_output_that_cannot_be_written_is_a_failure(self):
        with open("/dev/full", "w") as full:
            result = subprocess.run([CLI, "scan", self.root], stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"No space left on device", result.stderr)

    def test_a_terminal_gets_colours_and_a_progress_line_that_vanishes(self):
        self.write("package.json")
        self.write(".next/x", "x")
        for name in nasty_names.DECEIVING_NAMES:
            os.makedirs(os.path.join(os.fsencode(self.root), b"\x1b[2J\r" + name, b"below"))

        shown, status = on_terminal(CLI, "scan", self.root)
        self.assertEqual(status, 0)
        self.assertIn(b" scanned \xc2\xb7 ", shown)
        self.assertIn(b"\r\x1b[K\x1b[1;32mSafe to Clean\x1b[0m", shown)
        self.assertNotIn(b"\x1b[1;32m", on_terminal(CLI, "scan", self.root, NO_COLOR="1")[0])
        self.assertNotIn(b"\x1b", self.scan(self.root).stdout)
        own = re.compile(rb"\r\n|\r\x1b\[K|\x1b\[(?:1(?:;3[123])?|[02])m")
        self.assertFalse([byte for byte in own.sub(b"", shown) if byte < 32 or byte == 127], shown)


if __name__ == "__main__":
    unittest.main()
