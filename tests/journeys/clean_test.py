"""Cleans as people do, and has programs that were not written here bring everything back.

BROOMTIDE_CLI   the program to test
KILL_ROUNDS     how many cleanups are killed at a random moment (100)
"""

import json
import os
import random
import re
import resource
import select
import shutil
import signal
import stat
import subprocess
import time
import unittest
import urllib.parse

from journey import CLI, EndlessGit, Journey, environment, on_terminal

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
    entries = {}
    for folder, folders, files in os.walk(os.fsencode(root)):
        for name in folders + files:
            path = os.path.join(folder, name)
            status = os.lstat(path)
            contents = None
            if stat.S_ISLNK(status.st_mode):
                contents = os.readlink(path)
            elif stat.S_ISREG(status.st_mode):
                with open(path, "rb") as file:
                    contents = file.read()
            entries[os.path.relpath(path, os.fsencode(root))] = (status.st_mode, status.st_mtime_ns, contents)
    return entries


class CleanJourney(Journey):
    program = CLI

    def setUp(self):
        super().setUp()
        self.work, self.data = self.path("work"), self.path("data")
        os.makedirs(self.work)

    def run_cli(self, *arguments, env=None, **options):
        return subprocess.run([self.program, *arguments], capture_output=True, timeout=300, stdin=subprocess.DEVNULL,
                              env=environment(XDG_DATA_HOME=self.data, **(env or {})), **options)

    def clean(self, *arguments, status=0, env=None):
        result = self.run_cli("clean", "--yes", "--json", *arguments, self.work, env=env)
        self.assertEqual(result.returncode, status, result.stderr)
        return json.loads(result.stdout)

    def history(self):
        return json.loads(self.run_cli("history", "--json").stdout)

    def project(self, name="app"):
        self.write(f"work/{name}/package.json", "{}")
        self.write(f"work/{name}/.next/page", "page")
        self.write(f"work/{name}/node_modules/m/index.js", "module")
        os.symlink("m/index.js", self.path(f"work/{name}/node_modules/link"))


class Restoring(CleanJourney):
    """Every item goes to the Trash, is found there by others, and comes back as it was."""

    def desktop(self, *command):
        return subprocess.run(["dbus-run-session", "--", *command], stdout=subprocess.PIPE, timeout=300, check=True,
                              stderr=subprocess.DEVNULL, env=environment(XDG_DATA_HOME=self.data)).stdout

    def trash_cli(self, *command, **options):
        return subprocess.run(command, stdout=subprocess.PIPE, timeout=300, check=True, cwd=self.root, **options,
                              env=environment(XDG_DATA_HOME=self.data, LC_ALL="C.UTF-8",
                                              PYTHONIOENCODING="utf-8:surrogateescape")).stdout

    def plant(self):
        """Items of every awkward kind; their paths below the folder."""
        items = []
        for name in NASTY_NAMES:
            project = os.path.join(os.fsencode(self.work), name)
            os.makedirs(project + b"/node_modules/" + name)
            for file in [b"/package.json", b"/" + name[:240] + b".log", b"/node_modules/" + name + b"/file"]:
                with open(project + file, "wb") as out:
                    out.write(name)
            os.symlink(b"nowhere\n", project + b"/node_modules/" + name + b"/link")
            os.chmod(project + b"/node_modules/" + name, 0o555)
            os.utime(project + b"/" + name[:240] + b".log", ns=(1, 1_234_567_890_123_456_789))
            items += [name + b"/node_modules", name + b"/" + name[:240] + b".log"]
        os.makedirs(self.path("work/empty/.next"))
        self.write("work/empty/package.json")
        return [*items, b"empty/.next"]

    def restored_by_hand(self):
        """Renames what is in the Trash to where its information says that it was; those places."""
        places = []
        for name in os.listdir(os.path.join(os.fsencode(self.data), b"Trash/files")):
            info = os.path.join(os.fsencode(self.data), b"Trash/info", name + b".trashinfo")
            with open(info, "rb") as file:
                place = urllib.parse.unquote_to_bytes(file.read().split(b"\n")[1].removeprefix(b"Path="))
            os.rename(os.path.join(os.fsencode(self.data), b"Trash/files", name), place)
            places.append(place)
        return places

    def test_everything_comes_back(self):
        items = self.plant()
        before = snapshot(self.work)
        document = self.clean(*[option for item in items for option in (b"--item", item)])
        self.assertEqual((len(document["moved"]), document["failures"]), (len(items), []))
        self.assertTrue(document["historySaved"])
        gone = set(before) - set(snapshot(self.work))
        self.assertEqual(gone, {path for path in before
                                if any(path == item or path.startswith(item + b"/") for item in items)})

        paths = [os.path.join(os.fsencode(self.work), item) for item in items]
        listed = self.trash_cli("trash-list")
        uris = {}
        for line in self.desktop("gio", "trash", "--list").splitlines():
            uri, escaped = line.split(b"\t")
            uris[re.sub(rb"\\x(..)", lambda escape: bytes.fromhex(escape[1].decode()), escaped)] = uri
        for path in paths:
            shown = path.decode(errors="replace").encode()  # as this program shows names
            self.assertRegex(listed, rb"(?m)^[-0-9]{10} [:0-9]{8} " + re.escape(shown) + b"$")
            self.assertIn(path, uris)

        # Of these programs, one brings names back that are printable ASCII, the other those that are
        # UTF-8. The last names are left to the only thing that file managers share: the renaming.
        plain = [path for path in paths if re.fullmatch(rb"[ -~]+", path)]
        self.desktop("gio", "trash", "--restore", *[uris[path] for path in plain])
        for path in set(paths) - set(plain):
            if b"utf8" not in path:
                self.trash_cli("trash-restore", path, input=b"0\n")
        self.assertEqual(len(self.restored_by_hand()), 2)
        self.assertEqual(os.listdir(os.path.join(self.data, "Trash/files")), [])
        after = snapshot(self.work)
        held_items = {os.path.dirname(item) for item in items}
        for entries in before, after:  # what an item is taken from and put into has a new date
            for folder in held_items:
                entries[folder] = entries[folder][0]
        self.assertEqual(after, before)


