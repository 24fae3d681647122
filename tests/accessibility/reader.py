"""What a screen reader does with the host on a desk of its own: starts it, finds things in its windows
through AT-SPI, strikes keys, ends it."""

import contextlib
import os
import subprocess
import time

import pyatspi
from gi.repository import GLib

ESCAPE = 0xFF1B
ALT = 1 << pyatspi.MODIFIER_ALT


@contextlib.contextmanager
def running(command, folder, before=()):
    """The host, which keeps what is its own in folder and works there; `before` are its arguments for
    a run of it that comes first. It must end in order once it is asked to."""
    environment = os.environ | {
        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        "QT_QPA_PLATFORM": "xcb",
        "XDG_DATA_HOME": folder,
        "XDG_RUNTIME_DIR": folder,
    }
    settings = {"cwd": folder, "env": environment, "stdout": subprocess.DEVNULL}
    if before:
        subprocess.run(command[:1] + list(before), check=True, **settings)
    program = subprocess.Popen(command, **settings)
    try:
        yield program
    finally:
        program.terminate()
        ended = program.wait(timeout=60)
    if ended != 0:
        raise SystemExit(f"the program ended with {ended}")


def wait_for(what, find):
    """What find() finds, once it finds something."""
    until = time.monotonic() + 30
    while True:
        try:
            found = find()
        except GLib.Error:
            found = None  # what was walked over is gone meanwhile
        if found:
            return found
        if time.monotonic() > until:
            raise SystemExit(f"no {what() if callable(what) else what} within 30 s")
        while GLib.MainContext.default().iteration(False):
            pass  # events
        time.sleep(0.05)


def children(node):
    return [child for child in (node.getChildAtIndex(i) for i in range(node.childCount)) if child]


def descendants(node):
    for child in children(node):
        yield child
        if child.getRole() != pyatspi.ROLE_TABLE:
            yield from descendants(child)


def has(node, state):
    return node.getState().contains(state)


def named(window, role, name):
    return next((n for n in descendants(window) if n.getRole() == role and n.name == name), None)


def strike(key, alt):
    if alt:
        pyatspi.Registry.generateKeyboardEvent(ALT, None, pyatspi.KEY_LOCKMODIFIERS)
    pyatspi.Registry.generateKeyboardEvent(key, None, pyatspi.KEY_SYM)
    if alt:
        pyatspi.Registry.generateKeyboardEvent(ALT, None, pyatspi.KEY_UNLOCKMODIFIERS)


def window_of(program, title):
    for application in pyatspi.Registry.getDesktop(0):
        if application and application.get_process_id() == program.pid:
            for window in children(application):
                if title in window.name:
                    return window
    return None
