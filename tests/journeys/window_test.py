"""Uses the window as people do who see no screen and have no pointer, from the first card to the Trash.

BROOMTIDE   the program to test
"""

import json
import os
import re
import signal
import subprocess
import unittest

from desktop import NOTHING, Application, Desktop
from journey import PATIENCE, EndlessGit, Journey

# What Qt says of the list in its folder dialog when it is read while the folder is still being read.
QT_AT_FAULT = re.compile(r'QAccessibleTree::indexFromLogical: invalid index: .* name="treeView"\)\n')


class WindowJourney(Journey):
    SCREEN = "1280x900x24"

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(cls.SCREEN)
        cls.addClassCleanup(cls.desktop.close)

    def start(self, **environment):
        self.app = Application(self.desktop, XDG_DATA_HOME=self.data, **environment)
        self.addCleanup(self.app.close)
        self.await_focus("push button", "Scan Project Folder")

    def quit(self):
        """Closes the window, which must end the program in order and without a word."""
        self.app.press("ctrl+q")
        self.assertEqual(self.app.process.wait(timeout=PATIENCE), 0, self.app.output())
        self.assertEqual(QT_AT_FAULT.sub("", self.app.output()), "")

    # Reading

    def await_focus(self, role, name):
        """Waits until the keyboard is there in the active window; the tree of then."""
        return self.app.wait_for(f"the focus on {role} {name!r}", lambda tree: (
            (tree.keyboard().role, tree.keyboard().name) == (role, name) and tree))

    def await_text(self, *texts):
        """Waits until all of these can be read."""
        self.app.wait_for(texts, lambda tree: all(tree.says(text) for text in texts))

    def await_rows(self, **selected):
        """Waits until the list holds exactly the items that begin like this, and tells which are selected."""
        def told(tree):
            rows = [cell for cell in tree.all("table cell") if "FOCUSABLE" in cell.states]
            return [(row.name.partition(", ")[0].strip("."), "CHECKED" in row.states, ", not selected, " not in row.name)
                    for row in rows]
        wanted = [(name, is_selected, is_selected) for name, is_selected in selected.items()]
        self.app.wait_for(f"the rows {wanted}", lambda tree: told(tree) == wanted)

    # Acting

    def tab_to(self, name):
        """Goes to a control from control to control."""
        passed = [self.app.wait_for("the focus", lambda tree: tree.keyboard() is not NOTHING and tree.keyboard())]
        while not passed[-1].name.startswith(name):
            self.assertLess(len(passed), 20, f"{name} cannot be reached, but {[node.name for node in passed]}")
            self.app.press("Tab")
            passed.append(self.app.wait_for(f"another focus than {passed[-1]}", lambda tree: (
                tree.keyboard().place not in ((), passed[-1].place) and tree.keyboard())))

    def choose(self, folder):
        """From the start screen, the folder through the first card and its dialog."""
        title = "Choose a project folder"
        self.app.press("space")
        self.app.wait_for(title, lambda tree: tree.window().name == title and tree.keyboard().role == "text")

        def is_typed():
            # What the dialog proposes meanwhile pops up in a window that may count as the active one.
            return any(node.text == folder for node in self.app.tree().all("text") if "FOCUSED" in node.states)

        # A busy Qt sometimes puts what it has selected in place of what is still being typed.
        for _ in range(20):
            self.app.type(folder)
            if any(is_typed() for _ in range(50)):
                break
            self.app.press("ctrl+a")
        self.app.press("Return")
        self.app.wait_for("the end of the dialog", lambda tree: not tree.says(title))


class Projects(WindowJourney):
    def below(self, folder):
        return {os.path.relpath(os.path.join(place, name), self.path(folder))
                for place, _, names in os.walk(self.path(folder)) for name in names}

    def test_whatever_ends_it_a_cleanup_is_recorded(self):
        self.write("work/app/package.json")
        self.write("work/app/.next/page")
        os.makedirs(self.path("work/app/.git"))
        os.mkfifo(self.path("turns"))
        turns = os.open(self.path("turns"), os.O_RDWR)
        self.addCleanup(os.close, turns)
        # The server of the display comes last, because it does not come back.
        ends = [lambda: self.app.process.terminate(), lambda: os.killpg(self.desktop.started[0].pid, signal.SIGKILL)]
        for number, end in enumerate(ends):
            os.write(turns, b"list\nlist\nwait\n")
            endless = EndlessGit(self, f"alive-{number}")
            self.start(DEVELOPER_DIR=self.stubbed_git(f"""
                read turn <'{self.root}/turns'
                case "$turn $*" in
                  list*--ignored*) printf '.next/\\0';;
                  list*) printf 'package.json\\0';;
                  *) {endless.script};;
                esac"""))
            self.choose(self.work)
            self.await_rows(next=True)
            self.tab_to(".next, ")
            self.app.press("Return")
            self.await_focus("push button", "Move to Trash")
            self.app.press("Return")
            self.assertTrue(endless.has_started())
            end()
            self.assertEqual(self.app.process.wait(timeout=PATIENCE), number, self.app.output())
            self.assertTrue(endless.has_ended())
            with open(self.path("data/Broomtide/history.json")) as file:
                self.assertEqual(len(json.load(file)["entries"]), number + 1)

    def test_from_the_first_card_to_the_trash_and_home_again(self):
        self.write("work/app/package.json")
        self.write("work/app/.gitignore", ".next/\nnode_modules/\n")
        self.write("work/app/dist/bundle.js", "tracked")
        subprocess.run("git init -q && git add . && git -c user.name=t -c user.email=t@e.org commit -qm a",
                       shell=True, cwd=self.path("work/app"), check=True)
        self.write("work/app/.next/page", "page" * 5_000)
        self.write("work/app/node_modules/m/index.js", "module" * 50_000)
        self.write("work/site/package.json")
        self.write("work/site/coverage/index.html", "covered")
        before = self.below("work")
        self.start()
        self.choose(self.work)
        self.await_rows(next=True, coverage=True, node_modules=False)
        self.await_text("Review cleanup items", self.work, "3 Matches", "2 Projects")

        # Another is selected, and one no more.
        self.tab_to(".next, ")
        self.app.press("Down", "space", "Down", "space")
        self.await_rows(next=True, coverage=False, node_modules=True)

        # There and back, then there
        for key in ("Escape", "Return"):
            self.app.press("Return")
            self.await_focus("push button", "Move to Trash")
            self.await_text("Move selected items to Trash?")
            self.assertEqual(self.below("work"), before)
            self.app.press(key)
        self.await_focus("push button", "Done")
        self.await_text("Cleanup complete", "2 Items moved", "0 Failed")
        self.assertEqual(before - self.below("work"), {"app/.next/page", "app/node_modules/m/index.js"})
        self.assertEqual(self.below("data/Trash/files"), {".next/page", "node_modules/m/index.js"})

        self.app.press("Return")
        self.await_focus("push button", "Scan Project Folder")
        self.quit()


if __name__ == "__main__":
    unittest.main()
