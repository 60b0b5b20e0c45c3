"""Scans, cleans and puts back random trees, again and again in one process.

    soak.py --program BROOMTIDE_SOAK [--seconds N] [--rounds N] [--seed N] [--from N]

Each round is compared with the oracle and with what was there before, and the process must not hold
more and more of the system. A failure names its seed and round and keeps the tree.
"""

import argparse
import collections
import contextlib
import json
import os
import pwd
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import traceback
import urllib.parse

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "oracle"))

import expected
import random_tree
from comparing import cli_environment, differences, limit_open_files, make_home, portrait, remove, without_issue_ids
from disturbances import CHANGES_OF_GIT, DISTURBANCES, Item, refusal

MODES = ["project", "caches", "downloads", "project"]
LONG_HISTORY = 50
LONG_PATH = 4000  # what lies deeper is found, and cannot be named to anybody
SETTLING = 5  # scans until the sizes of fresh files must be final


class Mismatch(Exception):
    pass


def require_same(found, wanted, what):
    if found != wanted:
        lines = list(differences(wanted, found))[:12] if type(found) is type(wanted) else []
        raise Mismatch("\n  ".join([what, *lines] if lines else [what, f"found {found!r}", f"wanted {wanted!r}"]))


class Desk:
    """The program under test, with one session for all rounds."""

    def __init__(self, program, environment):
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, env=environment,
                                        preexec_fn=limit_open_files)

    def ask(self, *fields):
        self.process.stdin.write(b"".join(field + b"\0" for field in fields))
        self.process.stdin.flush()
        answer = b""
        while not answer.endswith(b"\0"):
            piece = self.process.stdout.read1()
            if not piece:
                raise Mismatch(f"the program ended with status {self.process.wait()}")
            answer += piece
        return json.loads(answer[:-1])

    def close(self):
        self.process.stdin.close()
        return self.process.wait()


class Growth:
    """Whether an amount of memory rises from round to round: the lowest of the last readings against the highest
    of the last ones of the warm-up, because single readings are higher after a round with many items."""

    WARM_UP, TOGETHER = 40, 20

    def __init__(self, first, most):
        self.first, self.most, self.count = first, most, 1
        self.readings = collections.deque([first], self.TOGETHER)

    def add(self, reading):
        self.count += 1
        self.readings.append(reading)
        if self.count == self.WARM_UP:
            self.first = max(self.readings)
        if self.is_judged() and min(self.readings) > self.first + self.most:
            raise Mismatch(f"memory has risen from {self.first} to {min(self.readings)} bytes")

    def is_judged(self):
        return self.count >= self.WARM_UP + self.TOGETHER

    def __str__(self):
        return f"{self.first / 1e6:.2f} -> {self.readings[-1] / 1e6:.2f} MB"


class Footprint:
    """What the process holds of the system, from the first round to the last."""

    def __init__(self, desk):
        self.desk = desk
        self.first = self.last = desk.ask(b"footprint")
        may_grow = {"heap": 256 << 10, "resident": 4 << 20}
        self.memory = {name: Growth(self.first[name], most) for name, most in may_grow.items() if name in self.first}

    def held(self):
        self.last = self.desk.ask(b"footprint")
        return {name: count for name, count in self.last.items()
                if name not in self.memory and count > self.first[name]}

    def after_round(self):
        deadline = time.monotonic() + 5
        while self.held() and time.monotonic() < deadline:
            pass  # a thread has something to do yet after its last message
        require_same(self.held(), {}, "more is held than before the first round")
        for name, growth in self.memory.items():
            growth.add(self.last[name])

    def __str__(self):
        memory = [f"{name} {growth}" for name, growth in self.memory.items()]
        return ", ".join([f"{self.last['descriptors']} descriptors", f"{self.last['threads']} threads", *memory])

    def judgement(self):
        is_judged = self.memory and all(growth.is_judged() for growth in self.memory.values())
        return "memory stays the same" if is_judged else "memory not judged: sanitizers, or too few rounds"


