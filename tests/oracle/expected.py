"""What `broomtide-cli scan --json` must print for a folder: slow, sequential and meant to be read.

    python3 expected.py [--mode project|caches|downloads] FOLDER

Paths are bytes. The random identifiers of issues are left out; everything else is there.
"""

import argparse
import datetime
import errno
import json
import os
import stat
import subprocess
import sys
import time
import urllib.parse
from dataclasses import dataclass, field

import rules

GIT = b"/usr/bin/git"
before_git = None  # called in the child before it becomes Git, for limits that the compared program runs under
SAFETY_ORDER = ["safe", "usuallySafe", "reviewFirst"]


# --- Reading folders


@dataclass
class Entry:
    """One entry of a folder. The type comes from the folder; attributes are read on demand, by descriptor,
    so that a path longer than the system allows is no obstacle."""

    parent_fd: int
    path: bytes
    name: bytes
    kind: str  # "directory", "file", "link" or "other"

    def attributes(self):
        return os.stat(self.name, dir_fd=self.parent_fd, follow_symlinks=False)

    def open_folder(self):
        return os.open(self.name, os.O_RDONLY | os.O_DIRECTORY | os.O_NOFOLLOW, dir_fd=self.parent_fd)


def kind_of(dir_entry):
    if dir_entry.is_symlink():
        return "link"
    if dir_entry.is_dir(follow_symlinks=False):
        return "directory"
    if dir_entry.is_file(follow_symlinks=False):
        return "file"
    return "other"


def entries_of(folder_fd, path):
    with os.scandir(folder_fd) as listing:
        found = sorted((os.fsencode(item.name), kind_of(item)) for item in listing)
    return [Entry(folder_fd, path + b"/" + name, name, kind) for name, kind in found]


def issue(path, error):
    return {"path": text(path), "message": os.strerror(error.errno)}


def walk_below(folder_fd, path, issues, visit):
    """Depth first, siblings by name. visit(entry) says whether to enter a folder; one that cannot be is an issue."""
    for entry in entries_of(folder_fd, path):
        if visit(entry) and entry.kind == "directory":
            try:
                inner_fd = entry.open_folder()
            except OSError as error:
                issues.append(issue(entry.path, error))
                continue
            try:
                walk_below(inner_fd, entry.path, issues, visit)
            finally:
                os.close(inner_fd)


def walk(root, issues, visit):
    folder_fd = os.open(root, os.O_RDONLY | os.O_DIRECTORY)
    try:
        walk_below(folder_fd, root, issues, visit)
    finally:
        os.close(folder_fd)


# --- Text


def text(path):
    return path.decode("utf-8", "replace")


def url(path):
    return "file://" + urllib.parse.quote_from_bytes(path, safe="/")


def date(nanoseconds):
    seconds, fraction = divmod(nanoseconds, 10**9)
    moment = datetime.datetime(1970, 1, 1) + datetime.timedelta(seconds=seconds)
    return moment.isoformat() + (f".{fraction:09d}Z" if fraction else "Z")


def character_count(path):
    return len(path.decode("utf-8", "surrogateescape"))


def identity(attributes):
    return f"{attributes.st_dev}:{attributes.st_ino}:{stat.S_IFMT(attributes.st_mode)}"


def is_or_lies_below(path, folder):
    return path == folder or path.startswith(folder + b"/")


# --- Measuring


def allocated_bytes(attributes):
    return attributes.st_blocks * 512


def measure_folder(open_folder, path):
    """How large a folder is, how many entries lie below it, and what could not be read."""
    sizes, issues = [], []

    def add(entry):
        sizes.append(0)
        if entry.kind == "file":
            try:
                sizes[-1] = allocated_bytes(entry.attributes())
            except OSError as error:
                issues.append(issue(entry.path, error))
        return True

    try:
        folder_fd = open_folder()
    except OSError:
        return 0, 0, []
    try:
        walk_below(folder_fd, path, issues, add)
    finally:
        os.close(folder_fd)
    return sum(sizes), len(sizes), issues


# --- Git


