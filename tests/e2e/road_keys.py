#!/usr/bin/python3
"""A selection is made, turned round, copied and deleted, one pasted, one found, an address opened, by the keyboard alone."""

import sys

from driver import expect, run, wait


def road(program):
    for name in ("f.txt", "g.txt", "h.txt", "Sub/old.txt"):
        program.file(name)
    program.start()

    program.click_row(1, "f")
    program.keys("Down", "asterisk")
    wait("f and h by Inverse", lambda: program.status_has("2 Item(s) ,  In 200 Bytes"))

    program.keys("Tab", "Home", "F3")
    wait("the right panel in the folder", lambda: program.rows(2) == ["old"])
    expect("the title names it", program.title() == "Varnholt -  C:\\Sub")
    program.keys("Tab")
    wait("the left panel's title", lambda: program.title() == "Varnholt -  C:\\")
    program.keys("F5")
    program.dialog("Copy Item(s)")
    program.keys("Return")
    wait("the copies", lambda: program.rows(2) == ["f", "h", "old"])

    program.keys("Tab", "Home", "Insert", "Insert")
    wait("two marked", lambda: program.status_has("2  Item(s) Selected"))
    program.keys("Menu", "d")  # the menu of the selection has the keyboard at once
    program.dialog("Delete Item(s)")
    program.keys("Return")
    program.click(program.named(program.dialog("Alert !"), "Execute"))
    wait("the rest", lambda: program.rows(2) == ["old"])

    program.keys("Tab", "End", "ctrl+c")
    wait("Ctrl+C", lambda: program.title() == "Varnholt, - Ctrl+C Done !")
    program.keys("Tab", "ctrl+v")
    wait("the pasted one", lambda: program.rows(2) == ["h", "old"])

    program.keys("ctrl+f")
    program.dialog("Quick Find Item.")
    program.keys("o", "l")  # the keyboard stays in the dialog while its rows are selected
    program.dialog("Quick Find Item, - Match Found !")
    program.keys("Escape")
    program.wait_for_no_dialog()
    program.keys("alt+p", "t")
    program.dialog("Open Item")
    program.type_over("www.here")
    program.keys("Return")
    wait("the address", lambda: program.opened() == ["http://www.here"])
    program.wait_for_no_dialog()

    program.keys("BackSpace")
    program.wait_for_rows(2, "g")


sys.exit(run(road))
