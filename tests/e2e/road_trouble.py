#!/usr/bin/python3
"""Folders that vanish, and entries that are no files: the program stays on its feet."""

import os
import shutil
import sys

from driver import expect, run, wait


def road(program):
    program.file("Letters/a.txt")
    program.file("Odd/plain.txt")
    os.mkfifo(program.home + "/Odd/pipe")
    os.symlink("nowhere", program.home + "/Odd/dangling")
    os.symlink("/dev/zero", program.home + "/Odd/endless")
    program.start(tip=True)

    program.click_row(1, "\\ Letters", 2)
    wait("the folder's rows", lambda: program.rows(1) == ["a"])
    shutil.rmtree(program.home + "/Letters")
    program.keys("F4")
    wait("the folder above", lambda: program.rows(1) == ["\\ Odd"])

    program.click_row(1, "\\ Odd", 2)
    wait("all four entries", lambda: sorted(program.rows(1)) == ["dangling", "endless", "pipe", "plain"])
    for name in ("pipe", "endless", "dangling", "plain"):
        program.click_row(1, name)
        wait("a selected row", lambda: program.status_has("1  Item(s) Selected"))
    program.keys("Home")
    expect("no dialog came up", not program.dialogs())
    program.keys("alt+F4")
    program.await_end()


sys.exit(run(road))
