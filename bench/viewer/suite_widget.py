# SPDX-License-Identifier: Apache-2.0
"""suite_widget.py FILE WIDTH HEIGHT: the smallest program that shows a document with the suite's own widget for GTK 3."""
import sys

import gi

gi.require_version('Gtk', '3.0')
gi.require_version('LOKDocView', '0.1')
from gi.repository import Gtk, LOKDocView  # noqa: E402 pylint: disable=wrong-import-position


def opened(widget, result):
    """A reader, not an editor."""
    widget.open_document_finish(result)
    widget.set_edit(False)


window = Gtk.Window(default_width=int(sys.argv[2]), default_height=int(sys.argv[3]))
window.connect('destroy', Gtk.main_quit)
scrolled = Gtk.ScrolledWindow()
view = LOKDocView.View.new('/usr/lib/libreoffice/program', None)
scrolled.add(view)
window.add(scrolled)
view.open_document(sys.argv[1], '{}', None, opened)
window.show_all()
Gtk.main()
