# SPDX-License-Identifier: Apache-2.0
"""Presents slides."""
import unittest

from portal import ENVIRONMENT, Portal
from viewer import SAMPLES, ViewerTest
from window.case import main

DECK = SAMPLES / 'tour.pptx'
IDLE = 8  # of the portal's flags: the session does not become idle


class PresentingTest(ViewerTest):
    """Slides on one monitor."""

    SESSION = {'environment': ENVIRONMENT}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.portal = Portal()
        cls.addClassCleanup(cls.portal.close)

    def setUp(self):
        super().setUp()
        self.open(DECK)
        self.wait_for_picture(DECK)
        self.key('F5')
        self.wait_for_full_screen()

    def test_keys_and_clicks_turn_the_slides(self):
        self.wait_for_picture(DECK)
        self.key('space')
        self.wait_for_picture(DECK, '--slide', '2')
        self.session.screen.click(20, 780)
        self.wait_for_picture(DECK, '--slide', '3')
        self.key('Left')
        self.wait_for_picture(DECK, '--slide', '2')
        self.key('End')
        self.wait_for_picture(DECK, '--slide', '7')
        self.key('Home')
        self.wait_for_picture(DECK)

    def test_the_screen_stays_on_until_the_end(self):
        self.wait(lambda: self.portal.arguments('Inhibit'), 'the inhibition')
        self.assertEqual(self.portal.arguments('Inhibit')[1], IDLE)
        self.key('Escape')
        self.wait_for_window()


if __name__ == '__main__':
    main()
