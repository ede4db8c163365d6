# SPDX-License-Identifier: Apache-2.0
"""Where the words of a text stand after Lectern's engine has laid it out.

The engine's layout is exported as PDF, and an independent program reads the words' places from it."""
import collections
import dataclasses
import pathlib
import re
import subprocess
import unicodedata
import xml.etree.ElementTree as ET

from fidelity.pictures import Box

POINTS_PER_INCH = 72
RESOLUTION = 1440  # of the places; pdftotext leaves out most letters that are smaller than 3 units
NEAR = 4.0  # pixels between a mark and its word that are rounding or overhanging letters
CONTROL = re.compile('[\x00-\x08\x0b\x0c\x0e-\x1f]')
STEMS = ('xMin', 'yMin', 'xMax', 'yMax')


@dataclasses.dataclass
class PlacedWord:
    text: str
    page: int
    left: float  # pixels of the layout
    top: float
    right: float
    bottom: float


class NoLayout(Exception):
    """The layout could not be exported or read."""


@dataclasses.dataclass
class LaidOutText:
    width: float  # of the layout in pixels
    words: list[PlacedWord]

    def fault_of_mark(self, box: Box, word: str) -> str:
        """Tells when no word of the layout that contains the searched one has a mark's columns."""
        wanted = folded(word)
        places = [placed for placed in self.words if contains(placed.text, wanted)]
        if not places or any(placed.left - NEAR <= box.left and box.right <= placed.right + NEAR for placed in places):
            return ''
        return 'a mark beside the word'


def folded(text: str) -> str:
    """A text as it is compared: in the same case, and with ligatures taken apart."""
    return unicodedata.normalize('NFKC', text).casefold()


def contains(text: str, wanted: str) -> bool:
    """Letters written from right to left come from PDF in another order, so only the same set of them is asked for."""
    written = folded(text)
    if is_right_to_left(wanted):
        return not collections.Counter(wanted) - collections.Counter(written)
    return wanted in written


def is_right_to_left(text: str) -> bool:
    return any(unicodedata.bidirectional(letter) in ('R', 'AL') for letter in text)


def lay_out(program: pathlib.Path, path: pathlib.Path, width: int, dpi: int, scratch: pathlib.Path,
            seconds: float) -> LaidOutText:
    pdf = scratch / 'layout.pdf'
    try:
        subprocess.run([program, path.resolve(), str(width), str(dpi), pdf], check=True, capture_output=True,
                       timeout=seconds)
        listed = subprocess.run(['pdftotext', '-r', str(RESOLUTION), '-bbox', pdf, '-'], check=True, capture_output=True,
                                timeout=seconds).stdout
    except (subprocess.SubprocessError, OSError) as failure:
        raise NoLayout(str(failure)) from failure
    return read_words(listed.decode('utf-8', 'replace'), width)


def read_words(listed: str, width: int) -> LaidOutText:
    """Reads pdftotext's list. The pages of a long layout are scaled down, so their width, which is in points, tells the
    scale."""
    root = ET.fromstring(CONTROL.sub('', listed))
    words = []
    for number, page in enumerate(element for element in root.iter() if element.tag.endswith('page')):
        scale = width / float(page.get('width', width)) * POINTS_PER_INCH / RESOLUTION
        for word in page:
            left, top, right, bottom = (float(word.get(name, 0)) * scale for name in STEMS)
            words.append(PlacedWord(word.text or '', number, left, top, right, bottom))
    return LaidOutText(float(width), words)


def lines_of(words: list[PlacedWord]) -> list[str]:
    """The texts of the words that have the same top, together."""
    lines: dict[tuple[int, int], str] = collections.defaultdict(str)
    for word in words:
        lines[word.page, round(word.top)] += word.text
    return list(lines.values())


def once_each(words: list[PlacedWord]) -> dict[str, PlacedWord]:
    """The words that stand in the layout only once, by their folded text."""
    counts = collections.Counter(folded(word.text) for word in words)
    return {folded(word.text): word for word in words if counts[folded(word.text)] == 1}
