#!/usr/bin/python3
"""Files and folders are packed, added to, and packed by the hundreds; three other programs read the archives."""

import os
import subprocess
import sys
import zipfile

from driver import expect, run, wait

MANY = 902  # one more than a batch holds
HUGE = 16 << 30  # bytes that take no room on the disk, but time to pack


class Road:
    """The left panel shows Work."""

    def __init__(self, program):
        self.program = program
        self.work = program.home + "/Work"

    def sound(self, archive, names):
        """By three readers, and byte for byte what was packed."""
        path = os.path.join(self.work, archive)
        for command in (["unzip", "-tqq", path], ["7z", "t", path]):
            expect(" ".join(command), subprocess.run(command, stdout=subprocess.DEVNULL, check=False).returncode == 0)
        with zipfile.ZipFile(path) as read:
            expect(f"a sound {archive}", read.testzip() is None)
            expect(f"the names {read.namelist()[:5]}", sorted(read.namelist()) == sorted(names))
            for name, source in names.items():
                with open(os.path.join(self.work, source), "rb") as file:
                    expect("the bytes of " + name, read.read(name) == file.read())

    def begin(self, archive, *checks):
        program = self.program
        program.keys("alt+f", "k")
        dialog = program.dialog("Zip File Options")
        for check in checks:
            program.click(program.named(dialog, check, "check box"))
        program.click(wait("the name", lambda: program.find("text", "Zip file name", dialog)))
        program.type_over(archive)
        program.keys("alt+x")

    def zip(self, archive, *checks, adds=False):
        self.begin(archive, *checks)
        program = self.program
        if adds:
            program.click(program.named(program.dialog("Alert !"), "Execute"))
        wait("the end", lambda: not program.dialogs())

    def select(self, *rows):
        for at, row in enumerate(rows):
            self.program.click_row(1, row, 1, *(["ctrl"] if at else []))
        wait("the selection", lambda: self.program.status_has(f"{len(rows)}  Item(s) Selected"))

    def files(self):
        self.select("alpha", "beta")
        self.zip("files.zip")
        self.sound("files.zip", {"alpha.txt": "alpha.txt", "beta.txt": "beta.txt"})

    def folders(self):
        self.select("\\ Deep")
        self.zip("tree.zip", "Recurse SubFolders", "Store FolderNames")
        self.sound("tree.zip", {"Deep/rose.txt": "Deep/rose.txt", "Deep/er/tulip.txt": "Deep/er/tulip.txt"})

    def added(self):
        with open(self.work + "/alpha.txt", "w", encoding="utf-8") as file:
            file.write("another text")
        self.select("alpha")
        self.zip("tree.zip", adds=True)
        self.sound("tree.zip", {"Deep/rose.txt": "Deep/rose.txt", "Deep/er/tulip.txt": "Deep/er/tulip.txt",
                                "alpha.txt": "alpha.txt"})

    def stopped(self):
        """In the middle of a large file: nothing of it is kept."""
        program, parts = self.program, lambda: [name for name in os.listdir(self.work) if name.startswith(".vnh-")]
        os.truncate(self.work + "/huge", HUGE)
        self.select("huge")
        self.begin("huge.zip")
        program.dialog("Zip File Options, - Writing Zip File !, - Please Wait...")
        wait("a part of it", lambda: any(os.path.getsize(os.path.join(self.work, name)) > 0 for name in parts()))
        program.keys("alt+s")
        program.wait_for_no_dialog()
        expect("nothing is left", not parts() and not os.path.exists(self.work + "/huge.zip"))

    def many(self):
        self.program.click_row(1, "\\ Many", 2)
        wait("the folder", lambda: self.program.title().endswith("Many"))
        self.program.keys("ctrl+a")
        wait("all of them", lambda: self.program.status_has(f"{MANY}  Item(s) Selected"))
        self.zip("many.zip")
        wait("the archive", lambda: os.path.exists(self.work + "/Many/many.zip"))
        self.sound("Many/many.zip", {f"{number}.txt": f"Many/{number}.txt" for number in range(MANY)})
        left = [name for name in os.listdir(self.work + "/Many") if name.startswith(".vnh")]
        expect(f"nothing is left: {left}", not left)


def road(program):
    for name in ("alpha.txt", "beta.txt", "Deep/rose.txt", "Deep/er/tulip.txt"):
        program.file("Work/" + name, 5000)
    program.file("Work/huge", 0)
    for number in range(MANY):
        program.file(f"Work/Many/{number}.txt", number)
    program.start()
    program.click_row(1, "\\ Work", 2)
    program.wait_for_rows(1, "alpha")
    steps = Road(program)
    for step in (steps.files, steps.folders, steps.added, steps.stopped, steps.many):
        print(step.__name__, flush=True)
        step()


sys.exit(run(road))
