# SPDX-License-Identifier: Apache-2.0
"""Comparing pictures. A picture is an array of rows of pixels of red, green and blue."""
import dataclasses
import pathlib

import numpy
from PIL import Image

CHANGED = 8  # difference of a channel that is more than rounding
UNEVEN = 3   # columns by which the rows of a rectangle may differ, and the widest gap in them
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


def rectangles_of(mask: numpy.ndarray) -> list[Box]:
    """The rectangles that a mask consists of. Where the sides move, as from one line to the next, another begins."""
    done: list[Box] = []
    growing: list[Box] = []
    for row in range(mask.shape[0]):
        reached = []
        for left, right in _runs(mask[row]):
            above = next((box for box in growing if _continues(box, left, right)), None)
            if above is not None:
                growing.remove(above)
            top = above.top if above is not None else row
            reached.append(Box(min(left, above.left) if above else left, top,
                               max(right, above.right) if above else right, row + 1))
        done += growing
        growing = reached
    return done + growing


def _continues(box: Box, left: int, right: int) -> bool:
    return abs(box.left - left) <= UNEVEN and abs(box.right - right) <= UNEVEN


def _runs(row: numpy.ndarray) -> list[tuple[int, int]]:
    """The changed parts of a row; a small gap, such as a black letter, does not end a part."""
    edges = numpy.flatnonzero(numpy.diff(numpy.concatenate(([False], row, [False])).astype(numpy.int8)))
    runs: list[tuple[int, int]] = []
    for first, last in edges.reshape(-1, 2).tolist():
        if runs and first - runs[-1][1] <= UNEVEN:
            runs[-1] = (runs[-1][0], last)
        else:
            runs.append((first, last))
    return runs


def has_ink(picture: numpy.ndarray, box: Box) -> bool:
    """True when a box is not of one colour: something is drawn in it."""
    part = picture[box.top:box.bottom, box.left:box.right].astype(numpy.int16)
    return part.size > 0 and int((part.max(axis=(0, 1)) - part.min(axis=(0, 1))).max()) > 60


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
