"""Single entries of a random tree, and the artefacts and manifests made of them."""

import os
import random
import stat

import nasty_names
import rules

SIZES = [0, 0, 1, 100, 4096, 4096, 4096, 4097, 8192, 8192, 20000, 70000]


class Entries:
    """Makes entries; the functions that take a path return False when the name is taken."""

    def __init__(self, seed, mode, base):
        self.random = random.Random(f"{mode} {seed}")
        self.base = base
        self.root = base + b"/" + self.random.choice(nasty_names.ROOT_NAMES)
        self.outside = base + b"/" + os.path.basename(self.root) + b"2"
        self.repositories = []  # folders that are to become repositories

    def chance(self, probability):
        return self.random.random() < probability

    def some(self, choices, most):
        return self.random.sample(choices, self.random.randint(0, min(most, len(choices))))

    def folder(self, path):
        if os.path.lexists(path):
            return False
        os.mkdir(path)
        return True

    def file(self, path, size=None, content=None):
        if os.path.lexists(path):
            return False
        with open(path, "wb") as out:
            if content is not None:
                out.write(content)
            elif self.chance(0.04):
                out.truncate(1_500_000)
                if self.chance(0.5):
                    out.seek(1_000_000)
                    out.write(b"x" * 5000)
            else:
                out.write(b"x" * (self.random.choice(SIZES) if size is None else size))
        return True

    def link(self, path, target):
        if os.path.lexists(path):
            return False
        os.symlink(target, path)
        return True

    def any_link(self, path):
        return self.link(path, self.random.choice([
            b"nowhere", b".", b"..", b"../..", b"/", os.path.basename(path), self.root, self.outside,
            self.outside + b"/big", self.outside + b"/package.json", b"/dev/null", b"package.json", b"src", b"build",
        ]))

    def special(self, path):
        if os.path.lexists(path):
            return False
        kinds = [stat.S_IFIFO, stat.S_IFSOCK]
        if os.geteuid() == 0:
            kinds += [stat.S_IFCHR, stat.S_IFBLK]
        kind = self.random.choice(kinds)
        try:
            os.mknod(path, kind | 0o600, os.makedev(1, 3))
        except PermissionError:
            os.mkfifo(path)  # a container may refuse device nodes even to root
        return True

    def other_case(self, name):
        swapped = name.swapcase()
        return self.random.choice([swapped, name.upper(), name.lower(), name.capitalize()])

    def name(self):
        return self.random.choice(nasty_names.ODD_NAMES if self.chance(0.45) else nasty_names.PLAIN_NAMES)

    def fill(self, folder, depth=0):
        """What an artefact holds: anything at all."""
        for _ in range(self.random.choice([0, 1, 1, 2, 3, 5])):
            known = self.random.choice(nasty_names.PROTECTED + nasty_names.LOGS)
            path = folder + b"/" + self.random.choice([self.name(), known])
            roll = self.random.random()
            if roll < 0.5:
                self.file(path)
            elif roll < 0.7 and depth < 3:
                name = self.random.choice([self.name(), b"node_modules", b"build", b".git", b"data", b"dist"])
                inner = folder + b"/" + name
                if self.folder(inner):
                    self.fill(inner, depth + 1)
            elif roll < 0.78:
                self.any_link(path)
            elif roll < 0.83:
                self.special(path)
            elif roll < 0.9:
                self.hard_link(folder, path)
            else:
                self.file(folder + b"/" + self.random.choice(nasty_names.MANIFEST_FILES), 10)

    def hard_link(self, folder, path):
        if os.path.lexists(path):
            return
        sources = [item.path for item in os.scandir(folder) if item.is_file(follow_symlinks=False)]
        if self.chance(0.4):
            sources = [self.outside + b"/shared"]
        if sources:
            os.link(self.random.choice(sorted(sources)), path)

    def many_entries(self, folder):
        for number in range(self.random.choice([127, 128, 129, 255, 256])):
            path = folder + b"/%d" % number
            if number % 40 == 7:
                self.folder(path)
            elif number % 40 == 9:
                self.any_link(path)
            else:
                self.file(path, number % 3)

    def artefact(self, folder, rule):
        name = rule.text.encode()
        if rule.matcher == "fileExtension":
            name = self.random.choice(nasty_names.LOGS)
        is_directory = rule.kind == "directory"
        roll = self.random.random()
        if roll < 0.07:
            is_directory = not is_directory
        elif roll < 0.13:
            name = self.other_case(name)
        path = folder + b"/" + name
        if 0.13 <= roll < 0.18:
            self.any_link(path)
        elif 0.18 <= roll < 0.21:
            self.special(path)
        elif not is_directory:
            self.file(path)
        elif self.folder(path):
            if self.chance(0.05):
                self.many_entries(path)
            elif self.chance(0.15):
                self.folder(path + b"/only-empty")
            elif self.chance(0.3):
                self.file(path + b"/same", 4096)
            else:
                self.fill(path)
            if self.chance(0.05):
                self.repositories.append(path)

    def manifests(self, folder):
        kinds = set()
        for name in self.some(nasty_names.MANIFEST_FILES, 3):
            name = self.other_case(name) if self.chance(0.15) else name
            if self.file(folder + b"/" + name, 10):
                kinds.add(rules.manifest_kind(name))
        if self.chance(0.2):
            self.file(folder + b"/" + self.random.choice(nasty_names.NOT_MANIFESTS))
        if self.chance(0.12):
            build = self.random.choice([self.folder, self.any_link, self.special])
            build(folder + b"/" + self.random.choice(nasty_names.MANIFEST_FILES))
        if self.chance(0.15):
            for name in self.some(nasty_names.BUNDLES, 3):
                kinds |= self.bundle(folder + b"/" + name)
        return kinds

    def bundle(self, path):
        """Whatever lies in one makes no project."""
        build = self.random.choice([self.folder, self.folder, self.folder, self.file, self.any_link])
        if not build(path) or not os.path.isdir(path) or os.path.islink(path):
            return set()
        self.file(path + b"/package.json", 10)
        self.file(path + b"/run.log")
        for rule in self.random.sample(rules.PROJECT_RULES, 2):
            self.artefact(path, rule)
        if self.chance(0.3):
            self.repositories.append(path)
        inner = path + b"/inner"
        if self.chance(0.5) and self.folder(inner):
            self.file(inner + b"/go.mod", 10)
            self.file(inner + b"/.git", 10)
            self.artefact(inner, self.random.choice(rules.PROJECT_RULES))
        return {"swift"}
