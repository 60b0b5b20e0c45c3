"""A desktop that nobody sees: windows are read through their accessible tree, and keys are pressed.

BROOMTIDE   the program to start
"""

import dataclasses
import os
import select
import shutil
import signal
import subprocess
import tempfile

from journey import PATIENCE, poll

try:
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
except (ImportError, ValueError) as error:
    raise SystemExit(f"The accessible tree cannot be read; scripts/setup installs what is missing: {error}") from error

PROGRAM = os.environ["BROOMTIDE"]
LEAVES = ("label", "menu item", "push button", "check box", "table cell", "list item")
DESCRIBED = ("push button", "table cell")


@dataclasses.dataclass(frozen=True)
class Node:
    """One thing that a screen reader finds, and what is inside it."""

    role: str
    name: str
    description: str
    text: str
    states: frozenset
    place: tuple  # the way to it from the top
    children: tuple

    def everything(self):
        yield self
        for child in self.children:
            yield from child.everything()

    def all(self, role=None, name=None, **states):
        return [node for node in self.everything()
                if role in (None, node.role) and name in (None, node.name)
                and all((state.upper() in node.states) == value for state, value in states.items())]

    def find(self, role=None, name=None, **states):
        """The first that is like this, or None."""
        return next(iter(self.all(role, name, **states)), None)

    def focus(self):
        """The innermost that has the keyboard, or None."""
        inside = [child.focus() for child in self.children if self.may_hold_focus(child)]
        found = next((node for node in inside if node), None)
        return found or (self if "FOCUSED" in self.states else None)

    def may_hold_focus(self, child):
        """The current row of a list claims the keyboard even while the list has not got it."""
        return child.role not in ("table cell", "list item") or "FOCUSED" in self.states

    def says(self, text):
        return any(text in (node.name, node.text) for node in self.everything())

    def window(self):
        """The window that has the keyboard, NOTHING while there is none."""
        return next((node for node in self.children if "ACTIVE" in node.states), NOTHING)

    def keyboard(self):
        """What has the keyboard in that window, NOTHING when that is not in the tree."""
        return self.window().focus() or NOTHING

    def lines(self, depth=0):
        shown = [self.role, repr(self.name)]
        shown += [f"{part}={value!r}" for part in ("text", "description") if (value := getattr(self, part))]
        states = ("ACTIVE", "FOCUSABLE", "FOCUSED", "CHECKABLE", "CHECKED", "SELECTED")
        shown += [state.lower() for state in states if state in self.states]
        shown += ["disabled"] * ("ENABLED" not in self.states)
        yield "  " * depth + " ".join(shown)
        for child in self.children:
            yield from child.lines(depth + 1)

    def __str__(self):
        return "\n".join(self.lines())


NOTHING = Node("", "", "", "", frozenset(), (), ())


def read(thing, place=(), states=None):
    """The tree below an accessible object as it is now. What vanishes meanwhile is left out."""
    role = thing.get_role_name()
    children = []
    for position in range(0 if role in LEAVES else thing.get_child_count()):
        try:
            child = thing.get_child_at_index(position)
            if child is None:
                continue
            child_states = states_of(child)
            if not place or "SHOWING" in child_states:
                children.append(read(child, (*place, position), child_states))
        except GLib.Error:
            continue
    return Node(role, thing.get_name() or "", thing.get_description() or "" if role in DESCRIBED else "",
                Atspi.Text.get_text(thing, 0, -1) if role == "text" else "",
                states if states is not None else states_of(thing), place, tuple(children))


def states_of(thing):
    return frozenset(state.value_nick.upper() for state in thing.get_state_set().get_states())


