"""What the panel tells assistive technology, and what can be done through it and by keyboard."""
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

CLIENT = sys.argv[1]
LAYOUTS = ("Rows", "Slim rows", "Grid", "Upright strips")  # it begins with the last
CONTROLS = {  # of one strip, in the order of reading
    "position": "push button",
    "power": "check box",
    "rename": "push button",
    "brightness": "slider",
    "colour": "slider",
    "whiteness": "slider",
    "warmth": "slider",
    "colour well": "push button",
    "effects": "push button",
}


def until(wish, what):
    for _ in range(100):
        try:
            if got := wish():
                return got
        except (StopIteration, LookupError, GLib.Error):  # is not there yet, or went meanwhile
            pass
        time.sleep(0.1)
    sys.exit(f"FAILED: {what}")


def check(condition, what):
    if not condition:
        sys.exit(f"FAILED: {what}")


def is_(node, state):
    return node.getState().contains(state)


def walk(node):
    yield node
    for child in node:
        if child and is_(child, pyatspi.STATE_SHOWING):
            yield from walk(child)


def find(root, name, role=None):
    return next(n for n in walk(root) if n.name == name and role in (None, n.getRoleName()))


def act(node, name):
    actions = node.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    check(name in names, f"{node.name} has {names}, not {name}")
    actions.doAction(names.index(name))


def client(*arguments):
    return subprocess.run([CLIENT, "--demo", *arguments], capture_output=True, text=True).stdout.strip()


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "40", *names], check=True)


def focus(node):
    act(node, "SetFocus")
    until(lambda: is_(node, pyatspi.STATE_FOCUSED), f"{node.name} does not take the focus")


def program():
    return next(a for a in pyatspi.Registry.getDesktop(0) if a.name == "Lumeroom")


def strips():
    """The strips that show, as their controls by what they are."""
    found = {}
    for card in find(panel, "strips"):
        if not is_(card, pyatspi.STATE_SHOWING):
            continue
        check(card.getRoleName() in ("panel", "grouping"), f"a strip is a {card.getRoleName()}")
        found[card.name] = card
    return found


def focused():
    return next(n for n in walk(panel) if is_(n, pyatspi.STATE_FOCUSED))


def check_control(node):
    """Whatever takes the focus can be told apart and used."""
    role, about = node.getRoleName(), f"{node.getRoleName()} '{node.name}'"
    check(node.name, f"a {role} without a name in '{node.parent.name}'")
    check("<" not in node.description, f"{about} is read as markup: {node.description}")
    actions = node.queryAction()
    names = {actions.getName(i) for i in range(actions.nActions)}
    wanted = {"push button": {"Press", "Increase"}, "check box": {"Toggle"}, "slider": {"Increase"},
              "radio button": {"Toggle"}, "text": {"SetFocus"}, "toggle button": {"Toggle"}}
    check(role in wanted, f"{about} is of no role that one knows")
    check(names & wanted[role] or not is_(node, pyatspi.STATE_ENABLED), f"{about} does only {names}")
    if role == "slider":
        value = node.queryValue()
        check(value.minimumValue <= value.currentValue <= value.maximumValue, f"{about} is off its scale")
        check(node.description, f"{about} does not say its value")


def check_page(root):
    controls = [node for node in walk(root) if is_(node, pyatspi.STATE_FOCUSABLE)]
    for node in controls:
        check_control(node)
    return controls


def check_strip(card):
    whose = card.name + ", "
    controls = {}
    for node in walk(card):
        if is_(node, pyatspi.STATE_FOCUSABLE):
            check(node.name.startswith(whose), f"'{node.name}' is of no strip")
            what = node.name[len(whose):]
            check(what not in controls, f"two are '{node.name}'")
            controls[what] = node.getRoleName()
    check(controls == CONTROLS, f"{card.name} has {controls}")
    texts = [n.name for n in walk(card) if n.getRoleName() == "label"]
    check(texts[0] == card.name and len(texts) == 2 and texts[1], f"{card.name} reads {texts}")
    return texts[1]


