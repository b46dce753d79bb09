"""Drives the built program from outside: finds its controls in the accessibility tree, types keys, clicks the mouse."""

import os
import shutil
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LONG_LIST = 500  # cells
PATIENCE = 30  # seconds; only ends a run that hangs


class Failure(Exception):
    """Something that a user would miss."""


def wait(what, condition):
    """The first true answer of a condition; the tree is read anew each time."""
    limit = time.monotonic() + PATIENCE
    while time.monotonic() < limit:
        try:
            answer = condition()
        except (GLib.Error, FileNotFoundError):  # a control went away while it was asked, a file is not there yet
            answer = None
        if answer:
            return answer
        time.sleep(0.05)
    raise Failure("waited in vain for " + what)


def below(node):
    """A node and everything below it, but for the cells of long lists: those are asked for by their row."""
    yield node
    count = node.get_child_count()
    for at in range(count if count < LONG_LIST else 0):
        child = node.get_child_at_index(at)
        if child:
            yield from below(child)


def shows(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


class Program:
    """The program in folders of its own: a copied executable, a home with the user's files, a second drive."""

    def __init__(self, executable):
        self.place = tempfile.mkdtemp(prefix="varnholt-e2e-")
        self.home, self.second = self.place + "/home", self.place + "/second"
        for folder in (self.home, self.second, self.place + "/program", self.place + "/config"):
            os.makedirs(folder)
        self.executable = shutil.copy(executable, self.place + "/program/varnholt")
        library = os.path.join(os.path.dirname(executable), "Vnzip.dll")
        shutil.copy(library, self.place + "/program")
        assets = os.path.join(os.path.dirname(executable), "assets")
        os.symlink(os.path.realpath(assets), self.place + "/program/assets")
        self.process = None
        self.note_what_is_opened()

    def note_what_is_opened(self):
        """A file in place of the desktop: what opens there would cover the window that is clicked next."""
        os.makedirs(self.place + "/tools")
        with open(self.place + "/tools/xdg-open", "w", encoding="utf-8") as script:
            script.write(f'#!/bin/sh\necho "$1" >>"{self.place}/opened"\n')
        os.chmod(script.name, 0o755)

    def opened(self):
        """Addresses that the desktop would have opened, the newest last."""
        with open(self.place + "/opened", encoding="utf-8") as lines:
            return lines.read().split("\n")[:-1]

    def file(self, name, size=100):
        path = os.path.join(self.home, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as out:
            out.write(b"x" * size)

    def kept(self, name):
        """Lines of a file that the program keeps."""
        with open(os.path.join(self.place, "program", name), newline="") as lines:
            return lines.read().split("\r\n")

    def spawn(self, *arguments):
        environment = dict(os.environ)
        environment.update(
            VARNHOLT_DRIVES=f"C={self.home};D={self.second};Z=/",
            XDG_DATA_HOME=self.place + "/data",
            XDG_CONFIG_HOME=self.place + "/config",
            HOME=self.home,
            PATH=self.place + "/tools:" + environment["PATH"],
            LC_ALL="C.UTF-8",
        )
        self.process = subprocess.Popen([self.executable, *arguments], env=environment, stderr=subprocess.DEVNULL)

    def start(self, *arguments):
        self.spawn(*arguments)
        self.past_the_tip()

    def past_the_tip(self):
        wait("the main window", self.window)
        self.press(wait("the tip", lambda: self.find("push button", "Ok", root=self.application())))
        wait("the tip to go", lambda: not self.dialogs())
        wait("a panel with the keyboard", lambda: self.status_has("Active"))

    def await_end(self):
        try:
            self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failure("the program does not end") from None
        if self.process.returncode != 0:
            raise Failure(f"the program ended with {self.process.returncode}")

    def finish(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        shutil.rmtree(self.place, ignore_errors=True)

    def application(self):
        desktop = Atspi.get_desktop(0)
        for at in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(at)
            if child and child.get_process_id() == self.process.pid:
                return child
        return None

    def windows(self):
        application = self.application()
        if not application:
            return []
        return [application.get_child_at_index(at) for at in range(application.get_child_count())]

    def window(self):
        for window in self.windows():
            if window and window.get_role_name() == "frame" and window.get_name().startswith("Varnholt"):
                return window
        return None

    def dialogs(self):
        return [each for each in self.windows() if each and each.get_role_name() in ("dialog", "alert") and shows(each)]

    def find(self, role, name, root=None):
        """What shows in the main window or another one, by its role and how its name begins."""
        root = root or self.window()
        nodes = below(root) if root else ()
        return next((each for each in nodes if shows(each) and each.get_role_name() == role
                     and each.get_name().startswith(name)), None)

    def dialog(self, title):
        """The dialog on top, once it is that one."""
        return wait("the dialog " + title, lambda: self.top(title))

    def top(self, title):
        # Only the dialog on top is the active window: one that is in its way has to show first. The window manager is
        # asked, for the accessibility tree may hear late of a dialog that is shown again.
        asked = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True, check=False)
        active = asked.stdout.rstrip("\n")
        if not active.startswith(title):
            return None
        return next((each for each in self.dialogs() if each.get_name() == active), None)

    @staticmethod
    def named(root, name, role="push button"):
        """The one of exactly that name."""
        nodes = below(root) if root else ()
        return next((each for each in nodes if each.get_role_name() == role and each.get_name() == name and shows(each)),
                    None)

    @staticmethod
    def says(root, text):
        """A label or field of a window says that, whatever its blanks and line breaks are."""
        plain = lambda words: " ".join(words.split())
        return any(shows(node) and plain(text) in plain(node.get_name()) for node in (below(root) if root else ()))

    def field(self, root, name):
        """What a field reads."""
        field = self.named(root, name, "text")
        return Atspi.Text.get_text(field, 0, -1) if field else ""

    @staticmethod
    def focused(root):
        has_focus = lambda node: node.get_state_set().contains(Atspi.StateType.FOCUSED)
        return next((node.get_name() for node in below(root) if has_focus(node)), "")

    def title(self):
        return self.window().get_name()

    def wait_for_rows(self, number, *texts):
        wait(f"{texts} in panel {number}", lambda: set(texts) <= set(self.rows(number)))

    def wait_for_no_dialog(self):
        wait("the dialogs to go", lambda: not self.dialogs())

    def list(self, number):
        """The list of a panel, 1 or 2."""
        return self.find("tree", "Files, left panel" if number == 1 else "Files, right panel")

    def rows(self, number):
        """Texts of the first column. What is spoken is the whole name, of which the second column shows the end."""
        table = self.list(number)
        columns, count = table.get_table_iface().get_n_columns(), table.get_table_iface().get_n_rows()
        texts = []
        for first in range(columns, (count + 1) * columns, columns):
            name, extension, size = (table.get_child_at_index(first + at).get_name() for at in range(3))
            texts.append("\\ " + name if size == "< Folder >" else name.removesuffix("." + extension))
        return texts

    def status_has(self, text):
        """The status bar, known by its clock, reads that."""
        told = (node.get_description() or "" for node in below(self.window()))
        return any("Time: " in line and text in line for line in told)

    @staticmethod
    def press(node):
        node.get_action_iface().do_action(0)

    def place_of_row(self, number, text):
        """A point on the first column of a row."""
        table = self.list(number)
        columns = table.get_table_iface().get_n_columns()
        cell = table.get_child_at_index((self.rows(number).index(text) + 1) * columns)
        left, top, _, height = self.extents(cell)
        return left + 20, top + height // 2

    def click_row(self, number, text, times=1, *modifiers):
        self.click_at(*self.place_of_row(number, text), *modifiers, times=times)

    @staticmethod
    def click_at(x, y, *modifiers, times=1):
        keys = [word for key in modifiers for word in ("keydown", key)]
        ups = [word for key in modifiers for word in ("keyup", key)]
        clicks = ["click", "--repeat", str(times), "--delay", "60", "1"]
        subprocess.run(["xdotool", *keys, "mousemove", str(x), str(y), *clicks, *ups], check=True)

    @classmethod
    def click(cls, node):
        """A mouse click in the middle of a control."""
        left, top, width, height = cls.extents(node)
        subprocess.run(["xdotool", "mousemove", str(left + width // 2), str(top + height // 2), "click", "1"], check=True)

    def drag_row(self, number, text, to):
        """Drags a row, held down on the way as a hand does, onto a control of this or another program."""
        left, top, width, height = self.extents(to)
        x, y = self.place_of_row(number, text)
        end_x, end_y = left + width // 2, top + height * 3 // 4
        steps = [(x, y + 12), ((x + end_x) // 2, (y + end_y) // 2), (end_x, end_y - 3), (end_x, end_y)]
        words = [word for at in steps for word in ("mousemove", str(at[0]), str(at[1]), "sleep", "0.1")]
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "mousedown", "1", *words, "mouseup", "1"], check=True)

    @staticmethod
    def extents(node):
        """Left, top, width and height on the screen."""
        box = node.get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def menu_entry(self, name):
        """An entry of an open menu."""
        return next((node for node in below(self.application())
                     if node.get_name() == name and "menu" in node.get_role_name() and shows(node)), None)

    @staticmethod
    def keys(*keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)

    @classmethod
    def type_over(cls, text):
        """Replaces what stands in the field that has the keyboard."""
        names = {" ": "space", ".": "period", ",": "comma", "*": "asterisk"}
        cls.keys("ctrl+a", *(names.get(letter, letter) for letter in text))


def run(road):
    """Runs one road on the program named on the command line, leaves it by its key, and tells how it ended."""
    program = Program(sys.argv[1])
    try:
        road(program)
        if program.process.poll() is None:
            program.keys("alt+F4")
            program.await_end()
    except Failure as failure:
        picture = os.path.join(os.getcwd(), os.path.basename(sys.argv[0]) + ".png")
        subprocess.run(["import", "-window", "root", picture], check=False)
        print(f"FAILED: {failure} (picture: {picture})")
        return 1
    finally:
        program.finish()
    print("passed")
    return 0


def expect(what, condition):
    if not condition:
        raise Failure(what)
