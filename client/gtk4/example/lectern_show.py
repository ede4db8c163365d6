#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""lectern_show.py FILE: shows a document in a window."""
import sys

import gi

gi.require_version('Gtk', '4.0')
gi.require_version('Lectern', '1')
gi.require_version('LecternGtk', '1')
from gi.repository import Gio, GLib, Gtk, Lectern, LecternGtk  # noqa: E402 pylint: disable=wrong-import-position


class Show(Gtk.Application):
    """One window for each file."""

    def __init__(self, service):
        flags = Gio.ApplicationFlags.HANDLES_OPEN | Gio.ApplicationFlags.NON_UNIQUE
        super().__init__(application_id='com.kestrel.office.Show', flags=flags)
        self.service = service

    def do_open(self, files, _count, _hint):
        for file in files:
            window = Gtk.ApplicationWindow(application=self, default_width=360, default_height=640)
            document = Lectern.Document.new(self.service, file)
            window.set_child(Gtk.ScrolledWindow(child=LecternGtk.View(document=document)))
            document.open_async(None, None, self.opened, window)
            window.present()

    def opened(self, document, result, window):
        """Shows in the title why a document did not open."""
        try:
            document.open_finish(result)
        except GLib.Error as error:
            window.set_title(error.message)


Lectern.Service.isolate()  # first, while the process has one thread
sys.exit(Show(Lectern.Service.connect_sync(None)).run(sys.argv))
