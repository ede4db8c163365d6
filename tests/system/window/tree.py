# SPDX-License-Identifier: Apache-2.0
"""The accessibility tree of the programs of a session: what a screen reader sees."""
import time

import gi

gi.require_version('Atspi', '2.0')
from gi.repository import Atspi, GLib  # noqa: E402 pylint: disable=wrong-import-position

GONE = (GLib.Error,)


class Accessible:
    """One element."""

    def __init__(self, session, element):
        self.session = session
        self.element = element

    def _ask(self, function, default):
        try:
            return function()
        except GONE:  # it vanished meanwhile
            return default

    def _is(self, interface):
        return interface in self._ask(self.element.get_interfaces, [])

    @property
    def name(self):
        """Its name for people."""
        return self._ask(self.element.get_name, '') or ''

    @property
    def description(self):
        """What more is said of it."""
        return self._ask(self.element.get_description, '') or ''

    @property
    def role(self):
        """Such as 'push button', 'toggle button', 'label', 'text', 'entry', 'list item'."""
        return self._ask(self.element.get_role_name, '')

    @property
    def text(self):
        """The text that it shows, of entries and text views; '' for others."""
        def read():
            return Atspi.Text.get_text(self.element, 0, Atspi.Text.get_character_count(self.element))
        return self._ask(read, '') if self._is('Text') else ''

    @property
    def value(self):
        """The value of a scrollbar or slider."""
        return self._ask(lambda: Atspi.Value.get_current_value(self.element), None) if self._is('Value') else None

    @property
    def box(self):
        """Left, top, right, bottom in pixels of the screen; windows begin at its top left corner."""
        def read():
            rect = Atspi.Component.get_extents(self.element, Atspi.CoordType.WINDOW)
            return rect.x, rect.y, rect.x + rect.width, rect.y + rect.height
        return self._ask(read, (0, 0, 0, 0)) if self._is('Component') else (0, 0, 0, 0)

    @property
    def centre(self):
        """Its middle on the screen."""
        left, top, right, bottom = self.box
        return (left + right) // 2, (top + bottom) // 2

    @property
    def showing(self):
        """Whether it can be seen. GTK 4.8 calls only windows "showing", so an element counts that is
        visible and has room on the screen. The page of a stack that was shown before keeps its room,
        and pages themselves never have any: ask for what only the right page has."""
        left, top, right, bottom = self.box
        if self.name == 'GtkStackPage':
            return True
        return self.has('visible') and right > max(left, 0) and bottom > max(top, 0)

    def has(self, state):
        """Whether it has a state: 'visible', 'checked', 'focused', 'sensitive', 'selected' ..."""
        number = getattr(Atspi.StateType, state.upper())
        return bool(self._ask(lambda: self.element.get_state_set().contains(number), False))

    def children(self):
        """Its children."""
        def read():
            return [self.element.get_child_at_index(i) for i in range(self.element.get_child_count())]
        return [Accessible(self.session, child) for child in self._ask(read, []) if child]

    def all(self, showing=False):
        """Itself and all below, from the top. showing: without those that do not show, and all below them."""
        if showing and self.role != 'application' and not self.showing:
            return
        yield self
        for child in self.children():
            yield from child.all(showing)

    def click(self):
        """Does the first thing that it can do, as a screen reader would; elements without
        one are clicked with the mouse."""
        def act():
            return Atspi.Action.get_n_actions(self.element) > 0 and Atspi.Action.do_action(self.element, 0)
        if not self._is('Action') or not self._ask(act, False):
            self.session.screen.click(*self.centre)

    def dump(self, depth=0):
        """All below as lines, for messages."""
        line = f'{"  " * depth}{self.role} "{self.name}"{"" if self.showing else " hidden"} {self.box}\n'
        return line + ''.join(child.dump(depth + 1) for child in self.children())


class Tree:
    """Finds elements. Everything waits with a deadline; nothing sleeps."""

    def __init__(self, session):
        self.session = session
        self.listener = None

    def _begin(self):
        """Connects at the first use, because a process can do that once only."""
        Atspi.init()
        Atspi.set_timeout(3000, 15000)  # milliseconds: of a call, and of one to a program that just starts
        self.listener = Atspi.EventListener.new(lambda *_: None)
        for name in ('object:children-changed', 'object:state-changed', 'object:property-change', 'object:text-changed'):
            self.listener.register(name)

    def close(self):
        """Ends the connection."""
        if self.listener:
            Atspi.exit()

    def programs(self):
        """The programs that have windows."""
        if not self.listener:
            self._begin()
        return Accessible(self.session, Atspi.get_desktop(0)).children()

    def everything(self, showing=False):
        """All elements of all programs."""
        for program in self.programs():
            yield from program.all(showing)

    def dump(self):
        """The whole tree as lines."""
        return ''.join(program.dump() for program in self.programs())

    def wait(self, condition, what, seconds=60):
        """Returns the condition's value as soon as it is true. It is tried after every event of the tree,
        and every 20 ms, because pictures and files have no events. Fails with `what` and the tree."""
        context = GLib.MainContext.default()
        deadline = time.monotonic() + seconds
        while True:
            value = condition()
            if value:
                return value
            if time.monotonic() > deadline:
                raise AssertionError(f'in {seconds} s not: {what}\n{self.dump() if self.listener else ""}' + ''.join(
                    f'--- {program.log}\n{self.session.log(program.log)}' for program in self.session.programs))
            timer = GLib.timeout_add(20, lambda: True)
            context.iteration(True)
            GLib.source_remove(timer)

    def all(self, role, name=None, *, within=None, showing=True):
        """The elements with a role and, if given, a name (str, or a compiled pattern)."""
        def fits(element):
            if element.role != role:
                return False
            if name is None or isinstance(name, str):
                return name in (None, element.name)
            return name.search(element.name) is not None
        return [element for element in (within.all(showing) if within else self.everything(showing)) if fits(element)]

    def find(self, role, name=None, *, within=None, showing=True, seconds=60):
        """Waits for such an element and returns the first one."""
        return self.wait(lambda: self.all(role, name, within=within, showing=showing), f'a {role} "{name}"', seconds)[0]
