# SPDX-License-Identifier: Apache-2.0
"""Windows of the viewer: the first page, several windows, languages, the end of the program."""
import pathlib
import re
import signal
import time
import unittest

from window.case import main
from window.screen import difference
from window.session import SOURCE, Session

TOUR = SOURCE / 'samples/tour.docx'


class WindowsTest(unittest.TestCase):
    """A session for all; the history is each test's own."""

    @classmethod
    def setUpClass(cls):
        cls.session = Session(1280, 800)
        cls.addClassCleanup(cls.session.close)

    def setUp(self):
        self.history().unlink(missing_ok=True)

    def history(self):
        """The file of the last documents."""
        return self.session.folder / 'home/.local/state/lectern/history'

    def remember(self, *files):
        """Writes a history: each file is a minute older than the one before."""
        self.history().parent.mkdir(parents=True, exist_ok=True)
        self.history().write_text(''.join(
            f'[{pathlib.Path(file).as_uri()}]\nopened={round(time.time()) - 60 * age}\n'
            for age, file in enumerate(files)), encoding='utf-8')

    def start(self, *files, **more):
        """Starts the viewer; it ends with the test."""
        program = self.session.start('lectern-view', *files, **more)
        self.addCleanup(self.session.end, program)
        return program

    def all(self, role, name=None):
        """All such elements, also on pages of a stack, which count as hidden."""
        return self.session.tree.all(role, name, showing=False)

    def find(self, role, name=None):
        """Waits for such an element."""
        return self.session.find(role, name, showing=False)

    def frames(self):
        """The names of all windows."""
        return sorted(frame.name for frame in self.session.tree.all('frame'))

    def wait_for_document(self):
        """Waits until a window has opened its document, which has the focus then."""
        self.session.wait(lambda: self.find('document text').has('focused'), 'an open document')

    def test_the_last_documents_are_offered_and_open(self):
        document = self.session.copy_of(TOUR)
        self.remember(document, '/gone/away.docx')
        self.start()
        row = self.find('list item', re.compile('tour.docx'))
        self.assertEqual(self.all('list item', re.compile('away.docx')), [])
        row.click()
        self.find('frame', 'tour.docx')
        self.wait_for_document()

    def test_the_last_documents_can_be_forgotten(self):
        self.remember(self.session.copy_of(TOUR))
        self.start()
        self.find('list item', re.compile('tour.docx'))
        self.find('push button', re.compile('(^| )Clear$')).click()
        self.session.wait(lambda: not self.history().exists(), 'a history that is gone')
        self.session.wait(lambda: not self.all('list item'), 'an empty list')

    def test_a_second_start_hands_its_files_to_the_first(self):
        first = self.start(self.session.copy_of(TOUR))
        self.find('frame', 'tour.docx')
        self.wait_for_document()
        second = self.start(SOURCE / 'samples/tour.txt')
        self.assertEqual(second.wait(20), 0)
        self.session.wait(lambda: self.frames() == ['tour.docx', 'tour.txt'], 'two windows')
        self.assertIsNone(first.poll())

    def test_a_file_that_is_open_is_shown_and_not_opened_again(self):
        document = self.session.copy_of(TOUR)
        self.start(document)
        self.wait_for_document()
        self.assertEqual(self.start(document).wait(20), 0)
        self.assertEqual(self.frames(), ['tour.docx'])

    def test_the_program_ends_with_its_last_window(self):
        program = self.start(self.session.copy_of(TOUR))
        self.wait_for_document()
        self.session.screen.key('Ctrl+w')
        self.assertEqual(program.wait(20), 0)

    def test_a_signal_ends_the_program_which_keeps_the_place(self):
        document = self.session.copy_of(TOUR)
        program = self.start(document)
        self.wait_for_document()
        before = self.session.screen.picture()
        self.session.screen.key('Page_Down')
        self.session.wait(lambda: difference(self.session.screen.picture(), before) > 0.05, 'another page')
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(20), 0)
        self.assertIn('y=0.', self.history().read_text('utf-8'))

    def test_the_texts_follow_the_language(self):
        self.start(environment={'LANGUAGE': 'de'})
        self.find('label', 'Ein Dokument öffnen')


if __name__ == '__main__':
    main()
