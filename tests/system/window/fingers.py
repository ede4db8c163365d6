# SPDX-License-Identifier: Apache-2.0
"""What people do with their fingers, for every kind of touch screen."""
import time

STEP = 1 / 60  # a finger moves this often, in seconds


class Fingers:
    """Touch screens add down(), move(), up(). Places in pixels of the screen; several
    fingers have numbers from 0."""

    def down(self, x, y, finger=0):
        """A finger touches."""
        raise NotImplementedError

    def move(self, x, y, finger=0):
        """A finger moves."""
        raise NotImplementedError

    def up(self, x, y, finger=0):
        """A finger leaves, where it was last."""
        raise NotImplementedError

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
