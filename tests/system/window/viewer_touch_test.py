# SPDX-License-Identifier: Apache-2.0
"""The viewer under fingers, compared with what the service paints."""
import os
import signal
import unittest

from window.case import main
from window.painted import height_of_title, painted
from window.screen import difference
from window.session import SOURCE, Session

PHONE, TURNED = (360, 720), (720, 360)


class ViewerTouchTest(unittest.TestCase):
    """Each test opens the sample anew in a window of a phone's size."""

    @classmethod
    def setUpClass(cls):
        cls.session = Session()
        cls.addClassCleanup(cls.session.close)

    def setUp(self):
        if not self.session.touch:
            self.skipTest(self.session.display.missing)
        self.path = self.session.folder / f'{self.id().rsplit(".", 1)[1]}.docx'  # another one, so that no place is remembered
        self.path.write_bytes((SOURCE / 'samples/tour.docx').read_bytes())
        program = self.session.start('lectern-view', self.path)
        self.addCleanup(self.session.end, program)
        self.session.wait(lambda: self.session.manager.windows, 'a window')
        self.session.manager.resize(*PHONE)
        self.view = self.session.find('document text')
        self.session.wait(lambda: self.view.box[2:] == PHONE, 'a window of a phone')
        self.top = self.view.box[1]
        self.first = self.painted(PHONE)
        self.wait_for(self.first)

    def painted(self, size, *options):
        return painted(self.session, self.path, (size[0], size[1] - self.top), *options)

    def shown(self, size=PHONE):
        return self.session.screen.picture((0, self.top, *size))

    def wait_for(self, picture):
        """Waits until the screen shows it; the number of the page and the scrollbar may cover a little."""
        self.session.wait(lambda: difference(self.shown((picture.width, picture.height + self.top)), picture) < 0.02,
                          'the picture')

    def part(self, picture, top, bottom):
        """Rows of a picture, without those columns where the scrollbar is."""
        return picture.crop((0, top, PHONE[0] - 20, bottom))

    def test_a_drag_moves_the_document_with_the_finger(self):
        self.session.touch.drag((180, 600), (180, 300))
        self.session.wait(lambda: difference(self.part(self.shown(), 0, 300), self.part(self.first, 300, 600)) == 0,
                          'the document 300 pixels up')
        self.wait_for(self.painted(PHONE, '--scroll', '0,300'))

    def test_a_fling_glides_on(self):
        self.session.touch.fling((180, 600), (180, 450))
        here = self.part(self.first, 400, 500)
        self.session.wait(lambda: all(difference(self.part(self.shown(), top, top + 100), here) > 0.02
                                      for top in range(250, 401)), 'more than the finger went')

    def test_a_pinch_enlarges(self):
        before = height_of_title(self.first)
        self.session.touch.pinch((180, self.top + 10), 100, 200)
        self.session.wait(lambda: height_of_title(self.shown()) in range(2 * before - 4, 2 * before + 5),
                          'a title twice as high')

    def test_a_double_tap_enlarges_and_leads_back(self):
        self.session.touch.double_tap(100, self.top + 60)
        self.session.wait(lambda: difference(self.shown(), self.first) > 0.05, 'a larger text')
        larger = self.painted(PHONE, '--zoom', '2.5')
        self.session.wait(lambda: height_of_title(self.shown()) > 0, 'the larger text')
        self.assertGreater(difference(larger, self.first), 0.05)
        self.session.touch.double_tap(100, self.top + 60)
        self.wait_for(self.first)

    def press_a_word(self):
        """A finger rests on a word until it is selected, and leaves."""
        word = 60, self.top + 33  # the second one of "A Tour of the Harbour"
        before = self.part(self.shown(), 0, 60)
        self.session.touch.down(*word)
        self.session.wait(lambda: difference(self.part(self.shown(), 0, 60), before) > 0.02, 'a selection')
        self.session.touch.up(*word)

    def test_a_long_press_selects_a_word_and_its_menu_copies_it(self):
        self.press_a_word()
        self.session.find('menu item', 'Copy').click()
        self.session.wait(lambda: self.session.clipboard(0.2) == 'Tour', 'the word in the clipboard')

    def test_escape_ends_a_selection_and_closes_its_menu(self):
        self.press_a_word()
        self.session.find('menu item', 'Copy')
        self.session.screen.key('Escape')
        self.session.wait(lambda: not self.session.tree.all('menu item', 'Copy'), 'a closed menu')
        self.wait_for(self.first)

    def test_a_turned_window_is_laid_out_anew(self):
        self.session.manager.resize(*TURNED)
        self.session.wait(lambda: self.view.box[3] == TURNED[1], 'a turned window')

        def same():  # the view is narrower than the window, because long lines are hard to read
            left, top, right, bottom = self.view.box
            picture = painted(self.session, self.path, (right - left, bottom - top))
            return difference(self.session.screen.picture(self.view.box), picture) < 0.02
        self.session.wait(same, 'the text for the turned window')
        self.session.manager.resize(*PHONE)
        self.wait_for(self.first)

    def test_the_view_comes_back_when_the_service_was_killed(self):
        self.session.touch.drag((180, 600), (180, 300))
        here = self.painted(PHONE, '--scroll', '0,300')
        self.wait_for(here)
        killed = self.session.service()
        os.kill(killed, signal.SIGKILL)
        self.session.wait(lambda: self.session.service() not in (None, killed), 'another service')

        def follows():  # drags that come before the document is back have no effect
            self.session.touch.drag((180, 400), (180, 440))
            return difference(self.shown(), here) > 0.1
        self.session.wait(follows, 'a document that follows the finger')
        self.session.touch.drag((180, 200), (180, 600))
        self.wait_for(self.first)


class WaylandViewerTest(unittest.TestCase):
    """The same window under Wayland, without its accessibility tree, which a process has once."""

    def test_it_shows_a_document_and_is_dragged(self):
        with Session(*PHONE, wayland=True) as session:
            path = session.copy_of(SOURCE / 'samples/tour.docx')
            session.start('lectern-view', path)

            def same(*options):
                picture = painted(session, path, PHONE, *options)  # a full screen, without bars
                return lambda: difference(session.screen.picture(), picture) < 0.02
            session.wait(same(), 'the document')
            session.touch.drag((180, 600), (180, 300))
            session.wait(same('--scroll', '0,300'), 'the document 300 pixels up')


if __name__ == '__main__':
    main()