MOUNTS = """
set -e
cd "$1"
mkdir -p mount
{mount}
mkdir -p mount/code/app/.next
cd mount
echo page > code/app/.next/page
echo '{{}}' > code/app/package.json
{arrange}
cd ..
{remount}
"$2" clean --yes --json "$1/mount/code" > result.json || echo $? > status
cd mount
find . -name page > ../pages
cat $(find . -name '.next.trashinfo') > ../info || true
trash-list > ../listed
"""
TMPFS = "mount -t tmpfs none mount"

# A system of its own, whose root is the mount that the items lie on.
ROOT_MOUNT = """
set -e
cd "$1"
mkdir -p mount
mount -t tmpfs none mount
cd mount
mkdir -p code/app/.next data tmp
echo page > code/app/.next/page
echo '{}' > code/app/package.json
mount -t tmpfs none data
for folder in /bin /dev /etc /lib /lib64 /proc /sbin /usr "$(dirname "$2")"; do
  if [ -L $folder ]; then cp -a $folder .$folder; continue; fi
  [ -d $folder ] || continue
  mkdir -p ".$folder"
  mount --rbind "$folder" ".$folder"
done
chroot . "$2" clean --yes --json /code > ../result.json || echo $? > ../status
find . -xdev -name page > ../pages
cat $(find . -xdev -name '.next.trashinfo') > ../info || true
chroot . trash-list > ../listed
"""


class ReadOnlyModules(CleanJourney):
    """Go makes the modules that it downloads read-only, which must keep nobody from moving them and back."""

    def setUp(self):
        super().setUp()
        self.user = {"user": 65534, "group": 65534, "extra_groups": []} if os.getuid() == 0 else {}
        self.module = "work/go/pkg/mod/example.org/module@v1.0.0"
        self.write(self.module + "/inner/code.go", "package inner")
        os.makedirs(self.data)
        # The home folder of root, and a build in it, is closed to everybody else.
        self.program = shutil.copy(CLI, self.path("broomtide-cli"))
        for folder, _, files in os.walk(self.root):
            for path in [folder, *[os.path.join(folder, file) for file in files]]:
                os.chown(path, self.user.get("user", -1), -1)
        for path in ["/inner/code.go", "/inner", ""]:
            os.chmod(self.path(self.module + path), 0o555)
        self.addCleanup(subprocess.run, ["chmod", "-R", "u+w", self.root], check=True)

    def test_they_go_and_come_back(self):
        before = snapshot(self.path("work/go/pkg/mod"))
        result = self.run_cli("clean", "--mode", "caches", "--item", "go/pkg/mod", "--yes", self.work, **self.user)
        self.assertEqual((result.returncode, os.listdir(self.path("work/go/pkg"))), (0, []), result.stderr)
        subprocess.run(["trash-restore", self.path("work/go/pkg/mod")], input=b"0\n", check=True, timeout=300,
                       cwd=self.root, capture_output=True, env=environment(XDG_DATA_HOME=self.data), **self.user)
        self.assertEqual(snapshot(self.path("work/go/pkg/mod")), before)
        self.assertEqual(os.listdir(os.path.join(self.data, "Trash/info")), [])