def run_git(root, arguments):
    """The NUL-separated pieces that Git printed, or None when it failed."""
    try:
        done = subprocess.run(
            [GIT, b"-C", root, b"-c", b"core.quotepath=false", b"-c", b"core.fsmonitor=false", *arguments.split()],
            env={b"LC_ALL": b"C", b"PATH": b"/usr/bin:/bin", b"GIT_ALLOW_PROTOCOL": b""},
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, preexec_fn=before_git,
        )
    except OSError:
        return None
    return [piece for piece in done.stdout.split(b"\0") if piece] if done.returncode == 0 else None


def is_passed_by(root):
    """Whether Git finds no repository in the folder, and would answer for one around it."""
    if os.path.isfile(root + b"/.git"):
        return False  # leads to the repository, or Git fails
    place = os.path.realpath(root)
    found = run_git(root, b"rev-parse --absolute-git-dir")
    return found not in ([place + b"/.git\n"], [place + b"\n"])


def lies_in_repository(root):
    folder = os.path.realpath(root)
    while folder != b"/":
        folder = os.path.dirname(folder)
        if os.path.lexists(folder + b"/.git"):
            return True
    return False


class Snapshot:
    """What the repository of a folder tracks and ignores; of one around the folder, only what it tracks there."""

    def __init__(self, root, is_part=False):
        self.root = root
        if not is_part and is_passed_by(root):
            self.tracked = None
            return
        self.tracked = run_git(root, b"ls-files -z --cached")
        self.ignored = [] if is_part else run_git(
            root, b"ls-files -z --others --ignored --exclude-standard --directory --no-empty-directory")

    def status(self, path, is_directory):
        if self.tracked is None or self.ignored is None or not is_or_lies_below(path, self.root):
            return "unavailable"
        relative = path[len(self.root):].strip(b"/")
        if relative in self.tracked or is_directory and any(
                tracked.startswith(relative + b"/") for tracked in self.tracked):
            return "tracked"
        is_ignored = any(is_or_lies_below(relative, ignored.strip(b"/")) for ignored in self.ignored)
        return "ignored" if is_ignored else "untracked"


# --- Projects


@dataclass
class Project:
    root: bytes
    kinds: set = field(default_factory=set)
    manifests: list = field(default_factory=list)
    git_root: bytes | None = None


@dataclass
class Discovery:
    projects: list = field(default_factory=list)
    git_roots: list = field(default_factory=list)
    entries: int = 0
    issues: list = field(default_factory=list)


def nearest(path, roots):
    """The deepest of the roots that is the path or encloses it."""
    return max((root for root in roots if is_or_lies_below(path, root)), key=len, default=None)


def status_among(path, is_directory, git_root, snapshots):
    """As the repository says by which it is judged, unless another tracks it, or one between says nothing."""
    said = {root: snapshots[root].status(path, is_directory) for root in snapshots if is_or_lies_below(path, root)}
    own = said.get(git_root, "unavailable")
    if own != "tracked" and len(said) > 9:
        return "unavailable"
    if "tracked" in said.values():
        return "tracked"
    between = [status for root, status in said.items() if git_root and is_or_lies_below(root, git_root)]
    return "unavailable" if "unavailable" in between else own


def snapshots_around(root, git_roots):
    """Of every repository below the folder, and of one that the folder lies in."""
    snapshots = {git_root: Snapshot(git_root) for git_root in git_roots}
    if root not in snapshots and lies_in_repository(root):
        part = Snapshot(root, is_part=True)
        if part.tracked is not None:
            snapshots[root] = part
    return snapshots


def is_trash(entry, root, home_trash):
    """Whether a folder is a Trash. What lies in one has been moved already."""
    if rules.is_trash_of_mount(entry.name):
        return True
    place = os.path.realpath(root) + entry.path[len(root):]
    return home_trash is not None and place == os.path.realpath(home_trash)


