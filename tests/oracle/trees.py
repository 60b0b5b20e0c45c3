"""Folders that are as unpleasant to scan as a seed can make them."""

import contextlib
import json
import os
import random
import subprocess
import time

import rules
from nasty_names import IGNORE_LINES, ODD_NAMES, STEMS, near

ROOT_NAMES = [b"work", b"build", b"-dash", b"100% done", b"line\nbreak", b"caf\xe9", "Проекты".encode(), b" ",
              b"x.xcodeproj", b".x", b"snap", b"uv", b"extensions"]
PLAIN_NAMES = [b"src", b"lib", b"app", b"web", b"docs", b"one", b"two", b"x"]
SIZES = [0, 0, 1, 100, 4096, 4096, 4096, 4097, 8192, 20000, 70000]
MINUTE = 60 * 10**9
NOW = time.time_ns()
OLD_TIMES = [0, 1, -1, -(10**18) - 7, 10**9 - 1, 1_700_000_000 * 10**9, 1_700_000_000 * 10**9 + 12_345_678]
YEAR_2400 = 13_569_465_600 * 10**9  # later than signed nanoseconds reach


class Tree:
    """Built in `base` (empty, absolute, links resolved); `argument` and `working_directory` name its `root`."""

    budget = 60  # folders that may still be populated

    def __init__(self, seed, mode, base):
        self.random = random.Random(f"{mode} {seed}")
        name = self.random.choice(ROOT_NAMES)
        self.base, self.root, self.outside = base, base + b"/" + name, base + b"/" + name + b"2"
        self.repositories = []  # folders that are to become repositories
        os.mkdir(self.root)
        self.plant(self.outside, b"package.json", b"shared", b"big/file")
        self.data = self.random.choice([self.root + b"/share", os.path.dirname(base) + b"/data"])  # of the own Trash
        self.home = self.random.choice([base + b"/none", base, self.root, self.root + b"/home"])
        lies_in_repository = self.chance(0.2)
        {"project": self.project, "downloads": self.downloads, "caches": self.caches}[mode]()
        if lies_in_repository:  # of which only what it tracks may count
            self.git(base, "init", "-q", "--template=")
            self.plant(base, b"package.json")
            self.ignore(base)
            for path in self.some(sorted(self.below(self.root)), 6):
                self.git(base, "add", "-f", "--", path)
        os.symlink(name, base + b"/link to root")
        self.argument, self.working_directory = self.random.choice([
            (self.root, base), (self.root + b"//", base), (b"./" + name, base), (b".././" + name + b"/.", self.outside),
            (b"not-there/../" + name, base), (b"link to root", base), (b".", self.root)])
        self.closed = self.closable() if self.chance(0.25) else []

    def chance(self, probability):
        return self.random.random() < probability

    def some(self, choices, most):
        return self.random.sample(choices, self.random.randint(0, min(most, len(choices))))

    # -- entries; what is there already stays

    def folder(self, path):
        os.path.lexists(path) or os.mkdir(path)

    def file(self, path, content=None):
        if os.path.lexists(path):
            return
        with open(path, "wb") as out:
            if content is None and self.chance(0.04):
                out.truncate(1_500_000)
                out.seek(1_000_000)
            out.write(b"x" * self.random.choice(SIZES) if content is None else content)

    def plant(self, folder, *paths):
        for path in paths:
            os.makedirs(os.path.dirname(folder + b"/" + path), exist_ok=True)
            self.file(folder + b"/" + path, b"x" * 4096)

    def link(self, path, *targets):
        os.path.lexists(path) or os.symlink(self.random.choice(targets), path)

    def anything(self, path):
        kind = self.random.randrange(9)
        if kind < 3:
            self.folder(path)
        elif kind < 6 or os.path.lexists(path):
            self.file(path)
        elif kind == 6:
            self.link(path, b"nowhere", b".", b"..", b"/", os.path.basename(path), self.root, self.outside, b"/dev/null",
                      self.outside + b"/big", self.outside + b"/package.json", b"package.json", b"src", b"build")
        elif kind == 7 and not (b"/.git" in path or b"/git-" in path):  # for which Git would wait
            os.mkfifo(path)
        else:
            near_it = [item.path for item in os.scandir(os.path.dirname(path)) if item.is_file(follow_symlinks=False)]
            os.link(self.random.choice([*sorted(near_it), self.outside + b"/shared"]), path)

    @staticmethod
    def is_folder(path):
        return os.path.isdir(path) and not os.path.islink(path)

    def name(self):
        return self.random.choice(ODD_NAMES if self.chance(0.45) else PLAIN_NAMES)

    def named(self, pattern):
        """A name that a pattern accepts, or now and then one that only looks like it."""
        start, star, end = pattern.strip(b"/").partition(b"*")
        name = start + (self.random.choice(STEMS) if star else b"") + end
        return self.random.choice(near(name)) if self.chance(0.2) else name

    def known(self):
        """A name that some rule knows."""
        tables = [rules.MANIFESTS, rules.PROTECTED, rules.ARTEFACT_FOLDERS, [b"*.log", b".env.*"],
                  [b"*" + ending for ending in rules.PROTECTED_ENDINGS]]
        return self.named(self.random.choice(sorted(self.random.choice(tables))))

    def fill(self, folder, depth=0):
        """What an artefact holds: anything at all, or more than is read at once."""
        for number in range(self.random.choice([127, 128, 129, 256]) if self.chance(0.05) else 0):
            (self.anything if number % 40 == 7 else self.file)(folder + b"/%d" % number)
        for _ in range(self.random.choice([0, 1, 1, 2, 3, 5])):
            path = folder + b"/" + self.random.choice([self.name(), self.known(), b".git", b"data", b"same"])
            self.anything(path)
            if depth < 3 and self.is_folder(path):
                self.fill(path, depth + 1)

    def chain(self, name, depth, last):
        """Folders inside each other, also beyond the longest path that the system takes at once."""
        here = os.open(self.root, os.O_RDONLY)
        for inner in [name] * depth + [last]:
            os.mkdir(inner, dir_fd=here)
            os.close(os.open(b"end.log", os.O_CREAT | os.O_WRONLY, dir_fd=here))
            here, outer = os.open(inner, os.O_RDONLY, dir_fd=here), here
            os.close(outer)
        os.close(here)

    def below(self, folder):
        for place, folders, files in os.walk(folder):
            folders[:] = sorted(name for name in folders if name != b".git")
            yield from (place + b"/" + name for name in sorted(folders + files) if len(place) + len(name) < 4000)

    def set_times(self, moments):
        for path in list(self.below(self.root)):
            if self.chance(0.5):
                os.utime(path, ns=(self.random.choice(moments),) * 2, follow_symlinks=False)

    def closable(self):
        """Folders that their owner shall not list or not enter, and the modes that see to it, innermost first."""
        stores = [folder + b"/.git" for folder in self.repositories]
        folders = {path for path in [*self.below(self.root), *stores] if self.chance(0.08) and self.is_folder(path)}
        return [(path, self.random.choice([0o000, 0o111])) for path in sorted(folders, reverse=True)]

    # -- repositories

    def git(self, folder, *arguments, stdin=b""):
        """Some of what is asked cannot be done in such folders, which is as good."""
        return subprocess.run(["git", "-C", folder, "-c", "user.name=A", "-c", "user.email=a@b.org", *arguments],
                              env={"PATH": "/usr/bin:/bin", "HOME": "/nonexistent"}, input=stdin,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

    def ignore(self, folder):
        lines = self.some(IGNORE_LINES, 6) + [rule.pattern for rule in self.some(rules.PROJECT_RULES, 40)]
        self.random.shuffle(lines)
        self.file(folder + b"/.gitignore", b"\n".join(lines) + b"\n")

    def repository(self, folder):
        git = folder + b"/.git"
        if self.chance(0.1):
            self.anything(git)
        if os.path.lexists(git):
            return
        store = self.base + b"/git-%d" % self.random.getrandbits(40) if self.chance(0.1) else git
        self.git(folder, "init", "-q", "--template=", *[b"--separate-git-dir=" + store] * (store != git))
        os.mkdir(store + b"/info")
        self.file(store + b"/info/exclude", b"\n".join(self.some(IGNORE_LINES, 2)) + b"\n")
        self.index(folder)
        where = folder + b"/" + self.random.choice([b"worktree", b"build", b".cache", b"src", b"x y"])
        if self.chance(0.2) and not os.path.lexists(where):
            self.git(folder, "commit", "-q", "--allow-empty", "-m", "x")
            self.git(folder, "worktree", "add", "-q", "--detach", where)
            self.plant(where, b"package.json", b"fresh.log")
        if self.chance(0.2):
            self.git(folder, "config", *self.random.choice([
                ("core.repositoryFormatVersion", "99"), ("core.bare", "true"), ("core.worktree", "../.."),
                ("core.excludesFile", "~/ignore")]))
        elif self.chance(0.1):
            lost = store + b"/" + self.random.choice([b"objects", b"HEAD", b"index", b"refs"])
            if os.path.lexists(lost):
                os.rename(lost, lost + b" lost")
                self.anything(lost)

    def index(self, folder):
        """What is tracked: everything, or some files; now and then what was deleted since, or is unmerged."""
        if self.chance(0.25):
            self.git(folder, "add", "-A", "--ignore-errors")
        files = [path for path in self.git(folder, "ls-files", "-z", "--others").split(b"\0")
                 if path and not path.endswith(b"/") and self.chance(0.4)
                 and not (self.chance(0.8) and rules.ARTEFACT_FOLDERS.intersection(path.split(b"/")))]
        self.git(folder, "update-index", "--add", "-z", "--stdin", stdin=b"".join(path + b"\0" for path in files))
        for path in files:
            if self.chance(0.05):
                os.unlink(folder + b"/" + path)
                self.anything(folder + b"/" + path)
        blob = self.git(folder, "hash-object", "-w", "--stdin", stdin=b"x").strip()
        name = self.random.choice(rules.PROJECT_RULES).pattern
        sides = b"".join(b"100644 %s %d\t%s/both.txt\0" % (blob, side, name) for side in (1, 2, 3))
        link = b"160000 " + b"1" * 40 + b" 0\t" + name + b"\0"
        self.git(folder, "update-index", "-z", "--index-info", stdin=self.random.choice([b""] * 6 + [sides, link]))

    # -- projects

    def artefact(self, folder, rule):
        path = folder + b"/" + self.named(rule.pattern)
        self.random.choice([self.folder if rule.is_folder else self.file] * 8 + [self.anything])(path)
        if self.is_folder(path):
            self.plant(path, b"same") if self.chance(0.4) else self.fill(path)
            self.signs(path)
            self.repositories += [path] * self.chance(0.05)

    def signs(self, path):
        """What speaks against an item, in it."""
        for place in [path + b"/in/er"] * (self.chance(0.5) and not os.path.lexists(path + b"/in")):
            os.makedirs(place)
        known = sorted({*rules.MARKS, *rules.REPEATED, *rules.SOURCE_ENDINGS, *rules.PROTECTED_ENDINGS, b".env.py"})
        for sign in self.some(known, 3):
            place = path + self.random.choice([b"", b"", b"/in", b"/in/er"])
            if self.is_folder(place):
                self.anything(place + b"/" + (b"x" + sign if sign in rules.SOURCE_ENDINGS else sign))
        self.plant(path, *self.some([b"pyvenv.cfg"], 1))

    def inventory(self, folder):
        """Working copies, programs and build trees, some of which prove nothing."""
        self.anything(folder + b"/" + self.random.choice([*rules.MARKS])) if self.chance(0.1) else None
        name = self.random.choice([*rules.INSTALLED, b"~/.own", b"extensions/tool"]).strip(b"~/")
        name = name.replace(b"*", self.random.choice([b"", b"-x"]))
        place = self.random.choice([self.root + b"/home", self.root, folder]) + b"/"
        places = [place + self.random.choice(near(name) if self.chance(0.2) else [name]),
                  folder + b"/" + self.random.choice([b"tree", b"Trash", b".own", *sorted(rules.ARTEFACT_FOLDERS)])]
        holdings = [[b"HEAD", b"objects/x", b"refs/x"], [b"files/x", b"info/x"], [b"conda-meta/x"], [b"pyvenv.cfg"],
                    [b"resources/x", b"chrome-sandbox"], [b"resources/x", b"chrome_100_percent.pak"], [b"x"],
                    [b"package.json"], [b"pyvenv.cfg", b"package.json"], [b".hg/x", b"pyvenv.cfg"]]
        for place in self.some(places, 2):
            with contextlib.suppress(OSError):  # something else is there
                self.plant(place, *self.random.choice(holdings)[self.chance(0.1):], b"old.csv")
                self.plant(place, *self.some([b"package.json", b".next/x", b"in/go.mod", b"in/.git/x", b"old.log"], 3))
                self.build_tree(place) if self.chance(0.5) else None

    def build_tree(self, path):
        """What proves a build tree or an extension, or only nearly does."""
        around = [self.outside, self.outside + b"/./x'y/../", self.root, self.root + b"/my src", os.path.dirname(path)]
        sources = self.random.choice([*around, path, path + b"/in", b"rel"])
        self.plant(os.path.normpath(os.path.join(path, sources)), *self.some([b"CMakeLists.txt", b"meson.build"], 2))
        key = b"\nCMAKE_HOME_DIRECTORY:INTERNAL="
        tag = b"Signature: 8a477f597d28d172789f06886806bc55" + self.random.choice([
            b"", b"x", b"\n", b"\n# made by x \t\r\nmore", b"\n#\t", b"\n" + "é".encode() * 70])
        info = {"directories": {"source": sources.decode(errors="replace")}}
        needs = {"engines": self.random.choice([{"vscode": "1"}, {"vscode": 1}, ["vscode"]])}
        proofs = [(b"CMakeCache.txt", b"#" + key + sources + key + b"/\n"), (b"CACHEDIR.TAG", tag),
                  (b".rustc_info.json", b"{}"), (b"meson-private/coredata.dat", b"x"),
                  (b"meson-info/meson-info.json", json.dumps(info).encode())]
        for name, content in self.some(proofs, 5) + [(b"package.json", json.dumps(needs).encode())] * self.chance(0.1):
            os.makedirs(os.path.dirname(path + b"/" + name), exist_ok=True)
            self.file(path + b"/" + name, content) if self.chance(0.95) else self.anything(path + b"/" + name)

    def populate(self, folder, depth=0):
        """A folder that the walk goes through."""
        self.budget -= 1
        names = [self.named(pattern) for pattern in self.some(sorted(rules.MANIFESTS), 3) if self.chance(0.65)]
        for name in names:
            (self.file if self.chance(0.95) else self.anything)(folder + b"/" + name)
        kinds = {rules.manifest_kind(name, False) for name in names}
        own = [rule for rule in rules.PROJECT_RULES if rule.kinds & kinds]
        for rule in self.some(own, 5) + self.some(rules.PROJECT_RULES, 5):
            self.artefact(folder, rule)
        special = [b"*.xcodeproj", b"*.xcworkspace", *sorted(rules.SENSITIVE - {b".git"})]
        for name in [self.name(), self.known(), self.known(), *[self.named(name) for name in self.some(special, 2)]]:
            self.anything(folder + b"/" + name)
            if self.is_folder(folder + b"/" + name):  # nothing in them makes a project
                self.plant(folder + b"/" + name, *self.some([b"package.json", b"x.log", b"i/go.mod", b"i/.next/x"], 4))
                self.repositories += [folder + b"/" + name] * self.chance(0.3)
        if self.chance(0.5):
            self.inventory(folder)
        if self.chance(0.5):
            self.ignore(folder)
        self.repositories += [folder] * self.chance(0.2 if depth else 0.6)
        for _ in range(self.random.randint(0 if depth else 2, 4)):
            inner = folder + b"/" + self.name()
            if depth < 4 and self.budget > 0 and not os.path.lexists(inner):
                os.mkdir(inner)
                self.populate(inner, depth + 1)

    def siblings(self):
        """Projects whose paths are ordered otherwise as names, as bytes and as characters, with equal items in them."""
        names = ["a", "a-b", "a b", "a!", "a.b", "A", "a\u0301", "ééé", "abcd", "abc", "日本", "\U0001f9f9", "ab"]
        for name in [*map(str.encode, names), b"a\xff", b"\xe2\x82", b"\xed\xa0\x80"]:
            self.plant(self.root + b"/ordered " + name, b"package.json", b".next/same", b"coverage/same",
                       b"A.xcodeproj/go.mod", b"A.xcworkspace/go.mod", b"B.xcodeproj/go.mod")

    def nested_repositories(self):
        """A project with a repository, and below it repositories without a manifest: the project's one judges, but
        what any of them tracks is not offered."""
        for place in [self.root + b"/nested" + inner for inner in (b"", b"/plain", b"/plain/deeper")]:
            self.plant(place, b"tool.log", b".next/f", b"coverage/f")
            self.file(place + b"/.gitignore", self.random.choice([b"", b"*\n", b".next\ncoverage\n", b"plain/\n*.log\n"]))
            self.repositories.append(place)
        self.plant(self.root, b"nested/package.json")

    def trashes(self):
        """Trashes with what would be offered elsewhere, and folders that only look like one."""
        for name in self.some([b"share/Trash", b"Trash", b".Trash", b".Trash-0", b".Trash-1000/files", b"a/.Trash-5",
                               b".Trash-", b".Trash-x", b".trash", b"share/Trash-0"], 6):
            self.plant(self.root + b"/" + name, b"package.json", b"old.csv", b".next/page")
            self.repositories += [self.root + b"/" + name] * self.chance(0.3)

    def project(self):
        for arrange in [self.siblings, self.nested_repositories, self.trashes,
                        lambda: self.chain(*self.random.choice([(b"d", 290), (b"L" * 255, 18)]), b".next")]:
            if self.chance(0.35):
                arrange()
        for place in [self.root] * self.chance(0.1) + [self.base] * self.chance(0.1):
            self.plant(place, self.random.choice([b"conda-meta/x", b"pyvenv.cfg", b".hg", b".svn/x"]))
        if self.home == self.root + b"/home":
            self.plant(self.home, b".own/.next/x", b".own/package.json", b".next/x", b".DS_Store",
                       *self.some([b"go.mod"], 1))
        self.populate(self.root)
        self.random.shuffle(self.repositories)
        for folder in self.repositories:
            self.repository(folder)
        self.set_times([NOW, *OLD_TIMES])

    def downloads(self):
        folders = [self.root]
        for name in self.some(ODD_NAMES, 6) + [b"old.dmg", b"data", b"node_modules", b".git", b".hidden"]:
            folders.append(self.random.choice(folders)[:900] + b"/" + name)
            self.folder(folders[-1])
        for folder in folders:
            for _ in range(40 if folder == self.root else 10):
                path = folder + b"/" + self.named(self.random.choice(rules.DOWNLOADS_RULES).pattern)
                (self.anything if self.chance(0.2) else self.file)(path)
        self.inventory(self.random.choice(folders[:4]))
        if self.chance(0.3):
            self.trashes()
        edges = [NOW - days * rules.DAY + difference for days in (7, 30) for difference in (5 * MINUTE, -5 * MINUTE)]
        self.set_times([NOW, *edges, NOW - 400 * rules.DAY, NOW + 60 * rules.DAY, YEAR_2400, *OLD_TIMES])

    def caches(self):
        self.plant(self.root, b"moved/App/file")
        places = [self.outside + b"/big", self.root + b"/moved"]
        for rule in self.random.sample(rules.CACHES, len(rules.CACHES)):
            path = self.root
            for name in rule.pattern.split(b"/"):
                path += b"/" + name
                if self.chance(0.06):
                    self.link(path, *places, os.path.relpath(places[1], os.path.dirname(path)), b".", b"..", b"nowhere")
                elif self.chance(0.02):
                    self.anything(path)
                if not os.path.realpath(path).startswith(self.base):
                    break  # no matter of ours
                self.folder(path)
                if not os.path.isdir(path):
                    break
            parts = [b"/App-abc", b"/.hidden", b"/..x", *[b"/" + name for name in self.some(ODD_NAMES, 6)]]
            for part in self.some(parts, 6) if rule.is_in_parts else [b""]:
                if os.path.isdir(path):
                    self.folder(path + part) if self.chance(0.8) else self.anything(path + part)
                if self.is_folder(path + part):
                    self.plant(path + part, b"same") if self.chance(0.2) else self.fill(path + part)
                    self.signs(path + part)
        self.set_times([NOW, *OLD_TIMES])
