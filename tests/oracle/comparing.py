"""What comparing a program with the oracle needs: a home folder, and what is different."""

import difflib
import os
import re
import resource
import shutil
import stat
import subprocess

import expected

OPEN_FILES = 256
UUID = re.compile(r"[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}")


def cli_environment(home, data):
    """Git settings that Broomtide must keep from Git, and a home folder in which nothing may appear."""
    environment = {key: value for key, value in os.environ.items() if key != "DEVELOPER_DIR"}
    environment.update(
        HOME=home, XDG_DATA_HOME=os.fsdecode(data), XDG_CONFIG_HOME=home + "/config", LC_ALL="C.UTF-8",
        GIT_DIR="/nonexistent", GIT_INDEX_FILE="/nonexistent/index", GIT_WORK_TREE="/nonexistent",
    )
    return environment


def make_home(base):
    """Its Git configuration would make Git ignore everything."""
    home = base + "/home"
    os.makedirs(home + "/config/git")
    with open(home + "/config/git/ignore", "w") as out:
        out.write("*\n")
    with open(home + "/.gitconfig", "w") as out:
        out.write(f"[core]\n\texcludesFile = {home}/config/git/ignore\n")
    return home


def limit_open_files():
    _, hard = resource.getrlimit(resource.RLIMIT_NOFILE)
    resource.setrlimit(resource.RLIMIT_NOFILE, (OPEN_FILES, hard))


expected.before_git = limit_open_files  # Git keeps a descriptor per level: its own answer depends on the limit


def without_issue_ids(document):
    """Takes the random identifiers out of the document; returns complaints about them."""
    issues = document.get("issues") if isinstance(document, dict) else None
    if not isinstance(issues, list) or not all(isinstance(issue, dict) for issue in issues):
        return []
    identifiers = [issue.pop("id", None) for issue in issues]
    complaints = [f"issue id {identifier!r} is no UUID" for identifier in identifiers
                  if not isinstance(identifier, str) or not UUID.fullmatch(identifier)]
    if len(set(map(str, identifiers))) != len(identifiers):
        complaints.append("two issues share an id")
    return complaints


def label(value):
    return value.get("id") or value.get("path") or value.get("root") if isinstance(value, dict) else value


def shortened(line):
    return line if len(line) <= 400 else f"{line[:200]} [...] {line[-200:]}"


def lines_of(value, where=""):
    """A document as lines, which are the same for two documents only when everything in them is."""
    if isinstance(value, dict):
        yield f"{where}: {sorted(value)}"
        for key in sorted(value):
            yield from lines_of(value[key], f"{where}.{key}")
    elif isinstance(value, list):
        yield f"{where}: {len(value)} items"
        for item in value:
            yield from lines_of(item, f"{where}[{label(item)!r}]")
    else:
        yield f"{where}: {value!r}"


def differences(want, got):
    """Readable lines, one for each that is missing (-) or not expected (+)."""
    compared = difflib.unified_diff(list(lines_of(want)), list(lines_of(got)), "expected", "got", n=0, lineterm="")
    return [line for line in compared if not line.startswith("@@")]


def portrait(base):
    """What a scan must leave as it is: of every entry its name, identity, mode, size, times and link target."""
    found = {}

    def visit(entry):
        try:
            status = entry.attributes()
        except PermissionError:  # in a folder that may be listed but not searched
            found[entry.path] = None
            return False
        target = os.readlink(entry.name, dir_fd=entry.parent_fd) if stat.S_ISLNK(status.st_mode) else None
        found[entry.path] = (status.st_ino, status.st_mode, status.st_size, status.st_mtime_ns, target)
        return True

    expected.walk(base, [], visit)
    return found


def remove(base, tree):
    if tree is not None and tree.unreadable:
        subprocess.run(["chmod", "-R", "u+rwX", "--", base], check=True)
    shutil.rmtree(base)
