# SPDX-License-Identifier: Apache-2.0
"""Reads documents: search, selections, sheets and slides, zoom, night, full screen."""
import re
import unittest

from viewer import ALIKE, SAMPLES, ViewerTest
from window.case import main
from window.screen import difference

TEXT, SHEETS, SLIDES = (SAMPLES / f'tour.{extension}' for extension in ('docx', 'xlsx', 'pptx'))


class ReadingTest(ViewerTest):
    """An open document in the hands of a reader."""

    def search(self, text):
        """Types a text into the search bar."""
        self.key('Ctrl+f')
        entry = self.find('entry', 'Search the Document')
        self.session.screen.write(text)
        self.wait(lambda: entry.text == text, 'the typed text')

    def test_a_search_counts_its_hits_and_steps_through_them(self):
        self.open(TEXT)
        self.search('boat')
        first = self.settled()
        self.find('status bar', re.compile('^1 of [1-9]'))
        self.key('Ctrl+g')
        self.find('status bar', re.compile('^2 of [1-9]'))
        self.settled(lambda image: image != first)
        self.key('Ctrl+Shift+g')
        self.find('status bar', re.compile('^1 of [1-9]'))

    def test_a_selection_is_copied(self):
        self.open(TEXT)
        left, top, right, _ = self.place()
        self.session.screen.click((left + right) // 2, top + 60)
        self.key('Ctrl+a', 'Ctrl+c')
        self.wait(lambda: 'What to bring' in self.session.clipboard(), 'the words of the document')

    def test_a_tapped_cell_is_copied(self):
        self.open(SHEETS)
        self.wait_for_picture(SHEETS)
        left, top, _, _ = self.place()
        self.session.screen.click(left + 80, top + 115)
        address = self.find('text', 'Address of the Cell')
        self.wait(lambda: address.text == 'A4', 'the address of the cell')
        self.key('Ctrl+c')
        self.wait(lambda: self.session.clipboard() == 'January', 'the text of the cell')

    def test_another_sheet_is_shown(self):
        self.open(SHEETS)
        self.button('Moorings').click()
        self.wait_for_picture(SHEETS, '--sheet', '2')

    def test_another_slide_is_shown(self):
        self.open(SLIDES)
        self.wait_for_picture(SLIDES)
        self.key('Page_Down')
        self.wait_for_picture(SLIDES, '--slide', '2')

    def test_the_zoom_follows_the_keys_and_tells_its_percentage(self):
        self.open(TEXT)
        first = self.wait_for_picture(TEXT)
        self.key('Ctrl+plus')
        self.settled(lambda image: difference(image, first) > 0.02)
        self.button('Zoom').click()
        self.label('^1[1-9][0-9] %$')
        self.button('Original Size').click()
        self.label('^100 %$')
        self.key('Escape')
        self.wait_for_picture(TEXT)

    def test_night_reading_darkens_the_page_until_it_is_ended(self):
        self.open(TEXT)
        self.wait_for_picture(TEXT)
        self.key('Ctrl+Shift+n')
        self.settled(lambda image: max(image.getpixel((5, 5))) < 64)
        self.key('Ctrl+Shift+n')
        self.wait_for_picture(TEXT)

    def test_full_screen_shows_nothing_but_the_document(self):
        self.open(TEXT)
        self.key('F11')
        self.wait_for_full_screen()
        self.wait_for_picture(TEXT)
        self.session.screen.point(640, 0)
        self.wait(lambda: self.button('Main Menu').box[1] >= 0, 'the header')
        self.session.screen.point(640, 400)
        self.wait_for_picture(TEXT)
        self.key('Escape')
        self.wait_for_window()

    def test_a_window_of_another_size_shows_the_document_at_that_size(self):
        self.open(TEXT)
        self.wait_for_picture(TEXT)
        for size in ((360, 720), (720, 360)):
            self.session.manager.resize(*size)
            self.wait(lambda size=size: self.session.tree.all('frame')[0].box[3] == size[1], 'the new size')
            self.wait_for_picture(TEXT)

    def test_the_view_comes_back_after_the_service_was_killed(self):
        self.open(TEXT)
        start = self.wait_for_picture(TEXT)
        self.key('End')
        end = self.settled(lambda image: difference(image, start) > ALIKE)
        self.key('Home')
        self.settled(lambda image: difference(image, start) < ALIKE)
        self.kill_service()
        # A reader presses the key until the view is there again.
        self.wait(lambda: self.key('End') or difference(self.picture(), end) < ALIKE, 'the end of the document')


if __name__ == '__main__':
    main()
