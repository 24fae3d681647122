#!/usr/bin/python3
"""Opens the batch form as a screen reader would, through AT-SPI alone, compares what is to be heard
of it with a text, and then what is told while keys are pressed.

    BatchForm_test.py PROMOTER_DESKTOP EXPECTED

Wants a display and a session bus of its own (xvfb-run, dbus-run-session). What was heard is left in
the working folder as batch-form.txt.
"""

import difflib
import os
import sys
import tempfile

import pyatspi

sys.dont_write_bytecode = True
from reader import ESCAPE, children, descendants, has, named, running, strike, wait_for, window_of

ROLES = {
    pyatspi.ROLE_FRAME: "window",
    pyatspi.ROLE_DIALOG: "window",
    pyatspi.ROLE_PANEL: "group",
    pyatspi.ROLE_LABEL: "label",
    pyatspi.ROLE_TEXT: "field",
    pyatspi.ROLE_PUSH_BUTTON: "button",
    pyatspi.ROLE_CHECK_BOX: "check box",
    pyatspi.ROLE_COMBO_BOX: "combo box",
    pyatspi.ROLE_TABLE: "table",
}
STATES = {
    pyatspi.STATE_FOCUSED: "focused",
    pyatspi.STATE_CHECKED: "checked",
    pyatspi.STATE_EXPANDED: "expanded",
}
ROWS_TOLD = 3  # of a table
DOWN, F4 = 0xFF54, 0xFFC1
# From the first row of the regions on: a key, with Alt or not, and where the keyboard is told to be.
# The letters are those of the same keys as ش, ب and ز.
KEYS = [
    (DOWN, False, "table cell", "قصردشت"),
    (ord("a"), True, "text", "شرح"),
    (ord("f"), True, "text", "بازارياب"),
    (F4, False, "list item", "كيوان حيدري"),
    (ESCAPE, False, "text", "بازارياب"),
    (ord("c"), True, "text", "از تاريخ"),
    (F4, False, "table cell", "1404/09/01"),
    (ESCAPE, False, "text", "از تاريخ"),
]


def text_of(node):
    text = node.queryText()
    return text.getText(0, text.characterCount)


def value_of(node):
    """Of a field or a combo box; that of one that is typed into is its field's."""
    fields = [n for n in [node] + children(node) if "Text" in pyatspi.listInterfaces(n)]
    return text_of(fields[0]) if fields else ""


def states_of(node):
    nodes = [node] + (children(node) if node.getRole() == pyatspi.ROLE_COMBO_BOX else [])
    told = [word for state, word in STATES.items() if any(has(n, state) for n in nodes)]
    if not has(node, pyatspi.STATE_ENABLED):
        told.append("disabled")
    return told


def keys_of(node):
    if "Action" not in pyatspi.listInterfaces(node):
        return ""
    action = node.queryAction()
    bindings = [action.getKeyBinding(i) for i in range(action.nActions)]
    return next((keys for keys in bindings if keys), "")


def lines_of_table(node, indent):
    table = node.queryTable()
    yield f"{indent}  headings: " + " | ".join(
        table.getColumnDescription(column) for column in range(table.nColumns))
    for row in range(min(ROWS_TOLD, table.nRows)):
        cells = [table.getAccessibleAt(row, column) for column in range(table.nColumns)]
        told = ["selected"] if has(cells[0], pyatspi.STATE_SELECTED) else []
        told += ["focused"] if any(has(cell, pyatspi.STATE_FOCUSED) for cell in cells) else []
        yield (f"{indent}  row {row + 1}: " + " | ".join(cell.name for cell in cells)
               + (f" [{', '.join(told)}]" if told else ""))


