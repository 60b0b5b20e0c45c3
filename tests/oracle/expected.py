"""What `broomtide-cli scan --json` must print for a folder: slow, sequential and meant to be read.

Paths are bytes. The random identifiers of issues are left out; everything else is there.
"""

import contextlib
import datetime
import os
import stat
import subprocess
import time
import urllib.parse
from dataclasses import dataclass, field

import rules

before_git = None  # called in the child before it becomes Git, for limits that the compared program runs under



@dataclass
class Entry:
    """One entry of a folder. Attributes are read on demand, and by descriptor, so that no path is too long."""

    parent: int
    path: bytes
    name: bytes
    kind: str  # "directory", "file" or "other"

    @property
    def is_folder(self):
        return self.kind == "directory"

    def attributes(self):
        return os.stat(self.name, dir_fd=self.parent, follow_symlinks=False)

    def open(self):
        return os.open(self.name, os.O_RDONLY | os.O_DIRECTORY | os.O_NOFOLLOW, dir_fd=self.parent)


def kind_of(found):
    is_folder, is_file = found.is_dir(follow_symlinks=False), found.is_file(follow_symlinks=False)
    return "directory" if is_folder else "file" if is_file else "other"


def walk(open_folder, path, issues, visit):
    """Depth first, siblings by name. visit(entry) says whether to enter a folder; one that cannot be is an issue."""
    folder = open_folder()
    try:
        with os.scandir(folder) as listing:
            found = sorted((os.fsencode(item.name), kind_of(item)) for item in listing)
        for entry in [Entry(folder, path + b"/" + name, name, kind) for name, kind in found]:
            if visit(entry) and entry.is_folder:
                try:
                    walk(entry.open, entry.path, issues, visit)
                except OSError as error:
                    issues.append(issue(entry.path, error))
    finally:
        os.close(folder)


def opened(path):
    return lambda: os.open(path, os.O_RDONLY | os.O_DIRECTORY)


def measure(open_folder, path):
    """How large a folder is, how many entries lie below it, and what could not be read."""
    sizes, issues = [], []

    def add(entry):
        sizes.append(0)
        if entry.kind == "file":
            try:
                sizes[-1] = entry.attributes().st_blocks * 512
            except OSError as error:
                issues.append(issue(entry.path, error))
        return True

    with contextlib.suppress(OSError):
        walk(open_folder, path, issues, add)
    return sum(sizes), len(sizes), issues



def text(path):
    return path.decode("utf-8", "replace")


def url(path):
    return path and "file://" + urllib.parse.quote_from_bytes(path, safe="/")


def issue(path, error):
    return {"path": text(path), "message": os.strerror(error.errno)}


def date(nanoseconds):
    seconds, fraction = divmod(min(nanoseconds, 2**63 - 1), 10**9)
    moment = datetime.datetime(1970, 1, 1) + datetime.timedelta(seconds=seconds)
    return moment.isoformat() + (f".{fraction:09d}Z" if fraction else "Z")


def is_or_lies_below(path, folder):
    return path == folder or path.startswith(folder + b"/")


def nearest(path, roots):
    """The deepest of the roots that is the path or encloses it."""
    return max((root for root in roots if is_or_lies_below(path, root)), key=len, default=None)



def run_git(root, arguments):
    """What Git printed, between zero bytes, or None when it failed."""
    done = subprocess.run(
        [b"/usr/bin/git", b"-C", root, b"-c", b"core.quotepath=false", b"-c", b"core.fsmonitor=false",
         *arguments.split()],
        env={b"LC_ALL": b"C", b"PATH": b"/usr/bin:/bin", b"GIT_ALLOW_PROTOCOL": b""},
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, preexec_fn=before_git)
    return [piece for piece in done.stdout.split(b"\0") if piece] if done.returncode == 0 else None


def is_passed_by(root):
    """Whether Git finds no repository of its own in the folder, or one that counts for nothing."""
    mark = root + b"/.git"
    if os.path.lexists(mark) and (os.path.islink(mark) or not (os.path.isfile(mark) or os.path.isdir(mark))):
        return True  # somewhere there is a repository, of which nothing is believed
    if os.path.isfile(root + b"/.git"):
        return False  # leads to the repository, or Git fails
    place = os.path.realpath(root)
    return run_git(root, b"rev-parse --absolute-git-dir") not in ([place + b"/.git\n"], [place + b"\n"])


def repositories_above(root):
    """The folders above, the real ones, that have the mark of a repository."""
    folder, found = os.path.realpath(root), []
    while folder != b"/":
        folder = os.path.dirname(folder)
        if os.path.lexists(folder + b"/.git"):
            found.append(folder)
    return found