def discover(root, home_trash):
    discovery = Discovery()
    projects = {}
    git_roots = set()

    def add_manifest(entry, kind):
        folder = os.path.dirname(entry.path)
        project = projects.setdefault(folder, Project(folder))
        project.kinds.add(kind)
        project.manifests.append(entry.name)

    def visit(entry):
        discovery.entries += 1
        if entry.kind in ("directory", "file") and entry.name == b".git":
            git_roots.add(os.path.dirname(entry.path))
            return False
        if entry.kind == "directory":
            known = entry.name in rules.SENSITIVE_DIRECTORIES or entry.name in rules.ARTEFACT_DIRECTORIES
            if known or is_trash(entry, root, home_trash):
                return False
            if entry.name.endswith((b".xcodeproj", b".xcworkspace")):
                add_manifest(entry, "swift")
                return False
            return True
        if entry.kind == "file":
            kind = rules.manifest_kind(entry.name)
            if kind is not None:
                add_manifest(entry, kind)
        return False

    walk(root, discovery.issues, visit)
    discovery.git_roots = list(git_roots)
    for project in projects.values():
        project.manifests.sort()
        project.git_root = nearest(project.root, git_roots)
    discovery.projects = sorted(projects.values(), key=lambda item: (-character_count(item.root), item.root))
    return discovery


# --- Scans


@dataclass
class Scan:
    root: bytes
    mode: str
    now_ns: int
    home_trash: bytes | None = None
    entries: int = 0
    candidates: list = field(default_factory=list)
    issues: list = field(default_factory=list)
    projects: list = field(default_factory=list)

    def relative(self, path):
        return path[len(self.root) + 1:]

    def add(self, path, kind, size, attributes, rule, judgement, project, git_root, git_status):
        relative = text(self.relative(path))
        self.candidates.append({
            "id": relative,
            "url": url(path),
            "relativePath": relative,
            "kind": kind,
            "size": size,
            "modificationDate": date(attributes.st_mtime_ns),
            "category": rule.category,
            "safety": judgement.safety,
            "explanation": rule.explanation,
            "fileIdentity": identity(attributes),
            "projectRoot": None if project is None else url(project.root),
            "gitRoot": None if git_root is None else url(git_root),
            "projectKinds": [] if project is None else rules.in_declaration_order(project.kinds),
            "evidence": judgement.evidence,
            "regenerationCommand": judgement.regeneration_command,
            "confidence": judgement.confidence,
            "gitStatus": git_status,
            "isSelected": judgement.is_selected,
        })

    def document(self):
        return {
            "mode": self.mode,
            "root": url(self.root),
            "entriesScanned": self.entries,
            "reclaimableBytes": sum(candidate["size"] for candidate in self.candidates),
            "candidates": sorted(
                self.candidates, key=lambda item: (SAFETY_ORDER.index(item["safety"]), -item["size"])
            ),
            "issues": self.issues,
            "projects": [
                {
                    "root": url(project.root),
                    "kinds": rules.in_declaration_order(project.kinds),
                    "manifests": [text(name) for name in project.manifests],
                    "gitRoot": None if project.git_root is None else url(project.git_root),
                }
                for project in self.projects
            ],
        }


def scan_tree(scan):
    """Project and downloads mode: one walk over the whole folder."""
    in_project_mode = scan.mode == "project"
    discovery = discover(scan.root, scan.home_trash) if in_project_mode else Discovery()
    snapshots = snapshots_around(scan.root, discovery.git_roots) if in_project_mode else {}
    projects = {project.root: project for project in discovery.projects}
    scan.projects = discovery.projects
    scan.entries = discovery.entries
    scan.issues.extend(discovery.issues)

    def visit(entry):
        scan.entries += 1
        if entry.kind not in ("directory", "file"):
            return False
        is_directory = entry.kind == "directory"
        avoided = rules.SENSITIVE_DIRECTORIES if in_project_mode else [b".git"]
        if is_directory and (entry.name in avoided or is_trash(entry, scan.root, scan.home_trash)):
            return False
        if in_project_mode and not is_directory and rules.is_protected_file(entry.name):
            return False

        def age_seconds():
            return (scan.now_ns - entry.attributes().st_mtime_ns) / 1e9

        try:
            rule = rules.match(entry.name, entry.kind, scan.mode, age_seconds)
            if rule is None:
                return True
            attributes = entry.attributes()
        except OSError as error:
            scan.issues.append(issue(entry.path, error))
            return False

        project = projects.get(nearest(entry.path, projects))
        git_root = project and project.git_root or nearest(entry.path, discovery.git_roots)
        git_status = status_among(entry.path, is_directory, git_root, snapshots)
        if in_project_mode:
            judgement = rules.evaluate(rule, project, git_status, git_root is not None)
            if judgement is None:
                return False
        else:
            judgement = rules.Evaluation(
                safety=rule.safety,
                confidence="high",
                is_selected=rule.selection == "selected",
                evidence=["Matched the Downloads cleanup rule."],
                regeneration_command=None,
            )

        size = allocated_bytes(attributes)
        if is_directory:
            size, entries, issues = measure_folder(entry.open_folder, entry.path)
            scan.entries += entries
            scan.issues += issues
        scan.add(entry.path, entry.kind, size, attributes, rule, judgement, project, git_root, git_status)
        return False

    walk(scan.root, scan.issues, visit)


