#!/usr/bin/python3
"""Copies as a user makes them: a question, and what is dropped. The left panel shows Work, the right one Target."""

import os
import subprocess
import sys

from driver import Program, expect, run, wait

SCREEN_WIDTH, SCREEN_HEIGHT = 1280, 800
LONG = "n" * 251  # with its extension as long as names get


def question_about_a_long_name(program):
    """The question stays on the screen, and is small again for the next name."""
    program.click_row(1, "beta")
    program.click_row(1, LONG, 1, "ctrl")  # handled first, being selected last
    wait("the selection", lambda: program.status_has("2  Item(s) Selected"))
    program.click(program.named(program.window(), "Copy"))
    expect("the dialog begins on Copy", program.focused(program.dialog("Copy Item(s)")) == "Copy")
    program.keys("alt+o")
    sizes = []
    for file in (LONG + ".txt", "beta.txt"):
        dialog = program.dialog("Overwrite Warning !")
        wait("the question about " + file, lambda file=file: program.says(dialog, "Source FileName: " + file))
        place = program.extents(dialog)
        caller = program.extents(next(each for each in program.dialogs() if each != dialog))
        expect(f"the question on the screen, not at {place}", place[0] >= 0 and place[0] + place[2] <= SCREEN_WIDTH)
        expect(f"the question at {place} over {caller}", abs(2 * place[0] + place[2] - 2 * caller[0] - caller[2]) <= 2)
        sizes.append(place[3])
        wait("the keyboard on the harmless button", lambda: program.focused(dialog) == "Skip Current")
        program.keys("alt+s")
    expect(f"a lower question for a short name: {sizes}", sizes[1] < sizes[0])
    program.wait_for_no_dialog()


def drop_on_the_other_panel(program):
    program.drag_row(1, "alpha", program.list(2))
    arrives(program, "alpha")


def arrives(program, row):
    """The dialog of the drop is answered, and the copy listed."""
    program.dialog("Copy Item(s)")
    program.keys("Return")
    program.wait_for_no_dialog()
    program.wait_for_rows(2, row)


def drop_of_another_program(program):
    other = Program(sys.argv[1])
    try:
        other.file("letter.txt")
        place_window(0)
        other.start()
        place_window(SCREEN_HEIGHT // 2)
        wait("room for both", lambda: other.extents(other.list(1))[1] > SCREEN_HEIGHT // 2)
        other.drag_row(1, "letter", program.list(2))
        arrives(program, "letter")
        expect("the other program keeps its file", os.path.exists(other.home + "/letter.txt"))
    finally:
        other.finish()
    place_window(0, SCREEN_HEIGHT)


def place_window(top, height=SCREEN_HEIGHT // 2):
    """The active window takes a strip of the screen."""
    subprocess.run(["xdotool", "getactivewindow", "windowsize", "--sync", str(SCREEN_WIDTH), str(height - 30),
                    "windowmove", "0", str(top)], check=True)


def road(program):
    for name in ("Work/alpha", "Work/beta", "Work/" + LONG, "Target/beta", "Target/" + LONG):
        program.file(name + ".txt")
    program.start()
    for number, folder in ((2, "Target"), (1, "Work")):
        program.click_row(number, "\\ " + folder, 2)
        program.wait_for_rows(number, "beta")
    for step in (question_about_a_long_name, drop_on_the_other_panel, drop_of_another_program):
        print(step.__name__, flush=True)
        step(program)


sys.exit(run(road))
