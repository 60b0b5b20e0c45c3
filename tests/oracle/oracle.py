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
import re
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

    expected.walk(expected.opened(base), base, [], visit)
    return found


def limit_open_files():
    resource.setrlimit(resource.RLIMIT_NOFILE, (256, resource.getrlimit(resource.RLIMIT_NOFILE)[1]))


expected.before_git = limit_open_files  # Git keeps a descriptor for each level: its answer depends on the limit


def is_in_bundled_repository(path, root):
    """Whether something around is a repository that nobody has asked: those in Xcode bundles are not looked for."""
    folder, bundles = os.path.dirname(path), re.compile(rb"\.(xcodeproj|xcworkspace)(/|$)")
    while bundles.search(folder[len(root):]):
        if os.path.lexists(folder + b"/.git"):
            return True
        folder = os.path.dirname(folder)
    return False


class Round:
    """One tree: scanned, cleaned in part and put back."""

    def __init__(self, cli, seed, base):
        self.cli, self.base, self.mode = cli, base, MODES[seed % len(MODES)]
        self.settings = base + b"/home"
        os.makedirs(self.settings + b"/git")
        with open(self.settings + b"/git/ignore", "wb") as out:
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
            env={**os.environ, "HOME": self.tree.home, "XDG_CONFIG_HOME": self.settings,
                 "XDG_DATA_HOME": self.tree.data, "LC_ALL": "C.UTF-8",
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
                                                          self.tree.working_directory, self.tree.home)
            status, got = self.run_cli("scan")
            require_same(len({uuid.UUID(each.pop("id")) for each in got["issues"]}), len(got["issues"]), "identifiers")
            if got == want or want == last:
                break  # some file systems settle the allocation of fresh files late
        require_same((status, got), (0, want), "the scan")
        return got

    def clean(self, document):
        """Moves some of what was found or what is selected by itself, and puts it back. Counts what was moved."""
        by_item, share = self.random.random() < 0.7, self.random.choice([0.1, 0.5, 1])
        root = os.path.normpath(os.path.join(self.tree.working_directory, self.tree.argument))
        paths, options = {}, []  # of what is to be moved, by how it is told
        for each in document["candidates"]:
            path = urllib.parse.unquote_to_bytes(each["url"].removeprefix("file://"))
            if self.random.random() < share and len(path) < LONG_PATH if by_item else each["isSelected"]:
                paths[each["url"]] = path
                options += [b"--item=" + path[len(root) + 1:]] * by_item
        chosen = [each for each in document["candidates"] if each["url"] in paths]
        moved = [each for each in chosen if self.can_be_moved(each, paths[each["url"]], root)]
        if not moved:
            return 0
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

    @staticmethod
    def can_be_moved(candidate, path, root):
        folders = [os.path.dirname(path)] + [path] * (candidate["kind"] == "directory")  # moving one writes its ".."
        is_doubtful = "Git status could not be verified." in candidate["evidence"] or (
            len(candidate["evidence"]) > 2 and is_in_bundled_repository(path, root))
        is_doubtful = is_doubtful or (candidate["modificationDate"] or "").startswith("2262-04-11T23:47:16")
        return not is_doubtful and all(os.access(folder, os.W_OK) for folder in folders)

    def put_back(self, wanted):
        """Has everything in the Trash go where its information says."""
        origins = []
        for name in os.listdir(self.trash + b"/files"):
            with open(self.trash + b"/info/" + name + b".trashinfo", "rb") as file:
                header, path, _ = file.read().splitlines()
            require_same(header, b"[Trash Info]", "the header of an information file")
            origins.append(urllib.parse.unquote_to_bytes(path.removeprefix(b"Path=")))
            require_same(os.path.lexists(origins[-1]), False, "what stands in the place of what was moved")
            os.rename(self.trash + b"/files/" + name, origins[-1])
        require_same(sorted(origins), sorted(wanted), "what is in the Trash")
        shutil.rmtree(self.tree.data)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--rounds", type=int, default=sys.maxsize)
    parser.add_argument("--seconds", type=int, default=sys.maxsize)
    parser.add_argument("--seed", type=int, default=time.time_ns() // 10**9)
    options = parser.parse_args()
    end = time.monotonic() + options.seconds
    folder = tempfile.mkdtemp(prefix="broomtide-oracle-")
    cli = shutil.copy(os.environ["BROOMTIDE_CLI"], folder)  # a build may be closed to everybody else
    if os.geteuid() == 0:  # who may read everything
        nobody = pwd.getpwnam("nobody")
        os.chown(folder, nobody.pw_uid, nobody.pw_gid)
        os.setgroups([])
        os.setgid(nobody.pw_gid)
        os.setuid(nobody.pw_uid)
    counts = [0, 0]
    for seed in range(options.seed, options.seed + options.rounds):
        base = os.fsencode(os.path.realpath(folder)) + b"/%d" % seed
        try:
            counts = list(map(sum, zip(counts, Round(cli, seed, base).run())))
        except Exception:
            traceback.print_exc()
            sys.exit(f"FAILED: --seed {seed} --rounds 1; kept: {os.fsdecode(base)}")
        shutil.rmtree(base)
        if time.monotonic() > end:
            break
    shutil.rmtree(folder)
    print(f"seeds {options.seed} to {seed}: {counts[0]} items found, {counts[1]} moved and put back")
    sys.exit(options.rounds > 10 and not counts[1])


if __name__ == "__main__":
    main()
