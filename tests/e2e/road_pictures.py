#!/usr/bin/python3
"""A folder of pictures is walked by the arrow keys with the picture view on, past files that are none; F12 shows them in
their own size, and a double click opens one."""

import os
import subprocess
import sys

from driver import below, expect, run, shows, wait

STRETCHED, BOX = "Stretched picture, left panel", "Picture, left panel"
RED, GREEN, TOOL = (255, 0, 0), (0, 128, 0), (91, 155, 213)


def road(program):
    make(program, "Card/a.jpg", "red", "900x600")
    make(program, "Card/b cut off.jpg", "red", "400x400")
    with open(program.home + "/Card/b cut off.jpg", "r+b") as cut:
        cut.truncate(os.path.getsize(cut.name) // 2)
    make(program, "Card/c.png", "green", "200x900")
    program.file("Card/d text.jpg")
    make(program, "Card/e.webp", "red", "300x300")
    os.mkfifo(program.home + "/Card/f pipe.png")
    program.start()
    program.click_row(1, "\\ Card", 2)
    wait("the files", lambda: len(program.rows(1)) == 6)
    width = program.extents(program.list(1))[2]
    program.keys("alt+BackSpace")
    wait("the picture", lambda: is_drawn(program, STRETCHED, RED))
    expect("the list has made room", program.extents(program.list(1))[2] < width * 0.6)
    for what, colour in (("b cut off", TOOL), ("c", GREEN), ("d text", TOOL), ("e", RED), ("f pipe", TOOL)):
        program.keys("Down")
        wait(what, lambda colour=colour: is_drawn(program, STRETCHED, colour))

    program.keys("Home", "F12")
    wait("its own size", lambda: shown(program, STRETCHED) is None and is_drawn(program, BOX, RED))
    program.keys("F12")
    double_click(wait("the stretched picture", lambda: shown(program, STRETCHED)))
    wait("it to be opened", lambda: program.opened() == ["file://" + program.home + "/Card/a.jpg"])
    expect("it names the picture", any("Card\\a.jpg" in line for line in program.kept("Temp.Url")))
    program.command("Pview")
    wait("the list to take the room", lambda: program.extents(program.list(1))[2] == width)


def make(program, name, colour, size):
    path = os.path.join(program.home, name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    subprocess.run(["convert", "-size", size, "xc:" + colour, path], check=True)


def shown(program, name):
    return next((node for node in below(program.window()) if node.get_name() == name and shows(node)), None)


def pixel(x, y):
    taken = subprocess.run(
        ["import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"], capture_output=True, check=True
    )
    return tuple(taken.stdout[:3])


def is_drawn(program, name, wanted):
    """Beside the middle of a box, where the fallback picture has the handle of its tool."""
    node = shown(program, name)
    if not node:
        return False
    left, top, width, height = program.extents(node)
    return all(abs(a - b) < 8 for a, b in zip(pixel(left + width // 2 - 6, top + height // 2 + 6), wanted))


def double_click(node):
    box = node.get_extents(0)
    place = [str(box.x + box.width // 2), str(box.y + box.height // 2)]
    subprocess.run(["xdotool", "mousemove", *place, "click", "--repeat", "2", "--delay", "60", "1"], check=True)


sys.exit(run(road))
