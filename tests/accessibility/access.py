"""The program as a screen reader sees it: windows and controls by role and name, what they say, and their actions."""

import os
import subprocess
import time

import pyatspi

PATIENCE = 15  # seconds


class NotConnected(Exception):
    """The program isn't on the accessibility bus."""


def until(what, condition):
    """What the condition returns as soon as that is true; after a while, a failure."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            found = condition()
        except (RuntimeError, LookupError):  # a window that has just gone
            found = None
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError(f'never came: {what}')
        time.sleep(0.05)


class Control:
    """A window or control."""

    def __init__(self, node):
        self.node = node

    def has(self, state):
        return self.node.getState().contains(state)

    name = property(lambda self: self.node.name)
    description = property(lambda self: self.node.description)
    role = property(lambda self: self.node.getRoleName())
    checked = property(lambda self: self.has(pyatspi.STATE_CHECKED))

    @property
    def text(self):
        return self.node.queryText().getText(0, -1)

    def type(self, text):
        self.node.queryEditableText().setTextContents(text)

    def act(self):
        """The control's own action: press, toggle, show its menu."""
        actions = self.node.queryAction()
        names = [actions.getName(i) for i in range(actions.nActions)]
        own = [name for name in names if name != 'SetFocus']
        assert own, f'{self.role} "{self.name}" offers no action'
        name = self.name
        actions.doAction(names.index(own[0]))
        # A button is seen to be pressed for a moment before it does anything.
        until(f'the release of "{name}"', self.released)

    def released(self):
        try:
            return not self.has(pyatspi.STATE_PRESSED)
        except (RuntimeError, LookupError):  # gone with its window
            return True

    def around(self):
        """What holds it, from the inside out."""
        outer = self.node.parent
        while outer is not None and outer.getRoleName() != 'application':
            yield Control(outer)
            outer = outer.parent

    def all(self, *roles):
        """The visible ones of these roles in it, or of any, in the order of the tree."""
        found = []
        for child in self.node:
            if child is None or not child.getState().contains(pyatspi.STATE_SHOWING):
                continue
            if not roles or child.getRoleName() in roles:
                found.append(Control(child))
            found += Control(child).all(*roles)
        return found

    def find(self, role, name):
        """The visible one of that role and name; waits for it."""
        return until(f'{role} "{name}" in "{self.name}"',
                     lambda: next((one for one in self.all(role) if one.name == name), None))

    def says(self, text):
        """Waits for a visible label in it that says this."""
        return until(f'a label with "{text}" in "{self.name}"',
                     lambda: next((one for one in self.all('label', 'status bar') if text in one.name), None))


class Program:
    """A running program, with a home and a working folder of its own."""

    def __init__(self, folder, *arguments):
        home = os.path.join(folder, 'home')
        environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home + '/config', XDG_DATA_HOME=home + '/data')
        self.process = subprocess.Popen([os.environ['VELLUMO'], *arguments], env=environment)
        try:
            until('the program on the bus, or its end', lambda: self.connected() or self.process.poll() is not None)
            self.root = self.connected()
        except AssertionError:
            self.root = None
        if self.root is None:
            self.process.kill()
            raise NotConnected

    def connected(self):
        desktop = pyatspi.Registry.getDesktop(0)
        return next((one for one in desktop if one and one.get_process_id() == self.process.pid and one.childCount), None)

    def windows(self, title):
        """The visible ones of that title, with or without the star of unsaved changes."""
        return [Control(one) for one in self.root if one and one.name in (title, title + '*')
                and one.getState().contains(pyatspi.STATE_SHOWING)]

    def window(self, title):
        try:
            return until(f'window "{title}"', lambda: self.windows(title))[0]
        except AssertionError as failure:
            raise AssertionError(f'{failure}; there are {[(one.getRoleName(), one.name) for one in self.root]}') from failure

    def gone(self, title):
        until(f'the end of window "{title}"', lambda: not self.windows(title))
