#!/usr/bin/env python3
"""Vouchers by real keys: qmhost on an X server of its own, under a window manager, and xdotool at the keyboard.

Usage: voucher_keys.py SESSIONS VOUCHERS QMHOST LIBQMCLS FOLDER

A session opens the voucher screen of new books of 2001, is refused without a type, with a wrong date and without a
ledger, and posts so many vouchers. Each box is followed by a list: one press of Enter, Esc or F4 closes each of
them, and must do nothing else. Exit code 77: a program that this needs is not installed.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../examples"))
from late_binding import CLSID_CLQM, Library

PATIENCE = 60  # seconds, for a busy machine
SCREEN, BOX = "Voucher", "Tovik Softwares"


class Desk:
    """An X server with a window manager, and one program on it."""

    def __enter__(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24"],
                                       pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as number:
            self.environment = dict(os.environ, DISPLAY=":" + number.readline().strip(), QT_QPA_PLATFORM="xcb")
        self.folder = tempfile.TemporaryDirectory()
        self.started = os.path.join(self.folder.name, "started")
        self.manager = self.start("openbox", "--sm-disable", "--startup", "touch " + self.started)
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        self.folder.cleanup()

    def start(self, *command):
        return subprocess.Popen(command, env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def ask(self, *words):
        asked = subprocess.run(["xdotool", *words], env=self.environment, capture_output=True, text=True)
        return asked.stdout.splitlines()

    def wait_for(self, what, state):
        end = time.monotonic() + PATIENCE
        while not state():
            if time.monotonic() > end:
                raise SystemExit(f"{what} did not come; the focus is on {self.focus()}")
            time.sleep(0.01)

    def focus(self):
        return self.ask("getwindowfocus", "getwindowname")

    def windows(self, name):
        return self.ask("search", "--all", "--onlyvisible", "--pid", str(self.program.pid), "--name", name)

    def shown(self):
        return sorted(name for window in self.windows("") for name in self.ask("getwindowname", window))

    def press(self, *keys):
        self.ask("key", *keys)

    def type(self, text):
        self.ask("type", text)


class VoucherKeys(Desk):
    def open(self, qmhost, folder):
        # While it is still starting it gives a new window no focus, or takes that away again.
        self.wait_for("the window manager", lambda: os.path.exists(self.started))
        self.program = self.start(qmhost, "open", "frmVoucher", folder)
        self.wait_for("the screen", lambda: self.focus() == [SCREEN])

    def close(self):
        self.press("ctrl+x")
        if self.program.wait(PATIENCE) != 0:
            raise SystemExit("the screen did not close well")

    def save(self):
        """Ctrl+S and Enter on the box that it brings; a list drops behind it. A box too many would stay."""
        self.wait_for("the screen alone", lambda: self.shown() == [SCREEN])
        self.press("ctrl+s")
        self.wait_for("the box", lambda: self.focus() == [BOX])
        self.press("Return")
        self.wait_for("the list", lambda: len(self.shown()) == 2 and BOX not in self.shown())
        # A window manager may be slow: the screen gets the system's focus back when the list is there already.
        root = self.ask("search", "--maxdepth", "0", ".*")
        self.ask("windowfocus", *root, "windowfocus", *self.windows(f"^{SCREEN}$"))
        self.wait_for("the screen's focus", lambda: self.focus() == [SCREEN])

    def leave_list(self, key):
        self.press(key)
        self.wait_for("the list's end", lambda: self.shown() == [SCREEN])

    def choose_receipt(self, while_the_list_stands):
        """By its letter, right behind the refusal: in the list, or in the box when F4 has closed the list."""
        if while_the_list_stands:
            self.press("r")
            self.leave_list("Return")
        else:
            self.leave_list("F4")
            self.press("r")

    def begin(self, choose_while_the_list_stands):
        """What the screen refuses at first; the cursor ends on the side of the first line."""
        self.save()
        self.choose_receipt(choose_while_the_list_stands)
        self.press("alt+d")
        self.type("15041999")
        self.save()
        self.leave_list("Escape")
        self.press("Tab", "alt+d")
        self.type("15042001")
        self.press("Tab", "Tab", "Tab", "d", "Tab")
        self.save()
        self.leave_list("Escape")

    def voucher(self):
        self.press("d", "Tab")
        self.type("cash")
        self.press("Return", "Tab", "Tab")
        self.type("12")
        self.press("Return", "Tab")
        self.type("sales")
        self.press("Return")
        self.save()
        self.leave_list("Return")

    def session(self, number, vouchers):
        self.begin(number % 2 == 1)
        for number in range(vouchers):
            if number > 0:
                self.press(*["Tab"] * 5)
            self.voucher()


def next_number(library, folder):
    host = Library(library).create(CLSID_CLQM)
    host.dataPath = folder + "/"
    host.StartDataConn()
    return host.GetNextTrnID()


def main(sessions, vouchers, qmhost, library, folder):
    missing = [name for name in ("Xvfb", "openbox", "xdotool") if not shutil.which(name)]
    if missing:
        print("left out: the test by real keys needs", ", ".join(missing))
        return 77
    first = next_number(library, folder)
    with VoucherKeys() as keys:
        for number in range(sessions):
            keys.open(qmhost, folder)
            keys.session(number, vouchers)
            keys.close()
    posted = next_number(library, folder) - first
    print(f"{posted} vouchers posted in {sessions} sessions")
    return 0 if posted == sessions * vouchers else 1


if __name__ == "__main__":
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    sys.exit(main(int(sys.argv[1]), int(sys.argv[2]), *sys.argv[3:]))
