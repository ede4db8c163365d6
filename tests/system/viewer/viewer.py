# SPDX-License-Identifier: Apache-2.0
"""The viewer in a session of its own, as tests use it."""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import unittest

from gi.repository import Gio, GLib
from PIL import Image
from window.screen import difference
from window.session import BUILD, SOURCE, Session

SAMPLES = SOURCE / 'samples'
ALIKE = 0.02  # the share of pixels that what lies over the document may take: scrollbars, indicators


class ViewerTest(unittest.TestCase):
    """Base of all tests of the viewer: a session for the class, a running viewer for each test."""

    SESSION = {}

    @classmethod
    def setUpClass(cls):
        cls.session = Session(1280, 800, **cls.SESSION)
        cls.addClassCleanup(cls.session.close)
        cls.find = cls.session.find
        cls.wait = cls.session.wait

    def setUp(self):
        shutil.rmtree(self.session.folder / 'home/.local/state', ignore_errors=True)  # places of the test before

    def start(self, *files):
        """Starts the viewer; it ends with the test."""
        program = self.session.start('lectern-view', *files)
        self.addCleanup(self.session.end, program)
        return program

    def open(self, path, size=(800, 600)):
        """Starts the viewer with a document. size: of the window, or None for its own. Returns the program."""
        program = self.start(path)
        self.find('frame', pathlib.Path(path).name)
        self.wait_for_document()
        if size:
            self.session.manager.resize(*size)
            self.wait(lambda: self.session.tree.all('frame')[0].box[2] == size[0], 'the size')
        return program

    def wait_for_document(self):
        """Waits until a document is open. Its widget, which is there before, has the focus then."""
        self.wait(lambda: self.find_view().has('focused'), 'an open document')

    def find_view(self):
        """The widget that shows the document."""
        return self.find('document text')

    def place(self):
        """Where the screen shows the document: left, top, right, bottom."""
        return self.find_view().box

    def picture(self):
        """What the screen shows of the document."""
        return self.session.screen.picture(self.place())

    def wait_for_full_screen(self):
        """Waits until nothing but the document is on the screen."""
        self.wait(lambda: self.place()[1] == 0 and self.place()[3] == 800, 'a view that fills the screen')

    def wait_for_window(self):
        """Waits until the header is above the document."""
        self.wait(lambda: self.place()[1] > 40, 'the header')

    def painted(self, path, *options):
        """The document as the service paints it for a view of this size."""
        left, top, right, bottom = self.place()
        image = self.session.folder / 'painted.png'
        subprocess.run([BUILD / 'bin/lectern', 'open', path, '-o', image, '--size', f'{right - left}x{bottom - top}',
                        '--dpi', str(self.dpi()), *options], check=True, cwd=self.session.folder, capture_output=True)
        with Image.open(image) as opened:
            return opened.convert('RGB')

    def dpi(self):
        """The dots per inch that the view takes from the monitor."""
        monitor = self.session.screen.root.xrandr_get_monitors().monitors[0]
        return monitor.width_in_pixels * 25.4 / monitor.width_in_millimeters

    def wait_for_picture(self, path, *options):
        """Waits until the screen shows the document as the service paints it."""
        while True:
            place = self.place()
            expected = self.painted(path, *options)
            self.wait(lambda: self.place() != place or difference(self.picture(), expected) < ALIKE,
                      f'the picture of {path} {options}')
            if self.place() == place:  # bars that come late leave less room
                return expected

    def settled(self, condition=lambda image: True):
        """Waits for a picture that fulfils a condition and has stayed for half a second; returns it."""
        looks = []

        def is_settled():
            looks.append(self.picture())
            return condition(looks[-1]) and len(looks) > 25 and all(look == looks[-1] for look in looks[-25:])
        self.wait(is_settled, 'a picture that stays')
        return looks[-1]

    def key(self, *combinations):
        """Presses keys, one after the other."""
        for combination in combinations:
            self.session.screen.key(combination)

    def kill_service(self):
        """Kills the document service."""
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        reply = bus.call_sync('org.freedesktop.DBus', '/org/freedesktop/DBus', 'org.freedesktop.DBus',
                              'GetConnectionUnixProcessID', GLib.Variant('(s)', ('com.kestrel.office',)), None,
                              Gio.DBusCallFlags.NONE, -1, None)
        os.kill(reply.unpack()[0], signal.SIGKILL)

    def button(self, name, role='push button'):
        """Waits for a button. GTK puts the text with its mnemonic before the name."""
        return self.find(role, re.compile(f'(^| ){re.escape(name)}$'))

    def label(self, pattern):
        """Waits for a text on the screen."""
        return self.find('label', re.compile(pattern))
