# SPDX-License-Identifier: Apache-2.0
"""The slides of a deck, against the suite's own export as PDF."""
import pathlib
import re
import subprocess
from collections.abc import Iterator

import numpy

from fidelity.case import Case
from fidelity.pictures import mean_difference, read_ppm_stream

WIDTH = 960              # of the compared pictures
MOST_DIFFERENT = 0.02    # mean difference of two pictures of a slide that look alike
SLIDES_AT_ONCE = 16
PAGES = re.compile(r'^Pages:\s+(\d+)', re.MULTILINE)
PAGE_SIZE = re.compile(r'^Page size:\s+([\d.]+) x ([\d.]+)', re.MULTILINE)


def picture_height(pdf: pathlib.Path, seconds: float) -> tuple[int, int]:
    """Number of pages, and the height of a page that is WIDTH wide: even, as the view's pictures are."""
    told = subprocess.run(['pdfinfo', pdf], check=True, capture_output=True, text=True, timeout=seconds).stdout
    pages, size = PAGES.search(told), PAGE_SIZE.search(told)
    if pages is None or size is None:
        raise ValueError('not a PDF')
    height = int(WIDTH * float(size.group(2)) / float(size.group(1)))
    return int(pages.group(1)), height + height % 2


def check_slides(case: Case, pages: int, height: int) -> None:
    assert case.evidence.pdf is not None
    count = case.viewer.slide_count()
    case.outcome.judge('slides', count == pages, f'{count} slides, the suite exports {pages}')
    for number, exported in enumerate(_exported(case, min(count, pages), height)):
        case.seconds_left()
        case.viewer.show_slide(number)
        shown = case.viewer.paint().pixels
        difference = mean_difference(shown, exported)
        right = difference < MOST_DIFFERENT
        picture = None if right else case.keep(f'slide-{number + 1}', [shown, exported])
        case.outcome.judge('slides', right, f'slide {number + 1} differs by {difference:.3f}', picture)


def _exported(case: Case, count: int, height: int) -> Iterator[numpy.ndarray]:
    for first in range(1, count + 1, SLIDES_AT_ONCE):
        last = min(first + SLIDES_AT_ONCE - 1, count)
        painted = subprocess.run(
            ['pdftoppm', '-f', str(first), '-l', str(last), '-scale-to-x', str(WIDTH), '-scale-to-y', str(height),
             str(case.evidence.pdf)], check=True, capture_output=True, timeout=case.seconds_left()).stdout
        yield from read_ppm_stream(painted)
