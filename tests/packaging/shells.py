"""Shells that complete what is typed.

Bash and Zsh run on a terminal and get keys. A stand-in for broomtide-cli writes down the words that
it is started with, so that what counts is what the shell makes of a line in the end, with all its
quoting. Fish says itself what it would offer.
"""

import os
import pty
import select
import shlex
import subprocess
import tempfile
import time
from pathlib import Path

COMPLETIONS = Path(__file__).resolve().parents[2] / "packaging/completions"
PATIENCE = 60  # seconds until something that must happen counts as missing
READY, RAN = b"<ready>", b"<ran>"
STAND_IN = "#!/bin/sh\nprintf '%s\\0' \"$@\" >\"$WORDS\"\necho '<ran>'\n"
TAB = "\t"


class Shell:
    """A shell in a folder of its own, in which it starts."""

    def __init__(self):
        self.home = tempfile.TemporaryDirectory()
        self.folder = Path(self.home.name, "work")
        self.folder.mkdir()

    def put(self, name, text, mode=0o644):
        path = Path(self.home.name, name)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
        path.chmod(mode)
        return path

    def environment(self):
        home = self.home.name
        return {"HOME": home, "LC_ALL": "C.UTF-8", "TERM": "xterm", "INPUTRC": "/dev/null",
                "PATH": f"{home}/bin:{os.environ['PATH']}", "WORDS": f"{home}/words"}

    def close(self):
        self.home.cleanup()


class TerminalShell(Shell):
    """`all_keys` are what puts all completions of a word into the line."""

    def __init__(self):
        super().__init__()
        self.put("bin/broomtide-cli", STAND_IN, 0o755)
        self.prepare()
        self.terminal, other_end = pty.openpty()
        self.process = subprocess.Popen(
            self.command, cwd=self.folder, stdin=other_end, stdout=other_end, stderr=other_end,
            start_new_session=True, env=self.environment())
        os.close(other_end)
        self.shown = b""
        self.wait_for(READY)

    def wait_for(self, text):
        deadline = time.monotonic() + PATIENCE
        while text not in self.shown:
            rest = deadline - time.monotonic()
            if rest < 0 or not select.select([self.terminal], [], [], rest)[0]:
                raise AssertionError(f"{text} is not shown: {self.shown}")
            self.shown += os.read(self.terminal, 65536)
        self.shown = self.shown.partition(text)[2]

    def words(self, line, keys):
        """What broomtide-cli is started with after `line` and `keys` were typed."""
        os.write(self.terminal, f"broomtide-cli {line}{keys}\r".encode())
        self.wait_for(RAN)
        self.wait_for(READY)
        return Path(self.home.name, "words").read_text().split("\0")[:-1]

    def completed(self, line):
        """All words of the line after the last one was completed."""
        return self.words(line, TAB)

    def offered(self, line):
        """Every completion of the last word of the line."""
        return set(self.words(line, self.all_keys)[len(shlex.split(line.rpartition(" ")[0])):])

    def close(self):
        self.process.kill()
        self.process.wait()
        os.close(self.terminal)
        super().close()


class Bash(TerminalShell):
    command = ["bash", "--rcfile", "../rc", "-i"]
    all_keys = "\x1b*"
    source = COMPLETIONS / "broomtide-cli.bash"

    def prepare(self):
        self.put("rc", f"PS1='{READY.decode()}'\nsource '{self.source}'\n")


class BashCompletion(Bash):
    """Bash with the package that looks for the completions of a command when they are first needed."""

    source = "/usr/share/bash-completion/bash_completion"

    def prepare(self):
        super().prepare()
        self.put(".local/share/bash-completion/completions/broomtide-cli", Bash.source.read_text())


class Zsh(TerminalShell):
    command = ["zsh", "-o", "NO_GLOBAL_RCS", "-i"]
    all_keys = "\x18a"

    def prepare(self):
        self.put(".zshrc", f"""
            PS1='{READY.decode()}'
            unsetopt prompt_sp auto_remove_slash
            fpath=('{COMPLETIONS}' $fpath)
            autoload -Uz compinit && compinit -D -u
            zle -C all-completions complete-word _generic
            bindkey '^Xa' all-completions
            zstyle ':completion:all-completions::::' completer _all_matches _complete
            zstyle ':completion:all-completions:*' insert true
            """)

    def offered(self, line):
        return {word.removesuffix("=") for word in super().offered(line)}


class Fish(Shell):
    def offered(self, line):
        script = f"source '{COMPLETIONS}/broomtide-cli.fish'; complete --do-complete $argv[1]"
        command = ["fish", "--no-config", "--command", script, f"broomtide-cli {line}"]
        answer = subprocess.run(command, cwd=self.folder, env=self.environment(), capture_output=True, text=True,
                                timeout=PATIENCE, check=True)
        return {row.partition("\t")[0] for row in answer.stdout.splitlines()}

    def completed(self, line):
        found = self.offered(line)
        *before, last = shlex.split(f"{line}''")
        return [*before, found.pop() if len(found) == 1 else last]


EVERY = (Bash, BashCompletion, Zsh, Fish)
