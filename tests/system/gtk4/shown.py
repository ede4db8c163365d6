# SPDX-License-Identifier: Apache-2.0
"""A view in a window of the test's own process, which has a session already."""
import threading

import gi

gi.require_version('Gtk', '4.0')
gi.require_version('Lectern', '1')
gi.require_version('LecternGtk', '1')
from gi.repository import Gio, GLib, Gtk, Lectern, LecternGtk  # noqa: E402 pylint: disable=wrong-import-position
from PIL import Image  # noqa: E402 pylint: disable=wrong-import-position


def until(condition, what, seconds=20):
    """Runs the main loop until the condition is true, and returns its value. What the loop
    has to do comes first, however long the condition takes."""
    late = []
    timers = [GLib.timeout_add(10, lambda: True, priority=GLib.PRIORITY_LOW),
              GLib.timeout_add(seconds * 1000, lambda: late.append(1) or True, priority=GLib.PRIORITY_LOW)]
    try:
        while not (value := condition()):
            if late:
                raise AssertionError(f'{what} did not come')
            GLib.MainContext.default().iteration(True)
        return value
    finally:
        for timer in timers:
            GLib.source_remove(timer)


def run(seconds):
    """Runs the main loop for a time in which nothing must happen."""
    done = []
    GLib.timeout_add(round(seconds * 1000), lambda: done.append(1))
    until(lambda: done, 'the time', seconds + 5)


def do(action, *arguments):
    """Does what takes time, such as a gesture, while the main loop runs."""
    thread = threading.Thread(target=action, args=arguments)
    thread.start()
    until(lambda: not thread.is_alive(), 'the end of an action')
    thread.join()


class Shown:
    """A document in a view, at the left top corner of the screen."""

    def __init__(self, session, path, *, width=360, height=640, scrolled=False, dpi=132):
        self.session = session
        self.pictures = 0
        self.document = Lectern.Document.new(Lectern.Service.connect_sync(None), Gio.File.new_for_path(str(path)))
        self.view = LecternGtk.View(dpi=dpi, document=self.document)
        self.window = Gtk.Window(default_width=width, default_height=height, title='View')
        self.scrolled = Gtk.ScrolledWindow(child=self.view) if scrolled else None
        self.window.set_child(self.scrolled or self.view)
        self.window.present()
        self.call(self.document.open_async, None)
        self.view.grab_focus()
        self.settle()

    def call(self, call, *arguments):
        """Makes a call of the document and returns when it has ended."""
        ended = []
        call(*arguments, None, lambda _, result: ended.append(result))
        return until(lambda: ended, 'the end of a call')[0]

    def settle(self):
        """Runs until the screen shows the document's picture."""
        until(lambda: self.frame() and self.screen() == self.frame(), 'the picture on the screen')

    def frame(self):
        """The document's picture; None before the first one."""
        frame, width, height = self.document.get_frame()
        scale = self.view.get_scale()
        size = round(self.view.get_width() * scale), round(self.view.get_height() * scale)
        if not frame or (width, height) != size:
            return None
        return Image.frombytes('RGB', (width, height), frame.get_data()[:width * height * 4], 'raw', 'BGRX')

    def screen(self):
        """What the screen shows of the view."""
        scale = self.view.get_scale()
        return self.session.screen.picture((0, 0, round(self.view.get_width() * scale),
                                            round(self.view.get_height() * scale)))

    def selected(self):
        """The text of the selection."""
        try:
            return self.document.get_selection_finish(self.call(self.document.get_selection_async)).text
        except GLib.Error:
            return ''

    def line(self, text):
        """The place of the first line on the screen that begins with a text."""
        lines = self.document.get_text_finish(self.call(self.document.get_text_async))
        return next(line.place for line in lines if line.text.strip('\u2022 \t').startswith(text))

    def close(self):
        """Ends the window and the document."""
        self.window.destroy()
        run(0.1)
