#!/usr/bin/python3
"""Every dialog and window is opened by its command in the menus, and closed by Esc. With a folder in GALLERY each is pictured."""

import os
import subprocess
import sys

from driver import run, shows, wait

# Where the command stands, and how the title of what it opens begins.
DIALOGS = [
    ("File/Copy/Copy Items...", "Copy Item(s)"),
    ("File/Move Items...", "Move Item(s)"),
    ("File/Delete Items...", "Delete Item(s)"),
    ("File/New Folder...", "New Folder"),
    ("File/Make File...", "Make File"),
    ("File/Paste Viewer...", "Paste Viewer"),
    ("File/Rename...", "Rename Item(s)"),
    ("File/Properties...", "File/Folder Properties"),
    ("File/Attributes...", "Attribut Change"),
    ("File/Make Zip File...", "Zip File Options"),
    ("Select/Filter Function", ""),
    ("View/User Specification (User.user)", ""),
    ("Places/Open Static Presets", "Static Preset View"),
    ("Places/Dynamic Presets...", "Dynamic Preset View"),
    ("Places/Add To Favorites", "Favorit Creation"),
    ("Places/Open Favorites", "Favorites"),
    ("Places/Add To Bookmarks", "BookMark Creation"),
    ("Places/Open Bookmarks", "Book-Marks"),
    ("Places/My Notes", "My Notes"),
    ("Places/Open Item...", "Open Item"),
    ("Places/Recent Files...", "Recent Files"),
    ("Places/Most Used Files...", "Most Used Files"),
    ("Places/Virtual DeskTop (VDT) Options.../Open Project", "VDT Project Manager"),
    ("Places/Virtual DeskTop (VDT) Options.../New Project", "VDT Project Manager"),
    ("Tools/Compare/Normal Mode", "Compare - Sync."),
    ("Tools/CleanUp - Search", ""),
    ("Tools/Quick Find Folder On Drive(s)", ""),
    ("Tools/Quick Find File In Active View", ""),
    ("Tools/Found History...", "Found History"),
    ("Tools/Drives and Memory/Quick Disk\N{FRACTION SLASH}Memory Information", "Disk Info"),
    ("Tools/Drives and Memory/Disk Usage In Graphics (Selected Items)", "Disk Usage In Graphics"),
    ("Tools/Network/Optimize Networking (XP\N{FRACTION SLASH}Vista)", "Optimize Networking"),
    ("Tools/Network/Ping Address...", "Ping Address"),
    ("Help/About Varnholt...", "About Varnholt"),
]

# What stands beside the main window.
WINDOWS = [
    ("View/Commands", "Commands"),
    ("View/Tree Window", "TreeView"),
    ("Tools/Compare/Line To Line Compare", "Line Compare"),
]


def road(program):
    for number in range(6):
        program.file(f"Data/letter {number}.txt", 3000 * number + 500)
    program.file("Data/sub/inside.txt", 20_000)
    with open(program.place + "/program/MostUsed.Dat", "w", newline="", encoding="utf-8") as kept:
        kept.write("[Entry]\r\n000003\r\nletter 1.txt\r\nC:\\Data\\\r\n")
    program.start(program.home + "/Data", program.second)
    for at, (path, title) in enumerate(DIALOGS):
        program.click_row(1, "letter 2")
        program.keys("Home", "shift+End")
        wait("all selected", lambda: program.status_has("Item(s) Selected"))
        choose(program, path)
        wait("what opens by " + path, other_window)
        if title:
            program.dialog(title)
        picture(at, path)
        program.keys("Escape")
        program.wait_for_no_dialog()
    for at, (path, title) in enumerate(WINDOWS, len(DIALOGS)):
        choose(program, path)
        program.click(wait(title, lambda: window(program, title)))
        picture(at, path)
        program.keys("Escape")
        wait(title + " to go", lambda: not window(program, title))


def window(program, title):
    return next((each for each in program.windows() if each and each.get_name().startswith(title) and shows(each)), None)


def choose(program, path):
    names = [name.replace("\N{FRACTION SLASH}", "/") for name in path.split("/")]
    program.keys("alt+" + names[0][0].lower())
    for name in names[1:]:
        program.click(wait("the entry " + name, lambda: program.menu_entry(name)))


def other_window():
    asked = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True, check=False)
    name = asked.stdout.rstrip("\n")
    return name if name and not name.startswith("Varnholt - ") else None


def picture(at, path):
    if folder := os.environ.get("GALLERY"):
        subprocess.run(["sleep", "0.4"], check=False)
        subprocess.run(["import", "-window", "root", f"{folder}/{at:02}-{path.split('/')[-1][:20].strip()}.png"], check=False)


sys.exit(run(road))
