"""What the journeys share.

BROOMTIDE_CLI   the program to test
"""

import fcntl
import json
import os
import pty
import select
import struct
import subprocess
import tempfile
import termios
import time
import unittest

CLI = os.environ.get("BROOMTIDE_CLI")
PATIENCE = 120  # seconds until something that must happen counts as missing


def poll(condition):
    """What the condition gives as soon as that is true, or what it gave last."""
    deadline = time.monotonic() + PATIENCE
    while not (found := condition()) and time.monotonic() < deadline:
        time.sleep(0.01)
    return found


def environment(**changes):
    kept = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
    return {**kept, "TERM": "xterm", **changes}


def on_terminal(*command, answer=b"", **changes):
    """What a program shows on a wide terminal, where its question gets this answer, and its exit status."""
    master, slave = pty.openpty()
    fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("4H", 50, 1000, 0, 0))
    program = subprocess.Popen(command, stdin=slave, stdout=slave, stderr=slave, env=environment(**changes))
    os.close(slave)
    shown = b""
    try:
        while piece := os.read(master, 65536):
            shown += piece
            if answer and shown.endswith(b"[y/N] "):
                os.write(master, answer)
                answer = b""
    except OSError:  # the terminal has no writer left
        pass
    os.close(master)
    return shown, program.wait(timeout=PATIENCE)


class EndlessGit:
    """A pipe that tells whether a Git tool which never answers is there.

    Git may not write anything, so it opens the pipe for reading: `script` is the part of the tool that does.
    """

    def __init__(self, journey, name="alive"):
        self.pipe = journey.path(name)
        os.mkfifo(self.pipe)
        self.script = f"exec 9<'{self.pipe}'; exec sleep 1000"

    def has_started(self):
        def opened():
            try:
                return os.open(self.pipe, os.O_WRONLY | os.O_NONBLOCK)
            except OSError:  # nobody reads
                return None
        self.writer = poll(opened)
        return self.writer is not None

    def has_ended(self):
        """Whoever still held the pipe open would be a child that was left behind."""
        state = select.poll()
        state.register(self.writer, 0)
        try:
            return bool(state.poll(PATIENCE * 1000))
        finally:
            os.close(self.writer)


class Journey(unittest.TestCase):
    """A folder of its own, removed afterwards, and the program with a Trash and a history in it."""

    def setUp(self):
        self.root = tempfile.mkdtemp(prefix="broomtide-journey-")
        self.addCleanup(subprocess.run, ["rm", "-rf", self.root], check=True)
        self.data, self.work = self.path("data"), self.path("work")

    def path(self, *parts):
        return os.path.join(self.root, *parts)

    def write(self, path, text="{}"):
        path = self.path(path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w") as file:
            file.write(text)
        return path

    def surroundings(self, git=None):
        """With a Trash and a history in the folder, and this folder of developer tools."""
        return environment(XDG_DATA_HOME=self.data, **({"DEVELOPER_DIR": git} if git else {}))

    def cli(self, *arguments, **options):
        """How the program ended, with what it said."""
        return subprocess.run([CLI, *arguments], stdin=subprocess.DEVNULL, capture_output=True, timeout=PATIENCE,
                              env=self.surroundings(), **options)

    def document(self, *arguments, status=0):
        result = self.cli(*arguments, "--json")
        self.assertEqual(result.returncode, status, result.stderr)
        return json.loads(result.stdout)

    def start(self, *arguments, git=None):
        return subprocess.Popen([CLI, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=self.surroundings(git))

    def stubbed_git(self, script):
        """The folder of developer tools in which this script is Git."""
        stub = self.write("stub/usr/bin/git", "#!/bin/sh\n" + script)
        os.chmod(stub, 0o755)
        return self.path("stub")
