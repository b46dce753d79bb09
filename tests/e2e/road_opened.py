#!/usr/bin/python3
"""What was opened: a typed address and a typed file, a recent file gone to, and the most used of 101 files."""

import os
import subprocess
import sys

from driver import below, expect, run, shows, wait

THEN = 1_700_000_000
LEAST = 70  # the file that was accessed longest ago


def hundred(program):
    """The list as a run has left it that opened a hundred files."""
    lines = []
    for number in range(100):
        program.file(f"Many/f{number}.txt")
        accessed = THEN if number == LEAST else THEN + 1000 + number
        os.utime(f"{program.home}/Many/f{number}.txt", (accessed, THEN))
        lines += ["[Entry]", "000002", f"f{number}.txt", "C:\\Many\\"]
    program.file("Many/new.txt")
    with open(program.place + "/program/MostUsed.Dat", "w", newline="", encoding="utf-8") as file:
        file.write("".join(line + "\r\n" for line in lines))


def choose(program, entry, title):
    program.keys("alt+p")
    item = lambda: next((each for each in below(program.window()) if shows(each)
                         and each.get_role_name() == "menu item" and each.get_name().startswith(entry)), None)
    program.click(wait("the entry " + entry, item))
    return program.dialog(title)


def open_item(program, text):
    choose(program, "Open Item", "Open Item")
    # It takes the place of what stands there.
    subprocess.run(["xdotool", "type", "--delay", "5", text], check=True)
    program.keys("Return")
    program.wait_for_no_dialog()


def typed(program):
    open_item(program, "www.example.org")
    wait("the address", lambda: program.opened() == ["http://www.example.org"])
    open_item(program, "c:\\many\\NEW.txt")
    wait("the file", lambda: program.opened()[1:] == ["file://" + program.home + "/Many/new.txt"])


def recent(program):
    dialog = choose(program, "Recent Files", "Recent Files")
    expect("it is the newest", program.find("combo box", "C:\\Many\\new.txt", dialog)
           or program.find("combo box", "Recent files", dialog))
    program.keys("alt+o")
    wait("it was opened again", lambda: program.opened()[2:] == ["file://" + program.home + "/Many/new.txt"])
    choose(program, "Recent Files", "Recent Files")
    program.keys("alt+g")
    program.wait_for_rows(2, "new")  # the active panel
    wait("it is selected", lambda: program.status_has("1  Item(s) Selected"))


def most_used(program):
    dialog = choose(program, "Most Used", "Most Used Files")
    wait("all entries", lambda: any("Entries = 101" in (each.get_description() or "") + (each.get_name() or "")
                                    for each in below(dialog)))
    program.keys("Escape")
    program.wait_for_no_dialog()
    program.keys("alt+F4")
    program.await_end()
    kept = program.kept("MostUsed.Dat")
    expect("a hundred are kept", kept.count("[Entry]") == 100)
    expect("the one accessed longest ago is not", f"f{LEAST}.txt" not in kept)
    expect("the new one has its hits", kept[kept.index("new.txt") - 1] == "000002")
    expect("the newest address leads", program.kept("OpenHis.Dat")[:2] == ["c:\\many\\NEW.txt", "www.example.org"])


def road(program):
    hundred(program)
    program.start()
    for step in (typed, recent):
        print(step.__name__, flush=True)
        step(program)
    most_used(program)


sys.exit(run(road))
