#!/usr/bin/python3
"""A tree is packed, and three other programs read the archive; a large file is given up in its middle."""

import os
import subprocess
import sys
import zipfile

from driver import expect, run, wait

HUGE = 16 << 30  # bytes that take no room on the disk, but time to pack


def begin(program, row, archive, *checks):
    program.click_row(1, row)
    wait("the selection", lambda: program.status_has("1  Item(s) Selected"))
    program.keys("alt+f", "k")
    dialog = program.dialog("Zip File Options")
    for check in checks:
        program.click(program.named(dialog, check, "check box"))
    program.click(wait("the name", lambda: program.find("text", "Zip file name", dialog)))
    program.type_over(archive)
    program.keys("alt+x")


def packed(program, work):
    """Sound by three readers, and byte for byte what was packed."""
    begin(program, "\\ Deep", "tree.zip", "Recurse SubFolders", "Store FolderNames")
    wait("the end", lambda: not program.dialogs())
    path, names = work + "/tree.zip", ["Deep/er/tulip.txt", "Deep/rose.txt"]
    for command in (["unzip", "-tqq", path], ["7z", "t", path]):
        expect(" ".join(command), subprocess.run(command, stdout=subprocess.DEVNULL, check=False).returncode == 0)
    with zipfile.ZipFile(path) as read:
        expect("a sound archive", read.testzip() is None)
        expect(f"the names {read.namelist()}", sorted(read.namelist()) == names)
        for name in names:
            with open(f"{work}/{name}", "rb") as file:
                expect("the bytes of " + name, read.read(name) == file.read())


def stopped(program, work):
    """In the middle of a large file: nothing of it is kept."""
    parts = lambda: [name for name in os.listdir(work) if name.startswith(".vnh-")]
    os.truncate(work + "/huge", HUGE)
    begin(program, "huge", "huge.zip")
    program.dialog("Zip File Options, - Writing Zip File !, - Please Wait...")
    wait("a part of it", lambda: any(os.path.getsize(f"{work}/{name}") > 0 for name in parts()))
    program.keys("alt+s")
    program.wait_for_no_dialog()
    expect("nothing is left", not parts() and not os.path.exists(work + "/huge.zip"))


def road(program):
    for name in ("Deep/rose.txt", "Deep/er/tulip.txt"):
        program.file("Work/" + name, 5000)
    program.file("Work/huge", 0)
    program.start()
    program.click_row(1, "\\ Work", 2)
    program.wait_for_rows(1, "huge")
    for step in (packed, stopped):
        print(step.__name__, flush=True)
        step(program, program.home + "/Work")


sys.exit(run(road))