class OtherMounts(CleanJourney):
    # What stands at the top of the mount, and which folder must become the Trash.
    KINDS = {
        "nothing": ("", ".Trash-{uid}"),
        "shared": ("mkdir .Trash; chmod 1777 .Trash", ".Trash/{uid}"),
        "shared without sticky bit": ("mkdir .Trash; chmod 0777 .Trash", ".Trash-{uid}"),
        "a link": ("mkdir -m 1777 real; ln -s real .Trash", ".Trash-{uid}"),
        "one's own is a link": ("mkdir real; ln -s real .Trash-{uid}", None),
        "one's own is somebody else's": ("mkdir .Trash-{uid}; chown 12345 .Trash-{uid}", None),
        "a file in its place": ("touch .Trash-{uid}", None),
        "others see one's own": ("mkdir -m 0755 .Trash-{uid}", ".Trash-{uid}"),
        "others change one's own": ("mkdir -m 0777 .Trash-{uid}", None),
        "its items are somebody else's": ("mkdir -p .Trash-{uid}/files; chown 12345 .Trash-{uid}/files", None),
        "its information is somebody else's": ("mkdir -p .Trash-{uid}/info; chown 12345 .Trash-{uid}/info", None),
        "others change one's own in the shared one":
            ("mkdir .Trash; chmod 1777 .Trash; mkdir -m 0777 .Trash/{uid}", ".Trash-{uid}"),
        "items in the shared one are somebody else's":
            ("mkdir .Trash; chmod 1777 .Trash; mkdir -p .Trash/{uid}/files; chown 12345 .Trash/{uid}/files",
             ".Trash-{uid}"),
    }

    def setUp(self):
        super().setUp()
        self.unshare = ["unshare", "--mount"] if os.getuid() == 0 else ["unshare", "--mount", "--map-root-user"]
        if subprocess.run([*self.unshare, "mount", "-t", "tmpfs", "none", self.work], capture_output=True).returncode:
            self.skipTest("mounting in a namespace is not allowed here")

    def run_on(self, mount, arrange="", remount=""):
        return self.run_script(MOUNTS.format(mount=mount, arrange=arrange, remount=remount), self.data)

    def run_script(self, script, data):
        subprocess.run([*self.unshare, "bash", "-c", script, "bash", self.root, CLI], check=True, timeout=120,
                       stderr=subprocess.DEVNULL, env=environment(XDG_DATA_HOME=data))
        results = {}
        for name in ["result.json", "status", "pages", "info", "listed"]:
            if os.path.exists(self.path(name)):
                with open(self.path(name)) as file:
                    results[name] = file.read()
                os.remove(self.path(name))
        return results

    def check_moved(self, results, trash):
        self.assertNotIn("status", results)
        self.assertEqual(results["pages"], f"./{trash}/files/.next/page\n")
        self.assertIn("\nPath=code/app/.next\n", results["info"])
        self.assertIn(self.path("mount/code/app/.next"), results["listed"])
        self.assertFalse(os.path.exists(os.path.join(self.data, "Trash")))

    def check_refused(self, results):
        self.assertEqual(results["status"], "3\n")
        failures = json.loads(results["result.json"])["failures"]
        self.assertEqual([(failure["path"], failure["message"]) for failure in failures], [("app/.next", NOT_MOVED)])
        self.assertEqual(results["pages"], "./code/app/.next/page\n")

    def test_the_trash_at_the_top_of_a_mount(self):
        uid = 0  # also in a namespace of one's own
        for kind, (arrange, trash) in self.KINDS.items():
            if "chown" in arrange and os.getuid() != 0:
                continue  # only an administrator can give files away
            with self.subTest(kind):
                results = self.run_on(TMPFS, arrange.format(uid=uid))
                if trash:
                    self.check_moved(results, trash.format(uid=uid))
                else:
                    self.check_refused(results)

    def test_what_is_mounted_below_an_item_keeps_it_in_its_place(self):
        inner = "mkdir code/app/.next/inner; mount -t tmpfs none code/app/.next/inner; touch code/app/.next/inner/kept"
        self.check_refused(self.run_on(TMPFS, inner))

    def test_a_bind_mount_has_its_own_trash(self):
        os.makedirs(self.path("elsewhere"))
        self.check_moved(self.run_on("mount --bind elsewhere mount"), ".Trash-0")
        self.assertTrue(os.path.exists(self.path("elsewhere/.Trash-0/files/.next/page")))

    def test_the_trash_at_the_top_of_the_root_mount(self):
        results = self.run_script(ROOT_MOUNT, "/data")
        self.assertNotIn("status", results)
        self.assertEqual(results["pages"], "./.Trash-0/files/.next/page\n")
        self.assertIn("\nPath=code/app/.next\n", results["info"])
        self.assertRegex(results["listed"], r" /code/app/\.next\n")

    def test_a_read_only_mount_is_refused(self):
        self.check_refused(self.run_on(TMPFS, remount="mount -o remount,ro mount"))


