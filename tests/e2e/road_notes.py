#!/usr/bin/python3
"""A note is written with formats by the keyboard, and read by another program."""

import subprocess
import sys

from driver import expect, run, wait


def road(program):
    program.file("a.txt")
    program.start()
    program.keys("alt+p", "m")
    dialog = program.dialog("My Notes")
    wait("the first words", lambda: program.field(dialog, "Text of the note") == "Write your Note Here:")
    program.click(program.named(dialog, "Text of the note", "text"))
    program.type_over("Buy bread")
    program.keys("shift+ctrl+Left")
    program.keys("ctrl+b")
    program.keys("ctrl+u")
    program.click(program.find("text", "Name of the note", dialog))
    program.type_over("shopping")
    program.keys("alt+s")
    wait("the note's row", lambda: program.find("table cell", "shopping.Rtf", dialog))
    path = f"{program.place}/program/Notes/shopping.Rtf"
    html = subprocess.run(["unrtf", "--html", path], capture_output=True, text=True, check=True).stdout
    expect("another program reads it", "<b><u>" in html.replace('<font size="3">', "") and "bread" in html.split("<b>")[1])
    program.keys("Escape")
    program.wait_for_no_dialog()


sys.exit(run(road))