class Snapshot:
    """What a repository tracks and ignores; of one above the scanned folder, only what it tracks below that."""

    def __init__(self, root, scanned=None):
        self.root = root
        self.tracked = None if is_passed_by(root) else run_git(root, b"ls-files -z --cached")
        if self.tracked == [] and self.has_lost_index():
            self.tracked = None
        if self.tracked is not None and (os.path.lexists(root + b"/.git/worktrees") or os.path.isfile(root + b"/.git")):
            start = b"worktree " + os.path.realpath(root) + b"/"
            listed = run_git(root, b"worktree list --porcelain")
            self.tracked = listed and self.tracked + [
                line[len(start):] for line in listed[0].split(b"\n") if line.startswith(start)]
        if scanned is None:
            self.ignored = run_git(
                root, b"ls-files -z --others --ignored --exclude-standard --directory --no-empty-directory")
        else:
            self.root, self.ignored = scanned, []
            start = os.path.realpath(scanned)[len(root.rstrip(b"/")) + 1:] + b"/"
            if self.tracked is not None:
                self.tracked = [path[len(start):] for path in self.tracked if path.startswith(start)]

    def has_lost_index(self):
        if b"count: 0\nsize: 0\nin-pack: 0\n" in run_git(self.root, b"count-objects -v")[0]:
            return False  # nothing was ever added
        index = run_git(self.root, b"rev-parse --git-path index")[0].removesuffix(b"\n")
        return not os.path.exists(os.path.join(os.path.realpath(self.root), index))

    def status(self, entry):
        if self.tracked is None or self.ignored is None:
            return "unavailable"
        path = entry.path[len(self.root) + 1:]
        if any(tracked == path or entry.is_folder and tracked.startswith(path + b"/") for tracked in self.tracked):
            return "tracked"
        is_ignored = any(is_or_lies_below(path, ignored.strip(b"/")) for ignored in self.ignored)
        return "ignored" if is_ignored else "untracked"


def status_among(entry, git_root, snapshots):
    """The most cautious of what is said, and whether a repository has a say: tracked before silence; then untracked
    before ignored, by the repository that judges and those between."""
    said = {root: each.status(entry) for root, each in snapshots.items() if is_or_lies_below(entry.path, root)}
    own = said.get(git_root, "unavailable")
    if own != "tracked" and len(said) > (8 if git_root is None else 9):
        return "unavailable", True
    if "tracked" in said.values():
        return "tracked", True
    if "unavailable" in said.values():
        return "unavailable", True
    between = [status for root, status in said.items() if git_root and is_or_lies_below(root, git_root)]
    return "untracked" if "untracked" in between else own, git_root is not None


def snapshots_around(root, git_roots):
    """Of every repository below the folder, and of all those that the folder lies in together."""
    snapshots = {git_root: Snapshot(git_root) for git_root in git_roots}
    above = [Snapshot(each, root) for each in repositories_above(root)]
    if above:
        together = snapshots[os.path.dirname(root)] = above[0]
        tracked = [each.tracked for each in above]
        together.tracked = None if None in tracked or len(above) > 8 else sum(tracked, [])
    return snapshots



@dataclass
class Project:
    root: bytes
    kinds: set = field(default_factory=set)
    manifests: list = field(default_factory=list)
    git_root: bytes | None = None

    def told_kinds(self):
        return [kind for kind in rules.TITLES if kind in self.kinds]


