"""What the journeys share.

BROOMTIDE_CLI   the program to test
"""

import json
import os
import subprocess
import tempfile
import unittest

CLI = os.environ.get("BROOMTIDE_CLI")


def environment(**changes):
    kept = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
    return {**kept, "TERM": "xterm", **changes}


class Journey(unittest.TestCase):
    """A folder of its own, removed afterwards, and the program."""

    def setUp(self):
        self.root = tempfile.mkdtemp(prefix="broomtide-journey-")
        self.addCleanup(subprocess.run, ["rm", "-rf", self.root], check=True)

    def path(self, *parts):
        return os.path.join(self.root, *parts)

    def write(self, path, text=""):
        path = self.path(path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w") as file:
            file.write(text)
        return path

    def scan(self, *arguments, **options):
        return subprocess.run(
            [CLI, "scan", *arguments], capture_output=True, timeout=120, env=environment(), **options
        )

    def document(self, *arguments, **options):
        result = self.scan("--json", *arguments, **options)
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        return json.loads(result.stdout)

    def paths(self, *arguments, **options):
        return [candidate["relativePath"] for candidate in self.document(*arguments, **options)["candidates"]]

    def stubbed_git(self, script):
        """The environment in which this script is the Git tool."""
        stub = self.write("stub/usr/bin/git", "#!/bin/sh\n" + script)
        os.chmod(stub, 0o755)
        return environment(DEVELOPER_DIR=self.path("stub"))
