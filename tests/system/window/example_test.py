# SPDX-License-Identifier: Apache-2.0
"""The example of a window without a toolkit, lectern-window, with fingers and keys."""
import os
import signal
import unittest

from window.case import main
from window.painted import height_of_title, painted
from window.screen import difference
from window.session import SOURCE, Session

WIDTH, HEIGHT = 480, 800


class ExampleWindowTest(unittest.TestCase):
    """Each test opens the sample anew."""

    def setUp(self):
        self.session = Session(1000, 1000)
        self.addCleanup(self.session.close)
        self.path = self.session.copy_of(SOURCE / 'samples/tour.docx')
        self.program = self.session.start('lectern-window', self.path)
        self.first = self.painted()
        self.wait_for(self.first)

    def painted(self, *options, size=(WIDTH, HEIGHT)):
        return painted(self.session, self.path, size, *options)

    def shown(self, size=(WIDTH, HEIGHT)):
        return self.session.screen.picture((0, 0, *size))

    def wait_for(self, picture):
        self.session.wait(lambda: difference(self.shown(picture.size), picture) == 0, 'the picture')

    def drag(self, *way):
        if not self.session.touch:
            self.skipTest(self.session.display.missing)
        self.session.touch.drag(*way)

    def test_a_drag_moves_the_document_with_the_finger(self):
        self.drag((240, 700), (240, 300))
        self.session.wait(lambda: difference(self.shown().crop((0, 0, WIDTH, HEIGHT - 400)),
                                             self.first.crop((0, 400, WIDTH, HEIGHT))) == 0, 'the document 400 pixels up')
        self.wait_for(self.painted('--scroll', '0,400'))

    def test_a_fling_glides_on(self):
        if not self.session.touch:
            self.skipTest(self.session.display.missing)
        self.session.touch.fling((240, 700), (240, 500))
        self.session.wait(lambda: difference(self.shown().crop((0, 0, WIDTH, 100)),
                                             self.first.crop((0, 300, WIDTH, 400))) > 0.1, 'more than the finger went')

    def test_a_pinch_enlarges(self):
        if not self.session.touch:
            self.skipTest(self.session.display.missing)
        before = height_of_title(self.first)
        self.session.touch.pinch((240, 10), 100, 200)
        self.session.wait(lambda: height_of_title(self.shown()) in range(2 * before - 4, 2 * before + 5), 'a title twice as high')

    def test_the_mouse_and_keys_move_it_too(self):
        self.session.screen.click(240, 300, 5)
        self.wait_for(self.painted('--scroll', '0,60'))
        self.session.screen.key('Down')
        self.wait_for(self.painted('--scroll', '0,120'))

    def test_letters_search(self):
        self.session.screen.write('harbour')
        self.session.wait(lambda: difference(self.shown(), self.first) > 0.001, 'marked hits')
        self.assertLess(difference(self.shown(), self.first), 0.2)

    def test_another_size_of_the_window_is_laid_out_anew(self):
        self.session.manager.resize(800, 480)
        self.wait_for(self.painted(size=(800, 480)))

    def test_the_document_comes_back_when_the_service_was_killed(self):
        self.session.screen.click(240, 300, 5)
        here = self.painted('--scroll', '0,60')
        self.wait_for(here)
        killed = self.session.service()
        os.kill(killed, signal.SIGKILL)
        self.session.wait(lambda: self.session.service() not in (None, killed), 'another service')
        # Input that comes before the document is back has no effect.
        self.session.wait(lambda: self.session.screen.key('Page_Down') or difference(self.shown(), here) > 0, 'an effect')
        self.session.screen.key('Page_Up')
        self.session.wait(lambda: self.session.screen.key('Page_Up') or difference(self.shown(), self.first) == 0, 'the top')

    def test_it_ends_when_the_window_is_closed(self):
        self.session.manager.close_window()
        self.assertEqual(self.program.wait(10), 0)


if __name__ == '__main__':
    main()
