#!/usr/bin/python3
"""Asks the host what it is, as its user does, and closes it.

    About_test.py PROMOTER_DESKTOP

Wants a display and a session bus of its own (on-a-desk).
"""

import os
import subprocess
import sys
import tempfile

import pyatspi

sys.dont_write_bytecode = True
from reader import ESCAPE, descendants, has, named, running, strike, wait_for, window_of

F1 = 0xFFBE
ABOUT = "درباره برنامه"


def ask(program):
    """What F1 tells in the editor until Esc."""
    editor = wait_for("editor", lambda: window_of(program, "برنامه بازارياب"))
    wait_for("keyboard in the editor", lambda: has(editor, pyatspi.STATE_ACTIVE))
    strike(F1, False)
    about = wait_for(ABOUT, lambda: window_of(program, ABOUT))
    wait_for("«رونوشت»", lambda: named(about, pyatspi.ROLE_PUSH_BUTTON, "رونوشت"))
    told = [node.name for node in descendants(about)]
    strike(ESCAPE, False)
    wait_for("end of it", lambda: not window_of(program, ABOUT))
    return told


def main():
    desktop = os.path.abspath(sys.argv[1])
    version = subprocess.run([desktop, "--version"], check=True, capture_output=True, text=True)
    with tempfile.TemporaryDirectory() as folder:
        office = os.path.join(os.path.realpath(folder), "here.db")
        made = ["--load-sample", "--connect", "sqlite:" + office, "--customers", "50"]
        with running([desktop, "--database", "here.db"], folder, before=made) as program:
            told = ask(program)
    for wanted in (version.stdout.strip(), office):
        if not any(wanted in text for text in told):
            raise SystemExit(f"{wanted} is not told: {told}")


if __name__ == "__main__":
    main()
