#!/usr/bin/python3
"""A favorite and bookmarks of a file and of a folder: made, followed, renamed, deleted."""

import os
import sys

from driver import expect, run, wait


def kept(program, folder):
    return sorted(name for name in os.listdir(f"{program.place}/program/{folder}") if not name.startswith("."))


def make(program, row, key, title, name):
    program.click_row(1, row)
    program.keys("alt+p", key)
    program.dialog(title)
    program.type_over(name)
    program.keys("Return")
    program.dialog("Information")
    program.wait_for_no_dialog()


def listed(program, dialog, name):
    """The list of the dialog, once it shows these names."""
    table = wait(name, lambda: program.named(dialog, name, "tree"))
    columns = table.get_table_iface().get_n_columns()
    count = table.get_table_iface().get_n_rows()
    return [table.get_child_at_index(row * columns).get_name() for row in range(1, count + 1)]


def rename(program, title, caption, new):
    dialog = program.dialog(title)
    program.click(wait("rename", lambda: program.find("push button", "Rename", dialog)))
    program.dialog(caption)
    program.type_over(new)
    program.keys("Return")
    return program.dialog(title)


def favorite(program):
    make(program, "letter", "a", "Favorit Creation", "mine")
    expect("its file", kept(program, "Favorites") == ["mine.Url"])
    program.keys("alt+p", "f")
    rename(program, "Favorites", "Rename Favorit To", "yours.Url")
    wait("the new name", lambda: kept(program, "Favorites") == ["yours.Url"])
    program.keys("Return")
    wait("the letter", lambda: program.opened() == [f"file://{program.home}/Docs/letter.txt"])
    program.keys("Delete")
    program.click(program.named(program.dialog("Alert !"), "Execute"))
    wait("no favorite", lambda: not kept(program, "Favorites"))
    program.dialog("Favorites")
    program.keys("Escape")
    program.wait_for_no_dialog()


def bookmarks(program):
    make(program, "letter", "b", "BookMark Creation", "file")
    make(program, "\\ Sub", "b", "BookMark Creation", "folder")
    expect("both", kept(program, "Bookmarks") == ["file.Bmk", "folder.Bmk"])
    for number, row in enumerate(("letter", "\\ Sub")):
        program.keys("BackSpace")
        program.wait_for_rows(1, "\\ Docs")
        program.keys("alt+p", "o")
        dialog = program.dialog("Book-Marks")
        expect("their rows", listed(program, dialog, "Bookmarks") == ["file.Bmk", "folder.Bmk"])
        program.keys("Home", *["Down"] * number, "Return")
        program.wait_for_no_dialog()
        program.wait_for_rows(1, row)
        wait("the row", lambda: program.status_has("1  Item(s) Selected"))
    program.keys("alt+p", "o")
    program.dialog("Book-Marks")
    program.keys("Home")
    rename(program, "Book-Marks", "Rename Bookmark To", "z.Bmk")
    wait("the new name", lambda: kept(program, "Bookmarks") == ["folder.Bmk", "z.Bmk"])
    program.keys("Home", "shift+End", "Delete")
    program.click(program.named(program.dialog("Alert !"), "Execute"))
    wait("no bookmark", lambda: not kept(program, "Bookmarks"))
    program.dialog("Book-Marks")
    program.keys("Escape")
    program.wait_for_no_dialog()


def road(program):
    program.file("Docs/letter.txt")
    program.file("Docs/Sub/below.txt")
    program.start()
    program.click_row(1, "\\ Docs", 2)
    program.wait_for_rows(1, "letter")
    favorite(program)
    bookmarks(program)


sys.exit(run(road))
