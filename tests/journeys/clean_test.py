"""Cleans as people do, and has programs that were not written here bring everything back.

BROOMTIDE_CLI   the program to test
"""

import json
import os
import re
import select
import shutil
import signal
import stat
import subprocess
import unittest
import urllib.parse

from journey import CLI, PATIENCE, EndlessGit, Journey, environment, on_terminal, poll

NOT_MOVED = (
    "Broomtide could not move this item to Trash. "
    "It may be locked, in use, or require additional permission."
)
CANCELLED = "Cleanup was cancelled."
NASTY_NAMES = [
    b"line\nbreak", b"per%cent%0A", b"not\xff\xfeutf8", "ünï-\u202e".encode(), b" spaces ", b"-dash", b"n" * 250,
]


def snapshot(root):
    """All there is below a folder: path -> type and mode, modification date, contents."""
    root, entries = os.fsencode(root), {}
    for folder, folders, files in os.walk(root):
        for name in folders + files:
            path, contents = os.path.join(folder, name), None
            status = os.lstat(path)
            if stat.S_ISLNK(status.st_mode):
                contents = os.readlink(path)
            elif stat.S_ISREG(status.st_mode):
                with open(path, "rb") as file:
                    contents = file.read()
            entries[os.path.relpath(path, root)] = (status.st_mode, status.st_mtime_ns, contents)
    return entries


class CleanJourney(Journey):
    def project(self, name="app"):
        self.write(f"work/{name}/package.json")
        self.write(f"work/{name}/.next/page", name)
        self.write(f"work/{name}/node_modules/index.js", "module")

    def restored_by_hand(self):
        """Renames what is in the Trash to where its information says that it was; those places, which were free."""
        places, trash = [], os.path.join(os.fsencode(self.data), b"Trash")
        for name in os.listdir(trash + b"/files") if os.path.exists(trash + b"/files") else []:
            with open(trash + b"/info/" + name + b".trashinfo", "rb") as file:
                title, path, date = file.read().splitlines()
            self.assertTrue(title == b"[Trash Info]" and date.startswith(b"DeletionDate="))
            places.append(urllib.parse.unquote_to_bytes(path.removeprefix(b"Path=")))
            self.assertFalse(os.path.lexists(places[-1]), places[-1])
            os.rename(trash + b"/files/" + name, places[-1])
        return places


class Restoring(CleanJourney):
    """Every item goes to the Trash, is found there by others, and comes back as it was."""

    def others(self, *command, **options):
        return subprocess.run(command, stdout=subprocess.PIPE, timeout=PATIENCE, check=True, cwd=self.root, **options,
                              env=environment(XDG_DATA_HOME=self.data, LC_ALL="C.UTF-8",
                                              PYTHONIOENCODING="utf-8:surrogateescape")).stdout

    def desktop(self, *command):
        return self.others("dbus-run-session", "--", *command, stderr=subprocess.DEVNULL)

    def test_everything_comes_back(self):
        items = []
        for name in NASTY_NAMES:
            project, log = os.path.join(os.fsencode(self.work), name), name[:240] + b".log"
            os.makedirs(project + b"/node_modules/" + name)
            for file in [b"/package.json", b"/" + log, b"/node_modules/" + name + b"/file"]:
                with open(project + file, "wb") as out:
                    out.write(name)
            os.symlink(b"nowhere\n", project + b"/node_modules/" + name + b"/link")
            os.chmod(project + b"/node_modules/" + name, 0o555)
            os.utime(project + b"/" + log, ns=(1, 1_234_567_890_123_456_789))
            items += [name + b"/node_modules", name + b"/" + log]
        before = snapshot(self.work)
        document = self.document("clean", "--yes", self.work, *[option for item in items for option in (b"--item", item)])
        self.assertEqual((len(document["moved"]), document["failures"]), (len(items), []))
        self.assertTrue(document["historySaved"])
        gone = set(before) - set(snapshot(self.work))
        self.assertEqual(gone, {path for path in before if any((path + b"/").startswith(item + b"/") for item in items)})

        paths = [os.path.join(os.fsencode(self.work), item) for item in items]
        listed = self.others("trash-list")
        uris = {}
        for line in self.desktop("gio", "trash", "--list").splitlines():
            uri, escaped = line.split(b"\t")
            uris[re.sub(rb"\\x(..)", lambda escape: bytes.fromhex(escape[1].decode()), escaped)] = uri
        self.assertEqual(set(uris), set(paths))
        for path in paths:
            shown = path.decode(errors="replace").encode()  # as this program shows names
            self.assertRegex(listed, rb"(?m)^[-0-9]{10} [:0-9]{8} " + re.escape(shown) + b"$")

        # Of these programs, one brings names back that are printable ASCII, the other those that are
        # UTF-8. The last names are left to the only thing that file managers share: the renaming.
        plain = [path for path in paths if re.fullmatch(rb"[ -~]+", path)]
        self.desktop("gio", "trash", "--restore", *[uris[path] for path in plain])
        for path in set(paths) - set(plain):
            if b"utf8" not in path:
                self.others("trash-restore", path, input=b"0\n")
        self.assertEqual(len(self.restored_by_hand()), 2)
        after = snapshot(self.work)
        for entries in before, after:  # what an item is taken from and put into has a new date
            entries.update({name: entries[name][0] for name in NASTY_NAMES})
        self.assertEqual(after, before)


