# SPDX-License-Identifier: Apache-2.0
"""A small window for the tests of the harness: an entry, a button that copies it to the
clipboard, and an area that tells of touches, pinches and its colour."""
import gi

gi.require_version('Gtk', '4.0')
gi.require_version('Gdk', '4.0')
from gi.repository import Gdk, Gtk  # noqa: E402 pylint: disable=wrong-import-position


def tell(label, text):
    """Shows and prints what happened."""
    label.set_label(text)
    print(text, flush=True)


def show(application):
    """Builds the window."""
    window = Gtk.ApplicationWindow(application=application, title='Hello', default_width=360, default_height=640)
    box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
    entry, label = Gtk.Entry(), Gtk.Label(label='nothing yet')
    button = Gtk.Button(label='Copy')
    button.connect('clicked', lambda *_: Gdk.Display.get_default().get_clipboard().set(entry.get_text()))
    area = Gtk.DrawingArea(vexpand=True, hexpand=True)
    area.set_draw_func(lambda _, context, *__: (context.set_source_rgb(1, 0, 0), context.paint()))
    zoom = Gtk.GestureZoom()
    zoom.connect('scale-changed', lambda _, scale: tell(label, f'pinch {scale:.1f}'))
    drag = Gtk.GestureDrag()
    drag.connect('drag-end', lambda _, x, y: tell(label, f'drag {x:.0f} {y:.0f}'))
    for gesture in (zoom, drag):
        area.add_controller(gesture)
    for child in (entry, button, label, area):
        box.append(child)
    window.set_child(box)
    window.present()


application = Gtk.Application(application_id='com.kestrel.office.Hello')
application.connect('activate', show)
application.run()
