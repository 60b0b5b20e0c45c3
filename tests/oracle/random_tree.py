"""Folders that are as unpleasant to scan as a seed can make them."""

import os
import time
from dataclasses import dataclass, field

import nasty_names
import rules
from random_repositories import Repositories

DAY = 86400 * 10**9
MINUTE = 60 * 10**9


@dataclass
class Tree:
    """A built tree: the folder argument, the folder to stand in, and the folder that both name."""

    root: bytes
    argument: bytes
    working_directory: bytes
    unreadable: list = field(default_factory=list)  # (folder, mode), to be set last

    @property
    def data(self):
        """The folder that holds the user's own Trash."""
        return self.root + b"/share"


class Builder(Repositories):
    budget = 60  # folders of a project tree that may still be populated

    def populate(self, folder, depth=0):
        """A folder that the walk goes through."""
        self.budget -= 1
        kinds = self.manifests(folder) if self.chance(0.65) else set()
        fitting = [rule for rule in rules.PROJECT_RULES
                   if not rules.POLICIES[rule.id].kinds or rules.POLICIES[rule.id].kinds & kinds]
        own = [rule for rule in fitting if rules.POLICIES[rule.id].kinds]
        for rule in self.some(own, 5) + self.some(fitting, 4) + self.some(rules.PROJECT_RULES, 3):
            self.artefact(folder, rule)
        for name in self.some(nasty_names.LOGS, 2) + self.some(nasty_names.PROTECTED, 2):
            self.file(folder + b"/" + name)
        if self.chance(0.3):
            self.any_link(folder + b"/" + self.name())
        if self.chance(0.15):
            self.special(folder + b"/" + self.name())
        if self.chance(0.25):
            sensitive = folder + b"/" + self.random.choice(sorted(rules.SENSITIVE_DIRECTORIES - {b".git"}))
            if self.folder(sensitive):
                self.file(sensitive + b"/package.json", 10)
                self.file(sensitive + b"/x.log")
                self.folder(sensitive + b"/node_modules")
        if self.chance(0.1):
            self.file(folder + b"/" + self.random.choice(sorted(rules.SENSITIVE_DIRECTORIES - {b".git"})))
        if self.chance(0.5):
            lines = self.some(nasty_names.IGNORE_LINES, 6)
            lines += [rule.text.encode() for rule in self.some(rules.PROJECT_RULES, 40)]
            self.random.shuffle(lines)
            self.file(folder + b"/.gitignore", content=b"\n".join(lines) + b"\n")
        if self.chance(0.05):
            self.any_link(folder + b"/.git")
        elif self.chance(0.6 if depth == 0 else 0.18):
            self.repositories.append(folder)
        for _ in range(self.random.randint(0 if depth else 2, 4)):
            inner = folder + b"/" + self.name()
            if depth < 4 and self.budget > 0 and self.folder(inner):
                self.populate(inner, depth + 1)

    # -- arrangements that chance alone would seldom make

    def sibling_order(self, folder):
        """Artefacts of one size whose folders sort differently as names and as whole paths."""
        for name in [b"a", b"a-b", b"a b", b"a!", b"a.b", b"a0", b"A", "a\u0301".encode(), b"a\xff", b"b"]:
            inner = folder + b"/" + name
            if self.folder(inner):
                self.file(inner + b"/package.json", 10)
                for artefact in (b".next", b"node_modules", b"coverage"):
                    if self.folder(inner + b"/" + artefact):
                        self.file(inner + b"/" + artefact + b"/same", 4096)

    def path_lengths(self, folder):
        """Projects whose paths are ordered one way in bytes and another in characters."""
        for name in ["ééé".encode(), b"abcd", b"abc", "日本".encode(), b"\xe2\x82", b"\xe2\x82\xac", b"\xed\xa0\x80",
                     b"\xf0\x9f\xa7\xb9", "e\u0301".encode(), "é".encode(), b"ab", b"zz"]:
            inner = folder + b"/" + name
            if self.folder(inner):
                self.file(inner + b"/go.mod", 10)
                if self.chance(0.5):
                    self.file(inner + b"/a.log", 4096)
                if self.chance(0.3):
                    self.repositories.append(inner)

    def nested_repositories(self, folder):
        """A project with a repository, and below it a repository without a manifest: the project's one judges,
        but what either tracks is not offered."""
        project = folder + b"/nested-project"
        if not self.folder(project):
            return
        self.file(project + b"/package.json", 10)
        self.file(project + b"/.gitignore", content=self.random.choice([b"", b".next/\n", b"plain/\n", b"*.log\n"]))
        for name in (b"plain", b"plain/deeper"):
            inner = project + b"/" + name
            self.folder(inner)
            self.file(inner + b"/.gitignore", content=self.random.choice([b"", b"*\n", b".next\ncoverage\n"]))
            self.file(inner + b"/tool.log", 4096)
            for artefact in (b".next", b"coverage", b"node_modules"):
                self.folder(inner + b"/" + artefact)
                self.file(inner + b"/" + artefact + b"/f", 4096)
            self.repositories.append(inner)
        self.repositories.append(project)

    def chain(self, folder, name, depth, last):
        """Folders inside each other, also beyond the longest path that the system takes at once."""
        top = folder + b"/" + name
        if not self.folder(top):
            return
        here = os.open(top, os.O_RDONLY)
        for _ in range(depth):
            os.mkdir(name, dir_fd=here)
            inner = os.open(name, os.O_RDONLY, dir_fd=here)
            os.close(here)
            here = inner
        for bottom in last:
            os.mkdir(bottom, dir_fd=here)
            os.close(os.open(bottom + b"/x.log", os.O_CREAT | os.O_WRONLY, dir_fd=here))
        os.close(os.open(b"end.log", os.O_CREAT | os.O_WRONLY, dir_fd=here))
        os.close(here)

    # -- times and modes

    def below(self, folder):
        for place, folders, files in os.walk(folder):
            folders[:] = sorted(name for name in folders if name != b".git")
            for name in sorted(folders + files):
                if len(place) + len(name) < 4000:
                    yield place + b"/" + name

    def set_times(self):
        now = time.time_ns()
        for path in list(self.below(self.root)):
            if self.chance(0.3):
                moment = self.random.choice([
                    now // 10**9 * 10**9, now - self.random.randrange(10**18), 0, 1, -1, -10**9, -(10**18) - 7,
                    10**9 - 1, 1_700_000_000 * 10**9 + 1, 1_700_000_000 * 10**9 + 12_345_678,
                    951_782_400 * 10**9, 4 * 10**18,
                ])
                os.utime(path, ns=(moment, moment), follow_symlinks=False)

    def choose_unreadable(self, mode):
        """Folders that their owner may not list. Where every file is looked at and none can vanish from the
        result (inside what is measured), also folders that may be listed but not searched."""
        chosen = []
        for path in self.below(self.root):
            if os.path.islink(path) or not os.path.isdir(path) or not self.chance(0.08):
                continue
            inside = os.path.dirname(path)[len(self.root):].split(b"/")
            measured = mode == "caches" or mode == "project" and any(
                name in rules.ARTEFACT_DIRECTORIES for name in inside)
            chosen.append((path, self.random.choice([0o000, 0o000, 0o111] + [0o444] * (2 * measured))))
        stores = [folder + b"/.git" for folder in self.repositories if os.path.isdir(folder + b"/.git")]
        return chosen + [(store, 0o000) for store in stores if self.chance(0.1)]

    def trashes(self):
        """Trashes with what would be offered elsewhere, and folders that only look like one."""
        for name in self.some([b"share/Trash", b"Trash", b"zone/Trash", b".Trash", b".Trash-0", b".Trash-1000/files",
                               b"zone/.Trash-5", b".Trash-", b".Trash-x", b".trash", b"share/Trash-0"], 6):
            folder = self.root
            for part in [*name.split(b"/"), b"files", b"app"]:
                folder += b"/" + part
                self.folder(folder)
            self.file(folder + b"/package.json", 10)
            self.file(folder + b"/old.csv", 4096)
            self.folder(folder + b"/.next")
            self.file(folder + b"/.next/page", 4096)
            self.repositories += [folder] * self.chance(0.3)

    # -- the three kinds of tree

    def project_tree(self):
        arrangements = [
            self.sibling_order, self.path_lengths, self.nested_repositories,
            lambda folder: self.chain(folder, b"d", 290, [b".next"]),
            lambda folder: self.chain(folder, b"L" * 255, 18, [b".next", b"node_modules", b"target"]),
        ]
        for arrange in arrangements:
            if self.chance(0.35):
                where = self.root + b"/" + self.random.choice([b"zone", b"Zone 1", b"_"])
                self.folder(where)
                arrange(where)
        if self.chance(0.5):
            self.trashes()
        self.populate(self.root)
        self.random.shuffle(self.repositories)
        for folder in self.repositories:
            self.repository(folder)
        self.set_times()

    def downloads_tree(self):
        folders = [self.root]
        for name in self.some(nasty_names.ODD_NAMES, 6) + [b"old.dmg", b"data", b"node_modules", b".git", b".hidden"]:
            path = self.random.choice(folders) + b"/" + name
            if self.chance(0.7) and len(path) < 900 and self.folder(path):
                folders.append(path)
        for folder in folders:
            for name in self.some(nasty_names.DOWNLOADS, 60 if folder == self.root else 20):
                roll = self.random.random()
                path = folder + b"/" + name
                if roll < 0.05:
                    self.folder(path)
                elif roll < 0.1:
                    self.any_link(path)
                elif roll < 0.13:
                    self.special(path)
                elif roll < 0.18:
                    self.hard_link(folder, path)
                else:
                    self.file(path)
        if self.chance(0.2):
            self.chain(self.root, b"L" * 255, 18, [])
        if self.chance(0.5):
            self.trashes()
        if self.chance(0.2):
            self.file(self.root + b"/package.json", 10)
            self.git(self.root, "init", "-q", "--template=")
        now = time.time_ns()
        for path in list(self.below(self.root)):
            moments = [
                now, now - MINUTE, now - 7 * DAY + 5 * MINUTE, now - 7 * DAY - 5 * MINUTE,
                now - 30 * DAY + 5 * MINUTE, now - 30 * DAY - 5 * MINUTE, now - 400 * DAY, now + 60 * DAY, 0, -1,
                -(10**18) - 1, (now - 100 * DAY) // 10**9 * 10**9, (now - 10 * DAY) // 10**9 * 10**9,
            ]
            rule = rules.match(os.path.basename(path), "file", "downloads", lambda: float("inf"))
            if rule is not None and rule.minimum_age is not None and os.lstat(path).st_nlink == 1:
                moments.append(13_569_465_600 * 10**9)  # the year 2400, later than signed nanoseconds reach
            moment = self.random.choice(moments)
            os.utime(path, ns=(moment, moment), follow_symlinks=False)

    def cache_parents(self, location):
        """The folders above a location, now and then through a link; False when one of them is in the way."""
        path = self.root
        for name in location.split(b"/")[:-1]:
            path += b"/" + name
            if not os.path.lexists(path):
                roll = self.random.random()
                if roll < 0.06:
                    real = self.root + b"/real %d" % self.random.getrandbits(30)
                    os.mkdir(real)
                    self.link(path, self.random.choice([real, os.path.relpath(real, os.path.dirname(path))]))
                elif roll < 0.1:
                    real = self.outside + b"/%d" % self.random.getrandbits(30)
                    os.mkdir(real)
                    self.link(path, real)
                elif roll < 0.13:
                    self.link(path, self.random.choice([b".", b"..", b"nowhere", name, self.root]))
                else:
                    os.mkdir(path)
            if not os.path.isdir(path):
                return False
        return True

    def cache_contents(self, folder):
        roll = self.random.random()
        if roll < 0.12:
            return
        if roll < 0.22:
            self.file(folder + b"/empty", content=b"")
            self.folder(folder + b"/empty folder")
        elif roll < 0.4:
            self.file(folder + b"/same", 4096)
        elif roll < 0.5:
            self.many_entries(folder)
        else:
            self.fill(folder)
            self.fill(folder)

    def caches_tree(self):
        for target in self.random.sample(rules.CACHE_TARGETS, len(rules.CACHE_TARGETS)):
            location = target.relative_path.encode()
            path = self.root + b"/" + location
            roll = self.random.random()
            if roll < 0.1 or not self.cache_parents(location) or os.path.lexists(path):
                continue
            if roll < 0.14:
                self.any_link(path)
            elif roll < 0.2:
                os.makedirs(self.root + b"/moved/App", exist_ok=True)
                self.file(self.root + b"/moved/App/file", 5000)
                self.link(path, self.random.choice([self.outside + b"/big", self.root + b"/moved"]))
            elif roll < 0.24:
                self.file(path)
            elif roll < 0.27:
                self.special(path)
            elif self.folder(path) and not target.expands_children:
                self.cache_contents(path)
            elif target.expands_children:
                names = self.some([b"App-abc", b"16.1 (20B82)", b".hidden", b"..x"], 3)
                names += self.some(nasty_names.ODD_NAMES, 6)
                for name in names:
                    child = path + b"/" + name
                    build = self.random.choice([self.folder] * 6 + [self.file, self.any_link, self.special])
                    if build(child) and os.path.isdir(child) and not os.path.islink(child):
                        self.cache_contents(child)
        self.fill(self.root)
        self.set_times()

    def build(self, mode, unreadable):
        os.mkdir(self.root)
        os.mkdir(self.outside)
        self.file(self.outside + b"/package.json", 10)
        self.file(self.outside + b"/shared", 30000)
        self.folder(self.outside + b"/big")
        self.file(self.outside + b"/big/file", 200000)
        lies_in_repository = self.chance(0.2)
        if lies_in_repository:
            # A repository and a manifest above the scanned folder, of which only what it tracks may count.
            self.git(self.base, "init", "-q", "--template=", must_work=True)
            self.write(self.base + b"/package.json", b"{}")
            self.write(self.base + b"/.gitignore", b"\n".join(self.some(nasty_names.IGNORE_LINES, 5)) + b"\n")
        {"project": self.project_tree, "downloads": self.downloads_tree, "caches": self.caches_tree}[mode]()
        if lies_in_repository:
            for path in self.some(sorted(self.below(self.root)), 20):
                self.git(self.base, "add", "-f", "--", path)
        tree = self.named()
        if unreadable:
            tree.unreadable = self.choose_unreadable(mode)
        return tree

    def named(self):
        """One of the many ways to name the same folder on a command line."""
        name = os.path.basename(self.root)
        shape = self.random.choice(["absolute", "absolute", "slash", "relative", "dots", "lexical", "link", "here"])
        if shape == "slash":
            return Tree(self.root, self.root + b"//", self.base)
        if shape == "relative":
            return Tree(self.root, b"./" + name if name.startswith(b"-") else name, self.base)
        if shape == "dots":
            return Tree(self.root, b".././" + name + b"/.", self.outside)
        if shape == "lexical":
            return Tree(self.root, b"not-there/../" + name, self.base)
        if shape == "link":
            os.symlink(name, self.base + b"/link to root")
            return Tree(self.root, b"link to root", self.base)
        if shape == "here":
            return Tree(self.root, b".", self.root)
        return Tree(self.root, self.root, self.base)


def build_tree(seed, mode, base, unreadable=False):
    """Builds the tree of a seed below the empty folder base (absolute, links resolved)."""
    return Builder(seed, mode, base).build(mode, unreadable)
