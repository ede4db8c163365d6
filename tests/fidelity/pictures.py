# SPDX-License-Identifier: Apache-2.0
"""Comparing pictures. A picture is an array of rows of pixels of red, green and blue."""
import dataclasses
import pathlib

import numpy
from PIL import Image

CHANGED = 8  # difference of a channel that is more than rounding
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


def boxes_of(mask: numpy.ndarray) -> list[Box]:
    """The boxes around the connected parts of a mask."""
    done: list[Box] = []
    growing: list[Box] = []
    for row in range(mask.shape[0]):
        growing, finished = _grown(growing, _runs(mask[row]), row)
        done += finished
    return done + growing


def _runs(row: numpy.ndarray) -> list[tuple[int, int]]:
    edges = numpy.flatnonzero(numpy.diff(numpy.concatenate(([False], row, [False])).astype(numpy.int8)))
    return [(int(first), int(last)) for first, last in edges.reshape(-1, 2)]


def _grown(boxes: list[Box], runs: list[tuple[int, int]], row: int) -> tuple[list[Box], list[Box]]:
    """The boxes that reach this row, with its runs added, and those that ended above it."""
    reached = [Box(first, row, last, row + 1) for first, last in runs]
    finished = []
    for box in boxes:
        touching = [other for other in reached if other.left < box.right and box.left < other.right]
        if not touching:
            finished.append(box)
            continue
        reached = [other for other in reached if other not in touching]
        together = [box, *touching]
        reached.append(Box(min(b.left for b in together), min(b.top for b in together),
                           max(b.right for b in together), max(b.bottom for b in together)))
    return reached, finished


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
