#!/usr/bin/python3
"""What assistive technology sees of a program: answers questions over AT-SPI, one JSON value a line.

  ["find", APPLICATION, ROLE, NAME]   the objects that are showing, an empty ROLE or NAME is any
  ["events"]                          what was heard since the last such question
  ["do", APPLICATION, ROLE, NAME]     the first action of the first such object

A program of its own, because the library keeps to the first bus that it finds. class Accessible is
the other end, for a test.
"""

import json
import subprocess
import sys


class Accessible:
    def __init__(self, desktop, application="quillmarsh"):
        self.application = application
        self.process = desktop.start(["/usr/bin/python3", "-B", __file__], stdin=subprocess.PIPE,
                                     stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.process.stdout.readline()

    def _ask(self, *question):
        self.process.stdin.write(json.dumps(question) + "\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())

    def find(self, role="", name=""):
        return self._ask("find", self.application, role, name)

    def events(self):
        return self._ask("events")

    def do(self, role, name):
        return self._ask("do", self.application, role, name)


def answer_questions():
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib

    heard = []

    def hear(event):
        source = event.source
        if source:
            heard.append([event.type, source.get_role_name(), source.get_name(),
                          source.get_description()])

    def showing(top):
        """The objects of a tree that are showing, parents first; each with whether its window is
        the active one."""
        rest = [(top, False)]
        while rest:
            node, is_active = rest.pop(0)
            if not node:
                continue
            if node.get_role() != Atspi.Role.APPLICATION and not node.get_state_set().contains(
                    Atspi.StateType.SHOWING):
                continue
            is_active = is_active or node.get_state_set().contains(Atspi.StateType.ACTIVE)
            yield node, is_active
            # A long list has as many; a screen shows fewer.
            rest.extend((node.get_child_at_index(i), is_active)
                        for i in range(min(node.get_child_count(), 400)))

    def applications(name):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application and application.get_name().lower() == name:
                yield application

    def role_name(node):
        """The newer of the names that a role has had."""
        role = node.get_role_name()
        return "button" if role == "push button" else role

    def matching(application, role, name):
        for top in applications(application):
            for node, is_active in showing(top):
                if role in ("", role_name(node)) and name in ("", node.get_name()):
                    yield node, is_active

    def told(node, is_active):
        states = node.get_state_set()
        text = node.get_text_iface()
        action = node.get_action_iface()
        box = node.get_component_iface() and node.get_extents(Atspi.CoordType.SCREEN)
        return {
            "role": role_name(node),
            "name": node.get_name(),
            "in active window": is_active,
            "description": node.get_description(),
            "text": Atspi.Text.get_text(text, 0, -1) if text else None,
            "box": [box.x, box.y, box.width, box.height] if box else None,
            "states": [name for name in ("focused", "selected", "checked", "focusable", "enabled",
                                    "multi_line")
                       if states.contains(getattr(Atspi.StateType, name.upper()))],
            "actions": [Atspi.Action.get_action_name(action, i)
                        for i in range(Atspi.Action.get_n_actions(action))] if action else [],
        }

    def obey(source, _condition):
        line = source.readline()
        if not line:
            loop.quit()
            return False
        order, *words = json.loads(line)
        Atspi.get_desktop(0).clear_cache()
        if order == "events":
            answer = heard[:]
            heard.clear()
        elif order == "find":
            answer = [told(*found) for found in matching(*words)]
        else:
            node, _ = next(matching(*words))
            answer = Atspi.Action.do_action(node.get_action_iface(), 0)
        print(json.dumps(answer), flush=True)
        return True

    Atspi.init()
    listener = Atspi.EventListener.new(hear)
    for kind in ("object:state-changed:focused", "object:state-changed:selected",
                 "object:property-change"):
        listener.register(kind)
    loop = GLib.MainLoop()
    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, obey)
    print("ready", flush=True)
    loop.run()


if __name__ == "__main__":
    answer_questions()