def lines_of(node, indent=""):
    if not has(node, pyatspi.STATE_SHOWING):
        return
    role = node.getRole()
    if role == pyatspi.ROLE_FILLER:
        for child in children(node):
            yield from lines_of(child, indent)
        return
    line = f"{indent}{ROLES.get(role, node.getRoleName())} «{node.name}»"
    if role in (pyatspi.ROLE_TEXT, pyatspi.ROLE_COMBO_BOX):
        line += f" = «{value_of(node)}»"
    if role == pyatspi.ROLE_TABLE:
        line += f" {node.queryTable().nRows} x {node.queryTable().nColumns}"
    told = states_of(node)
    line += f" [{', '.join(told)}]" if told else ""
    line += f" ({node.description})" if node.description else ""
    if role == pyatspi.ROLE_PUSH_BUTTON and keys_of(node):
        line += f" {keys_of(node)}"
    yield line
    if role == pyatspi.ROLE_TABLE:
        yield from lines_of_table(node, indent)
    elif role not in (pyatspi.ROLE_TEXT, pyatspi.ROLE_COMBO_BOX):
        for child in children(node):
            yield from lines_of(child, indent + "  ")


def press(node):
    action = node.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    wanted = next(i for i, name in enumerate(names) if name in ("Press", "Toggle"))
    if not action.doAction(wanted):
        raise SystemExit(f"«{node.name}» cannot be pressed")


def field_of(window, name):
    combo = named(window, pyatspi.ROLE_COMBO_BOX, name)
    return next(n for n in children(combo) if n.getRole() == pyatspi.ROLE_TEXT)


def enter_date(window, name, date, leave_to):
    """As it is done by voice: the text is put in, then another field is gone to."""
    field = field_of(window, name)
    field.queryComponent().grabFocus()
    wait_for(f"keyboard in {name}", lambda: has(field, pyatspi.STATE_FOCUSED))
    field.queryEditableText().setTextContents(date)
    leave_to.queryComponent().grabFocus()
    wait_for("keyboard elsewhere", lambda: has(leave_to, pyatspi.STATE_FOCUSED))


class Listener:
    """Where the keyboard was told to be."""

    def __init__(self):
        self.told = []
        pyatspi.Registry.registerEventListener(self.hear, "object:state-changed:focused")

    def hear(self, event):
        if event.detail1:
            self.told.append((event.source.getRoleName(), event.source.name))

    def expect(self, role, name):
        wait_for(lambda: f"{role} «{name}» but {self.told}",
                 lambda: self.told[-1:] == [(role, name)])
        self.told.clear()


def hear(program):
    listener = Listener()
    editor = wait_for("editor", lambda: window_of(program, "برنامه بازارياب"))
    visits = wait_for("visits", lambda: named(editor, pyatspi.ROLE_TABLE, "ويزيت ها"))
    wait_for("rows of visits", lambda: visits.queryTable().nRows > 0)
    press(visits.queryTable().getAccessibleAt(0, 1))
    form = wait_for("batch form", lambda: window_of(program, "افزودن ويزيت"))
    promoter = field_of(form, "بازارياب")
    listener.expect("text", "بازارياب")
    enter_date(form, "از تاريخ", "1404/09/01", promoter)
    enter_date(form, "تا تاريخ", "1404/09/05", promoter)
    regions = named(form, pyatspi.ROLE_TABLE, "مناطق").queryTable()
    press(regions.getAccessibleAt(0, 0))
    paths = named(form, pyatspi.ROLE_TABLE, "مسيرها").queryTable()
    wait_for("paths of the marked region", lambda: paths.nRows > 0)
    listener.expect("table cell", "معالي آباد")
    heard = list(lines_of(form))
    for key, alt, role, name in KEYS:
        strike(key, alt)
        listener.expect(role, name)
    return heard


def main():
    desktop, expected = os.path.abspath(sys.argv[1]), sys.argv[2]
    office = ["--customers", "60", "--sample-date", "2025-11-22", "--program", "13"]
    with tempfile.TemporaryDirectory() as folder, running([desktop] + office, folder) as program:
        heard = hear(program)
    with open("batch-form.txt", "w", encoding="utf-8") as file:
        file.writelines(line + "\n" for line in heard)
    with open(expected, encoding="utf-8") as file:
        wanted = file.read().splitlines()
    difference = list(difflib.unified_diff(wanted, heard, expected, "heard", lineterm=""))
    print("\n".join(difference))
    return 1 if difference else 0


if __name__ == "__main__":
    sys.exit(main())
