# SPDX-License-Identifier: Apache-2.0
"""A touch screen with several fingers, through the socket of Xorg's inputtest driver.

The driver's records are C structs (xf86-input-inputtest-protocol.h of xserver-xorg-dev):
length and kind, then the record's own members; a touch has an id, a kind and the values
of up to 64 axes, of which a touch device uses the first two."""
import socket
import struct
import time

VERSION, WAIT_FOR_SYNC, TOUCH = 0, 1, 6
BEGIN, UPDATE, END = 18, 19, 20  # the X server's numbers of touch events
AXES = 64
FULL = 0xFFFF  # the range of a touch axis in the driver
STEP = 1 / 60  # a finger moves this often, in seconds


class TouchScreen:
    """Fingers by number; places in pixels of the screen."""

    def __init__(self, path, width, height):
        self.width, self.height = width, height
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(20)
        self.socket.connect(path)
        self._send(VERSION, struct.pack('=HH', 1, 1))
        self._read(12)

    def close(self):
        """Ends the connection."""
        self.socket.close()

    def _read(self, count):
        data = b''
        while len(data) < count:
            more = self.socket.recv(count - len(data))
            if not more:
                raise RuntimeError('the X server closed its touch screen')
            data += more
        return data

    def _send(self, kind, payload=b''):
        self.socket.sendall(struct.pack('=II', 8 + len(payload), kind) + payload)

    def _touch(self, kind, finger, x, y):
        axes = [(x + 0.5) * FULL / self.width, (y + 0.5) * FULL / self.height] + [0.0] * (AXES - 2)
        payload = struct.pack('=II', finger, kind)
        payload += struct.pack('@I8s64d64d', 0, b'\x03', *axes, *([0.0] * AXES))
        self._send(TOUCH, payload)
        self._send(WAIT_FOR_SYNC)
        self._read(8)

    def down(self, x, y, finger=0):
        """A finger touches."""
        self._touch(BEGIN, finger, x, y)

    def move(self, x, y, finger=0):
        """A finger moves."""
        self._touch(UPDATE, finger, x, y)

    def up(self, x, y, finger=0):
        """A finger leaves."""
        self._touch(END, finger, x, y)

    def tap(self, x, y):
        """A short touch."""
        self.down(x, y)
        self.up(x, y)

    def double_tap(self, x, y):
        """Two short touches."""
        self.tap(x, y)
        self.tap(x, y)

    def drag(self, start, end, seconds=0.3, hold=0.2):
        """A finger goes from one place to another and rests there before it leaves, so that
        nothing glides on. hold=0: it leaves in full movement, which is a fling."""
        self.down(*start)
        self.glide([(start, end)], seconds)
        if hold:
            time.sleep(hold)  # the length of the rest is what the gesture means
            self.move(*end)
        self.up(*end)

    def fling(self, start, end, seconds=0.12):
        """A finger that leaves in full movement."""
        self.drag(start, end, seconds, hold=0)

    def pinch(self, centre, before, after, seconds=0.4):
        """Two fingers, one left and one right of the centre, at a distance that changes."""
        def places(distance):
            return [(centre[0] - distance / 2, centre[1]), (centre[0] + distance / 2, centre[1])]
        for finger, place in enumerate(places(before)):
            self.down(*place, finger)
        self.glide(list(zip(places(before), places(after))), seconds)
        for finger, place in enumerate(places(after)):
            self.up(*place, finger)

    def glide(self, ways, seconds):
        """Moves the fingers along their ways, 60 times a second."""
        steps = max(1, round(seconds / STEP))
        begin = time.monotonic()
        for step in range(1, steps + 1):
            # A finger's speed is part of the gesture, so its time is kept.
            time.sleep(max(0.0, begin + step * STEP - time.monotonic()))
            for finger, (start, end) in enumerate(ways):
                self.move(start[0] + (end[0] - start[0]) * step / steps,
                          start[1] + (end[1] - start[1]) * step / steps, finger)
