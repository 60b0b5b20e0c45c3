"""What happens to items between a scan and a cleanup, and why each is then left alone."""

import os
import stat
import subprocess
import urllib.parse

import expected

NOT_MOVED = ("Broomtide could not move this item to Trash. "
             "It may be locked, in use, or require additional permission.")
TOLERANCE = 10**6  # nanoseconds


def path_of(url):
    return urllib.parse.unquote_to_bytes(url.removeprefix("file://"))


def told_date(status):
    """Dates are told in signed nanoseconds."""
    return min(max(status.st_mtime_ns, -2**63), 2**63 - 1)


class Item:
    """A candidate as the scan told it."""

    def __init__(self, candidate, root):
        self.path = path_of(candidate["url"])
        self.relative = self.path[len(root) + 1:]
        self.identity = candidate["fileIdentity"]
        self.date = told_date(os.lstat(self.path))
        self.size = candidate["size"]
        self.is_folder = candidate["kind"] == "directory"
        self.was_ignored = candidate["gitStatus"] == "ignored"
        self.git_root = candidate["gitRoot"] and path_of(candidate["gitRoot"])
        self.project = candidate["projectRoot"] and path_of(candidate["projectRoot"])


def refusal(item, root, snapshots):
    """Why an item must be left alone, None when it must be moved."""
    what_is_there = item.path if os.path.exists(item.path) else os.path.dirname(item.path)
    if not expected.is_or_lies_below(os.path.realpath(what_is_there), os.path.realpath(root)):
        return "The item is no longer inside the selected folder."
    try:
        status = os.lstat(item.path)
    except (FileNotFoundError, NotADirectoryError):
        return "This item no longer exists. It may have been moved or deleted."
    if stat.S_ISLNK(status.st_mode):
        return "The item changed into a symbolic link and was skipped."
    if expected.identity(status) != item.identity:
        return "The item changed after the scan. Rescan before cleaning it."
    if abs(told_date(status) - item.date) > TOLERANCE:
        return "The item was modified after the scan. Rescan before cleaning it."
    git_status = expected.status_among(item.path, item.is_folder, item.git_root, snapshots)
    if git_status == "tracked":
        return "The item is now tracked by Git. Broomtide left it untouched."
    if item.git_root:
        if git_status == "unavailable":
            return "Git status could not be revalidated. Broomtide left the item untouched."
        if item.was_ignored and git_status != "ignored":
            return "The item is no longer ignored by Git. Rescan before cleaning it."
    folders = [os.path.dirname(item.path)] + [item.path] * item.is_folder  # moving a folder writes its ".."
    return None if all(os.access(folder, os.W_OK) for folder in folders) else NOT_MOVED


# --- Disturbances. Whether one can be done or not, what follows from it refusal() finds out for itself.


def change_date(item, _):
    date = os.lstat(item.path).st_mtime_ns + 2 * TOLERANCE
    os.utime(item.path, ns=(date, date), follow_symlinks=False)


def replace_with_same_date(item, aside):
    date = os.lstat(item.path).st_mtime_ns
    os.rename(item.path, aside)
    os.mkdir(item.path) if item.is_folder else os.close(os.open(item.path, os.O_CREAT))
    os.utime(item.path, ns=(date, date))


def replace_by_link_inside(item, _):
    os.rename(item.path, os.path.dirname(item.path) + b"/moved aside")
    os.symlink(b"moved aside", item.path)


def replace_by_link_outside(item, aside):
    os.rename(item.path, aside)
    os.symlink(aside, item.path)


def take_away(item, aside):
    os.rename(item.path, aside)


def move_project_outside(item, aside):
    is_below = item.project and item.path[:-len(item.relative) - 1] != item.project
    if is_below:
        os.rename(item.project, aside)
        os.symlink(aside, item.project)


def track(item, _):
    if item.git_root:
        subprocess.run(["git", "-C", item.git_root, "add", "--force", "--ignore-errors", "--", item.path],
                       env={"PATH": "/usr/bin:/bin"}, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def stop_ignoring(item, _):
    for folder in {item.git_root, os.path.dirname(item.path)} - {None}:
        if os.path.isfile(folder + b"/.gitignore"):
            os.truncate(folder + b"/.gitignore", 0)


CHANGES_OF_GIT = [track, stop_ignoring]
DISTURBANCES = [change_date, replace_with_same_date, replace_by_link_inside, replace_by_link_outside, take_away,
                move_project_outside, *CHANGES_OF_GIT]
