#!/usr/bin/python3
"""Copies as a user makes them; after each step both trees are compared byte for byte."""

import contextlib
import os
import shutil
import subprocess
import sys

from driver import Program, expect, run, wait
from trees import ATTRIBUTE, below, differences, picture

OLD, NEW = 1_500_000_000, 1_700_000_000
ODD_NAME = "two  blanks üñ back\\slash.txt"
ODD_ROW = "two  blanks üñ back\\slash"
SCREEN_WIDTH, SCREEN_HEIGHT = 1280, 800
ATTEMPTS = 5  # the program may be done before it can be held


class Road:
    """The left panel shows Work, the right one Target."""

    def __init__(self, program):
        self.program = program
        self.work, self.target = program.home + "/Work", program.home + "/Target"

    # --- Files -------------------------------------------------------------------------------------------------

    def fill(self):
        """Both folders anew: everything in Work, and in Target one older and one newer file of the same names."""
        for folder in (self.work, self.target):
            self.empty(folder)
        self.file("Work/alpha.txt", "alpha", NEW, 0)
        self.file("Work/beta.txt", "beta" * 5000, NEW)
        self.file("Work/" + ODD_NAME, "odd", OLD)
        self.file("Work/Garden/Roses/rose.txt", "rose", OLD, 0x22, 0o640)
        self.file("Work/Garden/tulip.txt", "tulip" * 100_000, NEW)
        self.file("Target/alpha.txt", "old alpha", OLD, 0x20)
        self.file("Target/beta.txt", "newer beta", NEW + 60)
        self.file("Target/Garden/oak.txt", "oak", OLD)

    @staticmethod
    def empty(folder):
        for name in os.listdir(folder) if os.path.isdir(folder) else ():
            path = os.path.join(folder, name)
            shutil.rmtree(path) if os.path.isdir(path) else os.remove(path)

    def file(self, name, text, date, attributes=None, mode=0o644):
        path = os.path.join(self.program.home, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as out:
            out.write(text)
        os.chmod(path, mode)
        if attributes is not None:
            os.setxattr(path, ATTRIBUTE, hex(attributes).encode())
        os.utime(path, ns=(0, date * 1_000_000_000 + 123_456_700))

    def pictures(self):
        return picture(self.work), picture(self.target)

    def expect(self, step, work, target):
        for name, folder, wanted in (("Work", self.work, work), ("Target", self.target, target)):
            words = differences(picture(folder), wanted)
            expect(f"after {step}, in {name}: {words}", not words)

    # --- The user ----------------------------------------------------------------------------------------------

    def reread(self):
        """Both panels, the left one being active at last."""
        program = self.program
        for number, name in ((2, "Target"), (1, "Work")):
            program.click(program.list(number))
            program.keys("F4")
            folder = os.path.join(program.home, name)
            wait(f"panel {number} read anew", lambda: len(program.rows(number)) == len(os.listdir(folder)))

    def choose(self, *rows):
        self.reread()
        for at, row in enumerate(rows):
            self.program.click_row(1, row, 1, *(["ctrl"] if at else []))
        wait("the selection", lambda: self.program.status_has(f"{len(rows)}  Item(s) Selected"))

    def open(self, command, title, *rows):
        self.choose(*rows)
        self.program.command(command)
        return self.program.dialog(title)

    def start(self, command, title, key, *rows):
        dialog = self.open(command, title, *rows)
        expect(f"{title} begins on {command}", self.program.focused(dialog) == command)
        self.program.keys(key)

    def answer(self, title, text, key, focus):
        """Answers a question by its key, having seen its text and that the harmless button has the keyboard."""
        dialog = self.program.dialog(title)
        wait(f"{title} to say {text}", lambda: self.program.says(dialog, text))
        wait(f"the keyboard on {focus}", lambda: self.program.focused(dialog) == focus)
        self.program.keys(key)
        wait(f"{title} to go or to ask anew", lambda: not self.program.says(self.program.top(title), text))

    def overwrite(self, name, key):
        self.answer("Overwrite Warning !", "Source FileName: " + name, key, "Skip Current")

    def ended(self):
        wait("the dialogs to go", lambda: not self.program.dialogs())
        wait("the panels", lambda: self.program.status_has("Active"))


# --- Steps ---------------------------------------------------------------------------------------------------------


def question_about_a_long_name(road):
    """A name as long as names get: the question stays on the screen, and is small again for the next name."""
    road.fill()
    name = "n" * 251 + ".txt"  # handled first, being selected last
    for folder, date in (("Work/", NEW), ("Target/", OLD)):
        road.file(folder + name, "long", date)
    road.start("Copy", "Copy Item(s)", "alt+o", "beta", "n" * 251)
    sizes = []
    for file in (name, "beta.txt"):
        dialog = road.program.dialog("Overwrite Warning !")
        wait("the question about " + file, lambda file=file: road.program.says(dialog, "Source FileName: " + file))
        place = road.program.extents(dialog)
        caller = road.program.extents(next(each for each in road.program.dialogs() if each != dialog))
        expect(f"the question on the screen, not at {place}", place[0] >= 0 and place[0] + place[2] <= SCREEN_WIDTH)
        expect(f"the question at {place} over {caller}", abs(2 * place[0] + place[2] - 2 * caller[0] - caller[2]) <= 2)
        sizes.append(place[3])
        road.overwrite(file, "alt+s")
    expect(f"a lower question for a short name: {sizes}", sizes[1] < sizes[0])
    road.ended()


def left_out(road):
    """One pipe in a tree costs that pipe alone, and is told; the copy is written out."""
    road.fill()
    road.empty(road.target)
    work, _ = road.pictures()
    pipe = road.work + "/Garden/Roses/pipe"
    os.mkfifo(pipe)
    calls = road.program.home + "/calls"
    with traced(road.program, "-e", "trace=syncfs", "-o", calls) as watches:
        road.start("Copy", "Copy Item(s)", "Return", "\\ Garden")
        road.answer("Alert", "1 Item(s) Left Out :", "Return", "Ok")
        road.ended()
    os.remove(pipe)
    road.expect("a copy with a pipe in it", work, below(work, "Garden"))
    if watches:
        with open(calls, encoding="utf-8") as told:
            expect("the volume was written out once", told.read().count("syncfs(") == 1)
        os.remove(calls)


@contextlib.contextmanager
def traced(program, *options):
    """The program's system calls are watched or slowed down meanwhile. False where processes may not be traced."""
    pid = program.process.pid
    command = ["strace", "-f", "-qq", *options, "-p", str(pid)]
    with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as tracer:
        wait("the tracer", lambda: tracer.poll() is not None or is_traced(pid))
        yield tracer.poll() is None
        tracer.terminate()


def is_traced(pid):
    with open(f"/proc/{pid}/status", encoding="utf-8") as status:
        return "TracerPid:\t0\n" not in status.read()


def drop_while_a_folder_is_read(road):
    """What another program drops while the program waits for a drive is refused and stays there; later it is taken."""
    program = road.program
    road.fill()
    road.reread()
    other = Program(sys.argv[1])
    try:
        other.file("letter.txt")
        place_window(0)
        other.start(tip=True)
        place_window(SCREEN_HEIGHT // 2)
        wait("room for both", lambda: other.extents(other.list(1))[1] > SCREEN_HEIGHT // 2)
        with traced(program, "-e", "trace=getdents64", "-e", "inject=getdents64:delay_enter=3000000:when=1") as slow:
            program.click_row(1, "\\ Garden", 2)
            other.drag_row(1, "letter", program.list(2))
            expect("the folder is read meanwhile", not slow or program.title().endswith("Work"))
            wait("the folder", lambda: program.title().endswith("Garden"))
        expect("nothing came of the drop", not program.dialogs() and not os.path.exists(road.target + "/letter.txt"))
        other.drag_row(1, "letter", program.list(2))
        program.dialog("Copy Item(s)")
        program.keys("Return")
        wait("the letter", lambda: os.path.exists(road.target + "/letter.txt"))
        road.ended()
        expect("the other program keeps its file", os.path.exists(other.home + "/letter.txt"))
    finally:
        other.finish()
    place_window(0, SCREEN_HEIGHT)
    program.click(program.list(1))
    program.keys("BackSpace")
    wait("Work", lambda: program.title().endswith("Work"))


def place_window(top, height=SCREEN_HEIGHT // 2):
    """The active window takes a strip of the screen."""
    subprocess.run(["xdotool", "getactivewindow", "windowsize", "--sync", str(SCREEN_WIDTH), str(height - 30),
                    "windowmove", "0", str(top)], check=True)


def stop_in_a_big_item(road):
    """Alt+S ends the copy of a folder with one large file in the middle of that file, and nothing of it stays."""
    road.fill()
    big = road.work + "/Garden/big"
    for _ in range(ATTEMPTS):
        road.empty(road.target)
        subprocess.run(["dd", "if=/dev/zero", "of=" + big, "bs=1M", "count=800", "status=none"], check=True)
        road.choose("\\ Garden")
        road.program.command("Copy")
        road.program.dialog("Copy Item(s)")
        stopped = stop_in_the_middle(road)
        road.ended()
        if stopped:
            break
    expect("the copy was stopped in the middle", stopped)
    expect(f"nothing of it stays: {os.listdir(road.target)}", not os.listdir(road.target))
    os.remove(big)


def stop_in_the_middle(road):
    """The program is held when its first effect is seen, and finds the key when it goes on. False: it was done before."""
    program = road.program
    window = subprocess.check_output(["xdotool", "getactivewindow"], text=True).strip()
    before = os.stat(road.target).st_mtime_ns
    program.keys("Return")
    while os.stat(road.target).st_mtime_ns == before:
        pass
    with program.held():
        subprocess.run(["xdotool", "key", "--window", window, "alt+s"], check=True)
    aborted = "Copy Process Aborted. !"
    wait("an end", lambda: not program.dialogs() or program.says(program.top("Alert"), aborted))
    if not program.dialogs():
        return False
    road.answer("Alert", aborted, "Return", "Ok")
    return True


def road(program):
    steps = Road(program)
    steps.fill()
    program.start(tip=True)
    program.click_row(2, "\\ Target", 2)
    wait("Target", lambda: "alpha" in program.rows(2))
    program.click_row(1, "\\ Work", 2)
    wait("Work", lambda: ODD_ROW in program.rows(1))
    for step in (question_about_a_long_name, left_out, drop_while_a_folder_is_read, stop_in_a_big_item):
        print(step.__name__, flush=True)
        step(steps)
    program.keys("alt+F4")
    program.await_end()


sys.exit(run(road))
