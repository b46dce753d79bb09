#!/usr/bin/python3
"""The View Filter is switched on, hides files in both panels, stays on in a sub-folder, and is switched off again."""

import subprocess
import sys

from driver import expect, run, wait


def write(text):
    """Types over what stands in the field with the keyboard."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", "ctrl+a"], check=True)
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)


def road(program):
    for name in ("a.txt", "b.doc", "c.jpg", "Sub/d.txt", "Sub/e.jpg"):
        program.file(name)
    program.start(tip=True)
    everything = ["\\ Sub", "a", "b", "c"]
    expect("both panels list the home folder", program.rows(1) == program.rows(2) == everything)

    program.keys("alt+v", "Down", "Down", "Down", "Return")  # "User Specification"
    wait("the View Filter", program.dialogs)
    write("*.txt, *.doc")
    program.keys("Return")
    wait("the filtered rows", lambda: program.rows(1) == program.rows(2) == ["\\ Sub", "a", "b"])

    program.click_row(1, "\\ Sub", 2)
    wait("the filtered sub-folder", lambda: program.rows(1) == ["d"])

    program.keys("alt+v", "Down", "Return")  # "All Files"
    wait("all files", lambda: program.rows(1) == ["d", "e"] and program.rows(2) == everything)

    # The File Filter selects and leaves the rows where they are.
    program.keys("ctrl+m")
    wait("the File Filter", program.dialogs)
    write("*.jpg")
    program.keys("Return")
    wait("one selected", lambda: program.status_has("1  Item(s) Selected"))
    expect("the rows stay", program.rows(1) == ["d", "e"])
    program.keys("alt+F4")
    program.await_end()


sys.exit(run(road))
