"""Runs programs and prints tables: what the scripts that take times share."""

import os
import subprocess
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BIN = Path(os.environ.get("BROOMTIDE_BIN", ROOT / "build/release/bin"))


class Failed(Exception):
    """A program that could not be run, or ended with an error."""


def run(command):
    """Runs `command` without its output and returns the seconds that it took."""
    with tempfile.TemporaryFile() as errors:
        actions = [
            (os.POSIX_SPAWN_OPEN, 0, os.devnull, os.O_RDONLY, 0),
            (os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0),
            (os.POSIX_SPAWN_DUP2, errors.fileno(), 2),
        ]
        start = time.perf_counter()
        try:
            child = os.posix_spawnp(command[0], command, os.environ, file_actions=actions)
        except OSError as error:
            raise Failed(f"{command[0]}: {error.strerror}") from error
        _, status = os.waitpid(child, 0)
        seconds = time.perf_counter() - start
        if status != 0:
            errors.seek(0)
            said = errors.read().decode(errors="replace").strip()
            code = os.waitstatus_to_exitcode(status)
            raise Failed(f"{' '.join(command)[:200]} ended with {code}: {said}")
    return seconds


def output_of(command):
    """Runs `command` and returns what it prints."""
    try:
        result = subprocess.run(command, capture_output=True, text=True, check=False)
    except OSError as error:
        raise Failed(f"{command[0]}: {error.strerror}") from error
    if result.returncode != 0:
        raise Failed(f"{' '.join(command)[:200]}: {result.stderr.strip()}")
    return result.stdout


def peak_megabytes(command):
    """Runs `command` without its output and returns the most memory that it used."""
    return int(output_of([str(BIN / "broomtide-bench-peak"), *command])) / 1024


def print_table(rows):
    """The first column to the left, the others to the right."""
    widths = [max(len(row[column]) for row in rows) for column in range(len(rows[0]))]
    for row in rows:
        cells = [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]
        print("  ".join([row[0].ljust(widths[0]), *cells]))
