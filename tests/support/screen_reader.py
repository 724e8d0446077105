#!/usr/bin/python3 -W ignore
"""Reads and uses the windows of Panewright as a screen reader does, through AT-SPI.

    screen_reader.py read                   prints each control that is shown: its role and name, its
                                            description or text, what it is, and what it does
    screen_reader.py do ROLE NAME ACTION    does it; fails when there is no such control
    screen_reader.py listen                 prints each control that gets the focus, after a first line
"""
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

STATES = {
    Atspi.StateType.CHECKED: "checked",
    Atspi.StateType.PRESSED: "pressed",
    Atspi.StateType.IS_DEFAULT: "default",
}


def applications():
    desktop = Atspi.get_desktop(0)
    children = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
    return [child for child in children if child and child.get_name() == "Panewright"]


def shown(element, depth=0):
    """The elements below that are shown, each with its depth."""
    for i in range(element.get_child_count()):
        child = element.get_child_at_index(i)
        if child and child.get_state_set().contains(Atspi.StateType.SHOWING):
            yield depth, child
            yield from shown(child, depth + 1)


def actions(element):
    if "Action" not in element.get_interfaces():
        return []
    return [Atspi.Action.get_action_name(element, i)
            for i in range(Atspi.Action.get_n_actions(element))]


def described(element):
    states = element.get_state_set()
    text = ""
    if "EditableText" in element.get_interfaces():
        text = Atspi.Text.get_text(element, 0, -1)
    said = [element.get_description(), text and repr(text)]
    said += [word for state, word in STATES.items() if states.contains(state)]
    if not states.contains(Atspi.StateType.ENABLED):
        said.append("disabled")
    does = [name for name in actions(element) if name != "SetFocus"]
    line = element.get_role_name() + " " + element.get_name()
    line = "; ".join([line.strip()] + [part for part in said if part])
    return line + (" [" + ", ".join(does) + "]" if does else "")


def read():
    try:
        lines = ["  " * depth + described(element)
                 for application in applications() for depth, element in shown(application)]
    except GLib.Error:  # a window that has gone meanwhile
        lines = []
    print("\n".join(lines))


def do(role, name, action):
    for application in applications():
        for _, element in shown(application):
            if (element.get_role_name(), element.get_name()) == (role, name):
                Atspi.Action.do_action(element, actions(element).index(action))
                return
    sys.exit("no " + role + " " + name)


def listen():
    def heard(event):
        if event.detail1:
            print(event.source.get_role_name(), event.source.get_name(), flush=True)

    listener = Atspi.EventListener.new(heard)
    listener.register("object:state-changed:focused")
    print("listening", flush=True)
    Atspi.event_main()


{"read": read, "do": do, "listen": listen}[sys.argv[1]](*sys.argv[2:])