@dataclass
class Scan:
    root: bytes
    mode: str
    home_trash: bytes
    entries: int = 0
    candidates: list = field(default_factory=list)
    issues: list = field(default_factory=list)
    projects: dict = field(default_factory=dict)
    git_roots: set = field(default_factory=set)

    def is_trash(self, entry):
        """What lies in a Trash has been moved already."""
        start, _, number = entry.name.partition(b"-")
        place = os.path.realpath(self.root) + entry.path[len(self.root):]
        return (start == b".Trash" and (number.isdigit() or entry.name == start)
                or place == os.path.realpath(self.home_trash))

    def discover(self):
        """Finds projects and repositories."""
        def visit(entry):
            self.entries += 1
            folder = os.path.dirname(entry.path)
            if entry.name == b".git":
                self.git_roots.add(folder)
                return False
            if entry.is_folder and (entry.name in rules.SENSITIVE | rules.ARTEFACT_FOLDERS or self.is_trash(entry)):
                return False
            kind = entry.kind != "other" and rules.manifest_kind(entry.name, entry.is_folder)
            if kind:
                project = self.projects.setdefault(folder, Project(folder))
                project.kinds.add(kind)
                project.manifests.append(entry.name)
            return not kind

        walk(opened(self.root), self.root, self.issues, visit)
        for project in self.projects.values():
            project.git_root = nearest(project.root, self.git_roots)

    def add(self, path, kind, size, attributes, rule, judgement, project=None, git_root=None, status="unavailable"):
        relative = text(path[len(self.root) + 1:])
        self.candidates.append({
            "id": relative,
            "url": url(path),
            "relativePath": relative,
            "kind": kind,
            "size": size,
            "modificationDate": date(attributes.st_mtime_ns),
            "category": rule.category,
            "explanation": rule.explanation,
            "fileIdentity": f"{attributes.st_dev}:{attributes.st_ino}:{stat.S_IFMT(attributes.st_mode)}",
            "projectRoot": project and url(project.root),
            "gitRoot": url(git_root),
            "projectKinds": project.told_kinds() if project else [],
            "gitStatus": status,
            **judgement,
        })

    def scan_tree(self):
        """Project and downloads mode: one walk over the whole folder."""
        in_projects = self.mode == "project"
        if in_projects:
            self.discover()
        snapshots = snapshots_around(self.root, self.git_roots) if in_projects else {}
        now = time.time_ns()

        def visit(entry):
            self.entries += 1
            avoided = rules.SENSITIVE if in_projects else [b".git"]
            if (entry.kind == "other" or entry.is_folder and (entry.name in avoided or self.is_trash(entry))
                    or in_projects and not entry.is_folder and rules.is_protected(entry.name)):
                return False
            try:
                rule = rules.match(entry.name, entry.is_folder, self.mode, lambda: now - entry.attributes().st_mtime_ns)
                if rule is None:
                    return True
                attributes = entry.attributes()
            except OSError as error:
                self.issues.append(issue(entry.path, error))
                return False
            project = self.projects.get(nearest(entry.path, self.projects))
            git_root = project and project.git_root or nearest(entry.path, self.git_roots)
            status, has_repository = status_among(entry, git_root, snapshots)
            judgement = rules.judge(rule, project, status, has_repository) if in_projects else {
                "safety": rule.safety, "confidence": "high", "isSelected": False, "regenerationCommand": None,
                "evidence": ["Matched the Downloads cleanup rule."]}
            if judgement is None:
                return False
            size = attributes.st_blocks * 512
            if entry.is_folder:
                size, entries, issues = measure(entry.open, entry.path)
                self.entries += entries
                self.issues += issues
            self.add(entry.path, entry.kind, size, attributes, rule, judgement, project, git_root, status)
            return False

        walk(opened(self.root), self.root, self.issues, visit)

    def cache_locations(self):
        """Every rule whose location is there: no folder twice, none that holds another."""
        found = {}
        for rule in rules.CACHES:
            location = self.root + b"/" + rule.pattern
            real = os.path.realpath(location)
            if (os.path.isdir(location) and not os.path.islink(location)
                    and real.startswith(os.path.realpath(self.root) + b"/")):
                found.setdefault(os.stat(location)[1:3], (rule, location, real))
        return [(rule, location) for rule, location, real in found.values()
                if not any(other.startswith(real + b"/") for _, _, other in found.values())]

    def scan_caches(self):
        for rule, location in self.cache_locations():
            parts = [location]
            if rule.is_in_parts:
                try:
                    with os.scandir(location) as listing:
                        parts = sorted(part.path for part in listing
                                       if kind_of(part) == "directory" and not part.name.startswith(b"."))
                except OSError:
                    continue
            for path in parts:
                size, _, issues = measure(opened(path), path)
                self.issues += issues
                if size > 0:
                    self.add(path, "directory", size, os.lstat(path), rule, {
                        "safety": rule.safety, "confidence": "high", "isSelected": rule.safety == "safe",
                        "regenerationCommand": rule.command,
                        "evidence": [f"Well-known developer cache location (~/{rule.pattern.decode()})."]})

    def document(self):
        by_safety = list(rules.SAFETIES.values()).index
        projects = sorted(self.projects.values(),
                          key=lambda project: (-len(project.root.decode(errors="surrogateescape")), project.root))
        return {
            "mode": self.mode,
            "root": url(self.root),
            "entriesScanned": self.entries,
            "reclaimableBytes": sum(candidate["size"] for candidate in self.candidates),
            "candidates": sorted(self.candidates, key=lambda item: (by_safety(item["safety"]), -item["size"])),
            "issues": self.issues,
            "projects": [{"root": url(project.root), "kinds": project.told_kinds(), "gitRoot": url(project.git_root),
                          "manifests": [text(name) for name in project.manifests]} for project in projects],
        }


def expected_document(folder, mode, home_trash, working_directory=b"/"):
    """The document for a folder as it is named on a command line in a working directory."""
    scan = Scan(os.path.normpath(os.path.join(working_directory, folder)), mode, home_trash)
    scan.scan_caches() if mode == "caches" else scan.scan_tree()
    return scan.document()
