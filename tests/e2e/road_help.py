#!/usr/bin/python3
"""The help: opened by its key from the main window, from a text, and over a dialog at that dialog's place."""

import sys

from driver import expect, run, wait


def text(program, help_window):
    return program.field(help_window, "Text of the topic")


def road(program):
    program.file("a.txt")
    program.start()
    program.keys("F1")
    help_window = program.dialog("Varnholt Help")
    wait("the first topic", lambda: text(program, help_window).startswith("The two panels"))
    program.keys("Escape")
    program.wait_for_no_dialog()

    program.keys("F7")
    program.dialog("New Folder")
    program.type_over("Kept")
    program.keys("F1")
    help_window = program.dialog("Varnholt Help")
    wait("its own topic", lambda: text(program, help_window).startswith("New Folder"))
    program.keys("F1", "Escape")
    dialog = program.dialog("New Folder")
    expect("what was typed is still there", program.field(dialog, "Folder name") == "Kept")
    program.keys("Escape")
    program.wait_for_no_dialog()

    program.keys("ctrl+Return")  # the command line, a text of the main window
    program.keys("F1")
    program.dialog("Varnholt Help")
    program.keys("Escape")
    program.wait_for_no_dialog()


sys.exit(run(road))