def cache_items(location, expands_children):
    """(path, attributes, function that opens the folder) of every folder to measure at one location."""

    def item(path):
        try:
            attributes = os.lstat(path)
        except OSError:
            return []
        return [(path, attributes, lambda: os.open(path, os.O_RDONLY | os.O_DIRECTORY | os.O_NOFOLLOW))]

    if not expands_children:
        return item(location)
    try:
        with os.scandir(location) as listing:
            children = sorted((child.name, kind_of(child)) for child in listing)
    except OSError:
        return []
    return [
        found
        for name, kind in children
        if kind == "directory" and not name.startswith(b".")
        for found in item(location + b"/" + name)
    ]


def cache_locations(root):
    """(target, location) of everything that is there: no folder twice, none that holds another."""
    below = os.path.realpath(root) + b"/"
    found = {}
    for target in rules.CACHE_TARGETS:
        location = root + b"/" + target.relative_path.encode()
        real = os.path.realpath(location)
        if not os.path.isdir(location) or os.path.islink(location) or not real.startswith(below):
            continue
        attributes = os.lstat(location)
        found.setdefault((attributes.st_dev, attributes.st_ino), (target, location, real))
    real_locations = [real for _, _, real in found.values()]
    for target, location, real in found.values():
        if not any(other.startswith(real + b"/") for other in real_locations):
            yield target, location


def scan_caches(scan):
    for target, location in cache_locations(scan.root):
        for path, attributes, open_folder in cache_items(location, target.expands_children):
            size, _, issues = measure_folder(open_folder, path)
            scan.issues += issues
            if size < 1:
                continue
            judgement = rules.Evaluation(
                safety=target.safety,
                confidence="high",
                is_selected=target.safety == "safe",
                evidence=[f"Well-known developer cache location (~/{target.relative_path})."],
                regeneration_command=target.regeneration_command,
            )
            scan.add(path, "directory", size, attributes, target, judgement, None, None, "unavailable")


def expected_document(folder, mode, working_directory=None, now_ns=None, home_trash=None):
    """The document for a folder argument (bytes) as given on the command line in a working directory."""
    root = os.path.normpath(os.path.join(working_directory or os.getcwdb(), folder))
    scan = Scan(root, mode, time.time_ns() if now_ns is None else now_ns, home_trash)
    if not os.path.isdir(root):
        raise NotADirectoryError(errno.ENOTDIR, os.strerror(errno.ENOTDIR), root)
    if mode == "caches":
        scan_caches(scan)
    else:
        scan_tree(scan)
    return scan.document()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--mode", choices=["project", "caches", "downloads"], default="project")
    parser.add_argument("folder", type=os.fsencode)
    arguments = parser.parse_args()
    data = os.environb.get(b"XDG_DATA_HOME") or os.path.expanduser(b"~/.local/share")
    document = expected_document(arguments.folder, arguments.mode, home_trash=data + b"/Trash")
    json.dump(document, sys.stdout, indent=2, ensure_ascii=False)
    print()


if __name__ == "__main__":
    main()
