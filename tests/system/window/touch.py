# SPDX-License-Identifier: Apache-2.0
"""A touch screen with several fingers, through the socket of Xorg's inputtest driver.

The driver's records are C structs (xf86-input-inputtest-protocol.h of xserver-xorg-dev):
length and kind, then the record's own members; a touch has an id, a kind and the values
of up to 64 axes, of which a touch device uses the first two."""
import socket
import struct

from window.fingers import Fingers

VERSION, WAIT_FOR_SYNC, TOUCH = 0, 1, 6
BEGIN, UPDATE, END = 18, 19, 20  # the X server's numbers of touch events
AXES = 64
FULL = 0xFFFF  # the range of a touch axis in the driver


class TouchScreen(Fingers):
    """The touch screen of a display of this size."""

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
        self._touch(BEGIN, finger, x, y)

    def move(self, x, y, finger=0):
        self._touch(UPDATE, finger, x, y)

    def up(self, x, y, finger=0):
        self._touch(END, finger, x, y)
