#!/usr/bin/python3
"""Files go under a new name, or change places with others: each way out leaves every file whole at one place."""

import os
import sys

from driver import expect, run, wait


class Road:
    """The left panel shows Left, the right one Right."""

    def __init__(self, program):
        self.program = program

    def files(self):
        """Names and texts of both folders."""
        texts = {}
        for folder in ("Left", "Right"):
            for name in sorted(os.listdir(f"{self.program.home}/{folder}")):
                with open(f"{self.program.home}/{folder}/{name}", encoding="utf-8") as file:
                    texts[f"{folder}/{name}"] = file.read()
        return texts

    def open_as(self, key, row, title):
        self.program.wait_for_rows(1, row)
        self.program.click_row(1, row)
        wait("the selection", lambda: self.program.status_has("1  Item(s) Selected"))
        self.program.keys(key)
        self.program.dialog(title)
        self.program.keys("alt+a")
        return self.program.dialog(title.removesuffix("(s)") + " As")

    def gone(self):
        """The panels are read anew behind the last dialog."""
        self.program.wait_for_no_dialog()
        self.program.click(self.program.list(1))
        self.program.keys("F4")
        wait("the panel read anew", lambda: self.program.status_has("View1Active"))

    def expect(self, what, **changes):
        """Each file by its name without folder: where it stands now."""
        self.places = {**self.places, **changes}
        wanted = {place: text for text, place in self.places.items()}
        wait(f"{what}: {wanted}", lambda: self.files() == wanted)

    def road(self):
        program = self.program
        self.places = {}
        for text, place in (("a", "Left/a.txt"), ("b", "Left/both.txt"), ("c", "Right/both.txt"), ("d", "Right/d.txt")):
            path = f"{program.home}/{place}"
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as out:
                out.write(text)
            self.places[text] = place
        program.start()
        for number, folder, row in ((1, "Left", "a"), (2, "Right", "d")):
            program.click_row(number, "\\ " + folder, 2)
            program.wait_for_rows(number, row)

        for key, title in (("F5", "Copy Item(s)"), ("F6", "Move Item(s)")):
            self.open_as(key, "a", title)
            program.keys("Escape")
            program.dialog(title)
            program.keys("Escape")
            self.gone()
            self.expect("after no name")
        self.open_as("F6", "a", "Move Item(s)")
        program.type_over("new.txt")
        program.keys("Return")
        program.dialog("Move Item(s)")
        expect("it waits elsewhere", "Left/a.txt" not in self.files())
        program.keys("Escape")
        self.gone()
        self.expect("after a move given up")

        self.open_as("F5", "a", "Copy Item(s)")
        program.type_over("d.txt")
        program.keys("Return")
        program.dialog("Copy Item(s)")
        program.keys("Return")
        question = program.dialog("Overwrite Warning !")
        expect("the new name is named", program.says(question, "d.txt"))
        program.keys("Escape")
        self.gone()
        self.expect("after a copy that would replace")

        self.open_as("F6", "a", "Move Item(s)")
        program.type_over("new.txt")
        program.keys("Return")
        program.dialog("Move Item(s)")
        program.keys("Return")
        self.gone()
        self.expect("after the move", a="Right/new.txt")

        program.click_row(1, "both")
        for row in ("both", "new"):
            program.click_row(2, row, 1, "ctrl")
        program.keys("alt+f", "s")
        self.expect("after the swap", a="Left/new.txt", b="Right/both.txt", c="Left/both.txt")
        self.gone()
        # Killed while the name is asked for: the next start brings the file back, and tells it.
        self.open_as("F6", "new", "Move Item(s)")
        program.kill()
        program.spawn()
        told = program.dialog("Alert")
        expect("where it stands is told", program.says(told, "C:\\Left\\new.txt"))
        program.keys("Return")
        program.dialog("Varnholt StartUp Tip !")
        program.keys("Return")
        self.gone()
        self.expect("after the kill")


sys.exit(run(lambda program: Road(program).road()))
