"""What `broomtide-cli scan --json` must print for a folder: slow, sequential and meant to be read.

Paths are bytes. The random identifiers of issues are left out; everything else is there.
"""

import contextlib
import dataclasses
import datetime
import functools
import json
import operator
import os
import pathlib
import pwd
import stat
import subprocess
import time
import urllib.parse
from dataclasses import dataclass, field

import rules
from rules import for_shell, text

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


def kinds_in(folder):
    """The kinds of what is in a folder by their names, which are sorted."""
    with os.scandir(folder) as listing:
        return dict(sorted((os.fsencode(item.name), kind_of(item)) for item in listing))


def walk(open_folder, path, issues, visit, listed=lambda path, kinds: True):
    """Depth first, siblings by name. visit(entry) says whether to enter a folder; one that cannot be is an issue. Then
    listed(path, kinds) says whether to go on."""
    folder = open_folder()
    try:
        kinds = kinds_in(folder)
        if not listed(path, kinds):
            return
        for entry in [Entry(folder, path + b"/" + name, name, kind) for name, kind in kinds.items()]:
            if visit(entry) and entry.is_folder:
                try:
                    walk(entry.open, entry.path, issues, visit, listed)
                except OSError as error:
                    issues.append(issue(entry.path, error))
    finally:
        os.close(folder)


def opened(path):
    return lambda: os.open(path, os.O_RDONLY | os.O_DIRECTORY)


def measure(open_folder, path, rule, item):
    """How large a folder is, how many entries lie below it, what could not be read, and what speaks against it."""
    sizes, issues, entries = [], [], []

    def add(entry):
        entries.append((entry.path[len(path) + 1:], entry.kind))
        sizes.append(0)
        if entry.kind == "file":
            try:
                sizes[-1] = entry.attributes().st_blocks * 512
            except OSError as error:
                issues.append(issue(entry.path, error))
        return True

    try:
        walk(open_folder, path, issues, add)
    except OSError:
        return 0, 0, [], [rules.NOT_ALL_READ.format(text(item))]
    unread = [rules.NOT_ALL_READ.format(text(item) + each["path"][len(text(path)):]) for each in issues[:1]]
    return sum(sizes), len(sizes), issues, rules.signs(rule, item, entries) + unread


def content(path):
    """Of a regular file that is not large; empty otherwise."""
    with contextlib.suppress(OSError):
        if stat.S_ISREG(os.lstat(path).st_mode) and os.path.getsize(path) <= 8 << 20:
            return pathlib.Path(os.fsdecode(path)).read_bytes()
    return b""


def json_text(path, *keys):
    """The text at a place of a document; None when there is none."""
    with contextlib.suppress(ValueError, LookupError, TypeError, AttributeError):
        return functools.reduce(operator.getitem, keys, json.loads(content(path))).encode()


def is_project(kinds):
    return any(name in rules.MARKS or kind != "other" and rules.manifest_kind(name, kind == "directory")
               for name, kind in kinds.items())


def is_program(kinds):
    """Whether a folder is an environment or a program with a browser of its own, but for a Python one."""
    return "directory" == kinds.get(b"conda-meta") or "directory" == kinds.get(b"resources") and any(
        kinds.get(name, "directory") != "directory" for name in (b"chrome-sandbox", b"chrome_100_percent.pak"))


