"""Uses the window as people do who see no screen and have no pointer, from the first card to the Trash.

BROOMTIDE   the program to test
"""

import os
import re
import signal
import subprocess
import tempfile
import time
import unittest
import urllib.parse

from desktop import NOTHING, Application, Desktop
from journey import EndlessGit, Journey, poll

CARDS = {
    "Scan Project Folder": "Find build outputs, caches, and dependencies inside your repositories.",
    "Scan Developer Caches": "Check Xcode DerivedData plus global npm, pip, Homebrew, Gradle, and Cargo caches.",
    "Scan Downloads": "Surface old installers, archives, and screenshots that piled up.",
}
ONLY_THIS_FOLDER = "Broomtide scans only the folder you choose. Nothing is uploaded."
DIALOGS = {  # the title, what the button says, and the message
    "Scan Project Folder": ("Choose a project folder", "Scan Folder", ONLY_THIS_FOLDER),
    "Scan Downloads": ("Choose your Downloads folder", "Scan Folder", ONLY_THIS_FOLDER),
}
CONTROLS = ("push button", "check box", "combo box", "text", "table", "list")
# What Qt says of the list in its folder dialog when it is read while the folder is still being read.
QT_AT_FAULT = re.compile(r'QAccessibleTree::indexFromLogical: invalid index: .* name="treeView"\)\n')
YEAR = 365 * 24 * 60 * 60

desktop = None


def setUpModule():
    global desktop
    desktop = Desktop()
    unittest.addModuleCleanup(desktop.close)


def size_text(size):
    assert 1_000 <= size < 999_500, size
    return f"{(size + 500) // 1_000} KB"


