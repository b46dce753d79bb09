#!/usr/bin/python3
"""Starting and leaving: arguments, the system's ways of ending the program, a crash, a drive that does not answer."""

import ctypes
import os
import signal
import subprocess
import sys
import time

from driver import expect, run, wait

libc = ctypes.CDLL(None, use_errno=True)
MNT_DETACH = 2


class DeadDrive:
    """A mount whose server has stopped: whoever asks it waits until it is taken away."""

    def __init__(self, folder):
        self.folder = folder.encode()
        self.server = os.open("/dev/fuse", os.O_RDWR)
        options = f"fd={self.server},rootmode=40000,user_id={os.getuid()},group_id={os.getgid()}"
        if libc.mount(b"dead", self.folder, b"fuse", 0, options.encode()) != 0:
            os.close(self.server)
            raise OSError(ctypes.get_errno(), "mount")

    def close(self):
        os.close(self.server)
        libc.umount2(self.folder, MNT_DETACH)


def answers(program, argument):
    alone = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "QT_QPA_PLATFORM")}
    asked = subprocess.run([program.executable, argument], capture_output=True, text=True, env=alone, check=False)
    return asked.stdout if asked.returncode == 0 else ""


def arguments_and_ends(program):
    expect("the help comes without a display", answers(program, "--help").startswith("Usage: varnholt"))
    expect("the version comes without a display", answers(program, "--version").startswith("Varnholt "))
    program.file("Letters/a.txt")
    program.start()
    for number in (signal.SIGTERM, signal.SIGHUP):
        program.click_row(1, "\\ Letters", 2)
        program.wait_for_rows(1, "a")
        program.process.send_signal(number)
        program.await_end()
        expect("the place is stored", "C:\\Letters\\" in program.kept("DirHis.Dat"))
        os.remove(program.place + "/program/DirHis.Dat")
        program.start()
    program.keys("alt+F4")
    program.await_end()
    program.start(program.home + "/Letters", program.second)
    wait("the folder of the command line", lambda: program.rows(1) == ["a"] and program.rows(2) == [])


def crash(program):
    """Also the end of a killed program: what it keeps is whole."""
    kept = program.kept("DirHis.Dat")
    program.process.send_signal(signal.SIGSEGV)
    program.process.wait()
    expect("the history is whole", program.kept("DirHis.Dat") == kept)
    program.spawn()
    told = program.dialog("Alert")
    expect("the next start tells where the report is", program.says(told, "Crash.log"))
    program.press(program.named(told, "Ok"))
    program.past_the_tip()
    program.keys("alt+f", "Up", "Return")  # the last entry of the first menu is the way out
    program.await_end()


def dead_drive(program):
    with open(program.place + "/program/DirHis.Dat", "w", newline="") as lines:
        lines.write("D:\\Far\\\r\nC:\\Letters\\\r\nC:\\gone\\\r\n")
    try:
        drive = DeadDrive(program.second)
    except OSError as error:
        print("no drive can be made that does not answer:", error)
        return
    try:
        begin = time.monotonic()
        program.start()
        expect("the start does not wait for it", time.monotonic() - begin < 15)
        program.keys("alt+F4")
        program.await_end()
        expect("its folders are kept", "D:\\Far\\" in program.kept("DirHis.Dat"))
        expect("what is gone is not", "C:\\gone\\" not in program.kept("DirHis.Dat"))
        # Now the window waits for it: the close box must end the program all the same.
        program.start()
        program.click(wait("the drive list", lambda: program.find("combo box", "C:")))
        time.sleep(0.5)  # it unfolds
        program.keys("Down", "Return")
        time.sleep(1)  # the call runs by now
        begin = time.monotonic()
        program.keys("alt+F4")
        program.await_end()
        expect("the window has waited for the drive", time.monotonic() - begin > 1.5)
    finally:
        drive.close()


def road(program):
    arguments_and_ends(program)
    crash(program)
    dead_drive(program)


sys.exit(run(road))
