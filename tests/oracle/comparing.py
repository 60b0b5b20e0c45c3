"""What comparing a program with the oracle needs: a home folder, and what is different."""

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


def differences(want, got, where=""):
    """Readable lines, one for each place where the documents differ."""
    if type(want) is not type(got):
        yield f"{where}: expected {want!r}, got {got!r}"
    elif isinstance(want, dict):
        for key in want.keys() | got.keys():
            if key not in got or key not in want:
                yield f"{where}.{key}: {'missing' if key in want else 'not expected'}"
        for key in want:
            if key in got:
                yield from differences(want[key], got[key], f"{where}.{key}")
    elif isinstance(want, list):
        wanted, gotten = [repr(label(item)) for item in want], [repr(label(item)) for item in got]
        pairs = list(zip(want, got))
        if wanted != gotten:
            first = next((n for n in range(len(pairs)) if wanted[n] != gotten[n]), len(pairs))
            yield f"{where}: {len(want)} expected, {len(got)} got; they part at number {first}:"
            for name, labels in (("expected", wanted), ("got", gotten)):
                yield f"    {name}: {labels[first] if first < len(labels) else 'nothing more'}"
            yield from (f"    missing: {name}" for name in wanted if name not in gotten)
            yield from (f"    not expected: {name}" for name in gotten if name not in wanted)
            by_label = dict(zip(gotten, got))
            pairs = [(item, by_label[name]) for name, item in zip(wanted, want) if name in by_label]
        for one, other in pairs:
            yield from differences(one, other, f"{where}[{label(one)!r}]")
    elif want != got:
        yield f"{where}: expected {want!r}, got {got!r}"


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
