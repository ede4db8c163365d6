# SPDX-License-Identifier: Apache-2.0
"""The widget: what the screen shows of a document, and what fingers, mouse, wheel and keys do to it."""
import os
import signal
import unittest

from window.case import main
from window.session import SOURCE, Session

SAMPLES = SOURCE / 'samples'
SCALE = int(os.environ.get('VIEW_TEST_SCALE', '1'))  # pixels of the screen for one of the widget


class ViewTest(unittest.TestCase):
    """One session; each test has a window of its own."""

    @classmethod
    def setUpClass(cls):
        cls.session = Session(width=1000, height=1400, environment={'GDK_SCALE': str(SCALE)})
        cls.addClassCleanup(cls.session.close)
        global shown  # GTK looks for its display when it is imported
        from gtk4 import shown  # pylint: disable=import-outside-toplevel

    def show(self, name, **more):
        """A shown sample."""
        one = shown.Shown(self.session, SAMPLES / name, **more)
        self.addCleanup(one.close)
        return one

    def test_shows_every_kind_pixel_for_pixel(self):
        for name in ('tour.docx', 'tour.xlsx', 'tour.pptx'):
            one = self.show(name)
            self.assertEqual(one.document.get_width(), 360 * SCALE)
            self.assertEqual(one.screen(), one.frame())
            self.assertGreater(len(one.screen().getcolors(1 << 24)), 20, name)
            one.window.destroy()

    def test_scrollbars_tell_the_place_and_move_the_document(self):
        one = self.show('tour.docx', scrolled=True)
        adjustment, document = one.scrolled.get_vadjustment(), one.document
        shown.until(lambda: adjustment.get_upper() * SCALE == document.get_document_height(), 'the height')
        self.assertEqual(adjustment.get_page_size() * SCALE, document.get_visible_height())
        values = []
        adjustment.connect('value-changed', lambda moved: values.append(moved.get_value()))
        adjustment.set_value(200)
        shown.until(lambda: document.get_y() == 200 * SCALE, 'the place')
        shown.run(0.3)
        self.assertEqual(values, [200], 'the adjustment has moved by itself')

    def test_wheel_and_keys_scroll(self):
        one = self.show('tour.docx', scrolled=True)
        self.session.screen.click(100, 100, 5)
        shown.until(lambda: one.document.get_y() == 96 * SCALE, 'the wheel')
        shown.until(lambda: one.scrolled.get_vadjustment().get_value() == 96, 'the scrollbar')
        self.session.screen.key('Page_Down')
        shown.until(lambda: one.document.get_y() > 300 * SCALE, 'the page')
        self.session.screen.key('Home')
        shown.until(lambda: one.document.get_y() == 0, 'the start')

    def test_control_and_the_wheel_zoom(self):
        one = self.show('tour.docx', scrolled=True)
        before = one.document.get_zoom()
        with self.session.screen.held('Ctrl'):
            self.session.screen.click(100, 100, 4)
        shown.until(lambda: one.document.get_zoom() > before, 'the wheel')
        with self.session.screen.held('Ctrl'):
            self.session.screen.click(100, 100, 5)
        shown.until(lambda: abs(one.document.get_zoom() - before) < 0.01, 'the way back')

    def test_keys_zoom(self):
        one = self.show('tour.docx')
        before = one.document.get_zoom()
        self.session.screen.key('plus')
        shown.until(lambda: one.document.get_zoom() > before, 'the key')
        self.session.screen.key('0')
        shown.until(lambda: abs(one.document.get_zoom() - one.document.get_fit_zoom()) < 0.01, 'the fit')

    def touch(self):
        if not self.session.touch:
            self.skipTest(self.session.display.missing)
        return self.session.touch

    def test_a_finger_drags_what_is_under_it(self):
        touch, one = self.touch(), self.show('tour.docx')
        shown.do(touch.drag, (150, 400), (150, 250))
        shown.until(lambda: one.document.get_y() == 150, 'the drag')
        one.settle()

    def test_a_fling_glides_on_and_then_nothing_is_painted(self):
        touch, one = self.touch(), self.show('tour.docx')
        shown.do(touch.fling, (150, 400), (150, 300))
        shown.until(lambda: one.document.get_y() > 150, 'the glide')
        shown.until(lambda: not one.document.get_moving(), 'the end of the glide')
        shown.run(0.5)
        frames = []
        clock = one.window.get_frame_clock()
        connection = clock.connect('paint', frames.append)
        shown.run(1)
        clock.disconnect(connection)
        self.assertEqual(frames, [])

    def test_two_fingers_pinch(self):
        touch, one = self.touch(), self.show('tour.docx')
        before = one.document.get_zoom()
        shown.do(touch.pinch, (150, 300), 100, 200)
        shown.until(lambda: one.document.get_zoom() > before * 1.8, 'the zoom')
        one.settle()

    def test_a_double_tap_enlarges(self):
        touch, one = self.touch(), self.show('tour.docx')
        before = one.document.get_zoom()
        shown.do(touch.double_tap, 150, 200 * SCALE)
        shown.until(lambda: one.document.get_zoom() != before or one.document.get_y() != 0, 'the zoom')

    def hold(self, touch, x, y):
        """A long press."""
        touch.down(x, y)
        shown.run(0.7)
        touch.up(x, y)

    def test_a_finger_that_rests_selects_a_word_which_handles_extend(self):
        touch, one = self.touch(), self.show('tour.docx')
        line, next_line = one.line('What to bring'), one.line('A coat that forgives rain')
        end = line.x + line.width
        self.hold(touch, end - 10 * SCALE, line.y + line.height / 2)
        shown.until(one.view.get_has_selection, 'the selection')
        self.assertEqual(one.selected(), 'bring')
        handle = end, line.y + line.height + 8 * SCALE
        shown.do(touch.drag, handle, (next_line.x + next_line.width + 40 * SCALE, handle[1] + next_line.y - line.y))
        shown.until(lambda: one.selected().split() == 'bring A coat that forgives rain'.split(), 'the longer selection')

    def test_a_mouse_selects_what_it_drags_over_and_copies(self):
        one = self.show('tour.docx')
        line = one.line('What to bring')
        y = line.y + line.height / 2
        screen = self.session.screen
        screen.point(8 * SCALE, y)
        screen.press()
        shown.run(0.05)
        screen.point(100 * SCALE, y)
        screen.point(300 * SCALE, y)
        shown.run(0.05)
        screen.release()
        shown.until(lambda: one.selected() == 'What to bring', 'the selection')
        shown.until(one.view.get_has_selection, 'the property')
        screen.key('Ctrl+c')
        shown.until(lambda: one.view.get_clipboard().get_content() is not None, 'the copy')
        text = []
        shown.do(lambda: text.append(self.session.clipboard()))
        self.assertEqual(text, ['What to bring'])
        screen.key('Escape')
        shown.until(lambda: not one.view.get_has_selection(), 'the end of the selection')

    def test_a_tapped_link_is_told(self):
        one = self.show('tour.docx')
        links = []
        one.view.connect('link-activated', lambda _, uri: links.append(uri))
        picture = one.screen()
        blue = next((x, y) for y in range(picture.height) for x in range(picture.width)
                    if picture.getpixel((x, y))[0] < 60 and picture.getpixel((x, y))[2] > 170)
        self.session.screen.click(blue[0], blue[1] + 3)
        shown.until(lambda: links, 'the link')
        self.assertRegex(links[0], '^https?://')

    def test_page_keys_turn_slides_and_taps_do_while_presenting(self):
        one = self.show('tour.pptx')
        self.session.screen.key('Page_Down')
        shown.until(lambda: one.document.get_part() == 1, 'the second slide')
        one.view.set_presenting(True)
        self.session.screen.click(5, 5)
        shown.until(lambda: one.document.get_part() == 2, 'the third slide')

    def test_night_shows_a_white_page_black(self):
        one = self.show('tour.docx')
        self.assertEqual(one.screen().getpixel((2, 2)), (255, 255, 255))
        one.view.set_night(True)
        shown.until(lambda: one.screen().getpixel((2, 2)) == (0, 0, 0), 'the dark page')

    def test_night_leaves_what_surrounds_a_slide_dark(self):
        one = self.show('tour.pptx')
        middle = 180 * SCALE, 320 * SCALE
        self.assertEqual([one.screen().getpixel(at) for at in ((2, 2), middle)], [(0, 0, 0), (255, 255, 255)])
        one.view.set_night(True)
        shown.until(lambda: one.screen().getpixel(middle) == (0, 0, 0), 'the dark slide')
        self.assertEqual(one.screen().getpixel((2, 2)), (0, 0, 0))

    def test_follows_the_size_of_its_window(self):
        one = self.show('tour.docx')
        self.session.manager.resize(480 * SCALE, 500 * SCALE)
        shown.until(lambda: (one.document.get_width(), one.document.get_height()) == (480 * SCALE, 500 * SCALE), 'the size')
        one.settle()

    def test_comes_back_where_it_was_when_the_service_is_killed(self):
        one = self.show('tour.docx', scrolled=False)
        self.session.screen.key('Page_Down')
        shown.until(lambda: one.document.get_y() > 0, 'the page')
        one.settle()
        before, place = one.screen(), one.document.get_y()
        os.kill(self.session.service(), signal.SIGKILL)
        shown.until(one.document.get_gone, 'the end of the service')
        self.assertEqual(one.screen(), before, 'the last picture has gone')
        shown.until(lambda: not one.document.get_gone(), 'the document', 40)
        one.settle()
        self.assertEqual((one.screen(), one.document.get_y()), (before, place))

    def test_is_made_from_ui_files(self):
        builder = shown.Gtk.Builder.new_from_string(
            '<interface><object class="GtkScrolledWindow" id="all"><child><object class="LecternView" id="view">'
            '<property name="night">True</property></object></child></object></interface>', -1)
        view = builder.get_object('view')
        self.assertTrue(view.get_night())
        self.assertEqual(view.get_vadjustment(), builder.get_object('all').get_vadjustment())
        self.assertFalse(builder.get_object('all').get_kinetic_scrolling())


if __name__ == '__main__':
    main()
