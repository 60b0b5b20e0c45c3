"""Scans random trees with broomtide-cli, compares every field with what expected.py computes, cleans a part, and has
the Trash give everything back.

    oracle.py [--rounds N] [--seconds N] [--seed N]

BROOMTIDE_CLI   the program to test
"""

import argparse
import difflib
import itertools
import json
import os
import pwd
import resource
import shutil
import stat
import subprocess
import sys
import tempfile
import time
import traceback
import urllib.parse
import uuid

import expected
from trees import Tree

MODES = ["project", "downloads", "caches"]
SETTLING = 5  # scans until the sizes of fresh files must be final
LONG_PATH = 4000  # what lies deeper is found, and cannot be named to anybody


class Mismatch(Exception):
    pass


def require_same(found, wanted, what):
    if found != wanted:
        shown = [json.dumps(value, indent=1, default=repr, sort_keys=True).split("\n") for value in (wanted, found)]
        lines = itertools.islice(difflib.unified_diff(*shown, "expected", "found", n=1, lineterm=""), 40)
        raise Mismatch("\n  ".join([what, *(line[:400] for line in lines)]))


def portrait(base):
    """What must stay as it is, of every entry: its identity, mode, size, date and link target."""
    found = {}

    def visit(entry):
        status = entry.attributes()
        target = os.readlink(entry.name, dir_fd=entry.parent) if stat.S_ISLNK(status.st_mode) else None
        found[expected.url(entry.path)] = status.st_ino, status.st_mode, status.st_size, status.st_mtime_ns, target
        return True

    expected.walk(base, [], visit)
    return found


def limit_open_files():
    resource.setrlimit(resource.RLIMIT_NOFILE, (256, resource.getrlimit(resource.RLIMIT_NOFILE)[1]))


expected.before_git = limit_open_files  # Git keeps a descriptor for each level: its answer depends on the limit