class WindowJourney(Journey):
    def setUp(self):
        super().setUp()
        self.trash = self.path("data/Trash")

    def start(self, **environment):
        self.app = Application(desktop, XDG_DATA_HOME=self.path("data"), **environment)
        self.addCleanup(self.app.close)
        self.at_home()

    def quit(self):
        """Closes the window, which must end the program soon, in order and without a word."""
        start = time.monotonic()
        self.app.press("ctrl+q")
        self.assertEqual(self.app.process.wait(timeout=30), 0, self.app.output())
        self.assertLess(time.monotonic() - start, 5)
        self.assertEqual(QT_AT_FAULT.sub("", self.app.output()), "")

    # Reading

    def await_focus(self, role, name):
        """Waits until the keyboard is there in the active window; the tree of then."""
        return self.app.wait_for(f"the focus on {role} {name!r}", lambda tree: (
            (tree.keyboard().role, tree.keyboard().name) == (role, name) and tree))

    def await_window(self):
        """The active window, once something in it has the keyboard."""
        return self.app.wait_for("the focus", lambda tree: tree.keyboard() is not NOTHING and tree.window())

    def await_text(self, *texts):
        """Waits until all of these can be read; the tree of then."""
        return self.app.wait_for(texts, lambda tree: all(tree.says(text) for text in texts) and tree)

    def await_gone(self, text):
        self.app.wait_for(f"no more {text!r}", lambda tree: not tree.says(text))

    def at_home(self):
        tree = self.await_focus("push button", "Scan Project Folder")
        found = {node.name: node.description for node in tree.all("push button") if node.name in CARDS}
        self.assertEqual(found, CARDS)

    def size(self, path):
        """What the files of an item take up on the disk."""
        if os.path.isfile(self.path(path)):
            return os.lstat(self.path(path)).st_blocks * 512
        return sum(os.lstat(os.path.join(folder, name)).st_blocks * 512
                   for folder, _, names in os.walk(self.path(path)) for name in names)

    def await_rows(self, *rows):
        """Waits until the list holds exactly these, and each says all that it must; the tree of then."""
        def match(tree):
            cells = [cell for cell in tree.all("table cell") if cell.description.startswith("Select ")]
            return len(cells) == len(rows) and tree.find("table", "Cleanup Items") and all(
                cell.description == f"Select {os.path.basename(path)}"
                and cell.name.startswith(", ".join(
                    [os.path.basename(path), category, safety, size, "selected, " if selected else "not selected, "]))
                and all(f", {part}, " in cell.name + ", " for part in [path, *parts])
                and ("CHECKED" in cell.states) == selected
                for cell, (path, category, safety, size, selected, *parts) in zip(cells, rows)) and tree
        return self.app.wait_for(f"the rows {rows}", match)

    # Acting

    def tab_to(self, name, most=20):
        """Goes to a control from control to control."""
        passed = []
        focus = self.await_window().focus()
        while not focus.name.startswith(name):
            self.assertLess(len(passed), most, f"{name} cannot be reached, but {passed}")
            self.app.press("Tab")
            focus = self.app.wait_for(f"another focus than {focus}", lambda tree, before=focus.place: (
                tree.keyboard().place not in ((), before) and tree.keyboard()))
            passed.append(focus.name)

    def check_reach(self):
        """Tab leads to everything that can be used, and comes round again."""
        window = self.await_window()
        wanted = {node.place for node in window.all(focusable=True, enabled=True) if node.role in CONTROLS
                  and (node.role != "check box" or "CHECKED" in node.states)}  # arrows lead to the other

        def control(tree):
            node = tree.keyboard()
            return node.place if node.role in CONTROLS else node.place[:-1]  # a list, for its row

        reached = [self.app.wait_for("a control with the focus", control)]
        while len(reached) < 2 or reached[-1] != reached[0]:
            self.assertLess(len(reached), 30, f"Tab never comes back\n{window}")
            self.app.press("Tab")
            reached.append(self.app.wait_for(f"a control after {reached}", lambda tree: (
                (place := control(tree)) != reached[-1] and place)))
        self.assertEqual(set(reached), wanted, window)

    def choose(self, card, folder):
        """From the start screen, the folder through the card and its dialog."""
        self.tab_to(card)
        self.app.press("space")
        title, button, message = DIALOGS[card]
        dialog = self.app.wait_for(title, lambda tree: tree.window().name == title and tree.window().focus()
                                   and tree.window())
        self.assertTrue(dialog.says(message), dialog)
        self.assertTrue(dialog.find("push button", button, enabled=True), dialog)
        self.assertEqual(dialog.focus().role, "text", dialog)

        def is_typed():
            # What the dialog proposes meanwhile pops up in a window that may count as the active one.
            return any(node.text == folder for node in self.app.tree().all("text", focused=True))

        # A busy Qt sometimes puts what it has selected in place of what is still being typed.
        for _ in range(3):
            self.app.type(folder)
            if poll(is_typed, seconds=5):
                break
            self.app.press("ctrl+a")
        self.assertTrue(is_typed(), self.app.tree())
        self.app.press("Return")
        self.await_gone(title)

    def ask(self, count, size):
        """From the results to the confirmation."""
        self.app.press("Return")
        self.await_focus("push button", "Move to Trash")
        self.await_text("Move selected items to Trash?", f"{count} item(s) totaling {size}")

    def confirm(self, count, size, failed=0):
        """On to the summary."""
        self.app.press("Return")
        tree = self.await_focus("push button", "Done")
        for text in ["Cleanup complete", f"{size} Moved to Trash", f"{count} Items moved", f"{failed} Failed"]:
            self.assertTrue(tree.says(text), f"{text}\n{tree}")
        return tree

    def check_history(self, count, size):
        self.app.press("space")
        entry = re.compile(re.escape(self.path("work")) + rf" · .+ · {count} item\(s\) · {size}")
        self.app.wait_for("the entry", lambda tree: tree.find("list", "Cleanup History") and [
            item for item in tree.all("list item") if entry.fullmatch(item.name)])
        self.tab_to("Back")
        self.app.press("space")

    # What became of the files

    @staticmethod
    def below(top):
        return {os.path.join(folder, name).removeprefix(top)
                for folder, folders, names in os.walk(top) for name in names + folders}

    def files(self):
        return {path.removeprefix("/") for path in self.below(self.path("work"))}

    def check_trash(self, before, moved):
        """What was moved is in the Trash and nowhere else; everything else is where it was."""
        gone = {path for path in before if any(path == item or path.startswith(item + "/") for item in moved)}
        self.assertEqual(before - self.files(), gone)
        self.assertEqual(self.files() - before, set())
        places = {}
        for info in os.listdir(os.path.join(self.trash, "info")):
            with open(os.path.join(self.trash, "info", info)) as file:
                path = re.fullmatch(r"\[Trash Info\]\nPath=(.*)\nDeletionDate=[-0-9]{10}T[:0-9]{8}\n", file.read())[1]
            name = info.removesuffix(".trashinfo")
            places[os.path.relpath(urllib.parse.unquote(path), self.path("work"))] = name
        self.assertEqual(set(places), set(moved))
        self.assertEqual(set(os.listdir(os.path.join(self.trash, "files"))), set(places.values()))
        for item, name in places.items():
            there = {item + entry for entry in self.below(os.path.join(self.trash, "files", name))}
            self.assertEqual(there, {path for path in gone if path.startswith(item + "/")})


