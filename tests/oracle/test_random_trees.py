"""Scans random trees with broomtide-cli and compares every field with what the oracle computes.

BROOMTIDE_CLI   the program to test
ORACLE_TREES    how many trees (60), in turn for the three modes
ORACLE_SEED     the first seed (1)
ORACLE_KEEP     when set, the trees of failed comparisons stay
"""

import concurrent.futures
import json
import os
import pickle
import pwd
import re
import resource
import shutil
import stat
import subprocess
import sys
import tempfile
import traceback
import unittest

import expected
import random_tree

MODES = ["project", "downloads", "caches"]
SHOWN_DIFFERENCES = 12
OPEN_FILES = 256
UUID = re.compile(r"[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}")


# --- Running as another user


def call_as(user, function, *arguments):
    """The value of the function, computed in a child process that belongs to the user (None: ourselves)."""
    if user is None:
        return function(*arguments)
    reader, writer = os.pipe()
    child = os.fork()
    if child == 0:
        try:
            os.close(reader)
            os.setgroups([])
            os.setgid(user.pw_gid)
            os.setuid(user.pw_uid)
            answer = (True, function(*arguments))
        except BaseException:
            answer = (False, traceback.format_exc())
        with os.fdopen(writer, "wb") as out:
            pickle.dump(answer, out)
        os._exit(0)
    os.close(writer)
    with os.fdopen(reader, "rb") as source:
        answer = source.read()
    os.waitpid(child, 0)
    if not answer:
        raise RuntimeError("the child process ended without an answer")
    worked, value = pickle.loads(answer)
    if not worked:
        raise RuntimeError(value)
    return value


def chown_tree(base, user):
    def give(path):
        os.chown(path, user.pw_uid, user.pw_gid, follow_symlinks=False)

    give(base)
    for _, _, _, folder_fd in os.fwalk(base):
        for entry in os.scandir(folder_fd):
            os.chown(entry.name, user.pw_uid, user.pw_gid, dir_fd=folder_fd, follow_symlinks=False)


# --- One comparison


def cli_environment(home, data):
    """Git settings that Broomtide must keep from Git, and a home folder in which nothing may appear."""
    environment = {key: value for key, value in os.environ.items() if key != "DEVELOPER_DIR"}
    environment.update(
        HOME=home, XDG_DATA_HOME=os.fsdecode(data), XDG_CONFIG_HOME=home + "/config", LC_ALL="C.UTF-8",
        GIT_DIR="/nonexistent", GIT_INDEX_FILE="/nonexistent/index", GIT_WORK_TREE="/nonexistent",
    )
    return environment


def make_home(base):
    """Its Git configuration would make Git ignore everything."""
    home = base + "/home"
    os.makedirs(home + "/config/git")
    with open(home + "/config/git/ignore", "w") as out:
        out.write("*\n")
    with open(home + "/.gitconfig", "w") as out:
        out.write(f"[core]\n\texcludesFile = {home}/config/git/ignore\n")
    return home


def limit_open_files():
    _, hard = resource.getrlimit(resource.RLIMIT_NOFILE)
    resource.setrlimit(resource.RLIMIT_NOFILE, (OPEN_FILES, hard))


expected.before_git = limit_open_files  # Git keeps a descriptor per level: its own answer depends on the limit


def scan(cli, mode, tree, home):
    done = subprocess.run(
        [cli, "scan", "--json", "--mode", mode, tree.argument],
        cwd=tree.working_directory, env=cli_environment(home, tree.data), preexec_fn=limit_open_files, timeout=120,
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
    )
    return done.returncode, done.stdout, done.stderr


def without_issue_ids(document):
    """Takes the random identifiers out of the document; returns complaints about them."""
    issues = document.get("issues") if isinstance(document, dict) else None
    if not isinstance(issues, list) or not all(isinstance(issue, dict) for issue in issues):
        return []
    identifiers = [issue.pop("id", None) for issue in issues]
    complaints = [f"issue id {identifier!r} is no UUID" for identifier in identifiers
                  if not isinstance(identifier, str) or not UUID.fullmatch(identifier)]
    if len(set(map(str, identifiers))) != len(identifiers):
        complaints.append("two issues share an id")
    return complaints


def label(value):
    return value.get("id") or value.get("path") or value.get("root") if isinstance(value, dict) else value


def shortened(line):
    return line if len(line) <= 400 else f"{line[:200]} [...] {line[-200:]}"


def differences(want, got, where=""):
    """Readable lines, one for each place where the documents differ."""
    if type(want) is not type(got):
        yield f"{where}: expected {want!r}, got {got!r}"
    elif isinstance(want, dict):
        for key in want.keys() | got.keys():
            if key not in got or key not in want:
                yield f"{where}.{key}: {'missing' if key in want else 'not expected'}"
        for key in want:
            if key in got:
                yield from differences(want[key], got[key], f"{where}.{key}")
    elif isinstance(want, list):
        wanted, gotten = [repr(label(item)) for item in want], [repr(label(item)) for item in got]
        pairs = list(zip(want, got))
        if wanted != gotten:
            first = next((n for n in range(len(pairs)) if wanted[n] != gotten[n]), len(pairs))
            yield f"{where}: {len(want)} expected, {len(got)} got; they part at number {first}:"
            for name, labels in (("expected", wanted), ("got", gotten)):
                yield f"    {name}: {labels[first] if first < len(labels) else 'nothing more'}"
            yield from (f"    missing: {name}" for name in wanted if name not in gotten)
            yield from (f"    not expected: {name}" for name in gotten if name not in wanted)
            by_label = dict(zip(gotten, got))
            pairs = [(item, by_label[name]) for name, item in zip(wanted, want) if name in by_label]
        for one, other in pairs:
            yield from differences(one, other, f"{where}[{label(one)!r}]")
    elif want != got:
        yield f"{where}: expected {want!r}, got {got!r}"


def portrait(base):
    """What a scan must leave as it is: of every entry its name, identity, mode, size, times and link target."""
    found = {}

    def visit(entry):
        status = entry.attributes()
        target = os.readlink(entry.name, dir_fd=entry.parent_fd) if stat.S_ISLNK(status.st_mode) else None
        found[entry.path] = (status.st_ino, status.st_mode, status.st_size, status.st_mtime_ns, target)
        return True

    expected.walk(base, [], visit)
    return found


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
    found = list(differences(want, got))
    if found:
        # Some file systems settle the allocation of fresh files late; only then the answer may change.
        again = call_as(user, *question)
        if again != want:
            status, output, errors = call_as(user, scan, cli, mode, tree, home)
            got = json.loads(output)
            problems += without_issue_ids(got)
            found = list(differences(again, got))
    return problems + found


def remove(base, tree):
    for path, _ in sorted(tree.unreadable) if tree else []:
        os.chmod(path, 0o700)
    shutil.rmtree(base)


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
            except RuntimeError as error:
                skip(f"the user nobody cannot run a program in {reachable}: {error}")
            self.run_cases([(cli, mode, seed, True, user) for mode, seed in cases])


if __name__ == "__main__":
    unittest.main()
