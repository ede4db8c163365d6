#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""first_page.py DOCUMENT PICTURE: writes the first view of a document as a PNG picture."""
import sys
import cairo
import gi
gi.require_version('Lectern', '1')
from gi.repository import Gio, GLib, Lectern


def opened(document, result):
    try:
        document.open_finish(result)
    except GLib.Error as error:
        sys.exit(error.message)
    document.paint_async(None, painted)


def painted(document, result):
    document.paint_finish(result)
    pixels, width, height = document.get_frame()
    picture = cairo.ImageSurface.create_for_data(bytearray(pixels.get_data()), cairo.FORMAT_RGB24, width, height)
    picture.write_to_png(sys.argv[2])
    loop.quit()


Lectern.Service.isolate()  # for devices without the service on the session bus
service = Lectern.Service.connect_sync(None)
document = Lectern.Document.new(service, Gio.File.new_for_path(sys.argv[1]))
document.open_async(None, None, opened)
loop = GLib.MainLoop()
loop.run()
