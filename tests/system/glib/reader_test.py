#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""A reader in Python: opens, scrolls, searches and reopens a document of each kind."""
import os
import pathlib
import signal
import unittest

import gi
gi.require_version('Lectern', '1')
from gi.repository import Gio, GLib, Lectern

SAMPLES = pathlib.Path(os.environ['LECTERN_SAMPLES'])


def call(document, name, *arguments):
    """Makes the call NAME of a document; returns its value when it has ended."""
    ended = []
    getattr(document, name + '_async')(*arguments, None, lambda _document, result: ended.append(result))
    wait(lambda: ended)
    return getattr(document, name + '_finish')(ended[0])


def wait(condition):
    while not condition():
        GLib.MainContext.default().iteration(True)


def descendants(process):
    try:
        children = pathlib.Path(f'/proc/{process}/task/{process}/children').read_text().split()
    except (FileNotFoundError, ProcessLookupError):  # it has ended meanwhile
        return
    for child in map(int, children):
        yield child
        yield from descendants(child)


def runs_service(process):
    try:
        return os.readlink(f'/proc/{process}/exe').endswith('/lectern-service')
    except (FileNotFoundError, ProcessLookupError):
        return False


def kill_service():
    services = [process for process in descendants(os.getpid()) if runs_service(process)]
    for process in services:
        os.kill(process, signal.SIGKILL)


class Reader:
    name = kind = parts = None

    def setUp(self):
        self.notified = []
        self.document = Lectern.Document.new(SERVICE, Gio.File.new_for_path(str(SAMPLES / self.name)))
        self.document.set_property('width', 400)
        self.document.set_property('height', 300)
        self.document.connect('notify', lambda _document, spec: self.notified.append(spec.name))
        self.assertTrue(call(self.document, 'open', None))

    def paint(self):
        painted, damage = call(self.document, 'paint')
        self.assertTrue(painted)
        return damage

    def test_opens(self):
        self.assertEqual(self.document.props.kind, self.kind)
        self.assertEqual(self.document.props.n_parts, self.parts)
        self.assertTrue(self.document.props.opened)
        self.assertEqual((self.paint().width, self.paint().width), (400, 0))
        pixels, width, height = self.document.get_frame()
        self.assertEqual((width, height, pixels.get_size()), (400, 300, 400 * 300 * 4))
        self.assertGreater(len(set(pixels.get_data())), 2, 'a picture of one colour')

    def test_scrolls(self):
        call(self.document, 'zoom_to', 2.0, -1, -1)
        call(self.document, 'scroll_to', 0, 100)
        self.notified.clear()
        self.assertGreater(self.paint().height, 0)
        self.assertEqual(self.document.props.y, 100)
        self.assertEqual(self.notified.count('y'), 1)

    def test_searches(self):
        self.assertTrue(call(self.document, 'search', 'the', Lectern.SearchFlags.NONE))
        hit, hits = self.document.props.hit, self.document.props.n_hits
        call(self.document, 'next_hit')
        self.assertEqual(self.document.props.hit, (hit + 1) % hits)
        with self.assertRaises(GLib.Error) as nothing:
            call(self.document, 'search', 'no such words', Lectern.SearchFlags.NONE)
        self.assertTrue(nothing.exception.matches(Lectern.ServiceError.quark(), Lectern.ServiceError.NOTHING_THERE))

    def test_reads(self):
        call(self.document, 'select', Lectern.SelectUnit.ALL, 0, 0)
        selection = call(self.document, 'get_selection')
        self.assertIn('a', selection.text)
        rectangles = [selection.get_rectangle(number) for number in range(selection.n_rectangles)]
        self.assertGreater(len(rectangles), 0)
        self.assertTrue(all(rectangle.height > 0 for rectangle in rectangles))
        lines = call(self.document, 'get_text')
        self.assertTrue(all(line.text and line.place.height > 0 for line in lines))
        self.assertGreater(len(lines), 2)
        outline = call(self.document, 'get_outline')
        self.assertEqual([entry.props.number for entry in outline], list(range(len(outline))))
        self.assertTrue(all(entry.get_title() for entry in outline))
        properties = call(self.document, 'get_properties')
        self.assertEqual(properties.title, self.document.props.title)
        self.assertEqual(properties.author, 'The Lectern makers')

    def test_reopens(self):
        call(self.document, 'zoom_to', 2.0, -1, -1)
        call(self.document, 'scroll_to', 0, 100)
        self.paint()
        kill_service()
        wait(lambda: self.document.props.gone)
        with self.assertRaises(GLib.Error) as gone:
            call(self.document, 'paint')
        self.assertTrue(gone.exception.matches(Lectern.ServiceError.quark(), Lectern.ServiceError.GONE))
        self.assertTrue(call(self.document, 'reopen'))
        self.assertFalse(self.document.props.gone)
        self.paint()
        self.assertEqual((self.document.props.y, self.document.props.zoom), (100, 2.0))


class Text(Reader, unittest.TestCase):
    name, kind, parts = 'tour.docx', Lectern.DocumentKind.TEXT, 1

    def test_has_no_parts(self):
        with self.assertRaises(GLib.Error) as failed:
            call(self.document, 'go_to_part', 1)
        self.assertTrue(failed.exception.matches(Lectern.ServiceError.quark(), Lectern.ServiceError.WRONG_KIND))


class Spreadsheet(Reader, unittest.TestCase):
    name, kind, parts = 'tour.xlsx', Lectern.DocumentKind.SPREADSHEET, 5

    def test_shows_sheets_and_cells(self):
        call(self.document, 'go_to_part', 1)
        self.assertEqual(self.document.props.part, 1)
        cell = call(self.document, 'get_cell', 1, 2)
        self.assertEqual((cell.column, cell.row, cell.address), (1, 2, 'B3'))


class Presentation(Reader, unittest.TestCase):
    name, kind, parts = 'tour.pptx', Lectern.DocumentKind.PRESENTATION, 7

    def test_shows_slides_notes_and_thumbnails(self):
        call(self.document, 'go_to_part', 2)
        self.assertEqual(self.document.props.part, 2)
        self.assertIsInstance(call(self.document, 'get_note'), str)
        self.assertEqual(call(self.document, 'get_thumbnail', 1, 160, 90).get_size(), 160 * 90 * 4)


class Failures(unittest.TestCase):
    def open(self, name, password=None):
        document = Lectern.Document.new(SERVICE, Gio.File.new_for_path(str(SAMPLES / name)))
        return document, (lambda word=password: call(document, 'open', word))

    def test_a_locked_document_opens_with_its_password(self):
        document, attempt = self.open('locked.docx')
        for word, code in ((None, Lectern.DocumentError.NEEDS_PASSWORD), ('no', Lectern.DocumentError.WRONG_PASSWORD)):
            with self.assertRaises(GLib.Error) as refused:
                attempt(word)
            self.assertTrue(refused.exception.matches(Lectern.DocumentError.quark(), code))
        self.assertTrue(attempt('harbour'))
        self.assertTrue(document.props.opened)

    def test_a_missing_file_is_not_found(self):
        _, attempt = self.open('no such file.docx')
        with self.assertRaises(GLib.Error) as missing:
            attempt()
        self.assertTrue(missing.exception.matches(Lectern.DocumentError.quark(), Lectern.DocumentError.NOT_FOUND))


if __name__ == '__main__':
    Lectern.Service.isolate()
    SERVICE = Lectern.Service.connect_sync(None)
    unittest.main()