class OtherMounts(CleanJourney):
    SCRIPT = """
        set -e
        mkdir -p "$1/mount"
        cd "$1/mount"
        mount -t tmpfs none .
        cd "$1/mount"
        mkdir -p code/app/.next
        echo page > code/app/.next/page
        echo '{}' > code/app/package.json
        eval "$3"
        "$2" clean --yes --json "$1/mount/code" > ../result || echo $? > ../status
        find . -name page > ../pages
        cat $(find . -name '.next.trashinfo') > ../info
        trash-list > ../listed"""
    # What stands at the top of the mount, and which folder must become the Trash; None when nothing may be moved.
    KINDS = [
        ("", ".Trash-0"),
        ("mkdir .Trash; chmod 1777 .Trash", ".Trash/0"),
        ("mkdir .Trash; chmod 0777 .Trash", ".Trash-0"),
        ("mkdir real; ln -s real .Trash-0", None),
        ("mkdir .Trash-0; chown 12345 .Trash-0", None),
        ("mkdir -m 0777 .Trash-0", None),
        ("mkdir -m 1777 .Trash; mkdir -p .Trash/0/files; chown 12345 .Trash/0/files", ".Trash-0"),
        ("mkdir code/app/.next/inner; mount -t tmpfs none code/app/.next/inner", None),
        ("mount -o remount,ro .", None),
    ]

    def test_the_trash_at_the_top_of_a_mount(self):
        unshare = ["unshare", "--mount"] if os.getuid() == 0 else ["unshare", "--mount", "--map-root-user"]
        if subprocess.run([*unshare, "mount", "-t", "tmpfs", "none", self.root], capture_output=True).returncode:
            self.skipTest("mounting in a namespace is not allowed here")
        for arrange, trash in self.KINDS:
            if "chown" in arrange and os.getuid() != 0:
                continue  # only an administrator can give files away
            with self.subTest(arrange):
                subprocess.run([*unshare, "bash", "-c", self.SCRIPT, "bash", self.root, CLI, arrange], timeout=PATIENCE,
                               check=True, stderr=subprocess.DEVNULL, env=environment(XDG_DATA_HOME=self.data))
                result, pages, info, listed, status = map(self.taken, ["result", "pages", "info", "listed", "status"])
                failures = [(failure["path"], failure["message"]) for failure in json.loads(result)["failures"]]
                if trash is None:
                    self.assertEqual((status, failures), ("3\n", [("app/.next", NOT_MOVED)]))
                    self.assertEqual(pages, "./code/app/.next/page\n")
                else:
                    self.assertEqual((status, failures), ("", []))
                    self.assertEqual(pages, f"./{trash}/files/.next/page\n")
                    self.assertIn("\nPath=code/app/.next\n", info)
                    self.assertIn(self.path("mount/code/app/.next"), listed)

    def taken(self, name):
        if not os.path.exists(self.path(name)):
            return ""
        with open(self.path(name)) as file:
            os.remove(file.name)
            return file.read()


class Selecting(CleanJourney):
    def test_selections(self):
        for arguments, expected in [
            ([], ["app/.next"]), (["--safe"], ["app/.next"]),
            (["--item", "app/node_modules/", "--item", "app/node_modules"], ["app/node_modules"]),
        ]:
            self.project()
            before = snapshot(self.root)
            for dry, options in [(True, ["--dry-run"]), (False, [])]:
                document = self.document("clean", "--yes", *options, *arguments, self.work)
                self.assertEqual([each["relativePath"] for each in document["moved"]], expected)
                self.assertEqual((document["dryRun"], document["historySaved"]), (dry, not dry))
                self.assertEqual(snapshot(self.root) == before, dry)
            self.assertEqual(self.document("history")[0]["movedBytes"], document["movedBytes"])
            shutil.rmtree(self.root)

    def test_what_is_refused_changes_nothing(self):
        self.project()
        before = snapshot(self.root)
        for arguments, status, words in [
            (["--yes", "--item", "app/.next", "--item", "app", self.work], 1, "'app'"),
            (["--yes", "--safe", "--item", "app/.next", self.work], 2, "--item"),
            ([self.work], 2, "--yes"),
            (["--yes", "--mode", "caches", self.work], 1, "No known developer cache locations"),
        ]:
            result = self.cli("clean", *arguments)
            self.assertEqual((result.returncode, result.stdout), (status, b""), arguments)
            self.assertIn(words, result.stderr.decode())
        self.assertEqual(snapshot(self.root), before)

    def test_a_question_is_asked_and_its_answer_taken(self):
        self.project()
        for answer, moves in [(b"n\n", False), (b"\n", False), (b"maybe\n", False), (b"\x04", False), (b"y\n", True)]:
            shown, status = on_terminal(CLI, "clean", self.work, answer=answer, XDG_DATA_HOME=self.data)
            self.assertEqual(status, 0)
            self.assertIn(b"app/.next", shown)
            self.assertIn(b"Move selected items to Trash?", shown)
            self.assertEqual(b"Cleanup complete" in shown, moves)
            self.assertEqual(not os.path.exists(self.path("work/app/.next")), moves)


