#!/usr/bin/python3
"""Copies as a user makes them: questions, what is left out, what is dropped, and Stop."""

import contextlib
import os
import shutil
import subprocess
import sys

from driver import Program, expect, run, wait

SCREEN_WIDTH, SCREEN_HEIGHT = 1280, 800
ATTEMPTS = 5  # the program may be done before it can be held


class Road:
    """The left panel shows Work, the right one Target."""

    def __init__(self, program):
        self.program = program
        self.work, self.target = program.home + "/Work", program.home + "/Target"

    def fill(self):
        """Both folders anew: everything in Work, and in Target one file of the same name."""
        for folder in (self.work, self.target):
            self.empty(folder)
        for name in ("Work/alpha.txt", "Work/beta.txt", "Work/Garden/Roses/rose.txt", "Work/Garden/tulip.txt"):
            self.program.file(name)
        self.program.file("Target/beta.txt", 200)

    @staticmethod
    def empty(folder):
        for name in os.listdir(folder) if os.path.isdir(folder) else ():
            path = os.path.join(folder, name)
            shutil.rmtree(path) if os.path.isdir(path) else os.remove(path)

    def reread(self):
        """Both panels, the left one being active at last."""
        program = self.program
        for number, name in ((2, "Target"), (1, "Work")):
            program.click(program.list(number))
            program.keys("F4")
            folder = os.path.join(program.home, name)
            wait(f"panel {number} read anew", lambda: len(program.rows(number)) == len(os.listdir(folder)))

    def open(self, *rows):
        """The copy dialog on these rows."""
        self.reread()
        for at, row in enumerate(rows):
            self.program.click_row(1, row, 1, *(["ctrl"] if at else []))
        wait("the selection", lambda: self.program.status_has(f"{len(rows)}  Item(s) Selected"))
        self.program.command("Copy")
        dialog = self.program.dialog("Copy Item(s)")
        expect("the dialog begins on Copy", self.program.focused(dialog) == "Copy")

    def answer(self, title, text, key, focus):
        """Answers a question by its key, having seen its text and that the harmless button has the keyboard."""
        dialog = self.program.dialog(title)
        wait(f"{title} to say {text}", lambda: self.program.says(dialog, text))
        wait(f"the keyboard on {focus}", lambda: self.program.focused(dialog) == focus)
        self.program.keys(key)
        wait(f"{title} to go or to ask anew", lambda: not self.program.says(self.program.top(title), text))

    def ended(self):
        self.program.wait_for_no_dialog()
        wait("the panels", lambda: self.program.status_has("Active"))


def question_about_a_long_name(road):
    """A name as long as names get: the question stays on the screen, and is small again for the next name."""
    road.fill()
    name = "n" * 251 + ".txt"  # handled first, being selected last
    for folder in ("Work/", "Target/"):
        road.program.file(folder + name)
    road.open("beta", "n" * 251)
    road.program.keys("alt+o")
    sizes = []
    for file in (name, "beta.txt"):
        dialog = road.program.dialog("Overwrite Warning !")
        wait("the question about " + file, lambda file=file: road.program.says(dialog, "Source FileName: " + file))
        place = road.program.extents(dialog)
        caller = road.program.extents(next(each for each in road.program.dialogs() if each != dialog))
        expect(f"the question on the screen, not at {place}", place[0] >= 0 and place[0] + place[2] <= SCREEN_WIDTH)
        expect(f"the question at {place} over {caller}", abs(2 * place[0] + place[2] - 2 * caller[0] - caller[2]) <= 2)
        sizes.append(place[3])
        road.answer("Overwrite Warning !", "Source FileName: " + file, "alt+s", "Skip Current")
    expect(f"a lower question for a short name: {sizes}", sizes[1] < sizes[0])
    road.ended()


def left_out(road):
    """One pipe in a tree costs that pipe alone, and is told; the copy is written out."""
    road.fill()
    pipe = road.work + "/Garden/Roses/pipe"
    os.mkfifo(pipe)
    calls = road.program.home + "/calls"
    with traced(road.program, "-e", "trace=syncfs", "-o", calls) as watches:
        road.open("\\ Garden")
        road.program.keys("Return")
        road.answer("Alert", "1 Item(s) Left Out :", "Return", "Ok")
        road.ended()
    os.remove(pipe)
    expect("all else is copied", subprocess.call(["diff", "-r", road.work + "/Garden", road.target + "/Garden"]) == 0)
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
        other.start()
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
    road.open("\\ Garden")
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
    program.start()
    program.click_row(2, "\\ Target", 2)
    program.wait_for_rows(2, "beta")
    program.click_row(1, "\\ Work", 2)
    program.wait_for_rows(1, "alpha")
    for step in (question_about_a_long_name, left_out, drop_while_a_folder_is_read, stop_in_a_big_item):
        print(step.__name__, flush=True)
        step(steps)


sys.exit(run(road))
