"""Checks that the benchmark programs write and read what the figures taken with them rest on."""

import os
import resource
import stat
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BIN = Path(os.environ.get("BROOMTIDE_BIN", ROOT / "build/release/bin"))
TREE = BIN / "broomtide-bench-tree"
FLOOR = BIN / "broomtide-bench-floor"
ENGINE = BIN / "broomtide-bench-engine"
PEAK = BIN / "broomtide-bench-peak"
CLI = BIN / "broomtide-cli"
FIGURES = ROOT / "bench/figures"
COMPARE = ROOT / "bench/compare"


def few_descriptors():
    resource.setrlimit(resource.RLIMIT_NOFILE, (256, 256))


def run(*command, **options):
    words = [str(word) for word in command]
    return subprocess.run(words, capture_output=True, text=True, **options)


def contents(root):
    """Every entry below `root`, with what a file holds; without Git's index, which holds times."""
    found = {}
    for folder, folders, files in os.walk(root):
        for name in folders:
            found[os.path.relpath(os.path.join(folder, name), root)] = None
        for name in files:
            path = os.path.join(folder, name)
            if not path.endswith(".git/index"):
                found[os.path.relpath(path, root)] = Path(path).read_bytes()
    return found


class BenchTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.mkdtemp()
        self.addCleanup(run, "rm", "-rf", folder)  # Python's own way gives up on a deep chain
        self.folder = Path(folder) / "tree"

    def generate(self, kind, *options, folder=None):
        result = run(TREE, kind, folder or self.folder, *options)
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def read(self, *options):
        result = run(FLOOR, self.folder, *options, preexec_fn=few_descriptors)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return result.stdout

    def test_repositories_are_clean_but_for_what_building_left(self):
        self.generate("repositories", "--entries", "10000")
        repositories = sorted(self.folder.iterdir())
        self.assertEqual(len(repositories), 2)
        for repository in repositories:
            git = ("git", "-c", "safe.directory=*", "-C", repository)
            self.assertEqual(run(*git, "status", "--porcelain", "--untracked-files=no").stdout, "")
            tracked = run(*git, "ls-files").stdout.splitlines()
            self.assertIn("package.json", tracked)
            self.assertFalse([name for name in tracked if "node_modules" in name])
        nested = list(self.folder.glob("*/node_modules/*/node_modules/*/package.json"))
        self.assertGreater(len(nested), 10)

    def test_seed_decides_the_tree(self):
        other = self.folder.with_name("other")
        another = self.folder.with_name("another")
        self.generate("repositories", "--entries", "2000", "--seed", "7")
        self.generate("repositories", "--entries", "2000", "--seed", "7", folder=other)
        self.generate("repositories", "--entries", "2000", "--seed", "8", folder=another)
        self.assertEqual(contents(self.folder), contents(other))
        self.assertNotEqual(contents(self.folder).keys(), contents(another).keys())

    def test_artefact_folders_hold_three_files(self):
        self.generate("tiny-artefacts", "--entries", "7200")
        caches = list(self.folder.rglob("__pycache__"))
        self.assertEqual(len(caches), 1200)
        self.assertEqual({len(list(cache.iterdir())) for cache in caches}, {3})
        self.assertEqual(len(list(self.folder.glob("*/.git"))), 2)

        plain = self.folder.with_name("plain")
        self.generate("tiny-artefacts", "--entries", "7200", "--without-git", folder=plain)
        self.assertEqual(len(list(plain.iterdir())), 2)
        self.assertEqual(len(list(plain.rglob(".git"))), 0)
        refused = run(TREE, "flat", self.folder.with_name("flat"), "--without-git")
        self.assertEqual(refused.returncode, 2)

    def test_floor_counts_what_there_is(self):
        self.generate("repositories", "--entries", "2000")
        count, total = 0, 0
        for folder, folders, files in os.walk(self.folder):
            count += len(folders) + len(files)
            known = [os.lstat(os.path.join(folder, name)) for name in files]
            total += sum(each.st_blocks * 512 for each in known if stat.S_ISREG(each.st_mode))
        for threads in "1", "2", "8":
            self.assertEqual(self.read("--threads", threads), f"{count} entries, {total} bytes\n")
        self.assertEqual(self.read("--names-only"), f"{count} entries\n")

    def test_floor_reads_a_flat_folder_in_several_batches(self):
        self.generate("flat", "--entries", "20000")
        self.assertEqual(self.read("--names-only"), "20000 entries\n")

    def test_floor_reaches_the_end_of_a_deep_chain(self):
        self.generate("chain")
        self.assertTrue(self.read().startswith("10001 entries, "))
        self.assertNotIn(", 0 bytes", self.read())

    def test_generator_leaves_a_folder_in_use_alone(self):
        self.folder.mkdir()
        (self.folder / "mine").write_text("kept")
        result = run(TREE, "flat", self.folder)
        self.assertEqual(result.returncode, 1)
        self.assertIn("is not empty", result.stderr)
        self.assertEqual([entry.name for entry in self.folder.iterdir()], ["mine"])

    def test_caches_lie_in_every_known_location(self):
        self.generate("caches", "--entries", "1500")
        scanned = run(CLI, "scan", "--mode", "caches", self.folder)
        self.assertEqual((scanned.returncode, scanned.stderr), (0, ""))
        self.assertIn("15 items", scanned.stdout)

    def test_an_artefact_is_one_item_of_a_project(self):
        self.generate("flat", "--entries", "50", "--artefact")
        self.assertEqual(len(list((self.folder / "node_modules").iterdir())), 50)
        scanned = run(CLI, "scan", self.folder)
        self.assertIn("1 item · ", scanned.stdout)

    def test_peak_tells_the_memory_of_a_program_and_its_failure(self):
        small, large = (
            int(run(PEAK, sys.executable, "-c", f"x = b'1' * {size}").stdout)
            for size in (1, 100_000_000)
        )
        self.assertAlmostEqual(large - small, 100_000_000 / 1024, delta=3000)
        self.assertLess(int(run(PEAK, "true").stdout), 5000)
        self.assertIn("false failed with", run(PEAK, "false").stderr)
        self.assertIn("no-such-program", run(PEAK, "no-such-program").stderr)

    def test_engine_takes_times_and_cleans_only_into_its_trash(self):
        for how in "bare", "clean":
            place = self.folder.with_name(how)
            self.generate("tiny-artefacts", "--entries", "600", folder=place / "items")
            trash = place / "trash"
            trash.mkdir()
            result = run(ENGINE, how, place / "items", "--trash", trash)
            self.assertRegex(result.stdout, r"^100 items after \d+\.\d+ s$")
            self.assertEqual(len(list((trash / "files").iterdir())), 100)
            self.assertEqual(len(list((trash / "info").iterdir())), 100)
            self.assertEqual(list((place / "items").rglob("__pycache__")), [])
        self.generate("tiny-artefacts", "--entries", "6000")
        scanned = run(ENGINE, "scan", self.folder)
        self.assertRegex(scanned.stdout, r"^1000 candidates, first after .* s, end after .* s$")
        self.assertRegex(run(ENGINE, "git", self.folder).stdout, r"^1 repositories after")
        cancelled = run(ENGINE, "cancel", self.folder, "--rounds", "20")
        self.assertRegex(cancelled.stdout, r"^\d+ of 20 cancelled, the slowest after")
        self.assertIn("--trash", run(ENGINE, "clean", self.folder).stderr)
        self.assertEqual(len(list(self.folder.rglob("__pycache__"))), 1000)

    def test_figures_fail_when_one_does_not_hold(self):
        result = run(FIGURES, self.folder, "--only", "empty", "--rounds", "1", "--programs", BIN)
        self.assertRegex(result.stdout, r"whole process, ms +\d+\.\d+ +10 +(yes|no)")
        self.assertEqual(result.returncode, 0 if "yes" in result.stdout else 1)
        result = run(FIGURES, self.folder, "--only", "empty", "--programs", self.folder)
        self.assertEqual(result.returncode, 1)
        self.assertIn("not taken", result.stdout)

    def test_compare_prints_a_row_for_each_program(self):
        self.generate("flat", "--entries", "20")
        cli = self.folder.with_name("cli")
        cli.write_text('#!/bin/sh\n[ "$*" = "scan --mode caches $TREE" ]\n')
        cli.chmod(0o755)
        words = [self.folder, "--mode", "caches", "--rounds", "2", "--floor", FLOOR, "--cli", cli]
        words += ["--gdu", "no-such-gdu"]
        result = run(COMPARE, *words, env={**os.environ, "TREE": str(self.folder)})
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        for row in "floor, 2 threads", "floor, names only", "du -s", "broomtide-cli scan":
            self.assertRegex(result.stdout, rf"(?m)^{row}.* \d+\.\d{{3}} +\d+\.\d\d +")
        self.assertIn("no-such-gdu: not installed", result.stdout)

    def test_compare_needs_the_programs_that_are_built_here(self):
        self.folder.mkdir()
        result = run(COMPARE, self.folder, "--floor", FLOOR, "--cli", FLOOR.with_name("none"))
        self.assertEqual(result.returncode, 1)
        self.assertIn("none: not built", result.stderr)

    def test_compare_fails_with_the_scan_and_says_why(self):
        self.folder.mkdir()
        cli = self.folder.with_name("cli")
        cli.write_text("#!/bin/sh\necho the disk is on fire >&2\nexit 1\n")
        cli.chmod(0o755)
        result = run(COMPARE, self.folder, "--rounds", "1", "--floor", FLOOR, "--cli", cli)
        self.assertEqual(result.returncode, 1)
        self.assertIn("the disk is on fire", result.stderr)


if __name__ == "__main__":
    sys.exit(unittest.main())