class Desktop:
    """An X server and a session bus of their own. There can be one in a process."""

    def __init__(self, screen="1280x900x24"):
        self.require("xdotool")
        self.folder = tempfile.mkdtemp(prefix="broomtide-desktop-")
        self.started = []
        self.environment = {name: value for name, value in os.environ.items()
                            if not name.startswith(("QT_", "XDG_", "DBUS_", "AT_SPI_", "WAYLAND_", "SESSION_"))}
        self.environment |= {"XDG_RUNTIME_DIR": self.folder, "HOME": self.folder, "LC_ALL": "C.UTF-8",
                             "GSETTINGS_BACKEND": "memory", "NO_AT_BRIDGE": "1"}
        try:
            display = self.serve("Xvfb", "-displayfd", "{}", "-screen", "0", screen, "-nolisten", "tcp",
                                 "-noreset")
            self.environment["DISPLAY"] = ":" + display
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.serve(
                "dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog", "--print-address={}")
            self.manage_windows()
            os.environ.update({name: self.environment[name] for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")})
            os.environ.pop("AT_SPI_BUS_ADDRESS", None)
            Atspi.init()
            if Atspi.get_desktop(0).get_child_count() < 0:
                raise AssertionError("the accessibility bus does not answer")
        except BaseException:
            self.close()
            raise

    def start(self, name, *arguments, **options):
        """Starts a server that lasts no longer than this process."""
        self.require(name)
        with open(os.path.join(self.folder, name + ".log"), "wb") as log:
            self.started.append(subprocess.Popen(
                ["setpriv", "--pdeathsig", "KILL", name, *arguments], stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                env=self.environment, start_new_session=True, **options))

    @staticmethod
    def require(name):
        if shutil.which(name) is None:
            raise AssertionError(f"{name} is missing; scripts/setup installs it")

    def give_up(self, name):
        with open(os.path.join(self.folder, name + ".log")) as log:
            raise AssertionError(f"{name} did not start: {log.read()}")

    def serve(self, name, *arguments):
        """Starts a server that writes one line to the descriptor {} once it is ready; that line."""
        reader, writer = os.pipe()
        line = b""
        with os.fdopen(reader, "rb", buffering=0) as pipe:
            try:
                self.start(name, *[argument.format(writer) for argument in arguments], pass_fds=[writer])
            finally:
                os.close(writer)
            while select.select([pipe], [], [], PATIENCE)[0] and (piece := pipe.read(4096)):
                line += piece
                if line.endswith(b"\n"):
                    break
        return line.decode().strip() if line.endswith(b"\n") else self.give_up(name)

    def manage_windows(self):
        """Without a window manager no window would get the keyboard."""
        ready = os.path.join(self.folder, "managed")
        self.start("openbox", "--sm-disable", "--startup", "touch " + ready)
        if not poll(lambda: os.path.exists(ready)):
            self.give_up("openbox")

    def close(self):
        """Ends the servers, with what they have started in turn."""
        for server in reversed(self.started):
            os.killpg(server.pid, signal.SIGKILL)
            server.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class Application:
    """The program on this desktop."""

    def __init__(self, desktop, **environment):
        self.desktop = desktop
        self.log = tempfile.TemporaryFile()
        self.process = subprocess.Popen(
            [PROGRAM], stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log,
            env={**desktop.environment, "QT_QPA_PLATFORM": "xcb", "QT_ACCESSIBILITY": "1",
                 "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_LOGGING_RULES": "*.warning=true", **environment})

    def tree(self):
        """All windows of the program as they are now, or None before there are any."""
        top = Atspi.get_desktop(0)
        top.set_cache_mask(Atspi.Cache.NONE)
        for position in range(top.get_child_count()):
            try:
                application = top.get_child_at_index(position)
                if application is None or application.get_process_id() != self.process.pid:
                    continue
                application.set_cache_mask(Atspi.Cache.NONE)
                return read(application)
            except GLib.Error:
                continue
        return None

    def wait_for(self, what, condition):
        """What the condition gives for the tree as soon as that is true."""
        tree = None

        def look():
            nonlocal tree
            if self.process.poll() is not None:
                status = self.process.returncode
                raise AssertionError(f"the program ended with {status} before {what}:\n{self.output()}")
            tree = self.tree()
            return tree is not None and condition(tree)

        found = poll(look)
        if not found:
            raise AssertionError(f"missing: {what}, in\n{tree}\n{self.output()}")
        return found

    def press(self, *keys):
        self.xdotool("key", "--delay", "1", *keys)

    def type(self, text):
        self.xdotool("type", "--delay", "1", text)

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *arguments], check=True, timeout=PATIENCE, env=self.desktop.environment)

    def output(self):
        """All that the program has written to its standard output and error."""
        self.log.seek(0)
        return self.log.read().decode(errors="replace")

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.log.close()