class Projects(WindowJourney):
    def plant(self):
        self.write("work/app/package.json", "{}")
        self.write("work/app/.gitignore", ".next/\nnode_modules/\n")
        self.write("work/app/src/index.js", "source")
        self.write("work/app/dist/bundle.js", "tracked")
        subprocess.run("git init -q && git add . && git -c user.name=t -c user.email=t@e.org commit -qm a",
                       shell=True, cwd=self.path("work/app"), check=True)
        self.write("work/app/.next/page", "page" * 5_000)
        self.write("work/app/node_modules/m/index.js", "module" * 50_000)
        self.write("work/site/package.json", "{}")
        self.write("work/site/coverage/index.html", "covered")

    def test_from_the_first_card_to_the_trash_and_home_again(self):
        self.plant()
        before = self.files()
        self.start()
        self.check_reach()
        self.choose("Scan Project Folder", self.path("work"))

        sizes = {path: self.size("work/" + path) for path in ["app/.next", "app/node_modules", "site/coverage"]}

        def rows(**selected):
            ignored = ["High confidence", "Ignored by Git", "details hidden"]
            unknown = ["High confidence", "Git status unavailable", "details hidden"]
            return [(path, category, safety, size_text(sizes[path]), selected.get(name, is_selected), *rest)
                    for name, path, category, safety, is_selected, rest in [
                        ("next", "app/.next", "Build Output", "Safe to Clean", True, ignored),
                        ("coverage", "site/coverage", "Test Output", "Safe to Clean", True, unknown),
                        ("modules", "app/node_modules", "Dependencies", "Usually Safe", False, ignored)]]

        tree = self.await_rows(*rows())
        total, in_app = size_text(sum(sizes.values())), size_text(sizes["app/.next"] + sizes["app/node_modules"])
        for text in ["Review cleanup items", self.path("work"), f"{total} Found", "3 Matches", "2 Projects"]:
            self.assertTrue(tree.says(text), f"{text}\n{tree}")
        self.check_reach()

        # The other view and back
        self.tab_to("Cleanup Items")
        self.app.press("Right")
        projects = [(f"app · {self.path('work/app')} · ", f" · 2 items · {in_app}"),
                    (f"site · {self.path('work/site')} · ", f" · 1 items · {size_text(sizes['site/coverage'])}")]
        self.app.wait_for("the projects", lambda tree: len(found := tree.all("list item")) == len(projects) and all(
            item.name.startswith(start) and item.name.endswith(end)
            for item, (start, end) in zip(found, projects)))
        self.app.press("Left")
        self.await_rows(*rows())
        self.tab_to(".next, ")

        # Another is selected, and one no more.
        self.assertTrue(self.await_window().focus().name.startswith(".next, "))
        self.app.press("Down", "space")
        self.await_rows(*rows(coverage=False))
        self.app.press("Down", "space")
        self.await_rows(*rows(coverage=False, modules=True))
        self.await_text(f"2 selected · {in_app}", f"{in_app} Selected")

        # Details
        command = "Run npm install, pnpm install, or yarn install."
        self.app.press("Right")
        shown = self.app.wait_for("details", lambda tree: "details shown" in tree.keyboard().name and tree)
        for text in ["Dependencies can be restored with the project's package manager.", "Project: app",
                     "Detected JavaScript / TypeScript project from package.json.",
                     "The path is ignored by Git.", command]:
            self.assertTrue(any(text in cell.name for cell in shown.all("table cell")), f"{text}\n{shown}")
        # The button is a part of the table that is not in the tree.
        self.app.press("Tab")
        self.app.wait_for("the focus on the button that copies", lambda tree: (
            tree.window() is not NOTHING and tree.keyboard() is NOTHING))
        self.app.press("space", "ctrl+f", "ctrl+v")
        self.app.wait_for("the command", lambda tree: tree.keyboard().text == command)
        self.app.press("Escape", "End", "Left")
        self.await_rows(*rows(coverage=False, modules=True))

        # The filter
        self.app.press("ctrl+f")
        self.await_focus("text", "Filter")
        self.app.type("next")
        self.await_rows(rows()[0])
        self.await_text(f"2 selected · {in_app} · 1 of them hidden by the filter")
        self.app.type("nothing")
        self.await_text("No matching items")
        self.app.press("Escape")
        self.await_rows(*rows(coverage=False, modules=True))
        self.app.wait_for("the focus in the list", lambda tree: tree.keyboard().role == "table cell")

        # There and back, then there
        self.ask(2, in_app)
        self.check_reach()
        self.app.press("Escape")
        self.await_rows(*rows(coverage=False, modules=True))
        self.assertEqual(self.files(), before)
        self.ask(2, in_app)
        self.confirm(2, in_app)
        self.check_trash(before, ["app/.next", "app/node_modules"])
        self.check_reach()

        # The history leads back to the summary, and that home.
        self.tab_to("View History")
        self.check_history(2, in_app)
        self.await_focus("push button", "Done")
        self.await_text("2 Items moved")
        self.app.press("Return")
        self.at_home()
        self.quit()


