#!/usr/bin/python3
"""The basket: gathered in three folders of two drives, pasted over a file, kept and loaded again."""

import os
import subprocess
import sys

from driver import Program, expect, run, wait


def go(program, path, row):
    """The left panel goes to a typed path."""
    field = wait("the path line", lambda: program.find("text", "Path, left panel"))
    program.click(field)
    program.keys("ctrl+a")
    subprocess.run(["xdotool", "type", "--delay", "5", path], check=True)
    program.keys("Return")
    wait(f"{row} in {path}", lambda: row in program.rows(1))


def gather(program, path, row):
    go(program, path, row)
    program.click_row(1, row)
    wait("the selection", lambda: program.status_has("1  Item(s) Selected"))
    program.keys("ctrl+c")
    wait("Ctrl+C", lambda: program.title() == "Varnholt, - Ctrl+C Done !")


def viewer(program, caption):
    """Opens the Paste Viewer by the menu."""
    program.keys("alt+f", "v")
    return program.dialog("Paste Viewer, - " + caption)


def read(folder, name):
    with open(os.path.join(folder, name), encoding="utf-8") as file:
        return file.read()


def paste(program):
    go(program, "C:\\To", "kept")
    program.keys("ctrl+v")
    question = program.dialog("Overwrite Warning !")
    expect("the file is named", program.says(question, "a.txt"))
    program.keys("alt+w")
    wait("the end", lambda: program.title() == "Varnholt, - Paste (Ctrl+V) Done !")
    to = program.home + "/To"
    expect("all arrived", sorted(os.listdir(to)) == ["Sub", "a.txt", "b.txt", "kept"])
    expect("the later one is there", read(to, "a.txt") == "three")
    expect("the tree is whole", read(to, "Sub/c.txt") == "deep")


def keep(program):
    dialog = viewer(program, "4 Item(s) In View")
    program.click(program.named(dialog, "More"))
    field = wait("the name", lambda: program.find("text", "Name of the collection", dialog))
    program.click(field)
    program.type_over("Trip")
    program.keys("alt+a")
    wait("the file", lambda: len(program.kept("Collections/Trip.Col")) == 5)
    notice = program.dialog("Information")
    expect("the notice names the file", program.says(notice, "Saved As: ...\\Trip.Col"))
    wait("the notice to go", lambda: program.top("Paste Viewer"))
    program.click(program.named(dialog, "Reset"))
    program.click(program.named(program.dialog("Alert !"), "Execute"))
    program.dialog("Paste Viewer, - 0 Item(s)")


def load(program, dialog, caption):
    # Once a file is chosen, the list is called by it.
    files = lambda: program.find("combo box", "Collection file", dialog) or program.find("combo box", "Trip", dialog)
    program.click(wait("the files", files))
    program.keys("Home", "Return")
    return program.dialog("Paste Viewer, - " + caption)


def load_again(program):
    """With what is in the basket, and in its place."""
    program.keys("Escape")
    wait("the viewer to go", lambda: not program.dialogs())
    gather(program, "C:\\To", "kept")
    dialog = viewer(program, "1 Item(s) In View")
    adds = program.named(dialog, "Add New Loads To Current Set.", "check box")
    program.click(adds)
    dialog = load(program, dialog, "5 Item(s) In View")
    program.click(adds)
    load(program, dialog, "4 Item(s) In View")
    program.keys("Escape")
    wait("the viewer to go", lambda: not program.dialogs())


def road(program):
    for name, text in (("home/One/a.txt", "one"), ("home/Two/b.txt", "two"), ("second/Three/a.txt", "three"),
                       ("second/Three/Sub/c.txt", "deep"), ("home/To/kept", "kept")):
        path = os.path.join(program.place, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as out:
            out.write(text)
    program.start(tip=True)
    for path, row in (("C:\\One", "a"), ("C:\\Two", "b"), ("D:\\Three", "a"), ("D:\\Three", "\\ Sub")):
        gather(program, path, row)
    for step in (paste, keep, load_again):
        print(step.__name__, flush=True)
        step(program)
    program.keys("alt+F4")
    program.await_end()


sys.exit(run(road))
