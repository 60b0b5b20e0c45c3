"""Git repositories for a random tree: working, odd and broken ones."""

import os
import stat
import subprocess

import nasty_names
import rules
from random_entries import Entries

GIT_ENVIRONMENT = {
    "PATH": "/usr/bin:/bin", "HOME": "/nonexistent", "GIT_CONFIG_NOSYSTEM": "1", "LC_ALL": "C",
    "GIT_AUTHOR_NAME": "A", "GIT_AUTHOR_EMAIL": "a@example.com", "GIT_AUTHOR_DATE": "1700000000 +0000",
    "GIT_COMMITTER_NAME": "A", "GIT_COMMITTER_EMAIL": "a@example.com", "GIT_COMMITTER_DATE": "1700000000 +0000",
}


class Repositories(Entries):
    def git(self, folder, *arguments, stdin=b"", must_work=False):
        done = subprocess.run(
            ["git", "-C", folder, "-c", "gc.auto=0", "-c", "protocol.file.allow=always", *arguments],
            env=GIT_ENVIRONMENT, input=stdin, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
        )
        if must_work and done.returncode != 0:
            raise RuntimeError(f"git {arguments} in {folder!r}: {done.stderr.decode(errors='replace')}")
        return done.stdout

    def write(self, path, content):
        with open(path, "wb") as out:
            out.write(content)

    def broken_repository(self, folder):
        """A .git entry that Git does not take as it stands."""
        git = folder + b"/.git"
        shape = self.random.choice([
            "nowhere", "garbage", "empty file", "empty folder", "only a head", "future", "bare", "elsewhere",
            "excludes", "no objects", "bad index",
        ])
        if shape in ("nowhere", "garbage", "empty file"):
            content = {"nowhere": b"gitdir: /nonexistent/place\n", "garbage": b"\0\xff?", "empty file": b""}
            self.file(git, content=content[shape])
        elif shape in ("empty folder", "only a head"):
            self.folder(git)
            if shape == "only a head":
                self.file(git + b"/HEAD", content=b"ref: refs/heads/main\n")
        else:
            self.git(folder, "init", "-q", "--template=", must_work=True)
            if shape == "no objects":
                os.rmdir(git + b"/objects/info")
                os.rmdir(git + b"/objects/pack")
                os.rmdir(git + b"/objects")
            elif shape == "bad index":
                self.file(git + b"/index", content=b"DIRC but not really")
            else:
                key, value = {
                    "future": ("core.repositoryFormatVersion", "99"), "bare": ("core.bare", "true"),
                    "elsewhere": ("core.worktree", "../.."), "excludes": ("core.excludesFile", "~/ignore"),
                }[shape]
                self.git(folder, "config", key, value, must_work=True)

    def repository(self, folder):
        if os.path.lexists(folder + b"/.git"):
            return
        if self.chance(0.2):
            self.broken_repository(folder)
            return
        if self.chance(0.1):
            store = self.base + b"/git-%d" % self.random.getrandbits(40)
            self.git(folder, "init", "-q", "--template=", b"--separate-git-dir=" + store, must_work=True)
        else:
            store = folder + b"/.git"
            self.git(folder, "init", "-q", "--template=", must_work=True)
        if self.chance(0.2):
            os.makedirs(store + b"/info", exist_ok=True)
            self.file(store + b"/info/exclude", content=b"\n".join(self.some(nasty_names.IGNORE_LINES, 4)) + b"\n")
        if self.chance(0.15):
            # A program that must never be run by a listing: it would leave a trace.
            hook = store + b"/monitor"
            self.file(hook, content=b"#!/bin/sh\ntouch \"$(dirname \"$0\")/was-run\"\n")
            os.chmod(hook, 0o755)
            quoted = hook.replace(b"\\", b"\\\\").replace(b'"', b'\\"').replace(b"\n", b"\\n")
            with open(store + b"/config", "ab") as config:
                config.write(b'[core]\n\tfsmonitor = "' + quoted + b'"\n')
        self.index(folder)
        if self.chance(0.4):
            self.git(folder, "-c", "core.fsmonitor=false", "commit", "-q", "--allow-empty", "--no-verify", "-m", "x")
            if self.chance(0.4):
                where = folder + b"/" + self.random.choice([b"worktree", b"build", b".cache", b"src", b"x y"])
                if not os.path.lexists(where):
                    self.git(folder, "-c", "core.fsmonitor=false", "worktree", "add", "-q", "--detach", where)
                    if self.chance(0.3) and os.path.isdir(where):
                        self.file(where + b"/package.json", 10)
                        self.file(where + b"/fresh.log")

    def files_below(self, folder):
        """Paths of the files that belong to this repository, artefacts mostly left out."""
        found = []
        for place, folders, files in os.walk(folder):
            folders[:] = sorted(
                name for name in folders
                if name != b".git" and not os.path.lexists(place + b"/" + name + b"/.git")
                and (name not in rules.ARTEFACT_DIRECTORIES or self.chance(0.15))
            )
            for name in sorted(files):
                path = place + b"/" + name
                mode = os.lstat(path).st_mode
                if name != b".git" and (stat.S_ISREG(mode) or stat.S_ISLNK(mode)) and len(path) < 4000:
                    found.append(path[len(folder) + 1:])
        return found

    def index(self, folder):
        roll = self.random.random()
        if roll < 0.25:
            self.git(folder, "-c", "core.fsmonitor=false", "add", "-A", "--ignore-errors")
        elif roll < 0.8:
            files = [path for path in self.files_below(folder) if self.chance(0.4)]
            listing = b"".join(path + b"\0" for path in files)
            self.git(folder, "-c", "core.fsmonitor=false", "update-index", "--add", "-z", "--stdin", stdin=listing)
            for path in files:
                if self.chance(0.05):
                    os.unlink(folder + b"/" + path)
                    if self.chance(0.5):
                        self.folder(folder + b"/" + path)
        blob = self.git(folder, "hash-object", "-w", "--stdin", stdin=b"x", must_work=True).strip()
        name = self.random.choice(rules.PROJECT_RULES).text.encode()
        if self.chance(0.12):
            sides = b"".join(b"100644 %s %d\t%s/both.txt\0" % (blob, side, name) for side in (1, 2, 3))
            self.git(folder, "update-index", "-z", "--index-info", stdin=sides, must_work=True)
        if self.chance(0.12):
            link = b"160000 " + b"1" * 40 + b" 0\t" + name + b"\0"
            self.git(folder, "update-index", "-z", "--index-info", stdin=link, must_work=True)
