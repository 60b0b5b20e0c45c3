"""Scans random trees with broomtide-cli and compares every field with what the oracle computes.

BROOMTIDE_CLI   the program to test
ORACLE_TREES    how many trees (60), in turn for the three modes
ORACLE_SEED     the first seed (1)
ORACLE_KEEP     when set, the trees of failed comparisons stay
"""

import concurrent.futures
import json
import os
import pwd
import shutil
import subprocess
import sys
import tempfile
import traceback
import unittest

import expected
import random_tree
from comparing import (cli_environment, differences, limit_open_files, make_home, portrait, remove, shortened,
                       without_issue_ids)

MODES = ["project", "downloads", "caches"]
SHOWN_DIFFERENCES = 12


# --- Running as another user


def become(user):
    os.setgroups([])
    os.setgid(user.pw_gid)
    os.setuid(user.pw_uid)


def call_as(user, function, *arguments):
    """The value of the function, computed in a child process that belongs to the user (None: ourselves)."""
    if user is None:
        return function(*arguments)
    with concurrent.futures.ProcessPoolExecutor(1, initializer=become, initargs=(user,)) as child:
        return child.submit(function, *arguments).result()


def chown_tree(base, user):
    os.chown(base, user.pw_uid, user.pw_gid)
    for _, folders, files, folder_fd in os.fwalk(base):
        for name in folders + files:
            os.chown(name, user.pw_uid, user.pw_gid, dir_fd=folder_fd, follow_symlinks=False)


# --- One comparison


def scan(cli, mode, tree, home):
    done = subprocess.run(
        [cli, "scan", "--json", "--mode", mode, tree.argument],
        cwd=tree.working_directory, env=cli_environment(home, tree.data), preexec_fn=limit_open_files, timeout=120,
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
    )
    return done.returncode, done.stdout, done.stderr


def compare(cli, mode, tree, base, home, user):
    """Scans one built tree; returns the lines that describe what is wrong."""
    for path, permissions in sorted(tree.unreadable, reverse=True):  # inner folders first
        os.chmod(path, permissions)
    before = portrait(base)
    question = (expected.expected_document, tree.argument, mode, tree.working_directory, None, tree.data + b"/Trash")
    want = call_as(user, *question)
    status, output, errors = call_as(user, scan, cli, mode, tree, home)
    after = portrait(base)
    problems = [f"the scan changed {path!r}: {before.get(path)} became {after.get(path)}"
                for path in before.keys() | after.keys() if before.get(path) != after.get(path)]
    if status != 0:
        return problems + [f"exit status {status}: {errors.decode(errors='replace')}"]
    try:
        got = json.loads(output)
    except ValueError as error:
        return problems + [f"no JSON document: {error}: {output[:200]!r}"]
    problems += without_issue_ids(got)
    found = differences(want, got)
    if found:
        # Some file systems settle the allocation of fresh files late; only then the answer may change.
        again = call_as(user, *question)
        if again != want:
            status, output, errors = call_as(user, scan, cli, mode, tree, home)
            got = json.loads(output)
            problems += without_issue_ids(got)
            found = differences(again, got)
    return problems + found


def run_case(cli, mode, seed, unreadable, user):
    """Builds, scans and removes one tree; returns a report, empty when all is well."""
    base = os.path.realpath(tempfile.mkdtemp(prefix=f"broomtide-{mode}-{seed}-"))
    tree, problems = None, ["the tree could not be built"]
    try:
        os.chmod(base, 0o755)
        home = make_home(base)
        os.mkdir(base + "/trees")
        trees = os.fsencode(base + "/trees")
        tree = random_tree.build_tree(seed, mode, trees, unreadable)
        if user is not None:
            chown_tree(os.fsencode(base), user)
        problems = compare(cli, mode, tree, os.fsencode(base), home, user)
    except Exception:
        problems = [traceback.format_exc()]
    finally:
        kept = bool(problems and os.environ.get("ORACLE_KEEP"))
        if not kept:
            remove(base, tree)
    if not problems:
        return ""
    head = f"\nseed {seed}, mode {mode}{', unreadable folders' if unreadable else ''}"
    if tree is not None:
        head += f", argument {tree.argument!r} in {tree.working_directory!r}"
    if kept:
        head += f"\nkept: {base}"
    if len(problems) > SHOWN_DIFFERENCES:
        problems[SHOWN_DIFFERENCES:] = [f"... and {len(problems) - SHOWN_DIFFERENCES} more"]
    return "\n".join([head, *map(shortened, problems)])


# --- The tests


def skip(reason):
    print(f"skipped: {reason}", file=sys.stderr)
    raise unittest.SkipTest(reason)


class RandomTrees(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        named = os.environ.get("BROOMTIDE_CLI")
        if not named:
            skip("BROOMTIDE_CLI names no program to compare with")
        if not os.access(named, os.X_OK):
            raise RuntimeError(f"BROOMTIDE_CLI={named} cannot be run")
        cls.cli = os.path.abspath(named)
        cls.trees = int(os.environ.get("ORACLE_TREES", "60"))
        cls.first_seed = int(os.environ.get("ORACLE_SEED", "1"))

    def run_cases(self, cases):
        workers = min(8, len(os.sched_getaffinity(0)))
        with concurrent.futures.ProcessPoolExecutor(workers) as pool:
            running = [pool.submit(run_case, *case) for case in cases]
            reports = [future.result() for future in running]
        failed = [report for report in reports if report]
        if failed:
            self.fail(f"{len(failed)} of {len(cases)} trees differ\n" + "\n".join(failed))

    def test_every_field_of_a_scan(self):
        self.run_cases([
            (self.cli, MODES[number % 3], self.first_seed + number // 3, False, None) for number in range(self.trees)
        ])

    def test_folders_that_may_not_be_read(self):
        cases = [(MODES[number % 3], self.first_seed + number // 3) for number in range(max(3, self.trees // 4))]
        if os.geteuid() != 0:
            self.run_cases([(self.cli, mode, seed, True, None) for mode, seed in cases])
            return
        try:
            user = pwd.getpwnam("nobody")
        except KeyError:
            skip("root may read everything and there is no user nobody")
        with tempfile.TemporaryDirectory(prefix="broomtide-cli-") as reachable:
            os.chmod(reachable, 0o755)
            cli = shutil.copy(self.cli, reachable)
            try:
                call_as(user, subprocess.check_output, [cli, "--version"])
            except (OSError, subprocess.SubprocessError) as error:
                skip(f"the user nobody cannot run a program in {reachable}: {error}")
            self.run_cases([(cli, mode, seed, True, user) for mode, seed in cases])


if __name__ == "__main__":
    unittest.main()