panel = until(lambda: find(program(), "Lumeroom manual control panel"), "the panel does not show")
until(lambda: len(strips()) == 8 and "Floor lamp" in strips(), "there are no eight strips")

for layout in LAYOUTS:
    shape = find(panel, "Desk lamp").queryComponent().getSize()
    act(find(find(panel, "layout"), layout), "Toggle")
    until(lambda: is_(find(panel, layout), pyatspi.STATE_CHECKED), f"there is no {layout}")
    until(lambda: find(panel, "Desk lamp").queryComponent().getSize() != shape, f"{layout} changes nothing")
    until(lambda: len(strips()) == 8, f"{layout} shows {len(strips())} strips")
    captions = {name: check_strip(card) for name, card in strips().items()}
    check(captions["Desk lamp"] == "79 % · orange" and captions["Bedside"] == "Off", f"{captions}")
    first = check_page(panel)[0]
    check(first.name == "Lamps", f"{first.name} is read before the navigation")

# What is done through a control reaches the lamp, and the panel says so.
desk = strips()["Desk lamp"]
find(desk, "Desk lamp, brightness").queryValue().currentValue = 128
brightness = lambda: int(client("get", "Desk lamp", "brightness"))
until(lambda: abs(brightness() - 128) <= 1, "the lamp was not dimmed")
until(lambda: find(desk, "50 % · orange"), "the caption does not follow")
act(find(desk, "Desk lamp, power"), "Toggle")
until(lambda: client("get", "Desk lamp", "state") == "off", "the lamp was not switched off")
until(lambda: find(desk, "Off") and not is_(find(desk, "Desk lamp, power"), pyatspi.STATE_CHECKED), "it seems on")
place = lambda: desk.queryComponent().getPosition(pyatspi.WINDOW_COORDS)
before = place()
act(find(desk, "Desk lamp, position"), "Increase")
until(lambda: place() > before, "the strip stays where it is")
act(find(desk, "Desk lamp, position"), "Decrease")
until(lambda: place() == before, "the strip does not come back")

# By keyboard alone: from the navigation into the first strip, and the same there.
subprocess.run(["xdotool", "search", "--sync", "--name", "^Lumeroom manual", "windowfocus", "--sync"], check=True)
focus(find(panel, "All off"))
for control in CONTROLS:
    before = focused().name
    keys("Tab")
    until(lambda: focused().name != before, f"Tab goes nowhere from {before}")
    check(focused().name == f"Desk lamp, {control}", f"'{focused().name}' comes before {control}")
focus(find(desk, "Desk lamp, power"))
keys("space")
until(lambda: client("get", "Desk lamp", "state") == "on", "Space does not switch the lamp on")
focus(find(desk, "Desk lamp, brightness"))
keys("Page_Down")
until(lambda: abs(brightness() - 103) <= 2, "a key does not dim the lamp")
focus(find(panel, "Groups"))
subprocess.run(["xdotool", "keydown", "ctrl", "key", "space", "keyup", "ctrl"], check=True)
until(lambda: "Study" in strips() and "Desk lamp" not in strips(), "there are not only groups")
check_page(panel)

# What else the panel shows, and what that is opened by.
act(find(strips()["Study"], "Study, view contents"), "Press")
until(lambda: find(panel, "Back") and "Desk lamp" in strips(), "a group shows none of its lamps")
check_page(panel)
act(find(panel, "Back"), "Press")
act(until(lambda: find(panel, "Make group..."), "there is no way back"), "Press")
until(lambda: find(panel, "name"), "no group can be made")
check_page(panel)
act(find(panel, "Cancel"), "Press")
until(lambda: "Study" in strips(), "making a group does not end")

# Where the menus need the whole bar, the layouts are in View alone.
act(find(find(panel, "layout"), "Grid"), "Toggle")
until(lambda: is_(find(panel, "Grid"), pyatspi.STATE_CHECKED), "there is no grid")
subprocess.run(["xdotool", "search", "--name", "^Lumeroom manual", "windowsize", "400", "500"], check=True)
until(lambda: not any(n.name == "layout" for n in walk(panel)), "the layouts lie over the menus")