def proven(tree, kinds):
    """The rule of a build tree or a marked cache, of which everything is told; None when nothing proves it."""
    if is_project(kinds):
        return None
    key = b"CMAKE_HOME_DIRECTORY:INTERNAL="
    lines = [line[len(key):] for line in content(tree + b"/CMakeCache.txt").split(b"\n") if line.startswith(key)]
    setup = os.path.isfile(tree + b"/meson-private/coredata.dat") and json_text(
        tree + b"/meson-info/meson-info.json", "directories", "source")
    for rule, program, manifest, written, command in [
            (rules.CMAKE, "CMake", b"/CMakeLists.txt", b"".join(lines[:1]), b"cmake -S %(sources)b -B %(tree)b"),
            (rules.MESON, "Meson", b"/meson.build", setup or b"", b"meson setup %(tree)b %(sources)b")]:
        sources = b"/" + os.path.normpath(written).strip(b"/")
        if (written.startswith(b"/") and not is_or_lies_below(os.path.realpath(sources), tree)
                and os.path.isfile(sources + manifest) and not os.path.islink(sources + manifest)):
            command %= {b"sources": for_shell(sources), b"tree": for_shell(tree)}
            proof = f"{program} built it from the sources in {text(sources)}."
            return dataclasses.replace(rule, proof=proof, command=text(command))
    tag = content(tree + b"/CACHEDIR.TAG")
    if len(tag) > 64 << 10 or not tag.startswith(b"Signature: 8a477f597d28d172789f06886806bc55"):
        return None
    if kinds.get(b".rustc_info.json") == "file":
        command = text(b"cargo build --target-dir " + for_shell(tree))
        return dataclasses.replace(rules.CARGO, proof="Cargo wrote its build output here.", command=command)
    writer = text(b"".join(tag.split(b"\n")[1:2]).lstrip(b"# \t\r").rstrip(b" \t\r")[:120])
    proof = "The program that wrote it calls it a cache" + (f": {writer}" if writer else ".")
    return dataclasses.replace(rules.TAG, proof=proof)


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
    home: bytes
    entries: int = 0
    candidates: list = field(default_factory=list)
    issues: list = field(default_factory=list)
    projects: dict = field(default_factory=dict)
    git_roots: set = field(default_factory=set)
    reasons: dict = field(default_factory=dict)  # of folders, against what lies in them

    def real(self, path):
        return os.path.realpath(self.root) + path[len(self.root):]

    def is_home(self, place):
        own = [os.path.realpath(self.home), pwd.getpwuid(os.getuid()).pw_dir.encode(), b"/root"]
        return place in own or os.path.dirname(place) in (b"/home", b"/Users")

    def is_hidden(self, place):
        return os.path.basename(place).startswith(b".") and self.is_home(os.path.dirname(place))

    def is_avoided(self, entry):
        """What lies in a Trash has been moved already; what version control keeps and what is installed is needed."""
        start, _, number = entry.name.partition(b"-")
        return (start == b".Trash" and (number.isdigit() or entry.name == start) or entry.name in rules.STORES
                or self.real(entry.path) == os.path.realpath(self.home_trash)
                or self.mode == "project" and (entry.name in rules.SENSITIVE
                                               or rules.is_installed(self.real(entry.path), self.is_home)))

    def is_passed_over(self, folder, kinds):
        """Whether nothing in a folder counts, by what is in it."""
        above, name = os.path.split(self.real(folder))
        folders = {name for name, kind in kinds.items() if kind == "directory"}
        others, is_trash = kinds.keys() - folders, name == b"Trash" and folders >= {b"files", b"info"}
        if is_trash or b"HEAD" in others and folders >= {b"objects", b"refs"}:
            return True
        is_environment = b"pyvenv.cfg" in others and not is_project(kinds)
        return self.mode == "project" and folder != self.root and (
            is_program(kinds) or is_environment and not self.project_of(os.path.dirname(folder))
            or os.path.basename(above) == b"extensions"
            and json_text(self.real(folder) + b"/package.json", "engines", "vscode") is not None)

    def project_of(self, path):
        return self.projects.get(nearest(path, self.projects))

    def build_tree(self, folder, kinds):
        """The rule of a folder that is told by what is in it."""
        rule = proven(self.real(folder), kinds) if folder != self.root else None
        return rule if rule and rules.fits(rule, self.project_of(folder)) else None

    def reasons_in(self, folder, kinds):
        """What speaks against all that lies in a folder; of the scanned one also from above."""
        place = self.real(folder)
        if folder != self.root:
            yield from [rules.INSIDE_HIDDEN.format(text(place))] * self.is_hidden(place)
            yield from [rules.INSIDE_INSTALLED.format(text(place))] * (kinds.get(b"pyvenv.cfg", "directory") != "directory")
        yield from reversed(rules.working_copies(folder, kinds))
        while folder == self.root and place != b"/":
            kinds = kinds_in(place)
            if rules.is_installed(place, self.is_home) or is_program(kinds) or (
                    kinds.get(b"pyvenv.cfg", "directory") != "directory"):
                yield rules.INSIDE_INSTALLED.format(text(place))
            elif self.is_hidden(place):
                yield rules.INSIDE_HIDDEN.format(text(place))
            yield from rules.working_copies(place, kinds) if place != self.real(folder) else []
            place = os.path.dirname(place)

    def discover(self):
        """Finds projects, repositories, and what speaks against all that lies in a folder."""
        def listed(folder, kinds):
            if self.is_passed_over(folder, kinds) or self.build_tree(folder, kinds):
                return False
            for name, kind in kinds.items():
                ecosystem = kind != "other" and rules.manifest_kind(name, kind == "directory")
                if ecosystem:
                    project = self.projects.setdefault(folder, Project(folder))
                    project.kinds.add(ecosystem)
                    project.manifests.append(name)
            if b".git" in kinds:
                self.git_roots.add(folder)
            self.reasons[folder] = [*self.reasons_in(folder, kinds)]
            return True

        def visit(entry):
            self.entries += 1
            return entry.is_folder and not (entry.name in rules.ARTEFACT_FOLDERS or self.is_avoided(entry)
                                            or rules.manifest_kind(entry.name, True))

        walk(opened(self.root), self.root, self.issues, visit, listed)
        for project in self.projects.values():
            project.git_root = nearest(project.root, self.git_roots)

    def reasons_around(self, entry, project):
        """What speaks against an item by where it lies, innermost first."""
        folder, reasons = os.path.dirname(entry.path), []
        while len(folder) >= len(self.root):
            for each in self.reasons.get(folder, []):  # one of each kind
                kind = next(kind for kind in rules.CAUTIONS if kind in each)
                reasons += [each] * (not any(kind in told for told in reasons))
            folder = os.path.dirname(folder)
        if entry.is_folder and self.is_hidden(self.real(entry.path)):
            reasons.append(rules.INSIDE_HIDDEN.format(text(self.real(entry.path))))
        if project and self.is_home(self.real(project.root)):
            reasons.append(f"The project around it is a home folder: {text(project.root)}")
        return reasons

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
        now, entered = time.time_ns(), None

        def visit(entry):
            nonlocal entered
            self.entries += 1
            if (entry.kind == "other" or entry.is_folder and self.is_avoided(entry)
                    or in_projects and not entry.is_folder and rules.is_protected(entry.name)):
                return False
            try:
                rule = rules.match(entry.name, entry.is_folder, self.mode, lambda: now - entry.attributes().st_mtime_ns)
                if rule is None:
                    entered = entry
                    return True
                kinds = kinds_in(entry.path) if entry.is_folder and os.access(entry.path, os.R_OK | os.X_OK) else {}
                project = self.project_of(entry.path)
                if in_projects and entry.is_folder and not rules.fits(rule, project):
                    rule = proven(self.real(entry.path), kinds)
                if rule and rule.explanation != rules.TAG.explanation and (
                        project or not rule.pattern.endswith(b"venv") or kinds.get(b"pyvenv.cfg") != "file"):
                    offer(entry, rule)
            except OSError as error:
                self.issues.append(issue(entry.path, error))
            return False

        def listed(folder, kinds):
            if self.is_passed_over(folder, kinds):
                return False
            rule = in_projects and self.build_tree(folder, kinds)
            if rule:
                offer(entered, rule)
            return not rule

        def offer(entry, rule):
            attributes = entry.attributes()
            project = self.project_of(entry.path)
            git_root = project and project.git_root or nearest(entry.path, self.git_roots)
            status, has_repository = status_among(entry, git_root, snapshots)
            judgement = rules.judge(rule, project, status, has_repository) if in_projects else {
                "safety": rule.safety, "confidence": "high", "isSelected": False, "regenerationCommand": None,
                "evidence": ["Matched the Downloads cleanup rule."]}
            if judgement is None:
                return
            size, reasons = attributes.st_blocks * 512, self.reasons_around(entry, project)
            if entry.is_folder:
                size, entries, issues, signs = measure(entry.open, entry.path, rule, entry.path[len(self.root) + 1:])
                self.entries += entries
                self.issues += issues
                reasons += signs
            self.add(entry.path, entry.kind, size, attributes, rule, rules.cautioned(judgement, reasons), project,
                     git_root, status)

        walk(opened(self.root), self.root, self.issues, visit, listed)

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
                size, _, issues, signs = measure(opened(path), path, rule, path[len(self.root) + 1:])
                self.issues += issues
                if size > 0:
                    self.add(path, "directory", size, os.lstat(path), rule, rules.cautioned({
                        "safety": rule.safety, "confidence": "high", "isSelected": rule.safety == "safe",
                        "regenerationCommand": rule.command,
                        "evidence": [f"Well-known developer cache location (~/{rule.pattern.decode()})."]}, signs))

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


def expected_document(folder, mode, home_trash, working_directory, home):
    """The document for a folder as it is named on a command line in a working directory."""
    scan = Scan(os.path.normpath(os.path.join(working_directory, folder)), mode, home_trash, home)
    scan.scan_caches() if mode == "caches" else scan.scan_tree()
    return scan.document()
