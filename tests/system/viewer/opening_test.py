# SPDX-License-Identifier: Apache-2.0
"""Opens documents of each kind, and files that are none."""
import re
import unittest

from viewer import ALIKE, SAMPLES, ViewerTest
from window.case import main
from window.screen import difference


class OpeningTest(ViewerTest):
    """From a file to its picture."""

    def test_each_kind_is_shown_as_the_service_paints_it(self):
        for extension in ('docx', 'doc', 'xlsx', 'xls', 'pptx', 'ppt'):
            with self.subTest(extension):
                sample = SAMPLES / f'tour.{extension}'
                program = self.open(sample)
                self.wait_for_picture(sample)
                self.session.end(program)

    def test_a_password_is_asked_for_and_opens_the_document(self):
        self.start(SAMPLES / 'locked.docx')
        for password in ('lighthouse', 'harbour'):
            self.find('text', 'Password')
            self.session.screen.write(password)
            self.key('Return')
            if password == 'lighthouse':
                self.find('alert', re.compile('The password is wrong'))
        self.wait_for_document()
        self.wait_for_picture(SAMPLES / 'locked.docx', '--password', 'harbour')

    def test_a_broken_file_is_explained(self):
        broken = self.session.folder / 'broken.docx'
        broken.write_bytes((SAMPLES / 'tour.docx').read_bytes()[:2000])
        self.start(broken)
        self.button('Try Again')
        self.label('Not a Readable Document')

    def test_a_file_that_is_mended_opens_at_the_next_try(self):
        missing = self.session.folder / 'late.docx'
        self.start(missing)
        again = self.button('Try Again')
        missing.write_bytes((SAMPLES / 'tour.docx').read_bytes())
        again.click()
        self.wait_for_picture(missing)

    def test_the_place_in_a_document_is_remembered(self):
        for extension in ('docx', 'xlsx', 'pptx'):
            with self.subTest(extension):
                copy = self.session.copy_of(SAMPLES / f'tour.{extension}')
                program = self.open(copy, None)
                first = self.wait_for_picture(copy)
                self.key('Page_Down')
                moved = self.settled(lambda image, first=first: difference(image, first) > ALIKE)
                self.session.manager.close_window()
                program.wait(20)
                program = self.open(copy, None)
                self.wait(lambda moved=moved: difference(self.picture(), moved) < ALIKE, 'the place of before')
                self.session.end(program)


if __name__ == '__main__':
    main()
