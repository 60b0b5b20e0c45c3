"""Takes the pictures of the documents: a demonstration folder, the real program, a screen that nobody sees.

BROOMTIDE       the program to show
PICTURES        the folder for the pictures

scripts/pictures starts this where /home is an empty folder of its own.
"""

import os
import subprocess
import time
import unittest

from window_test import WindowJourney

HOME = "/home/ada"
MEGABYTE = 10**6
DAY = 24 * 60 * 60
SHARPNESS = 2
NOW = time.time()

# Project, what describes it, what Git ignores in it; then artefacts, their size in MB and age in days.
PROJECTS = [
    ("website", {"package.json": "{}", "pnpm-lock.yaml": ""}, ".next/\nnode_modules/\n.turbo/\n",
     [(".next", 386.4, 3), ("node_modules", 741.2, 12), (".turbo", 58.7, 3)]),
    ("engine", {"Cargo.toml": "[package]", "Cargo.lock": ""}, "target/\n", [("target", 912.5, 41)]),
    ("forecast", {"pyproject.toml": "[project]"}, ".venv/\n__pycache__/\n.pytest_cache/\n",
     [(".venv", 268.3, 96), ("forecast/__pycache__", 1.9, 2), (".pytest_cache", 0.6, 2)]),
    ("atlas", {"pubspec.yaml": "name: atlas"}, ".dart_tool/\nbuild/\n", [(".dart_tool", 83.1, 210), ("build", 154.8, 210)]),
    ("notes", {"package.json": "{}"}, None, [("dist", 4.2, 400), ("coverage", 12.6, 400)]),
]


def take_up(path, megabytes, age):
    """A folder with files that take up this much of the disk."""
    os.makedirs(path)
    for number in range(8):
        name = os.path.join(path, f"part-{number}")
        descriptor = os.open(name, os.O_CREAT | os.O_WRONLY)
        os.posix_fallocate(descriptor, 0, int(megabytes * MEGABYTE / 8))
        os.close(descriptor)
    for name in [*os.listdir(path), "."]:
        os.utime(os.path.join(path, name), (NOW - age * DAY, NOW - age * DAY))


class Pictures(WindowJourney):
    SCREEN = f"{1400 * SHARPNESS}x{1000 * SHARPNESS}x24"

    def setUp(self):
        super().setUp()
        self.root, self.data = HOME, HOME + "/.local/share"
        for name, manifests, ignored, artefacts in PROJECTS:
            for manifest, text in manifests.items():
                self.write(f"src/{name}/{manifest}", text)
            if ignored:
                self.write(f"src/{name}/.gitignore", ignored)
                subprocess.run("git init -q && git add . && git -c user.name=Ada -c user.email=ada@example.org commit -qm A",
                               shell=True, cwd=self.path("src", name), check=True)
            for path, megabytes, age in artefacts:
                take_up(self.path("src", name, path), megabytes, age)

    def take(self, name):
        """A picture of the window once nothing in it changes any more."""
        window = self.desktop.xdotool("search", "--onlyvisible", "--name", "^Broomtide$").split()[-1]
        self.desktop.xdotool("windowsize", "--sync", window, str(1080 * SHARPNESS), str(720 * SHARPNESS))
        self.desktop.xdotool("mousemove", "0", "0")
        path = os.path.join(os.environ["PICTURES"], name + ".png")
        before = None
        for _ in range(100):
            subprocess.run(["import", "-window", window, "-strip", path], check=True, timeout=60,
                           env=self.desktop.environment)
            with open(path, "rb") as file:
                now = file.read()
            if now == before:
                return
            before = now
        self.fail(f"{name} never comes to rest")

    def test_every_screen(self):
        self.start(HOME=HOME, QT_SCALE_FACTOR=str(SHARPNESS), LC_ALL="en_US.UTF-8", LANGUAGE="en")
        self.take("welcome")
        self.choose(self.path("src"))
        self.await_text("Review cleanup items", "5 Projects")
        self.tab_to(".next, ")
        self.app.press("Right")
        self.app.wait_for("details", lambda tree: "details shown" in tree.keyboard().name)
        self.take("results")
        self.app.press("Left", "Return")
        self.await_focus("push button", "Move to Trash")
        self.take("confirmation")
        self.app.press("Return")
        self.await_focus("push button", "Done")
        self.take("summary")
        self.quit()


def load_tests(loader, _tests, _pattern):
    return loader.loadTestsFromTestCase(Pictures)


if __name__ == "__main__":
    unittest.main()
