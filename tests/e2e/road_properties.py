#!/usr/bin/python3
"""Fifty files get attributes at once; then their properties are looked at one after the other, and one is reset."""

import os
import sys

from driver import expect, run, wait

COUNT = 50


def road(program):
    for number in range(COUNT):
        program.file(f"Card/shot{number:02}.txt", number + 1)
    program.start()
    program.click_row(1, "\\ Card", 2)
    wait("the files", lambda: len(program.rows(1)) == COUNT)
    program.click_row(1, "shot00")
    program.keys("shift+End")
    wait("all selected", lambda: program.status_has(f"{COUNT}  Item(s) Selected"))

    program.keys("alt+f", "a")
    program.dialog("Attribut Change")
    program.keys("alt+a", "alt+r", "Return")
    program.wait_for_no_dialog()
    expect("all are read-only", all(not mode(program, number) & 0o200 for number in range(COUNT)))

    program.keys("Home", "shift+Down")
    wait("two selected", lambda: program.status_has("2  Item(s) Selected"))
    program.keys("ctrl+u")
    dialog = program.dialog("File/Folder Properties")
    program.keys("Next")
    wait("the second item", lambda: program.field(dialog, "Name") == "shot01.txt")
    program.keys("alt+a")
    wait("the reset", lambda: mode(program, 1) & 0o200)
    program.keys("Escape")
    program.wait_for_no_dialog()
    expect("the other keeps its own", not mode(program, 0) & 0o200)


def mode(program, number):
    return os.stat(f"{program.home}/Card/shot{number:02}.txt").st_mode


sys.exit(run(road))
