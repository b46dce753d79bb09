#!/usr/bin/python3
"""Two folders that differ in every way are compared and made alike; then the leftovers of a drive are searched, gathered
in a collection, and cleared away."""

import os
import sys

from driver import below, expect, run, shows, wait

THEN = 1_700_000_000


class Road:
    """The left panel shows Left, the right one Right."""

    def __init__(self, program):
        self.program = program

    def put(self, name, text, at=0, mode=0o644):
        path = f"{self.program.home}/{name}"
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as out:
            out.write(text)
        os.chmod(path, mode)
        os.utime(path, (THEN + at, THEN + at))

    def text(self, name):
        with open(f"{self.program.home}/{name}", encoding="utf-8") as file:
            return file.read()

    def compare(self):
        program = self.program
        for name, left, right in (
            ("two.txt", ("left", 2), ("right", 0)),
            ("three.txt", ("left", 3), ("right", 0)),
            ("size.txt", ("left", 0), ("longer", 0)),
            ("older.txt", ("left", 0), ("right", 60)),
            ("NAME.txt", ("left", 0), None),
            ("name.txt", None, ("right", 0)),
            (".hidden", ("left", 0), None),
        ):
            for folder, side in (("Left", left), ("Right", right)):
                if side:
                    self.put(f"{folder}/{name}", *side)
        self.put("Left/protected.txt", "left", 9)
        self.put("Right/protected.txt", "right", 0, 0o444)
        self.put("Left/link.txt", "left", 9)
        os.symlink("name.txt", program.home + "/Right/link.txt")
        self.put("Left/folder.txt", "left")
        os.makedirs(program.home + "/Right/folder.txt")
        program.start()
        for number, folder in ((1, "Left"), (2, "Right")):
            program.click_row(number, "\\ " + folder, 2)
            wait("the folder", lambda number=number: "three" in program.rows(number))
        program.click_row(1, "three")

        program.keys("alt+t")
        for name in ("Compare", "Normal Mode"):
            program.click(wait("the entry " + name, lambda name=name: self.entry(name)))
        dialog = program.dialog("Compare - Sync.")
        program.keys("alt+e")
        wait("both lists", lambda: self.status(dialog, "To Left Panel:   2 File(s)"))
        expect("nothing is copied", self.text("Right/three.txt") == "right")
        program.keys("alt+b", "alt+s", "alt+e")
        program.click(program.named(program.dialog("Alert !"), "Execute"))
        wait("the sync", lambda: self.status(dialog, "Not Copied:   1 File(s)"))
        wanted = {"two": "right", "three": "left", "size": "longer", "older": "right", "NAME": "left", "name": "right",
                  "protected": "left", "link": "left"}
        found = {name: self.text(f"Right/{name}.txt") for name in wanted}
        expect(f"the right folder: {found}", found == wanted)
        expect("the link is a file now", not os.path.islink(program.home + "/Right/link.txt"))
        expect("hidden files stay", not os.path.exists(program.home + "/Right/.hidden"))
        for way, key, source, target in (("Left to Right", "alt+z", "Left", "Right"), ("Right to Left", "alt+r", "Right", "Left")):
            self.put(source + "/two.txt", "newer by three", 103)
            self.put(target + "/two.txt", "right", 100)
            self.put(source + "/size.txt", "s", 0)
            self.put(source + f"/only in {source}.txt", "new")
            self.put(target + f"/never from {target}.txt", "stays")
            # What is carried over is what the panels list.
            program.keys("alt+a", key, "alt+e")
            question = program.dialog("Alert !")
            expect("the way is named", program.says(question, way))
            program.click(program.named(question, "Execute"))
            carried = lambda target, source: [self.text(f"{target}/{name}.txt") for name in ("two", "size", f"only in {source}")]
            wait(way, lambda target=target, source=source: carried(target, source) == ["newer by three", "s", "new"])
            program.dialog("Compare - Sync.")
            expect("nothing goes back", not os.path.exists(f"{program.home}/{source}/never from {target}.txt"))
        program.keys("alt+b", "alt+e")
        program.click(program.named(program.dialog("Alert !"), "Execute"))
        wait("the sync", lambda: self.status(dialog, "Not Copied:   1 File(s)"))
        both = [f"{program.home}/{at}/never from {of}.txt" for at, of in (("Left", "Right"), ("Right", "Left"))]
        expect("both have all", all(map(os.path.exists, both)))
        program.keys("Escape")
        program.wait_for_no_dialog()

    @staticmethod
    def status(dialog, text):
        return any(text in (node.get_description() or "") for node in below(dialog))

    def entry(self, name):
        return next((node for node in below(self.program.application()) if node.get_name() == name and shows(node)), None)

    def clean(self):
        program = self.program
        for name in ("a.bak", "Deep/b.TMP", "Deep/er/data.bak", "Deep/er/c.old", "Deep/keep.txt", "big.chk"):
            self.put(name, "x" * 100)
        self.put("large.log", "x" * 1_500_000)
        program.command("CleanUp")
        dialog = program.dialog("CleanUp-Search")
        finds = lambda count: wait(f"{count} hits", lambda: program.field(dialog, "What is going on").endswith(count))
        program.keys("alt+s")
        finds("found 4 Items to Clean!")
        program.click(program.named(dialog, "More"))
        program.click(program.named(dialog, "Reset"))
        program.click(wait("the patterns", lambda: program.find("text", "UserPattern", dialog)))
        program.type_over("*.log,k*.txt")
        program.keys("alt+s")
        finds("found 2 Items to Clean!")
        program.keys("alt+m")
        program.click(wait("the limit", lambda: program.find("text", "More than", dialog)))
        program.type_over("1.4")
        program.keys("alt+s")
        finds("found 1 Items to Clean!")
        program.click(program.named(dialog, "Reset"))
        program.click(program.named(dialog, "Less"))
        program.keys("alt+s")
        finds("found 4 Items to Clean!")
        program.click(wait("the name", lambda: program.find("text", "Collection Name", dialog)))
        program.type_over("Left")
        program.keys("alt+a")
        wait("the collection", lambda: len(program.kept("Collections/Left.Col")) == 5)
        # The notice goes by itself, but may come late.
        wait("the notice and the dialog to go", lambda: not program.dialogs() or program.keys("Escape"))
        program.keys("alt+f", "v")
        viewer = program.dialog("Paste Viewer, - 0 Item(s)")
        program.click(program.named(viewer, "More"))
        program.click(wait("the files", lambda: program.find("combo box", "Collection file", viewer)))
        program.keys("Home", "Return")
        program.dialog("Paste Viewer, - 4 Item(s) In View")
        program.keys("Escape")
        program.wait_for_no_dialog()
        program.command("CleanUp")
        dialog = program.dialog("CleanUp-Search")
        program.keys("alt+s")
        finds("found 4 Items to Clean!")
        program.keys("alt+l")
        program.dialog("Cleanup Options")
        program.keys("alt+s")
        wait("the first one to go", lambda: not os.path.exists(program.home + "/a.bak"))
        expect("the others stay", os.path.exists(program.home + "/big.chk"))
        program.dialog("CleanUp-Search")
        program.keys("alt+l")
        program.dialog("Cleanup Options")
        program.keys("alt+a")
        program.click(program.named(program.dialog("Alert !"), "Execute"))
        wait("all to go", lambda: program.field(dialog, "What is going on") == "System Cleaned !")
        program.keys("Escape")
        program.wait_for_no_dialog()
        left = sorted(os.listdir(program.home + "/Deep")) + os.listdir(program.home + "/Deep/er")
        expect(f"what no pattern names stays: {left}", left == ["er", "keep.txt", "data.bak"])


def road(program):
    steps = Road(program)
    for step in (steps.compare, steps.clean):
        print(step.__name__, flush=True)
        step()


sys.exit(run(road))
