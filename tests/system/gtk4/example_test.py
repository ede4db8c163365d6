# SPDX-License-Identifier: Apache-2.0
"""The examples in C and Python show a document, and screen readers find its text."""
import sys
import unittest

import gi

from window.case import main
from window.session import SOURCE, Session

gi.require_version('Gio', '2.0')
from gi.repository import Gio, GLib  # noqa: E402 pylint: disable=wrong-import-position


class ExampleTest(unittest.TestCase):
    """One session."""

    @classmethod
    def setUpClass(cls):
        cls.session = Session(width=800, height=800)
        cls.addClassCleanup(cls.session.close)
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        bus.call_sync('org.a11y.Bus', '/org/a11y/bus', 'org.freedesktop.DBus.Properties', 'Set',
                      GLib.Variant('(ssv)', ('org.a11y.Status', 'IsEnabled', GLib.Variant('b', True))),
                      None, Gio.DBusCallFlags.NONE, -1)

    def shows_the_text(self, *command):
        """The example shows the picture and mirrors its text."""
        program = self.session.start(*command, SOURCE / 'samples/tour.docx')
        self.session.find('document text', 'A Tour of the Harbour')
        text = self.session.find('text')
        self.session.wait(lambda: text.text.startswith('A Tour of the Harbour\n'), 'the text on the screen')
        picture = self.session.screen.picture((0, 0, 360, 640))
        self.assertGreater(len(picture.getcolors(1 << 24)), 20)
        self.session.end(program)

    def test_in_c(self):
        self.shows_the_text('lectern-show')

    def test_in_python(self):
        self.shows_the_text(sys.executable, SOURCE / 'client/gtk4/example/lectern_show.py')


if __name__ == '__main__':
    main()