class Selecting(CleanJourney):
    def paths_of(self, document):
        return sorted(candidate["relativePath"] for candidate in document["moved"])

    def test_selections(self):
        for arguments, expected in [
            ([], ["app/.next"]),
            (["--safe"], ["app/.next"]),
            (["--item", "app/node_modules/", "--item", "app/node_modules"], ["app/node_modules"]),
        ]:
            shutil.rmtree(self.work)
            self.project()
            before = snapshot(self.root)
            dry = self.clean("--dry-run", *arguments)
            self.assertEqual((self.paths_of(dry), dry["dryRun"], dry["historySaved"]), (expected, True, False))
            self.assertEqual(snapshot(self.root), before)
            document = self.clean(*arguments)
            self.assertEqual(self.paths_of(document), expected)
            self.assertEqual(self.history()[0]["movedBytes"], document["movedBytes"])
            shutil.rmtree(self.data)

    def test_what_is_refused_changes_nothing(self):
        self.project()
        before = snapshot(self.root)
        for arguments, status, words in [
            (["--yes", "--item", "app/nothing", self.work], 1, "'app/nothing'"),
            (["--yes", "--item", "app/.next", "--item", "app", self.work], 1, "'app'"),
            (["--yes", "--safe", "--item", "app/.next", self.work], 2, "--item"),
            ([self.work], 2, "--yes"),
            (["--yes", self.path("missing")], 1, "no longer exists"),
            (["--yes", "--mode", "caches", self.work], 1, "No known developer cache locations"),
        ]:
            result = self.run_cli("clean", *arguments)
            self.assertEqual((result.returncode, result.stdout), (status, b""), arguments)
            self.assertIn(words, result.stderr.decode())
        self.assertEqual(snapshot(self.root), before)

    def test_nothing_selected_is_no_failure(self):
        document = self.clean()
        self.assertEqual((document["moved"], document["failures"], document["historySaved"]), ([], [], False))
        self.assertEqual(self.history(), [])
        self.assertIn(b"No cleanup history", self.run_cli("history").stdout)

    def test_a_question_is_asked_and_its_answer_taken(self):
        self.project()
        for answer, moves in [(b"n\n", False), (b"\n", False), (b"maybe\n", False), (b"\x04", False), (b"y\n", True)]:
            shown, status = on_terminal(CLI, "clean", self.work, answer=answer, XDG_DATA_HOME=self.data)
            self.assertEqual(status, 0)
            self.assertIn(b"app/.next", shown)
            self.assertIn(b"Move selected items to Trash?", shown)
            self.assertEqual(b"Cleanup complete" in shown, moves)
            self.assertEqual(not os.path.exists(self.path("work/app/.next")), moves)

    def test_a_history_that_cannot_be_written_is_told(self):
        self.project()
        self.write("data/Broomtide", "in the way")
        result = self.run_cli("clean", "--yes", self.work)
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"Cleanup finished, but Broomtide could not save the local history.", result.stderr)
        self.assertFalse(os.path.exists(self.path("work/app/.next")))
        self.assertTrue(os.path.exists(self.path("data/Trash/files/.next/page")))

    def test_a_limit_on_the_size_of_files_is_an_error_like_others(self):
        self.project()
        before = snapshot(self.work)
        result = self.run_cli("clean", "--yes", self.work,
                              preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0)))
        self.assertIn(NOT_MOVED.encode(), result.stdout)
        self.assertEqual((snapshot(self.work), os.listdir(self.path("data/Trash/info"))), (before, []))


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
        git = self.stubbed_git(f"""
            read turn <'{self.root}/turns'
            if [ $turn = list ]; then printf '.next/\\0'; exit; fi
            {endless.script}""")
        git["XDG_DATA_HOME"] = self.data
        clean = subprocess.Popen([CLI, "clean", "--yes", "--json", "--item", "app/node_modules", self.work],
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=git)
        self.assertTrue(endless.has_started())
        before = snapshot(self.work)
        clean.send_signal(signal.SIGINT)
        out, err = clean.communicate(timeout=60)
        self.assertEqual(clean.returncode, 130, err)
        self.assertEqual([failure["message"] for failure in json.loads(out)["failures"]], [CANCELLED])
        self.assertEqual([entry["failures"][0]["message"] for entry in self.history()], [CANCELLED])
        self.assertEqual(snapshot(self.work), before)
        self.assertTrue(endless.has_ended())

    def test_what_was_moved_is_told_when_ctrl_c_comes_after_the_last_item(self):
        for number in range(300):
            self.project(str(number))  # more to tell than a pipe holds
        clean = subprocess.Popen([CLI, "clean", "--yes", "--json", self.work], stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE, env=environment(XDG_DATA_HOME=self.data))
        self.assertTrue(select.select([clean.stdout], [], [], 60)[0])
        clean.send_signal(signal.SIGINT)
        out, err = clean.communicate(timeout=60)
        self.assertEqual((clean.returncode, len(json.loads(out)["moved"])), (0, 300), err)


