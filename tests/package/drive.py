#!/usr/bin/env python3
"""Drives an installed Ferrolyn as a user does, on the screen and session bus it is started in (tools/xvfb.sh dbus-run-session).

    drive.py PROGRAM SAMPLES HELP_FOLDER

Loads the sample image with the keyboard, chooses its spec file, reads a map off the screen through the accessibility bus, opens
the help and closes the window. Fails with the first thing that is not as expected.
"""
import os
import subprocess
import sys
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

CEILING = 60  # seconds for every wait


def eventually(what, condition):
    """Polls until the condition gives something, and answers that."""
    end = time.monotonic() + CEILING
    while time.monotonic() < end:
        try:
            found = condition()
        except GLib.Error:  # a control that has gone while it was looked at
            found = None
        if found:
            return found
        time.sleep(0.05)
    raise SystemExit(f"FAILED: {what}\nwindows:\n{run('wmctrl', '-l')}")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def keys(*names):
    run("xdotool", "key", "--clearmodifiers", *names)


def title_is_shown(title):
    return any(line.split(None, 3)[3:] == [title] for line in run("wmctrl", "-l").splitlines())


def active_title():
    answer = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True)
    return answer.stdout.strip()


def application():
    desktop = Atspi.get_desktop(0)
    applications = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
    return next((a for a in applications if a and a.get_name() == "Ferrolyn"), None)


def controls(root, *roles):
    """Every control of these roles on the screen, in the order of the tree; tables are not entered."""
    for i in range(root.get_child_count() if root else 0):
        child = root.get_child_at_index(i)
        if not child:
            continue
        if child.get_role_name() in roles and child.get_state_set().contains(Atspi.StateType.SHOWING):
            yield child
        if child.get_role_name() != "table":
            yield from controls(child, *roles)


def names(*roles):
    return {control.get_name() for control in controls(application(), *roles)}


def cells(table):
    return {table.get_child_at_index(i).get_name() for i in range(table.get_child_count())}


def load(image):
    keys("alt+l")
    eventually("no file dialog", lambda: active_title() not in ("", "Ferrolyn") and not title_is_shown(f"Ferrolyn - {image}"))
    eventually("no name to type", lambda: any(t.get_state_set().contains(Atspi.StateType.FOCUSED)
                                              for t in controls(application(), "text")))
    run("xdotool", "type", str(image))
    keys("Return")
    eventually("the title does not name the image", lambda: title_is_shown(f"Ferrolyn - {image}"))
    size = f"{image.stat().st_size:,} bytes"
    eventually("the size is not shown", lambda: size in names("label"))


def choose(spec):
    item = eventually("the spec file is not listed",
                      lambda: next((r for r in controls(application(), "radio button") if r.get_name() == spec), None))
    item.do_action(0)
    eventually("the spec file is not chosen", lambda: item.get_state_set().contains(Atspi.StateType.CHECKED))


def read_fuel_map():
    keys("ctrl+Next")  # the second tab
    table = eventually("no map is shown", lambda: next((t for t in controls(application(), "table") if t.get_child_count() > 200), None))
    shown = cells(table)
    # The corners of the sample's part throttle map, as a screen reader tells them.
    for text in ("600 RPM, 4%: 111", "600 RPM, 100%: 134", "7600 RPM, 4%: 112", "7600 RPM, 100%: 134"):
        if text not in shown:
            raise SystemExit(f"FAILED: {text} is not on the page, but {sorted(shown)}")


def read_help(folder):
    texts = [path.read_text(encoding="utf-8").strip() for path in folder.glob("*.txt")]
    if not texts:
        raise SystemExit(f"FAILED: no help texts in {folder}")
    keys("F1")

    def shown():
        return next((t for t in controls(application(), "text", "document text")
                     if Atspi.Text.get_text(t, 0, -1).strip() in texts), None)

    eventually("F1 shows none of the help texts", shown)
    keys("Escape")
    eventually("the help stays", lambda: not shown())


def main():
    program, samples, help_folder = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])
    image = samples / "FERRO32K.BIN"
    process = subprocess.Popen([program], env=os.environ | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
    try:
        eventually("no window", lambda: title_is_shown("Ferrolyn"))
        eventually("the window does not become active", lambda: active_title() == "Ferrolyn")
        eventually("nothing on the accessibility bus", application)
        load(image)
        choose("Ferrolyn sample 32K, offsets")
        read_fuel_map()
        read_help(help_folder)
        run("wmctrl", "-c", f"Ferrolyn - {image}")
        if process.wait(CEILING) != 0:
            raise SystemExit(f"FAILED: exit code {process.returncode}")
    finally:
        process.kill()
    print(f"{program}: loaded {image}, showed its maps and the help, ended")


main()