class Round:
    """One tree: scanned, cleaned in part and put back."""

    def __init__(self, cli, seed, base):
        self.cli, self.base, self.mode = cli, base, MODES[seed % len(MODES)]
        self.home = base + b"/home"
        os.makedirs(self.home + b"/git")
        with open(self.home + b"/git/ignore", "wb") as out:
            out.write(b"*\n")  # would make Git ignore everything
        os.mkdir(base + b"/trees")
        self.tree = Tree(seed, self.mode, base + b"/trees")
        self.random = self.tree.random
        self.trash = self.tree.data + b"/Trash"

    def run_cli(self, *arguments):
        """The status and the document, with Git settings around that Git must never see."""
        done = subprocess.run(
            [self.cli, *arguments, "--json", "--mode", self.mode, "--", self.tree.argument], capture_output=True,
            cwd=self.tree.working_directory, preexec_fn=limit_open_files, timeout=600, stdin=subprocess.DEVNULL,
            env={**os.environ, "HOME": self.home, "XDG_CONFIG_HOME": self.home, "XDG_DATA_HOME": self.tree.data, "LC_ALL": "C.UTF-8",
                 "GIT_DIR": "/nonexistent", "GIT_INDEX_FILE": "/nonexistent/index", "GIT_WORK_TREE": "/nonexistent"})
        if not done.stdout:
            raise Mismatch(f"status {done.returncode}: {done.stderr.decode(errors='replace')}")
        return done.returncode, json.loads(done.stdout)

    def run(self):
        before = portrait(self.base)
        for path, mode in self.tree.closed:
            os.chmod(path, mode)
        try:
            document = self.scan()
            moved = 0 if self.trash.startswith(self.tree.root + b"/") else self.clean(document)
        finally:
            for path, _ in reversed(self.tree.closed):
                os.chmod(path, before[expected.url(path)][1] & 0o7777)
        require_same(portrait(self.base), before, "not everything is back as it was")
        return len(document["candidates"]), moved

    def scan(self):
        want = None
        for _ in range(SETTLING):
            last, want = want, expected.expected_document(self.tree.argument, self.mode, self.trash,
                                                          self.tree.working_directory)
            status, got = self.run_cli("scan")
            require_same(len({uuid.UUID(each.pop("id")) for each in got["issues"]}), len(got["issues"]), "identifiers")
            if got == want or want == last:
                break  # some file systems settle the allocation of fresh files late
        require_same((status, got), (0, want), "the scan")
        return got

    def clean(self, document):
        """Moves some of what was found or what is selected by itself, and puts it back. Counts what was moved."""
        by_item = self.random.random() < 0.7
        share = self.random.choice([0.1, 0.5, 1])
        chosen = [each for each in document["candidates"] if len(each["url"]) < LONG_PATH and
                  (self.random.random() < share if by_item else each["isSelected"])]
        paths = {each["url"]: urllib.parse.unquote_to_bytes(each["url"].removeprefix("file://")) for each in chosen}
        root = os.path.normpath(os.path.join(self.tree.working_directory, self.tree.argument))
        options = [b"--item=" + paths[each["url"]][len(root) + 1:] for each in chosen] if by_item else []
        if not chosen:
            return 0

        def can_be_moved(candidate):
            if candidate["gitRoot"] and candidate["gitStatus"] == "unavailable":
                return False
            path = paths[candidate["url"]]  # moving a folder writes its ".."
            folders = [os.path.dirname(path)] + [path] * (candidate["kind"] == "directory")
            return all(os.access(folder, os.W_OK) for folder in folders)

        moved = [each for each in chosen if can_be_moved(each)]
        places = {os.path.dirname(paths[each["url"]]) for each in moved}
        dates = {place: os.stat(place).st_mtime_ns for place in places}
        status, result = self.run_cli("clean", "--yes", *options)
        require_same([each["url"] for each in result["moved"]], [each["url"] for each in moved], "what was moved")
        require_same([each["path"] for each in result["failures"]],
                     [each["relativePath"] for each in chosen if each not in moved], "what was left alone")
        require_same((status, result["movedBytes"]),
                     (0 if moved == chosen else 3, sum(each["size"] for each in moved)), "status and bytes")
        self.put_back({os.path.realpath(os.path.dirname(path)) + b"/" + os.path.basename(path)
                       for path in (paths[each["url"]] for each in moved)})
        for place, date in dates.items():
            os.utime(place, ns=(date, date))
        return len(moved)

    def put_back(self, wanted):
        """Has everything in the Trash go where its information says."""
        origins = set()
        for name in os.listdir(self.trash + b"/info") if wanted else []:
            with open(self.trash + b"/info/" + name, "rb") as file:
                header, path, _ = file.read().splitlines()
            require_same(header, b"[Trash Info]", "the header of an information file")
            origin = urllib.parse.unquote_to_bytes(path.removeprefix(b"Path="))
            origins.add(origin)
            require_same(os.path.lexists(origin), False, "what stands in the place of what was moved")
            os.rename(self.trash + b"/files/" + name.removesuffix(b".trashinfo"), origin)
        require_same(sorted(origins), sorted(wanted), "what is in the Trash")
        require_same(os.listdir(self.trash + b"/files") if wanted else [], [], "without information in the Trash")
        shutil.rmtree(self.tree.data, ignore_errors=True)


def become_nobody(folder):
    """Root may read everything, so its rounds are those of nobody."""
    user = pwd.getpwnam("nobody")
    os.chown(folder, user.pw_uid, user.pw_gid)
    os.setgroups([])
    os.setgid(user.pw_gid)
    os.setuid(user.pw_uid)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--rounds", type=int, default=sys.maxsize)
    parser.add_argument("--seconds", type=int, default=sys.maxsize)
    parser.add_argument("--seed", type=int, default=time.time_ns() // 10**9)
    options = parser.parse_args()
    folder = tempfile.mkdtemp(prefix="broomtide-oracle-")
    cli = shutil.copy(os.environ["BROOMTIDE_CLI"], folder)  # a build may be closed to everybody else
    if os.geteuid() == 0:
        become_nobody(folder)
    rounds = found = moved = 0
    end = time.monotonic() + options.seconds
    while rounds < options.rounds and time.monotonic() < end:
        base = os.fsencode(os.path.realpath(folder)) + b"/%d" % (options.seed + rounds)
        try:
            counts = Round(cli, options.seed + rounds, base).run()
        except Exception as failure:
            reason = failure if isinstance(failure, Mismatch) else traceback.format_exc()
            sys.exit(f"FAILED: --seed {options.seed + rounds} --rounds 1, in {os.fsdecode(base)}: {reason}")
        shutil.rmtree(base)
        rounds, found, moved = rounds + 1, found + counts[0], moved + counts[1]
    shutil.rmtree(folder)
    print(f"{rounds} rounds from seed {options.seed}: {found} items found, {moved} moved and put back")
    if rounds > 3 and not moved:
        sys.exit("nothing was moved in all these rounds")


if __name__ == "__main__":
    main()
