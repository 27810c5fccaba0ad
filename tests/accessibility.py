# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
#
# accessibility.py <program>: a day with Provender for somebody who sees nothing of it. The program runs as a process
# of its own and is driven by keys alone; every answer is read from the accessibility bus, as a screen reader reads it.
# What a sighted person may learn from the screen and nobody can say aloud, this test does not find, and fails.

import re
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib
from pyatspi import Atspi

PATIENCE = 10  # seconds for any one answer; the machine may be busy

# Titles, as regular expressions: the main window's names the day.
MAIN, ADD, PREFERENCES, HISTORY = ".* - Provender", "Add food", "Preferences", "History"
SHORTCUTS, ABOUT = "Keyboard shortcuts", "About Provender"
MILK = "Milk, whole, 3.25% milkfat, with added vitamin D"
EGG = "Egg, whole, raw, fresh"
BANANA = "Bananas, raw"

# What takes the keyboard or is read in its own right, and so has to say what it is.
SPEAKING = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_SPIN_BUTTON,
    pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_LIST, pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_TABLE, pyatspi.ROLE_TABLE_CELL,
    pyatspi.ROLE_TABLE_COLUMN_HEADER, pyatspi.ROLE_TABLE_ROW_HEADER, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_TREE,
    pyatspi.ROLE_TREE_ITEM, pyatspi.ROLE_LABEL, pyatspi.ROLE_TOGGLE_BUTTON,
}
CELLS = {pyatspi.ROLE_TABLE_CELL, pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_TREE_ITEM, pyatspi.ROLE_MENU_ITEM,
         pyatspi.ROLE_TABLE_COLUMN_HEADER, pyatspi.ROLE_TABLE_ROW_HEADER,
         # The widget with the tabs has the keyboard and speaks for them; the chosen tab says always that it has it.
         pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_PAGE_TAB_LIST}


LONG = {pyatspi.ROLE_TABLE, pyatspi.ROLE_LIST, pyatspi.ROLE_TREE}


class Failure(Exception):
    pass


def until(what, answer):
    """The first answer that is true, or a failure that names what was waited for and what came last."""
    deadline = time.monotonic() + PATIENCE
    last = None
    while time.monotonic() < deadline:
        while GLib.MainContext.default().iteration(False):
            pass  # lets what the program tells of its own accord come in
        try:
            last = answer()
            if last:
                return last
        except Exception as error:  # what is read may be gone before it is read to the end
            last = error
        time.sleep(0.02)
    raise Failure(f"{what}: not within {PATIENCE} s (last: {last!r})")


def expect(what, wanted, read):
    """Waits until what is read is what is wanted."""
    seen = []

    def matches():
        seen[:] = [read()]
        return seen[0] == wanted
    try:
        until(what, matches)
    except Failure as failure:
        raise Failure(f"{what}: {seen[0] if seen else None!r} instead of {wanted!r}") from failure


def children(node, most=400):
    found = (node.getChildAtIndex(i) for i in range(min(node.childCount, most)))
    return [child for child in found if child is not None]


def walk(node, most=0):
    """The node and everything in it; of a table or list, which may be long, no more than its first cells."""
    yield node
    for child in children(node, most if node.getRole() in LONG else 400):
        yield from walk(child, most)


def has(node, state):
    return node.getState().contains(state)


