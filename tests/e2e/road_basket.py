#!/usr/bin/python3
"""The basket: gathered in three folders of two drives, pasted over a file, kept and loaded again."""

import os
import subprocess
import sys

from driver import Program, expect, run, wait


def go(program, path, row):
    """The left panel goes to a typed path."""
    program.click(wait("the path line", lambda: program.find("text", "Path, left panel")))
    program.keys("ctrl+a")
    subprocess.run(["xdotool", "type", "--delay", "5", path], check=True)
    program.keys("Return")
    program.wait_for_rows(1, row)


def gather(program, path, row):
    go(program, path, row)
    program.click_row(1, row)
    wait("the selection", lambda: program.status_has("1  Item(s) Selected"))
    program.keys("ctrl+c")
    wait("Ctrl+C", lambda: program.title() == "Varnholt, - Ctrl+C Done !")


def paste(program):
    go(program, "C:\\To", "kept")
    program.keys("ctrl+v")
    expect("the file is named", program.says(program.dialog("Overwrite Warning !"), "a.txt"))
    program.keys("alt+w")
    wait("the end", lambda: program.title() == "Varnholt, - Paste (Ctrl+V) Done !")
    expect("all arrived", sorted(os.listdir(program.home + "/To")) == ["Sub", "a.txt", "b.txt", "kept"])
    expect("the later one is there", os.path.getsize(program.home + "/To/a.txt") == 3)


def viewer(program, items):
    """Opens the Paste Viewer by the menu."""
    program.keys("alt+f", "v")
    return program.dialog(f"Paste Viewer, - {items} Item(s) In View")


def keep(program):
    dialog = viewer(program, 4)
    program.click(program.named(dialog, "More"))
    program.click(wait("the name", lambda: program.find("text", "Name of the collection", dialog)))
    program.type_over("Trip")
    program.keys("alt+a")
    wait("the file", lambda: len(program.kept("Collections/Trip.Col")) == 5)
    program.dialog("Information")
    wait("the notice to go", lambda: program.top("Paste Viewer"))
    program.click(program.named(dialog, "Reset"))
    program.click(program.named(program.dialog("Alert !"), "Execute"))
    program.dialog("Paste Viewer, - 0 Item(s)")
    leave(program)


def load(program, dialog, items):
    # Once a file is chosen, the list is called by it.
    files = lambda: program.find("combo box", "Collection file", dialog) or program.find("combo box", "Trip", dialog)
    program.click(wait("the files", files))
    program.keys("Home", "Return")
    return program.dialog(f"Paste Viewer, - {items} Item(s) In View")


def load_again(program):
    """With what is in the basket, and in its place."""
    gather(program, "C:\\To", "kept")
    dialog = viewer(program, 1)
    adds = program.named(dialog, "Add New Loads To Current Set.", "check box")
    program.click(adds)
    dialog = load(program, dialog, 5)
    program.click(adds)
    load(program, dialog, 4)
    leave(program)


def leave(program):
    program.keys("Escape")
    program.wait_for_no_dialog()


def road(program):
    for size, name in enumerate(("One/a.txt", "Two/b.txt", "../second/Three/a.txt", "../second/Three/Sub/c.txt", "To/kept")):
        program.file(name, size + 1)
    program.start()
    for path, row in (("C:\\One", "a"), ("C:\\Two", "b"), ("D:\\Three", "a"), ("D:\\Three", "\\ Sub")):
        gather(program, path, row)
    for step in (paste, keep, load_again):
        print(step.__name__, flush=True)
        step(program)


sys.exit(run(road))