class InUse(CleanJourney):
    # What a process does before it waits, and whether it uses the item then.
    USES = [
        ("cd work/app/.next/deep; exec cat", True),
        ("exec cat 3<work/app/.next/page", True),
        ("cp $(command -v cat) work/app/.next/cat; exec work/app/.next/cat", True),
        ("exec cat 3>work/app/.next/gone", False),
        ("exec unshare --mount sh -c 'mount --bind work/app/.next/deep view; cd view; exec cat'", True),
    ]

    def test_what_another_process_uses_stays(self):
        may_mount = os.getuid() == 0 and not subprocess.run(["unshare", "--mount", "true"], capture_output=True).returncode
        for use, is_used in self.USES:
            if "mount" in use and not may_mount:
                continue
            self.project()
            for folder in "view", "work/app/.next/deep":
                os.makedirs(self.path(folder))
            user = subprocess.Popen(["sh", "-c", use], stdin=subprocess.PIPE, stdout=subprocess.PIPE, cwd=self.root)
            user.stdin.write(b"\n")
            user.stdin.flush()
            user.stdout.readline()
            if not is_used:
                os.remove(self.path("work/app/.next/gone"))
            failures = self.document("clean", "--yes", self.work, status=3 if is_used else 0)["failures"]
            self.assertEqual([failure["message"] for failure in failures], [
                f"The item is in use by cat ({user.pid}). Broomtide left it untouched."] if is_used else [], use)
            user.communicate()
            shutil.rmtree(self.root)


class Interrupting(CleanJourney):
    def test_ctrl_c_leaves_the_rest_alone_and_is_recorded(self):
        self.project()
        os.makedirs(self.path("work/app/.git"))
        # Two listings for the scan, then one that never ends.
        os.mkfifo(self.path("turns"))
        turns = os.open(self.path("turns"), os.O_RDWR)
        self.addCleanup(os.close, turns)
        os.write(turns, b"list\nlist\nwait\n")
        endless = EndlessGit(self)
        clean = self.start("clean", "--yes", "--json", "--item", "app/node_modules", self.work, git=self.stubbed_git(f"""
            read turn <'{self.root}/turns'
            if [ $turn = list ]; then printf '.next/\\0'; exit; fi
            {endless.script}"""))
        self.assertTrue(endless.has_started())
        before = snapshot(self.work)
        clean.send_signal(signal.SIGINT)
        out, err = clean.communicate(timeout=PATIENCE)
        self.assertEqual(clean.returncode, 130, err)
        self.assertEqual([failure["message"] for failure in json.loads(out)["failures"]], [CANCELLED])
        self.assertEqual([entry["failures"][0]["message"] for entry in self.document("history")], [CANCELLED])
        self.assertEqual(snapshot(self.work), before)
        self.assertTrue(endless.has_ended())

    def test_what_was_moved_is_told_when_ctrl_c_comes_after_the_last_item(self):
        for number in range(300):
            self.project(str(number))  # more to tell than a pipe holds
        clean = self.start("clean", "--yes", "--json", self.work)
        self.assertTrue(select.select([clean.stdout], [], [], PATIENCE)[0])
        clean.send_signal(signal.SIGINT)

        def is_taken():
            with open(f"/proc/{clean.pid}/status") as file:
                return not int(re.search(r"ShdPnd:\s*(\w+)", file.read())[1], 16) & 1 << signal.SIGINT - 1

        self.assertTrue(poll(is_taken))
        out, err = clean.communicate(timeout=PATIENCE)
        self.assertEqual((clean.returncode, len(json.loads(out)["moved"])), (0, 300), err)


if __name__ == "__main__":
    unittest.main(verbosity=2)  # says why a test was skipped
