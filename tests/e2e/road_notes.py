#!/usr/bin/python3
"""A note is written with formats, read by another program, opened again, changed, and not lost by Cancel."""

import subprocess
import sys

from driver import expect, run, wait


def notes(program):
    program.keys("alt+p", "m")
    return program.dialog("My Notes")


def text(program, dialog):
    return program.named(dialog, "Text of the note", "text")


def reads(program, dialog):
    return program.field(dialog, "Text of the note")


def html(program, name):
    path = f"{program.place}/program/Notes/{name}.Rtf"
    return subprocess.run(["unrtf", "--html", path], capture_output=True, text=True, check=True).stdout


def road(program):
    program.file("a.txt")
    program.start()
    dialog = notes(program)
    wait("the first words", lambda: reads(program, dialog) == "Write your Note Here:")
    program.click(text(program, dialog))
    program.type_over("Buy bread")
    program.keys("shift+ctrl+Left")
    program.keys("ctrl+b")
    program.keys("ctrl+u")
    program.click(program.find("text", "Name of the note", dialog))
    program.type_over("shopping")
    program.keys("alt+s")
    wait("the note's row", lambda: program.find("table cell", "shopping.Rtf", dialog))
    expect("another program reads it", "<b><u>" in html(program, "shopping").replace('<font size="3">', "")
           and "bread" in html(program, "shopping").split("<b>")[1])
    program.keys("Escape")
    program.wait_for_no_dialog()

    dialog = notes(program)
    program.click(wait("its row", lambda: program.find("table cell", "shopping.Rtf", dialog)))
    wait("its text", lambda: reads(program, dialog) == "Buy bread")
    program.click(text(program, dialog))
    program.keys("ctrl+End", "exclam")
    program.keys("Escape")
    program.click(program.named(program.dialog("Alert !"), "Cancel"))
    program.dialog("My Notes")
    expect("the text stays", reads(program, dialog) == "Buy bread!")
    program.keys("alt+x")
    # The name is the note's own still: it may be written over.
    program.click(program.named(program.dialog("Alert !"), "Execute"))
    program.wait_for_no_dialog()
    expect("the change is kept, and its looks", "<b>" in html(program, "shopping") and "!" in html(program, "shopping"))


sys.exit(run(road))