def title_of(node):
    """What a control is called. A pop-up's name is what is chosen in it, and it is called as the label it refers to."""
    if node.getRole() != pyatspi.ROLE_COMBO_BOX:
        return node.name or f"({node.getRoleName()} without a name)"
    labels = [relation.getTarget(0).name for relation in node.getRelationSet()
              if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    return labels[0] if labels and labels[0] else "(pop-up without a label)"


class Program:
    def __init__(self, path):
        self.process = subprocess.Popen([path])
        self.accessible = until("the program on the accessibility bus", self.find)
        self.accessible.set_cache_mask(Atspi.Cache.NONE)  # every answer is the program's, and of now
        self.focus(MAIN)

    def find(self):
        for application in children(pyatspi.Registry.getDesktop(0)):
            if application.get_process_id() == self.process.pid:
                return application
        return None

    # What a window manager would do: the window with this title gets the keyboard.
    def focus(self, title):
        def focused():
            search = ["xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid), "--name", f"^{title}$"]
            windows = subprocess.run(search, capture_output=True, text=True, check=False).stdout.split()
            if not windows or subprocess.run(["xdotool", "windowfocus", windows[-1]], check=False).returncode != 0:
                return False
            return has(self.window(title), pyatspi.STATE_ACTIVE)
        until(f"the window {title!r} active", focused)

    def window(self, title):
        return next((w for w in children(self.accessible) if re.fullmatch(title, w.name) and has(w, pyatspi.STATE_SHOWING)), None)

    def open(self, title, key):
        press(key)
        self.focus(title)

    def close(self, title, key):
        press(key)
        until(f"{title!r} closed", lambda: self.window(title) is None)
        self.focus(MAIN)

    def named(self, title, name, *roles):
        """The control of that name in a window; one that is not shown counts as absent."""
        def find():
            for node in walk(self.window(title)):
                if node.name == name and (not roles or node.getRole() in roles) and has(node, pyatspi.STATE_SHOWING):
                    return node
            return None
        return until(f"{name!r} in {title!r}", find)

    def quit(self):
        press("ctrl+q")
        expect("the exit code after Ctrl+Q", 0, self.process.poll)

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()


def press(*keys):
    """Each key by itself, a modifier held before the key it modifies, as fingers do."""
    for key in keys:
        *modifiers, last = key.split("+")
        steps = [("keydown", modifier) for modifier in modifiers] + [("key", last)]
        for step in steps + [("keyup", modifier) for modifier in reversed(modifiers)]:
            subprocess.run(["xdotool", *step], check=True)
            settle()


def settle():
    """
    Gives the key pressed last time to do its work. On the way to a window, Qt holds each key until the accessibility
    registry has been told of it, but runs a shortcut at once: on a busy machine the Alt of Alt+Right would come after
    its Right, and then be an Alt alone, which goes to the menu bar and closes a menu.
    """
    for _ in range(2):  # the key to the program and on to the registry; the registry's answer
        time.sleep(0.01)
        try:
            desktop = pyatspi.Registry.getDesktop(0)
            desktop.set_cache_mask(Atspi.Cache.NONE)
            for application in children(desktop):
                application.set_cache_mask(Atspi.Cache.NONE)
                _ = application.childCount  # answered from the program's event loop
        except GLib.Error:  # that key has ended the program
            return


def write(text):
    subprocess.run(["xdotool", "type", "--delay", "2", text], check=True)


def text_of(node):
    interface = node.queryText()
    return interface.getText(0, interface.characterCount)


heard = []  # what has said that it got the keyboard, the latest last


def hear(event):
    if event.detail1:
        heard.append(event.source)


def last_heard(role):
    return heard[-1] if heard and heard[-1].getRole() == role else None


class Table:
    def __init__(self, program, name, title=MAIN):
        self.node = program.named(title, name, pyatspi.ROLE_TABLE)

    def cell(self, row, column):
        return self.node.queryTable().getAccessibleAt(row, column)

    def rows(self):
        table = self.node.queryTable()
        return [[table.getAccessibleAt(row, column).name for column in range(table.nColumns)]
                for row in range(table.nRows)]

    def row_of(self, name):
        return [row[0].strip() for row in self.rows()].index(name)


def described(program, description):
    """What the main window's label of that description says."""
    return next(node.name for node in walk(program.window(MAIN)) if node.description == description)


def check_names(program, title):
    """Everything in a window that can be reached or read has a name."""
    unnamed = []
    for node in walk(program.window(title), 130):
        if node.getRole() in SPEAKING and has(node, pyatspi.STATE_SHOWING) and (
                not node.name.strip() or "without a" in title_of(node)):
            unnamed.append(f"{node.getRoleName()} in {node.parent.getRoleName()} {node.parent.name!r}")
    if unnamed:
        raise Failure(f"Without a name in {title!r}: {unnamed}")


def focusable(program, title):
    return {title_of(node) for node in walk(program.window(title))
            if has(node, pyatspi.STATE_FOCUSABLE) and has(node, pyatspi.STATE_SHOWING)
            and has(node, pyatspi.STATE_ENABLED) and node.getRole() not in CELLS}


def holder(program, title):
    """The control with the keyboard; a table or list itself, not its current cell."""
    return next((node for node in walk(program.window(title))
                 if has(node, pyatspi.STATE_FOCUSED) and node.getRole() not in CELLS), None)


def focused(program, title):
    node = holder(program, title)
    return title_of(node) if node is not None else None


def place(program, title):
    """Where the keyboard is; a date has parts, of which Tab takes one after the other."""
    node = holder(program, title)
    if node is None:
        return None
    parts = node.queryText().getSelection(0) if node.getRole() == pyatspi.ROLE_SPIN_BUTTON else None
    return title_of(node), parts


def check_tab(program, title):
    """Tab reaches every control and leaves each, one way and the other, until it is where it began."""
    for key in ("Tab", "shift+Tab"):
        reached = []
        here = until(f"the focus in {title!r}", lambda: place(program, title))
        while here[0] not in reached[:-1]:
            press(key)
            next_place = []

            def moved():
                next_place[:] = [place(program, title)]
                return next_place[0] is not None and next_place[0] != here
            until(f"{here[0]!r} in {title!r} left with {key}", moved)
            here = next_place[0]
            if not reached or here[0] != reached[-1]:
                reached.append(here[0])
        wanted = focusable(program, title)  # now, since coming to a list may make a button ready
        if set(reached) != wanted:
            raise Failure(f"{key} in {title!r} reaches {reached}; it should reach {sorted(wanted)}")


def go_to(program, title, name):
    been = set()
    while focused(program, title) != name:
        here = until(f"the focus in {title!r}", lambda: place(program, title))
        if here in been:
            raise Failure(f"Tab does not come to {name!r} in {title!r}, only to {been}")
        been.add(here)
        press("Tab")
        until(f"{here!r} left with Tab", lambda: place(program, title) != here)


def add_foods(program):
    program.open(ADD, "ctrl+n")
    field = program.named(ADD, "Search foods")
    for number, (query, food) in enumerate([("milk whole", MILK), ("egg whole raw", EGG)], 1):
        write(query)
        until(f"{food!r} found for {query!r}", lambda: food in field.description)
        press("ctrl+Return")
        kept = program.named(ADD, "Foods to be added", pyatspi.ROLE_LIST)
        expect("the foods to be added", [MILK, EGG][:number], lambda: [item.name for item in children(kept)])
        expect("the search field for the next food", "", lambda: text_of(field))
    program.close(ADD, "Escape")  # with nothing typed
    button = program.named(MAIN, "Add Food…", pyatspi.ROLE_PUSH_BUTTON)
    until("what is left to be added", lambda: "2 foods are on the list to be added" in button.description)
    program.open(ADD, "ctrl+n")
    expect("the foods still to be added", [MILK, EGG], lambda: [
        item.name for item in children(program.named(ADD, "Foods to be added", pyatspi.ROLE_LIST))])
    field = program.named(ADD, "Search foods")
    write("banana")
    until("the banana found", lambda: BANANA in field.description)
    check_names(program, ADD)
    check_tab(program, ADD)
    go_to(program, ADD, "Search foods")
    until("the banana still chosen", lambda: BANANA in field.description)
    program.close(ADD, "Return")


def edit_log(program, log):
    expect("the log", [[food, "100.00", "g", energy] for food, energy in ((MILK, "61"), (EGG, "143"), (BANANA, "89"))],
           log.rows)
    write("150")  # the keyboard is on the food added last
    press("Return")
    expect("the banana's amount", [BANANA, "150.00", "g", "134"], lambda: log.rows()[2])
    press("Up", "Up", "space")
    # A menu belongs to no window; it is heard when it opens, the item chosen so far first.
    item = until("the menu of units", lambda: last_heard(pyatspi.ROLE_MENU_ITEM))
    expect("the milk's unit in the menu", "g", lambda: item.name)
    units = [unit.name for unit in children(item.parent)]
    if "1 cup" not in units or units[0] != "g":
        raise Failure(f"The units of milk are {units}")
    press(*["Down"] * units.index("1 cup"))
    until("the cup spoken in the menu", lambda: last_heard(pyatspi.ROLE_MENU_ITEM).name == "1 cup")
    press("Return")
    expect("the milk's unit", "1 cup", lambda: log.cell(0, 2).name)
    expect("the focus after the unit was chosen", "Foods of the day", lambda: focused(program, MAIN))


def write_amounts(log):
    heard.clear()
    press("Down", "F2")  # the egg, in place of whose amount the following is typed
    field = until("the amount's field", lambda: last_heard(pyatspi.ROLE_TEXT))
    write("0")
    expect("what the field says of it", "What is typed counts as 0", lambda: field.description)
    write(",5")
    expect("what the field says of a half", "", lambda: field.description)
    press("ctrl+a")
    write("1 1/2")
    press("Return")
    expect("the egg's amount", [EGG, "1.50", "g", "2"], lambda: log.rows()[1])


def items_of_menu(opening):
    """The items of the menu that a key opens, as they are spoken; what would do nothing is in brackets."""
    heard.clear()
    press(opening, "Down")
    item = until("the menu", lambda: last_heard(pyatspi.ROLE_MENU_ITEM))
    names = [each.name if has(each, pyatspi.STATE_ENABLED) else f"({each.name})"
             for each in children(item.parent) if each.getRole() == pyatspi.ROLE_MENU_ITEM]
    press("Escape")
    return names


def check_row_menus(program):
    expect("the menu of a row of the log", ["Edit Amount", "Choose Unit", "Cut", "Copy", "(Paste)", "Remove"],
           lambda: items_of_menu("Menu"))
    expect("the focus after the row's menu", "Foods of the day", lambda: focused(program, MAIN))
    heard.clear()
    press("alt+Down", "End")
    units = children(until("the menu of units", lambda: last_heard(pyatspi.ROLE_MENU_ITEM)).parent)
    expect("the last unit", units[-1].name, lambda: last_heard(pyatspi.ROLE_MENU_ITEM).name)
    press("l")
    expect("the unit that begins with a letter", "1 large", lambda: last_heard(pyatspi.ROLE_MENU_ITEM).name)
    press("Escape")
    expect("the focus after the menu of units", "Foods of the day", lambda: focused(program, MAIN))
    go_to(program, MAIN, "Nutrients")
    expect("the menu of a nutrient", ["Foods by Nutrient…", "Set Allowance…"], lambda: items_of_menu("Menu"))


def check_sentences(nutrients):
    sentence = nutrients.cell(nutrients.row_of("ALA"), 1).description
    if not sentence.startswith("Alanine, no allowance set: ") or "Set one in the preferences" not in sentence:
        raise Failure(f"The bar of ALA says {sentence!r}")
    sentence = nutrients.cell(nutrients.row_of("Phytosterol"), 1).description
    if not sentence.endswith("\nno figure for 2 of 3 foods"):
        raise Failure(f"The bar of phytosterol says {sentence!r}")


def set_allowance(program, nutrients):
    program.open(PREFERENCES, "ctrl+comma")
    check_names(program, PREFERENCES)
    check_tab(program, PREFERENCES)
    go_to(program, PREFERENCES, "Reset All to Defaults")
    press("Return")
    program.named(PREFERENCES, "Reset all 61 allowances?", pyatspi.ROLE_PUSH_BUTTON)
    press("Tab")
    program.named(PREFERENCES, "Reset All to Defaults", pyatspi.ROLE_PUSH_BUTTON)
    go_to(program, PREFERENCES, "Nutrient:")
    press("Home", *["Down"] * nutrients.row_of("Vitamin C"))
    field = program.named(PREFERENCES, "Recommended daily allowance")
    expect("the allowance so far", "60.00", lambda: text_of(field))
    press("Tab")
    expect("the focus after Tab", "Recommended daily allowance", lambda: focused(program, PREFERENCES))
    press("ctrl+a")
    write("120")
    press("Return", "Tab")
    program.close(PREFERENCES, "Escape")


def read_help(program):
    program.open(SHORTCUTS, "F1")
    check_names(program, SHORTCUTS)
    check_tab(program, SHORTCUTS)
    keys = program.named(SHORTCUTS, "Keyboard shortcuts", pyatspi.ROLE_TREE)
    read = [node.name for node in walk(keys, 200)]
    if "Add Food" not in read or read[read.index("Add Food") + 1] != "Ctrl+N":
        raise Failure(f"The shortcuts are {read}")
    program.close(SHORTCUTS, "Escape")
    item = next(node for node in walk(program.window(MAIN)) if node.name.startswith("About"))
    item.queryAction().doAction(0)
    program.focus(ABOUT)
    check_names(program, ABOUT)
    check_tab(program, ABOUT)
    path = text_of(program.named(ABOUT, "Your log"))
    if not path.endswith("/provender/preferences.sqlite"):
        raise Failure(f"The store is said to be {path!r}")
    program.close(ABOUT, "Escape")


def check_day(program, log, nutrients, entries):
    expect("the log", entries, log.rows)
    row = nutrients.row_of("Vitamin C")
    until("the allowance of vitamin C", lambda: "of the RDA (120.00 mg)" in nutrients.cell(row, 1).description)


def switch_to_amounts_and_back(program, nutrients):
    percentage = nutrients.cell(0, 1).name
    go_to(program, MAIN, "Show percentages of the RDA")
    box = program.named(MAIN, "Show percentages of the RDA")
    if not percentage.endswith(" %") or not has(box, pyatspi.STATE_CHECKED):
        raise Failure(f"The first thing shown is {percentage!r}, not a percentage")
    press("space")
    until("energy as an amount", lambda: nutrients.cell(0, 1).name.endswith(" kcal"))
    sentence = nutrients.cell(0, 1).description
    if not (sentence.startswith("Energy, " + nutrients.cell(0, 1).name) and percentage in sentence and MILK in sentence):
        raise Failure(f"The bar of energy says {sentence!r}")
    press("space")
    expect("energy as a percentage", percentage, lambda: nutrients.cell(0, 1).name)


def says(node, *parts):
    """The node's sentence, once it has these parts."""
    return until(f"{parts} in the description of {node.name!r}",
                 lambda: all(part in node.description for part in parts) and node.description)


def look_back(program, entries):
    """Mean, course, sources and days of vitamin C, of which today alone is known."""
    program.open(HISTORY, "ctrl+h")
    program.named(HISTORY, "No day of this period is logged. Today is left out.", pyatspi.ROLE_LABEL)
    go_to(program, HISTORY, "With today")
    press("space")
    until("1 logged day", lambda: any(node.name.replace("\u00a0", " ").endswith(": 1 of 30 days logged")
                                      for node in walk(program.window(HISTORY), 1)))
    check_names(program, HISTORY)
    check_tab(program, HISTORY)
    means = Table(program, "Means of the nutrients", HISTORY)
    row = means.row_of("Vitamin C")
    mean, percentage = means.rows()[row][1], means.rows()[row][-1]
    sentence = says(means.cell(row, 1), "Vitamin C: mean of a logged day " + mean, "of the RDA (120.00 mg)")
    if f", {percentage} of the RDA" not in sentence:
        raise Failure(f"The mean of {percentage} says {sentence!r}")

    go_to(program, HISTORY, "Means of the nutrients")
    press("Home", *["Down"] * row)
    chart = program.named(HISTORY, "Course of Vitamin C", pyatspi.ROLE_CHART)
    go_to(program, HISTORY, "Course of Vitamin C")
    press("End")
    says(chart, ": " + mean)
    expect("the chart's value", mean, lambda: f"{chart.queryValue().currentValue:.2f} mg")
    press("Left")
    says(chart, ": not logged")

    press("alt+f")
    sources = Table(program, "Foods that gave Vitamin C", HISTORY)
    expect("where it came from", [BANANA], lambda: [cells[0] for cells in sources.rows()])
    press("alt+d")
    days = Table(program, "Days with Vitamin C", HISTORY)
    expect("the logged days", [[str(len(entries)), mean]], lambda: [[cells[1], cells[3]] for cells in days.rows()])
    go_to(program, HISTORY, "Days with Vitamin C")
    program.close(HISTORY, "Return")


def first_day(path):
    program = Program(path)
    try:
        log, nutrients = Table(program, "Foods of the day"), Table(program, "Nutrients")
        until("how to add a food, in the empty log", lambda: "Ctrl+N" in log.node.description)
        add_foods(program)
        edit_log(program, log)
        write_amounts(log)
        check_row_menus(program)
        check_sentences(nutrients)
        check_names(program, MAIN)
        program.named(MAIN, "3 foods", pyatspi.ROLE_LABEL)
        expect("the weekday", time.strftime("%A · Today", time.gmtime()),
               lambda: described(program, "Weekday of the day shown"))
        energy = sum(int(row[3]) for row in log.rows())  # each rounded
        totals = re.fullmatch(r"([\d,]+) kcal · carbs [\d,]+ g · protein [\d,]+ g · fat [\d,]+ g",
                              described(program, "Main totals"))
        if not totals or abs(int(totals[1].replace(",", "")) - energy) > 2:
            raise Failure(f"The main totals are {described(program, 'Main totals')!r}, the log's energy {energy}")
        day = text_of(program.named(MAIN, "Day shown"))
        entries = log.rows()

        press("ctrl+a")
        program.named(MAIN, "3 selected foods", pyatspi.ROLE_LABEL)
        press("ctrl+c", "alt+Right")
        until("another day", lambda: text_of(program.named(MAIN, "Day shown")) != day)
        expect("the log of the next day", [], log.rows)
        until("tomorrow", lambda: described(program, "Weekday of the day shown").endswith(" · Tomorrow"))
        press("ctrl+v")
        expect("the log of the next day", entries, log.rows)
        check_tab(program, MAIN)

        set_allowance(program, nutrients)
        read_help(program)
        check_day(program, log, nutrients, entries)
        switch_to_amounts_and_back(program, nutrients)
        program.quit()
        return day, entries
    finally:
        program.kill()


def found_again(path, day, entries):
    program = Program(path)
    try:
        log, nutrients = Table(program, "Foods of the day"), Table(program, "Nutrients")
        press("ctrl+t")
        expect("the day shown", day, lambda: text_of(program.named(MAIN, "Day shown")))
        check_day(program, log, nutrients, entries)
        press("alt+Right")
        until("the next day", lambda: text_of(program.named(MAIN, "Day shown")) != day)
        check_day(program, log, nutrients, entries)
        look_back(program, entries)
        expect("the day chosen in the history", day, lambda: text_of(program.named(MAIN, "Day shown")))
        program.quit()
    finally:
        program.kill()


def main():
    path = sys.argv[1]
    pyatspi.Registry.registerEventListener(hear, "object:state-changed:focused")
    try:
        found_again(path, *first_day(path))
    except Failure as failure:
        sys.exit(f"accessibility: {failure}")


main()
