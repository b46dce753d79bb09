#!/usr/bin/python3
"""A folder found on the third match and gone to; an item found while it is typed, opened, and found again."""

import subprocess
import sys

from driver import below, expect, run, shows, wait


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)


def choose(program, entry):
    program.keys("alt+t")
    item = lambda: next((each for each in below(program.window()) if shows(each)
                         and each.get_role_name() == "menu item" and each.get_name().startswith(entry)), None)
    program.click(wait("the entry " + entry, item))


def folder(program):
    choose(program, "Quick Find Folder")
    program.dialog("Quick Find Folder")
    type_text("photos")
    program.keys("Return")
    for path, answer in (("C:\\A\\Photos", "alt+o"), ("C:\\B\\Old Photos", "alt+o"), ("C:\\B\\Photos", "Return")):
        dialog = program.dialog("Match Found !")
        wait(path, lambda dialog=dialog, path=path: program.field(dialog, "Folder that was found") == path)
        program.keys(answer)
    program.wait_for_no_dialog()
    program.wait_for_rows(2, "dawn", "dusk")
    expect("the word is kept", program.title() == "Varnholt -  C:\\B\\Photos")


def item(program):
    program.keys("ctrl+f")
    dialog = program.dialog("Quick Find Item.")
    type_text("du")
    program.dialog("Quick Find Item, - Match Found !")
    wait("the row", lambda: program.status_has("1  Item(s) Selected"))
    program.click(wait("folders", lambda: program.named(dialog, "Folder(s)", "check box")))
    program.dialog("Quick Find Item.")
    program.click(program.named(dialog, "Letters of the item to find", "text"))
    program.type_over("sub")
    program.dialog("Quick Find Item, - Match Found !")
    program.keys("Return")
    wait("its folder", lambda: program.title() == "Varnholt -  C:\\B\\Photos\\Sub")
    program.keys("Escape")
    program.wait_for_no_dialog()


def again(program):
    program.click_row(2, "inside")
    choose(program, "Found History")
    program.dialog("Found History")
    program.keys("Return")
    program.wait_for_no_dialog()
    program.wait_for_rows(2, "\\ Sub", "dawn")
    wait("the folder is selected", lambda: program.status_has("1  Item(s) Selected"))
    program.keys("alt+F4")
    program.await_end()
    expect("the history", "|Fold|C:\\B\\Photos\\Sub" in program.kept("GetQF.Dat"))
    expect("the word", program.kept("FolderSearchHis.Dat") == ["photos", ""])


def road(program):
    for name in ("A/Photos/x", "B/Old Photos/x", "B/Photos/dawn.jpg", "B/Photos/dusk.jpg", "B/Photos/Sub/inside", "C/x"):
        program.file(name)
    program.start()
    for step in (folder, item, again):
        print(step.__name__, flush=True)
        step(program)


sys.exit(run(road))
