# SPDX-License-Identifier: Apache-2.0
"""Pictures of a display, and a mouse and a keyboard by the XTEST extension."""
import contextlib

from PIL import Image, ImageChops
from Xlib import X, XK, display
from Xlib.ext import xtest

MODIFIERS = {'Ctrl': 'Control_L', 'Shift': 'Shift_L', 'Alt': 'Alt_L'}
NAMES = {' ': 'space', '\n': 'Return', '.': 'period', ',': 'comma', '-': 'minus', '/': 'slash', '_': 'underscore',
         ':': 'colon', '$': 'dollar', '=': 'equal', '+': 'plus', '?': 'question', '!': 'exclam', '"': 'quotedbl'}


class Screen:
    """Places in pixels of the screen."""

    def __init__(self, name):
        self.display = display.Display(name)
        self.root = self.display.screen().root

    def close(self):
        """Ends the connection."""
        self.display.close()

    def picture(self, box=None):
        """What is on the screen, as an RGB image. box: left, top, right, bottom."""
        whole = self.display.screen()
        left, top, right, bottom = box or (0, 0, whole.width_in_pixels, whole.height_in_pixels)
        size = right - left, bottom - top
        image = self.root.get_image(left, top, *size, X.ZPixmap, 0xFFFFFFFF)
        return Image.frombuffer('RGB', size, image.data, 'raw', 'BGRX', 0, 1).copy()

    def point(self, x, y):
        """Moves the mouse."""
        xtest.fake_input(self.display, X.MotionNotify, x=round(x), y=round(y))
        self.display.sync()

    def press(self, button=1):
        """A mouse button goes down."""
        xtest.fake_input(self.display, X.ButtonPress, button)
        self.display.sync()

    def release(self, button=1):
        """A mouse button goes up."""
        xtest.fake_input(self.display, X.ButtonRelease, button)
        self.display.sync()

    def click(self, x, y, button=1):
        """Moves the mouse and clicks. Buttons 4 to 7 are the wheel: up, down, left, right."""
        self.point(x, y)
        self.press(button)
        self.release(button)

    def key(self, combination):
        """Presses keys by their X names, such as 'Ctrl+Shift+f', 'Page_Down' or 'F5'."""
        *modifiers, name = combination.split('+')
        code, level = self._code(NAMES.get(name, name))
        if level == 1:
            modifiers.append('Shift')
        codes = [self._code(MODIFIERS[modifier])[0] for modifier in modifiers] + [code]
        for code in codes:
            xtest.fake_input(self.display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()

    @contextlib.contextmanager
    def held(self, modifier):
        """A modifier, such as 'Ctrl', is down meanwhile."""
        code = self._code(MODIFIERS[modifier])[0]
        xtest.fake_input(self.display, X.KeyPress, code)
        try:
            yield
        finally:
            xtest.fake_input(self.display, X.KeyRelease, code)
            self.display.sync()

    def _code(self, name):
        """The code of a key, and 0, or 1 if it needs Shift."""
        codes = self.display.keysym_to_keycodes(XK.string_to_keysym(name))
        if not codes:
            raise ValueError(f'no key is named {name}')
        return min(codes, key=lambda found: found[1])

    def write(self, text):
        """Types a text of ASCII characters."""
        for character in text:
            self.key('plus' if character == '+' else character)


def difference(one, other):
    """The share of pixels that differ visibly, 0.0 to 1.0; images of other sizes differ wholly. A
    channel may differ by 2, which is what a change of the pixel format can make."""
    if one.size != other.size:
        return 1.0
    channels = ImageChops.difference(one.convert('RGB'), other.convert('RGB')).split()
    largest = ImageChops.lighter(ImageChops.lighter(channels[0], channels[1]), channels[2])
    return sum(largest.histogram()[3:]) / (one.width * one.height)
