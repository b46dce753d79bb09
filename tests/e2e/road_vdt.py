#!/usr/bin/python3
"""Pointers to files are dropped into the Virtual DeskTop, stored as projects, loaded after files have gone, and copied."""

import os
import sys

from driver import expect, run, wait


class Road:
    """The left panel shows Work, the right one Target."""

    def __init__(self, program):
        self.program = program

    def list(self):
        return self.program.find("tree", "Virtual DeskTop")

    def pointers(self):
        table = self.list().get_table_iface()
        columns, count = table.get_n_columns(), table.get_n_rows()
        cell = lambda row, column: self.list().get_child_at_index((row + 1) * columns + column).get_name()
        return [cell(row, 1) for row in range(count)]

    def wait_for(self, *names):
        wait(f"the pointers {names}", lambda: self.pointers() == list(names))

    def click_pointer(self, row, *modifiers):
        table = self.list()
        left, top, _, height = self.program.extents(table.get_child_at_index((row + 1) * table.get_table_iface().get_n_columns()))
        self.program.click_at(left + 20, top + height // 2, *modifiers)

    def entry(self, *names):
        """Chooses an entry of the menus by its way through them."""
        self.program.keys("alt+p")
        for name in names:
            self.program.click(wait("the entry " + name, lambda name=name: self.program.menu_entry(name)))

    def dropped(self):
        """From both panels and from another program; what is there already is told."""
        program = self.program
        program.keys("ctrl+l")
        wait("the list", self.list)
        for number, row in ((1, "alpha"), (2, "\\ Deep"), (1, "beta")):
            program.drag_row(number, row, self.list())
            wait(f"{row} among the pointers", lambda row=row: any(row.removeprefix("\\ ") in each for each in self.texts()))
        self.wait_for("alpha.txt", "<Folder>", "beta.txt")
        program.drag_row(1, "alpha", self.list())
        program.click(program.named(program.dialog("Information"), "Item Already Exist in VDT.. !", "label"))
        program.wait_for_no_dialog()
        self.wait_for("alpha.txt", "<Folder>", "beta.txt")

    def texts(self):
        table = self.list()
        return [table.get_child_at_index(at).get_name() for at in range(table.get_child_count())]

    def stored(self):
        """A new project begins; the one before it is stored byte for byte."""
        program = self.program
        self.entry("Virtual DeskTop (VDT) Options...", "New Project")
        program.dialog("VDT Project Manager")
        program.type_over("Trip")
        program.keys("Return", "Return")
        program.wait_for_no_dialog()
        self.wait_for()
        expect("the old project", program.kept("VDT_Projects/Default.Pro")
               == ["C:\\Work\\alpha.txt", "C:\\Target\\Deep\\<Folder>", "C:\\Work\\beta.txt", ""])

    def loaded(self):
        """Pointers whose files have gone stay."""
        program = self.program
        os.remove(program.home + "/Work/beta.txt")
        self.entry("Virtual DeskTop (VDT) Options...", "Open Project")
        dialog = program.dialog("VDT Project Manager")
        expect("an empty project was stored", program.kept("VDT_Projects/Trip.Pro") == ["", ""])
        program.keys("alt+Down")
        program.keys("Home", "Return")
        wait("the way to go on", lambda: program.is_enabled(program.named(dialog, "Execute")))
        program.keys("Return")
        program.wait_for_no_dialog()
        self.wait_for("alpha.txt", "<Folder>", "beta.txt")

    def copied(self):
        """Into the active panel's folder; what is gone is passed over."""
        program = self.program
        program.click_row(2, "\\ Deep")
        self.click_pointer(0)
        wait("the pointer in the title", lambda: program.title() == "Varnholt - ShortCut To : C:\\Work\\alpha.txt")
        self.click_pointer(2, "shift")
        wait("three of them", lambda: program.status_has("3  Item(s) Selected, View2Active"))
        expect("commands on the panels are off", not self.enabled("Copy"))
        program.keys("shift+F10", "v")
        dialog = program.dialog("Alert !")
        expect("two files", program.says(dialog, "Copy 2 selected file(s) From VDT ?"))
        program.click(program.named(dialog, "Execute"))
        program.wait_for_rows(2, "alpha")
        expect("nothing else came", sorted(os.listdir(program.home + "/Target")) == ["Deep", "alpha.txt"])
        program.keys("Escape")
        wait("the panel", lambda: self.enabled("Copy"))

    def enabled(self, name):
        return self.program.is_enabled(self.program.named(self.program.window(), name))


def road(program):
    for name in ("Work/alpha.txt", "Work/beta.txt", "Target/Deep/rose.txt"):
        program.file(name)
    program.start()
    for number, folder, row in ((2, "Target", "\\ Deep"), (1, "Work", "alpha")):
        program.click_row(number, "\\ " + folder, 2)
        program.wait_for_rows(number, row)
    steps = Road(program)
    for step in (steps.dropped, steps.stored, steps.loaded, steps.copied):
        print(step.__name__, flush=True)
        step()
    program.keys("alt+F4")
    program.await_end()
    expect("the project at the end", len(program.kept("VDT_Projects/Default.Pro")) == 4)


sys.exit(run(road))