class Round:
    """One tree: scanned, disturbed, cleaned in part and put back."""

    def __init__(self, soak, number):
        self.soak, self.desk, self.counts = soak, soak.desk, soak.counts
        self.random = random.Random(f"soak {soak.seed} {number}")
        self.mode = MODES[number % len(MODES)]
        self.base = os.fsencode(soak.folder) + b"/round %d" % number
        self.tree = None

    def run(self):
        os.mkdir(self.base)
        self.tree = random_tree.build_tree(f"{self.soak.seed} {self.random.random()}", self.mode, self.base,
                                           self.random.random() < 0.25)
        for path, permissions in sorted(self.tree.unreadable, reverse=True):  # inner folders first
            os.chmod(path, permissions)
        linked = self.tree.argument == b"link to root"
        self.root = self.base + b"/" + self.tree.argument if linked else self.tree.root
        before = portrait(self.base)
        candidates = self.scan()["candidates"]
        require_same(portrait(self.base), before, "the scan has changed something")
        self.counts["candidates"] += len(candidates)
        share = self.random.choice([0.1, 0.4, 0.8, 1])
        selected = [Item(candidate, self.root) for candidate in candidates
                    if self.random.random() < share and len(candidate["url"]) < LONG_PATH]
        if selected:
            self.clean(selected)

    def scan(self):
        """What the program finds, after it was compared with what the oracle finds."""
        want = None
        for _ in range(SETTLING):
            last, want = want, expected.expected_document(self.root, self.mode, home_trash=self.soak.trash)
            got = self.desk.ask(b"scan", self.mode.encode(), self.root)
            complaints = without_issue_ids(got) + list(differences(want, got))
            if not complaints or want == last:
                break
        if complaints:
            raise Mismatch("\n  ".join(complaints[:12]))
        return got

    def clean(self, selected):
        in_projects = self.mode == "project"
        repositories = expected.discover(self.root, self.soak.trash).git_roots if in_projects else []
        ignored = [item for item in selected if item.was_ignored]
        for _ in range(self.random.randrange(8)):
            disturb = self.random.choice(DISTURBANCES)
            victim = self.random.choice(disturb in CHANGES_OF_GIT and ignored or selected)
            with contextlib.suppress(OSError):  # permissions are in the way, or it is not there any more
                disturb(victim, self.base + b"/aside %d" % self.random.getrandbits(30))
        snapshots = expected.snapshots_around(self.root, repositories) if in_projects else {}
        refusals = {item.relative: refusal(item, self.root, snapshots) for item in selected}
        moved = [item for item in selected if refusals[item.relative] is None]
        refused = [item for item in selected if refusals[item.relative] is not None]
        places = {os.path.realpath(os.path.dirname(item.path)) for item in moved}
        dates = {place: os.stat(place).st_mtime_ns for place in places}
        before = portrait(self.base)
        result = self.desk.ask(b"clean", b"%d" % len(selected), *[item.relative for item in selected])
        failures = [{"path": expected.text(item.relative), "message": refusals[item.relative]} for item in refused]
        found = [{"path": failure["path"], "message": failure["message"]} for failure in result["failures"]]
        require_same(found, failures, "what was left alone")
        require_same([item["id"] for item in result["moved"]], [expected.text(item.relative) for item in moved],
                     "what was moved")
        require_same(result["movedBytes"], sum(item.size for item in moved), "bytes of what was moved")
        self.put_back(moved)
        for place, date in dates.items():
            os.utime(place, ns=(date, date))
        require_same(portrait(self.base), before, "not everything is back as it was")
        self.check_history(result)
        self.counts["moved and put back"] += len(moved)
        self.counts["left alone"] += len(refused)
        self.counts["entries compared"] += len(before)

    def put_back(self, moved):
        """Has everything in the Trash go where its information says."""
        trash = self.soak.trash
        wanted = {os.path.realpath(os.path.dirname(item.path)) + b"/" + os.path.basename(item.path): item
                  for item in moved}
        sizes = {}
        if os.path.exists(trash + b"/directorysizes"):
            with open(trash + b"/directorysizes", "rb") as file:
                sizes = {urllib.parse.unquote_to_bytes(line.split()[2]): int(line.split()[0]) for line in file}
            os.unlink(trash + b"/directorysizes")
        for name in os.listdir(trash + b"/info") if moved else []:
            with open(trash + b"/info/" + name, "rb") as file:
                header, path, _ = file.read().splitlines()
            require_same(header, b"[Trash Info]", "the header of an information file")
            origin = urllib.parse.unquote_to_bytes(path.removeprefix(b"Path="))
            item = wanted.pop(origin, None)
            stored = name.removesuffix(b".trashinfo")
            if item is None:
                raise Mismatch(f"the Trash has {origin!r}")
            recorded = item.size if item.is_folder else None
            require_same(sizes.pop(stored, None), recorded, f"the recorded size of {origin!r}")
            os.rename(trash + b"/files/" + stored, origin)
            os.unlink(trash + b"/info/" + name)
        require_same([*wanted, *sizes], [], "what the Trash should have, and sizes of what it does not have")
        require_same(os.listdir(trash + b"/files") if moved else [], [], "without information in the Trash")

    def check_history(self, result):
        newest, *former = history = self.desk.ask(b"history")
        require_same(former, self.soak.history, "former entries of the history")
        told = {"rootPath": expected.text(self.root), "movedCount": len(result["moved"]),
                "movedBytes": result["movedBytes"], "failures": result["failures"]}
        require_same({key: newest[key] for key in told}, told, "the newest entry of the history")
        self.soak.history = history


