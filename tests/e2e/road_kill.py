#!/usr/bin/python3
"""A kill at any moment leaves settings and history files whole: the program starts again and says nothing of damage."""

import os
import sys
import time

from driver import expect, run, wait

# Seconds after the start: while folders are made, in the splash, while the window comes up, and later.
MOMENTS = (0.02, 0.05, 0.1, 0.2, 0.4, 0.8, 1.2)


def road(program):
    for number in range(40):
        program.file(f"Letters/{number}.txt")
    program.start(tip=True)
    program.click_row(1, "\\ Letters", 2)
    wait("the folder's rows", lambda: "7" in program.rows(1))
    program.keys("alt+F4")
    program.await_end()
    before = program.kept("DirHis.Dat")

    for moment in MOMENTS:
        program.spawn()
        time.sleep(moment)  # the moment itself is what is tried here
        program.kill()
        expect(f"the history is whole after a kill at {moment} s", program.kept("DirHis.Dat") == before)

    program.start(tip=True)
    damaged = [name for name in os.listdir(program.place + "/program") if "damaged" in name]
    expect(f"nothing was set aside as damaged: {damaged}", not damaged)
    program.keys("alt+F4")
    program.await_end()


sys.exit(run(road))
