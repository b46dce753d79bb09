#!/usr/bin/python3
"""Start, enter a folder, select, read the status line, leave; at the next start the history is there."""

import sys

from driver import below, expect, run, wait


def road(program):
    for name in ("Letters/to Anna.txt", "Letters/to Ben.txt", "Letters/to Carl.txt", "Letters/to Dora.txt", "budget.ods"):
        program.file(name)
    program.file("Letters/big.pdf", 123456)
    program.start(tip=True)
    expect("both panels list the home folder", program.rows(1) == program.rows(2) == ["\\ Letters", "budget"])

    program.click_row(1, "\\ Letters", 2)
    wait("the folder's rows", lambda: "to Anna" in program.rows(1))
    expect("the title names the folder", program.title() == "Varnholt -  C:\\Letters")
    expect("the other panel stays", "budget" in program.rows(2))

    program.click_row(1, "to Anna")
    program.click_row(1, "to Carl", 1, "shift")
    wait("three selected", lambda: program.status_has("3  Item(s) Selected"))
    program.click_row(1, "to Ben", 1, "ctrl")
    wait("two selected", lambda: program.status_has("2  Item(s) Selected"))

    program.keys("alt+F4")
    program.await_end()
    expect("the history is on the disk", program.kept("DirHis.Dat") == ["C:\\Letters\\", ""])

    program.start(tip=True)
    wait("the folder history", lambda: has_history(program))
    program.keys("alt+f", "Up", "Return")  # the last entry of the first menu is the way out
    program.await_end()


def has_history(program):
    items = (node for node in below(program.window()) if node.get_role_name() == "list item")
    return any(node.get_name() == "C:\\Letters" for node in items)


sys.exit(run(road))
