# SPDX-License-Identifier: Apache-2.0
"""The parts of the window around a document: search, side bar, sheets, notes, links, properties."""
import os
import pathlib
import re
import shutil
import signal
import unittest

from gi.repository import Gio, GLib
from window.case import main
from window.session import SOURCE, Session

TEXT, SHEETS, SLIDES = (SOURCE / f'samples/tour.{extension}' for extension in ('docx', 'xlsx', 'pptx'))


class PartsTest(unittest.TestCase):
    """Each test opens a document and uses one part."""

    @classmethod
    def setUpClass(cls):
        cls.session = Session(1280, 800)
        cls.addClassCleanup(cls.session.close)
        cls.wait = cls.session.wait

    def setUp(self):
        # The places of the test before.
        shutil.rmtree(self.session.folder / 'home/.local/state', ignore_errors=True)

    def open(self, path):
        """Starts the viewer with a document; it ends with the test."""
        program = self.session.start('lectern-view', path)
        self.addCleanup(self.session.end, program)
        self.find('frame', pathlib.Path(path).name)
        self.session.manager.resize(800, 600)
        self.wait(lambda: self.is_enabled('properties'), 'an open document')

    def find(self, role, name=None):
        """Waits for such an element, also on a page of a stack, which counts as hidden."""
        return self.session.find(role, name, showing=False)

    def button(self, name):
        """Waits for a button, whose name may begin with the text of its mnemonic."""
        return self.find('push button', re.compile(f'(^| ){re.escape(name)}$'))

    def label(self, pattern):
        """Waits for a text."""
        return self.find('label', re.compile(pattern))

    def key(self, *combinations):
        """Presses keys, one after the other."""
        for combination in combinations:
            self.session.screen.key(combination)

    def settled(self, condition=lambda image: True):
        """Waits for a picture of the document that fulfils a condition and stays for ten looks."""
        looks = []

        def is_settled():
            looks.append(self.session.screen.picture(self.find('document text').box))
            return condition(looks[-1]) and len(looks) > 10 and all(look == looks[-1] for look in looks[-10:])
        self.wait(is_settled, 'a picture that stays')
        return looks[-1]

    def call_bus(self, *call):
        """Calls a method on the session bus."""
        *call, values = call
        return Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
            *call, values, None, Gio.DBusCallFlags.NONE, -1, None).unpack()

    def kill_service(self):
        """Kills the document service."""
        number, = self.call_bus('org.freedesktop.DBus', '/org/freedesktop/DBus', 'org.freedesktop.DBus',
                                'GetConnectionUnixProcessID', GLib.Variant('(s)', ('com.kestrel.office',)))
        os.kill(number, signal.SIGKILL)

    def action(self, method, *values):
        """Calls a method of the actions of the window, which GTK puts on the bus."""
        return self.call_bus('com.kestrel.office.Viewer', '/com/kestrel/office/Viewer/window/1', 'org.gtk.Actions',
                             method, GLib.Variant(*values))

    def is_enabled(self, name):
        """Whether an action of the window is enabled."""
        return self.action('Describe', '(s)', (name,))[0][0]

    def search(self, text, expected):
        """Searches for a text and waits for the count."""
        self.key('Ctrl+f')
        self.find('entry', 'Search the Document')
        self.session.screen.write(text)
        self.find('status bar', expected)

    def go_to_cell(self, address):
        """Types in the address of a cell."""
        self.key('Ctrl+l')
        self.session.screen.write(address)
        self.key('Return')

    def contents(self, address, expected):
        """Waits until the bar tells these contents of a cell."""
        fields = [self.find('text', name) for name in ('Address of the Cell', 'Contents of the Cell')]
        self.wait(lambda: [field.text for field in fields] == [address, expected], f'{address}: {expected}')

    def test_a_search_without_hits_says_so(self):
        self.open(TEXT)
        self.search('xyzzy', 'No results')

    def test_a_search_for_whole_words_finds_fewer(self):
        self.open(TEXT)
        self.search('boat', '1 of 4')
        self.action('Activate', '(sava{sv})', ('search-whole-words', [], {}))
        self.find('status bar', '1 of 3')

    def test_enter_steps_forwards_and_with_shift_backwards(self):
        self.open(TEXT)
        self.search('boat', '1 of 4')
        self.key('Return')
        self.find('status bar', '2 of 4')
        self.key('Shift+Return')
        self.find('status bar', '1 of 4')

    def test_a_search_goes_on_after_the_service_was_killed(self):
        self.open(TEXT)
        self.search('boat', '1 of 4')
        self.kill_service()

        def steps():
            self.key('Ctrl+g')
            return self.session.tree.all('status bar', re.compile('^[2-4] of 4'), showing=False)
        self.wait(steps, 'a step to another hit')

    def test_a_heading_of_the_side_bar_leads_to_its_place(self):
        self.open(TEXT)
        self.key('F9')
        self.button('And back again')
        first = self.settled()
        self.button('And back again').click()
        self.settled(lambda image: image != first)
        self.find('label', re.compile('%$'))

    def test_a_slide_of_the_side_bar_is_shown(self):
        self.open(SLIDES)
        self.key('F9')
        self.button('3. Who sails when').click()
        self.label('^Slide 3 of 7$')

    def test_the_indicator_tells_the_slide_and_goes(self):
        self.open(SLIDES)
        self.key('Page_Down')
        place = self.label('^Slide 2 of 7$').box

        def colours():
            return len(self.session.screen.picture(place).getcolors())
        self.wait(lambda: colours() > 1, 'letters')
        self.wait(lambda: colours() == 1, 'no indicator')

    def test_the_notes_follow_the_slide(self):
        self.open(SLIDES)
        self.key('F8')
        self.label('^Wait until the last ferry is in')
        self.key('Page_Down')
        self.label('^Point at the lighthouse')

    def test_a_typed_address_leads_to_its_cell_and_shows_its_formula(self):
        self.open(SHEETS)
        self.go_to_cell('b16')
        self.contents('B16', '=SUM(B4:B15)')

    def test_what_is_no_address_is_told(self):
        self.open(SHEETS)
        self.go_to_cell('harbour')
        self.label('^Type the name of a cell')

    def test_a_cell_with_a_comment_shows_it_until_another_is_tapped(self):
        self.open(SHEETS)
        self.go_to_cell('C9')
        self.label('^Comment on C9$')
        self.label('^The regatta')
        self.go_to_cell('C8')
        self.wait(lambda: self.action('Describe', '(s)', ('notes',))[0][2] == [False], 'no comment')

    def test_a_column_can_be_sorted_when_it_is_selected(self):
        self.open(SHEETS)
        self.settled()
        self.assertFalse(self.is_enabled('sort-descending'))
        left, top, _, _ = self.find('document text').box
        self.session.screen.click(left + 150, top + 12)
        self.wait(lambda: self.is_enabled('sort-descending'), 'a selected column')
        self.action('Activate', '(sava{sv})', ('sort-descending', [], {}))
        self.go_to_cell('A5')
        self.contents('A5', 'June')

    def test_a_link_out_of_the_document_is_asked_for(self):
        self.open(TEXT)
        image = self.settled()

        def is_blue(x, y):
            red, green, blue = image.getpixel((x, y))
            return red < 60 and 80 < green < 140 and blue > 180
        link = next((x, y) for y in range(image.height) for x in range(image.width) if is_blue(x, y))
        left, top, _, _ = self.find('document text').box
        self.session.screen.click(left + link[0] + 2, top + link[1] + 4)
        self.label('^https://example.org/harbour$')
        self.button('Cancel').click()
        self.wait(lambda: not self.session.tree.all('label', 'https://example.org/harbour', showing=False), 'no question')

    def test_the_properties_tell_of_the_document_and_its_file(self):
        self.open(TEXT)
        self.key('Alt+Return')
        self.label('^The Lectern makers$')
        self.label('^tour.docx$')


if __name__ == '__main__':
    main()