class Killing(CleanJourney):
    ITEMS = 2_000
    ROUNDS = int(os.environ.get("KILL_ROUNDS", "100"))

    def plant(self):
        for number in range(self.ITEMS // 2):
            self.write(f"work/{number}/package.json", "{}")
            self.write(f"work/{number}/.next/a/b", str(number))
            self.write(f"work/{number}/{number % 7}.log", str(number))
        return [item for number in range(self.ITEMS // 2)
                for item in (f"{number}/.next", f"{number}/{number % 7}.log")]

    def is_whole(self, path, item):
        path = os.path.join(path, "a/b") if item.endswith(".next") else path
        with open(path) as file:
            return file.read() == item.split("/")[0]

    def bring_back(self, items):
        """Checks that each item is whole in one place, and puts it where it belongs. Counts those moved."""
        self.moved = 0
        trash = os.path.join(self.data, "Trash")
        in_trash = {}
        files = os.path.join(trash, "files")  # the last part of a Trash that is made
        for name in os.listdir(files) if os.path.exists(files) else []:
            with open(os.path.join(trash, "info", name + ".trashinfo")) as file:
                title, path, date = file.read().splitlines()
            self.assertEqual(title, "[Trash Info]")
            self.assertTrue(path.startswith("Path=") and date.startswith("DeletionDate="))
            in_trash[urllib.parse.unquote(path[5:])] = os.path.join(files, name)
        for item in items:
            place = os.path.join(self.work, item)
            moved = in_trash.pop(place, None)
            self.assertNotEqual(os.path.exists(place), moved is not None, item)
            self.assertTrue(self.is_whole(moved or place, item), item)
            if moved:
                os.rename(moved, place)
                self.moved += 1
        self.assertEqual(in_trash, {})
        shutil.rmtree(trash, ignore_errors=True)

    def entries(self):
        path = os.path.join(self.data, "Broomtide/history.json")
        if not os.path.exists(path):
            return 0
        with open(path) as file:
            return len(json.load(file)["entries"])

    def test_nothing_is_lost_whenever_it_comes(self):
        items = self.plant()
        rest = {path for path in snapshot(self.work) if path.decode() not in items}
        command = [CLI, "clean", "--yes", "--json"]
        for item in items:
            command += ["--item", item]
        command.append(self.work)
        source = random.Random(self.ROUNDS)
        whole, entries, killed, midway = 120.0, 0, 0, 0  # `whole`: how long one takes
        for round_number in range(self.ROUNDS + 1):
            start = time.monotonic()
            clean = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                                     env=environment(XDG_DATA_HOME=self.data))
            try:  # the first one is left to its end
                clean.wait(timeout=source.uniform(0, whole) if round_number else whole)
            except subprocess.TimeoutExpired:
                clean.kill()
            _, complaint = clean.communicate()
            self.assertIn(clean.returncode, (0, -signal.SIGKILL), complaint)
            if clean.returncode == 0:
                whole = min(whole, time.monotonic() - start)
            self.bring_back(items)
            if clean.returncode:
                killed += 1
                midway += 0 < self.moved < len(items)
            found = self.entries()
            self.assertIn(found, (entries, entries + 1))
            if clean.returncode == 0:
                self.assertEqual((self.moved, found), (len(items), entries + 1))
            entries = found
        self.assertEqual({path for path in snapshot(self.work) if path.decode() not in items}, rest)
        print(f"{killed} of {self.ROUNDS} cleanups were killed, {midway} of them between two items", flush=True)
        self.assertGreater(midway, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)  # says why a test was skipped
