#!/usr/bin/python3
"""Two hundred pictures get new names and numbers at once, and others that are still their own old ones."""

import os
import sys

from driver import Atspi, expect, run, wait

COUNT = 200


def road(program):
    for number in range(COUNT):
        program.file(f"Pictures/IMG_{number:04}.JPG", number + 1)
    program.start()
    program.click_row(1, "\\ Pictures", 2)
    wait("the pictures", lambda: len(program.rows(1)) == COUNT)

    program.click_row(1, "IMG_0000")
    dialog = mask(program, "1")
    fill(program, dialog, "New extension", "jpg")
    button(program, dialog, "Preview")
    wait("the preview", lambda: preview_rows(program, dialog) == COUNT)
    expect("the preview changes nothing", len(names(program)) == COUNT and "IMG_0000.JPG" in names(program))
    execute(program)
    program.wait_for_rows(1, "Coast1", "Coast200")
    expect("all files are there", names(program) == {f"Coast{number}.jpg" for number in range(1, COUNT + 1)})
    expect("the numbers follow the old order", sizes(program, 1) == list(range(1, COUNT + 1)))

    program.keys("Home")
    mask(program, "2")
    execute(program)
    wait("the numbers from two", lambda: "Coast201" in program.rows(1) and "Coast1" not in program.rows(1))
    # The list has them by the letters of their names: 1, 10, 100, 101 ... 11, 110.
    expect("no file is lost or left out", sizes(program, 2) == sorted(range(1, COUNT + 1), key=str))


def mask(program, start):
    """Opens the dialog for all rows from the focused one, with a new base and numbers."""
    program.keys("shift+End")
    wait("all selected", lambda: program.status_has(f"{COUNT}  Item(s) Selected"))
    program.keys("alt+f", "r")
    dialog = program.dialog("Rename Item(s)")
    button(program, dialog, "Mask Off")
    wait("the mask", lambda: program.find("check box", "Change Original Name", dialog))
    program.keys("alt+a")
    fill(program, dialog, "New base name", "Coast")
    fill(program, dialog, "Start of the counter", start)
    return dialog


def execute(program):
    program.keys("alt+e")
    button(program, program.dialog("Alert !"), "Execute")
    program.wait_for_no_dialog()


def sizes(program, start):
    return [os.path.getsize(f"{program.home}/Pictures/Coast{number}.jpg") for number in range(start, start + COUNT)]


def button(program, dialog, name):
    program.press(wait(name, lambda: program.find("push button", name, dialog)))


def fill(program, dialog, name, text):
    field = wait(name, lambda: program.find("text", name, dialog))
    wait(name + " to be usable", lambda: field.get_state_set().contains(Atspi.StateType.SENSITIVE))
    field.get_component_iface().grab_focus()
    wait(name + " to have the keyboard", lambda: field.get_state_set().contains(Atspi.StateType.FOCUSED))
    program.type_over(text)
    wait(f"{text} in its field", lambda: field.get_text_iface().get_text(0, -1) == text)


def preview_rows(program, dialog):
    table = program.find("tree", "Old and new names", dialog)
    return table and table.get_table_iface().get_n_rows()


def names(program):
    return set(os.listdir(program.home + "/Pictures"))


sys.exit(run(road))
