"""A desktop that nobody sees: windows are read through their accessible tree, and keys are pressed.

BROOMTIDE   the program to start
"""

import dataclasses
import os
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

LEAVES = ("label", "menu item", "push button", "check box", "table cell", "list item")


@dataclasses.dataclass(frozen=True)
class Node:
    """One thing that a screen reader finds, and what is inside it."""

    role: str = ""
    name: str = ""
    text: str = ""
    states: frozenset = frozenset()
    place: tuple = ()  # the way to it from the top
    children: tuple = ()

    def everything(self):
        yield self
        for child in self.children:
            yield from child.everything()

    def all(self, role):
        return [node for node in self.everything() if node.role == role]

    def focus(self):
        """The innermost that has the keyboard, or None."""
        # The current row of a list claims the keyboard even while the list has not got it.
        inside = [child.focus() for child in self.children
                  if child.role not in ("table cell", "list item") or "FOCUSED" in self.states]
        return next((node for node in inside if node), self if "FOCUSED" in self.states else None)

    def says(self, text):
        return any(text in (node.name, node.text) for node in self.everything())

    def window(self):
        """The window that has the keyboard, NOTHING while there is none."""
        return next((node for node in self.children if "ACTIVE" in node.states), NOTHING)

    def keyboard(self):
        """What has the keyboard in that window, NOTHING when that is not in the tree."""
        return self.window().focus() or NOTHING

    def __str__(self):
        below = "\n".join(map(str, self.children)).replace("\n", "\n  ")
        return f"{self.role} {self.name!r} {self.text!r} {' '.join(sorted(self.states))}\n  {below}".rstrip()


NOTHING = Node()


def read(thing, place=()):
    """The tree below an accessible object as it is now. What vanishes meanwhile is left out."""
    role, children = thing.get_role_name(), []
    for position in range(0 if role in LEAVES else thing.get_child_count()):
        try:
            child = thing.get_child_at_index(position)
            if child is not None and (not place or child.get_state_set().contains(Atspi.StateType.SHOWING)):
                children.append(read(child, (*place, position)))
        except GLib.Error:
            continue
    states = frozenset(state.value_nick.upper() for state in thing.get_state_set().get_states())
    text = Atspi.Text.get_text(thing, 0, -1) if role == "text" else ""
    return Node(role, thing.get_name() or "", text, states, place, tuple(children))


class Desktop:
    """An X server and a session bus of their own. There can be one in a process."""

    def __init__(self, screen="1280x900x24"):
        self.folder = tempfile.mkdtemp(prefix="broomtide-desktop-")
        self.started = []
        self.environment = {name: value for name, value in os.environ.items()
                            if not name.startswith(("QT_", "XDG_", "DBUS_", "AT_SPI_", "WAYLAND_", "SESSION_"))}
        self.environment |= {"XDG_RUNTIME_DIR": self.folder, "HOME": self.folder, "LC_ALL": "C.UTF-8",
                             "GSETTINGS_BACKEND": "memory", "NO_AT_BRIDGE": "1"}
        try:
            display = self.serve("Xvfb", "-displayfd", "{}", "-screen", "0", screen, "-nolisten", "tcp", "-noreset")
            self.environment["DISPLAY"] = ":" + display
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.serve(
                "dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog", "--print-address={}")
            # Without a window manager no window would get the keyboard.
            ready = os.path.join(self.folder, "managed")
            self.start("openbox", "--sm-disable", "--startup", "touch " + ready)
            if not poll(lambda: os.path.exists(ready)):
                raise AssertionError("openbox did not start")
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
        self.started.append(subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", name, *arguments], stdin=subprocess.DEVNULL, env=self.environment,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True, **options))

    def serve(self, name, *arguments):
        """Starts a server that writes one line to the descriptor {} once it is ready; that line."""
        reader, writer = os.pipe()
        self.start(name, *[argument.format(writer) for argument in arguments], pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as pipe:
            line = pipe.readline().strip()
        if not line:
            raise AssertionError(f"{name}, which scripts/setup installs, did not start")
        return line

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], check=True, timeout=PATIENCE, env=self.environment, text=True,
                              stdout=subprocess.PIPE).stdout

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
            [os.environ["BROOMTIDE"]], stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log,
            env={**desktop.environment, "QT_QPA_PLATFORM": "xcb", "QT_ACCESSIBILITY": "1",
                 "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_LOGGING_RULES": "*.warning=true", **environment})

    def tree(self):
        """All windows of the program as they are now; NOTHING before there are any."""
        top = Atspi.get_desktop(0)
        top.set_cache_mask(Atspi.Cache.NONE)
        for position in range(top.get_child_count()):
            try:
                application = top.get_child_at_index(position)
                if application is not None and application.get_process_id() == self.process.pid:
                    application.set_cache_mask(Atspi.Cache.NONE)
                    return read(application)
            except GLib.Error:
                continue
        return NOTHING

    def wait_for(self, what, condition):
        """What the condition gives for the tree as soon as that is true."""
        tree = NOTHING

        def look():
            nonlocal tree
            if self.process.poll() is not None:
                raise AssertionError(f"the program ended with {self.process.returncode} before {what}:\n{self.output()}")
            tree = self.tree()
            return condition(tree)

        found = poll(look)
        if not found:
            raise AssertionError(f"missing: {what}, in\n{tree}\n{self.output()}")
        return found

    def press(self, *keys):
        self.desktop.xdotool("key", "--delay", "1", *keys)

    def type(self, text):
        self.desktop.xdotool("type", "--delay", "1", text)

    def output(self):
        """All that the program has written to its standard output and error."""
        self.log.seek(0)
        return self.log.read().decode(errors="replace")

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.log.close()
