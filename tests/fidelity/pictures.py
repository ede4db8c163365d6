# SPDX-License-Identifier: Apache-2.0
"""Comparing pictures. A picture is an array of rows of pixels of red, green and blue."""
import dataclasses
import pathlib

import numpy
from PIL import Image

CHANGED = 8  # difference of a channel that is more than rounding
INK = 60     # contrast of letters in a channel
UNEVEN = 6   # columns by which the sides of a rectangle may differ where a letter stands on them
GAP = 4      # columns between two pictures that are kept side by side


@dataclasses.dataclass
class Box:
    """A rectangle of pixels; right and bottom are outside of it."""
    left: int
    top: int
    right: int
    bottom: int

    @property
    def width(self) -> int:
        return self.right - self.left

    @property
    def height(self) -> int:
        return self.bottom - self.top


def mean_difference(one: numpy.ndarray, other: numpy.ndarray) -> float:
    """The mean difference of all channels of all pixels, from 0 to 1."""
    return float(numpy.abs(one.astype(numpy.int16) - other.astype(numpy.int16)).mean()) / 255


def changed_pixels(one: numpy.ndarray, other: numpy.ndarray, least: int = CHANGED) -> numpy.ndarray:
    """For each pixel whether a channel differs by at least so much."""
    return (numpy.abs(one.astype(numpy.int16) - other.astype(numpy.int16)) >= least).any(axis=2)


# The leftmost and the rightmost pixel of each row of a connected part; the second is outside of it.
Extents = dict[int, tuple[int, int]]


def rectangles_of(mask: numpy.ndarray) -> list[Box]:
    """The rectangles that the connected parts of a mask consist of. Letters may be missing in them. Where the sides move,
    as from one line of a text to the next, another rectangle begins."""
    return [box for part in _connected(mask) for box in _divided(part)]


def _connected(mask: numpy.ndarray) -> list[Extents]:
    done: list[Extents] = []
    growing: list[Extents] = []
    for row in range(mask.shape[0]):
        for left, right in _runs(mask[row]):
            touching = [part for part in growing if _touches(part, row, left, right)]
            growing = [part for part in growing if not any(part is other for other in touching)]
            growing.append(_joined([*touching, {row: (left, right)}]))
        done += [part for part in growing if row not in part]
        growing = [part for part in growing if row in part]
    return done + growing


def _touches(part: Extents, row: int, left: int, right: int) -> bool:
    return any(near in part and part[near][0] < right and left < part[near][1] for near in (row - 1, row))


def _joined(parts: list[Extents]) -> Extents:
    whole = parts[0]
    for part in parts[1:]:
        for row, (left, right) in part.items():
            known = whole.get(row, (left, right))
            whole[row] = (min(left, known[0]), max(right, known[1]))
    return whole


def _divided(part: Extents) -> list[Box]:
    boxes: list[Box] = []
    for row, (left, right) in sorted(part.items()):
        last = boxes[-1] if boxes else None
        if last and abs(last.left - left) <= UNEVEN and abs(last.right - right) <= UNEVEN:
            boxes[-1] = Box(min(last.left, left), last.top, max(last.right, right), row + 1)
        else:
            boxes.append(Box(left, row, right, row + 1))
    return boxes


def _runs(row: numpy.ndarray) -> list[tuple[int, int]]:
    edges = numpy.flatnonzero(numpy.diff(numpy.concatenate(([False], row, [False])).astype(numpy.int8)))
    return [(first, last) for first, last in edges.reshape(-1, 2).tolist()]


def has_ink(picture: numpy.ndarray, box: Box, least: int = INK) -> bool:
    """True when a box is not of one colour: something is drawn in it, of at least this contrast."""
    part = picture[box.top:box.bottom, box.left:box.right].astype(numpy.int16)
    return part.size > 0 and int((part.max(axis=(0, 1)) - part.min(axis=(0, 1))).max()) > least


def is_uniform(picture: numpy.ndarray) -> bool:
    return bool((picture == picture[0, 0]).all())


def keep_side_by_side(path: pathlib.Path, pictures: list[numpy.ndarray]) -> pathlib.Path:
    """Writes pictures beside each other, and returns the file's path."""
    height = max(picture.shape[0] for picture in pictures)
    padded = []
    for picture in pictures:
        column = numpy.full((height, picture.shape[1] + GAP, 3), 128, numpy.uint8)
        column[:picture.shape[0], :picture.shape[1]] = picture
        padded.append(column)
    path.parent.mkdir(parents=True, exist_ok=True)
    Image.fromarray(numpy.concatenate(padded, axis=1)).save(path)
    return path


def read_ppm_stream(data: bytes) -> list[numpy.ndarray]:
    """The pictures of a stream of binary PPM files without comments, as pdftoppm writes it."""
    pictures = []
    place = 0
    while place < len(data):
        kind, width, height, _, = data[place:place + 64].split(maxsplit=4)[:4]
        if kind != b'P6':
            raise ValueError('not a PPM picture')
        start = place + data[place:place + 64].index(b'255\n') + 4
        place = start + int(width) * int(height) * 3
        pictures.append(numpy.frombuffer(data[start:place], numpy.uint8).reshape(int(height), int(width), 3))
    return pictures