class Soak:
    def __init__(self, program, seed, folder):
        self.seed, self.folder = seed, folder
        self.home = make_home(folder)
        self.data = os.fsencode(folder) + b"/data"
        self.trash = self.data + b"/Trash"
        self.home_before = portrait(os.fsencode(self.home))
        self.desk = Desk(program, cli_environment(self.home, self.data))
        self.footprint = Footprint(self.desk)
        self.history = []
        self.counts = collections.Counter(rounds=0)

    def run_round(self, number):
        """Whether all went well."""
        current = Round(self, number)
        try:
            current.run()
            require_same(portrait(os.fsencode(self.home)), self.home_before, "the home folder has changed")
            self.footprint.after_round()
            remove(current.base, current.tree)
            if len(self.history) >= LONG_HISTORY:
                shutil.rmtree(self.data + b"/Broomtide")
                self.history = []
        except Exception as failure:
            reason = failure if isinstance(failure, Mismatch) else traceback.format_exc()
            print(f"FAILED: seed {self.seed}, round {number}: {reason}\n  kept: {self.folder}\n"
                  f"  again: scripts/soak --seed {self.seed} --from {number}", flush=True)
            return False
        self.counts["rounds"] += 1
        return True

    def __str__(self):
        return ", ".join([f"{count:,} {name}" for name, count in self.counts.items()] + [str(self.footprint)])


def give_up_overriding_permissions(program, folder):
    """Root may read everything, so the rounds are run by nobody, who gets a copy of the program."""
    user = pwd.getpwnam("nobody")
    copy = shutil.copy(program, folder)
    os.chown(folder, user.pw_uid, user.pw_gid)
    os.setgroups([])
    os.setgid(user.pw_gid)
    os.setuid(user.pw_uid)
    return copy


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    parser.add_argument("--seconds", type=int, default=300)
    parser.add_argument("--rounds", type=int, default=sys.maxsize)
    parser.add_argument("--seed", type=int, default=random.getrandbits(32))
    parser.add_argument("--from", type=int, default=0, dest="start")
    options = parser.parse_args()
    folder = os.path.realpath(tempfile.mkdtemp(prefix="broomtide-soak-"))
    program = options.program if os.geteuid() else give_up_overriding_permissions(options.program, folder)
    interrupts = []
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda number, _: interrupts.append(number))
    print(f"seed {options.seed}, from round {options.start}", flush=True)
    soak = Soak(program, options.seed, folder)
    begin = last_line = time.monotonic()
    is_well, rounds = True, 0
    while is_well and not interrupts and rounds < options.rounds and time.monotonic() - begin < options.seconds:
        is_well = soak.run_round(options.start + rounds)
        rounds += 1
        if time.monotonic() - last_line > 10:
            last_line = time.monotonic()
            print(f"{last_line - begin:.0f} s: {soak}", flush=True)
    print(f"total: {soak}; {soak.footprint.judgement()}; {time.monotonic() - begin:.0f} s")
    if is_well and rounds > 3 and not soak.counts["moved and put back"]:
        print("FAILED: nothing was moved in all these rounds")
        is_well = False
    status = soak.desk.close()
    if is_well and status == 0:
        shutil.rmtree(folder)
    sys.exit(0 if is_well and status == 0 else 1)


if __name__ == "__main__":
    main()
