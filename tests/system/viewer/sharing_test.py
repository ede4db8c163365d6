# SPDX-License-Identifier: Apache-2.0
"""Saves, exports, mails and prints by the portal of the desktop."""
import unittest

from gi.repository import GLib
from portal import ENVIRONMENT, Portal
from viewer import SAMPLES, ViewerTest
from window.case import main

TOUR = SAMPLES / 'tour.docx'


class SharingTest(ViewerTest):
    """What leaves the viewer."""

    SESSION = {'environment': ENVIRONMENT}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.portal = Portal()
        cls.addClassCleanup(cls.portal.close)

    def choose(self, *menu):
        """Chooses an item of the main menu."""
        self.button('Main Menu').click()
        for item in menu:
            self.button(item, 'menu item').click()

    def saved(self, name, *menu):
        """What a file holds that a menu item saves."""
        target = self.session.folder / name
        self.portal.results['SaveFile'] = {'uris': GLib.Variant('as', [target.as_uri()])}
        self.choose(*menu)
        self.wait(lambda: target.exists() and target.stat().st_size > 0, 'the saved file')
        return target.read_bytes()

    def test_a_copy_is_saved(self):
        self.open(TOUR)
        self.assertEqual(self.saved('copy.docx', 'Edit and Share', 'Save a Copy…'), TOUR.read_bytes())

    def test_a_document_is_exported_as_pdf(self):
        self.open(TOUR)
        self.assertEqual(self.saved('tour.pdf', 'Edit and Share', 'Export as PDF…')[:5], b'%PDF-')

    def test_a_document_is_exported_as_text(self):
        self.open(TOUR)
        self.assertIn('What to bring', self.saved('tour.txt', 'Edit and Share', 'Export as Text…').decode())

    def test_a_mail_gets_the_file(self):
        self.open(TOUR)
        self.choose('Edit and Share', 'Mail…')
        call = self.wait(lambda: self.portal.arguments('ComposeEmail'), 'a mail')
        self.assertEqual(call[1]['subject'], 'tour.docx')
        self.assertEqual(call[-1], TOUR.read_bytes())

    def test_a_document_is_printed_as_pdf_and_leaves_no_file(self):
        self.open(TOUR)
        self.choose('Print…')
        _, title, _, options, pdf = self.wait(lambda: self.portal.arguments('Print'), 'a print job')
        self.assertEqual((title, options['token'], pdf[:5]), ('tour.pdf', 7, b'%PDF-'))
        self.assertEqual([entry.name for entry in self.session.folder.glob('lectern-*/*.pdf')], [])


if __name__ == '__main__':
    main()
