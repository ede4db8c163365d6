# SPDX-License-Identifier: Apache-2.0
"""The harness itself, with a small window of GTK."""
import os
import pathlib
import re
import sys
import unittest
from unittest import mock

from window.case import main
from window.processes import children
from window.screen import difference
from window.session import Session

HELLO = pathlib.Path(__file__).with_name('hello.py')


class HarnessTest(unittest.TestCase):
    """Each test has a session of its own."""

    @classmethod
    def setUpClass(cls):
        cls.session = Session()
        cls.addClassCleanup(cls.session.close)
        cls.program = cls.session.start(sys.executable, HELLO)
        cls.button = cls.session.find('push button', 'Copy')

    def test_typed_text_reaches_the_clipboard(self):
        entry = self.session.find('text')
        self.session.screen.click(*entry.centre)
        self.session.screen.write('Hello, World: 1+1')
        self.session.wait(lambda: entry.text == 'Hello, World: 1+1', 'the typed text')
        self.button.click()
        self.session.wait(lambda: self.session.clipboard() == 'Hello, World: 1+1', 'the text in the clipboard')

    def test_the_screen_shows_what_the_program_paints(self):
        self.session.manager.resize(400, 300)
        self.session.wait(lambda: self.session.screen.picture((200, 290, 201, 291)).getpixel((0, 0)) == (255, 0, 0),
                          'red at the bottom')
        red = self.session.screen.picture((0, 280, 400, 300))
        self.assertEqual(difference(red, red), 0.0)
        self.assertEqual(difference(red, red.point(lambda value: 255 - value)), 1.0)

    def test_a_drag_and_a_pinch_are_felt(self):
        if not self.session.touch:
            self.skipTest(self.session.display.missing)
        self.session.touch.drag((100, 500), (150, 300))
        self.session.find('label', 'drag 50 -200')
        self.session.touch.pinch((180, 400), 100, 250)
        self.session.find('label', 'pinch 2.5')

    def test_an_element_that_never_comes_is_told_with_the_tree(self):
        with self.assertRaisesRegex(AssertionError, re.compile('a push button "Paste".*push button "Copy"', re.DOTALL)):
            self.session.find('push button', 'Paste', seconds=0.1)


class WithoutDriversTest(unittest.TestCase):
    """A machine without the drivers."""

    def test_there_is_a_screen_without_touch_and_the_reason(self):
        with mock.patch('window.display.PIECES', [pathlib.Path('/nonexistent/inputtest_drv.so')]), Session(300, 200) as session:
            self.assertEqual(session.screen.picture().size, (300, 200))
            self.assertIsNone(session.touch)
            self.assertEqual(session.display.missing, '/nonexistent/inputtest_drv.so is missing; ')


class WaylandTest(unittest.TestCase):
    """The same program under Wayland, without its accessibility tree, which a process has once."""

    def test_the_screen_shows_what_fingers_do(self):
        with Session(400, 300, wayland=True) as session:
            program = session.start(sys.executable, HELLO)
            session.wait(lambda: session.screen.picture((200, 290, 201, 291)).getpixel((0, 0)) == (255, 0, 0),
                         'red at the bottom')
            session.touch.drag((100, 250), (150, 150))
            session.wait(lambda: 'drag 50 -100' in session.log(program.log), 'a drag')
            session.touch.pinch((200, 200), 100, 250)
            session.wait(lambda: 'pinch 2.5' in session.log(program.log), 'a pinch')


class EndTest(unittest.TestCase):
    """What a session leaves behind."""

    def test_nothing_is_left(self):
        environment = dict(os.environ)
        with self.assertRaises(ZeroDivisionError), Session() as session:
            folder = session.folder
            session.start(sys.executable, HELLO)
            session.wait(lambda: session.manager.windows, 'the window')
            raise ZeroDivisionError
        self.assertFalse(folder.exists())
        self.assertEqual(children(os.getpid()), [])
        self.assertEqual(dict(os.environ), environment)


if __name__ == '__main__':
    main()