class Downloads(WindowJourney):
    def test_what_is_old_is_offered_and_what_is_there_no_more_is_told(self):
        for name in ["old.dmg", "old.zip", "new.dmg", "new.zip", "old.txt"]:
            self.write("work/" + name, name * 3_000)
            if name.startswith("old"):
                os.utime(self.path("work", name), (time.time() - YEAR,) * 2)
        before = self.files()
        self.start()
        self.choose("Scan Downloads", self.path("work"))
        size = size_text(self.size("work/old.zip"))
        rows = [("old.dmg", "Installer", "Usually Safe", size, False),
                ("old.zip", "Archive", "Usually Safe", size, False)]
        self.await_rows(*rows)
        self.app.press("Return")  # nothing is selected, so there is nothing to confirm
        self.app.press("space", "Down", "space")
        self.await_rows(*((*row[:4], True) for row in rows))
        self.ask(2, size_text(2 * self.size("work/old.zip")))
        os.remove(self.path("work/old.dmg"))
        tree = self.confirm(1, size, failed=1)
        failures = [node.name for node in tree.find("list", "Items that were left alone").all("list item")]
        self.assertEqual(len(failures), 1, tree)
        self.assertIn("old.dmg · ", failures[0])
        self.check_reach()
        self.check_trash(before - {"old.dmg"}, ["old.zip"])
        self.quit()

        # Another day
        self.start()
        self.tab_to("View Cleanup History")
        self.check_history(1, size)
        self.at_home()
        os.makedirs(self.path("empty"))
        self.choose("Scan Downloads", self.path("empty"))
        self.await_text("Nothing to clean here")
        self.await_focus("push button", "Home")
        self.app.press("space")
        self.at_home()
        self.quit()


class Leaving(WindowJourney):
    """Git never answers, so that scans last for as long as anybody wants them to."""

    def setUp(self):
        super().setUp()
        for number in range(2_000):
            self.write(f"work/many/{number}.txt")
        self.write("work/app/package.json", "{}")
        os.makedirs(self.path("work/app/.git"))
        self.write("work/app/.next/page", "page")
        self.git = EndlessGit(self)
        self.start(DEVELOPER_DIR=self.stubbed_git(self.git.script)["DEVELOPER_DIR"])

    def scan(self):
        self.choose("Scan Project Folder", self.path("work"))
        self.await_text("Scanning work")
        self.await_focus("push button", "Back to Home")
        self.assertTrue(self.git.has_started(), "Git was not asked")
        self.await_text("2005 Items scanned")

    def test_escape_leaves_a_scan_and_closing_the_window_too(self):
        self.scan()
        self.app.press("Escape")
        self.at_home()
        self.assertTrue(self.git.has_ended(), "Git is still running")
        self.scan()
        self.quit()
        self.assertTrue(self.git.has_ended(), "Git is still running")
        self.assertFalse(os.path.exists(self.trash))


class WithoutWindow(unittest.TestCase):
    def test_a_start_that_needs_or_gets_no_window_says_so(self):
        runtime = tempfile.TemporaryDirectory()  # Qt creates a missing one
        self.addCleanup(runtime.cleanup)
        os.chmod(runtime.name, 0o777)  # and complains about this, which people need not know
        offscreen = {"QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": runtime.name, "LC_ALL": "C"}
        for arguments, changes, status, said in [
            (["--version"], {}, 0, r"broomtide \d+\.\d+\.\d+\n"),
            (["--help"], {}, 0, "Usage: broomtide\n.*broomtide-cli.*"),
            ([], {}, 1, "broomtide: There is no display .* use broomtide-cli\\.\n"),
            (["a\nb"], offscreen, 2, r"broomtide: 'a\\nb' is not understood.*--help.*"),
            ([], {**offscreen, "QT_QPA_PLATFORM": "xcb", "DISPLAY": ":0.x"}, -signal.SIGABRT,
             r"[^\n]*could not connect to display :0\.x\n.*"),
            ([], {**offscreen, "QT_QPA_PLATFORM": "no-such"}, -signal.SIGABRT, r"[^\n]*plugin \"no-such\".*"),
        ]:
            with self.subTest(arguments):
                kept = {name: value for name, value in os.environ.items()
                        if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
                result = subprocess.run([os.environ["BROOMTIDE"], *arguments], env={**kept, **changes}, text=True,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=60)
                self.assertEqual(result.returncode, status)
                self.assertRegex(result.stdout, re.compile("^" + said + "$", re.DOTALL))


if __name__ == "__main__":
    unittest.main()
