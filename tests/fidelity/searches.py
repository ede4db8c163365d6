# SPDX-License-Identifier: Apache-2.0
"""Searches: are the words found, as often as an independent reader counts them, and are they marked?"""
import numpy

from fidelity.case import Case
from fidelity.cells import header_size
from fidelity.layout import LaidOutText
from fidelity.pictures import Box, changed_pixels, has_ink, rectangles_of
from fidelity.sampling import occurrences, sample, texts_with

WORDS = 20
IN_A_ROW = 10          # searches without closing the one before
LEAST_MARK = 4         # sides of a mark in pixels; smaller changes are the edges of letters
NARROWEST_LETTER = 0.1  # widths of letters as parts of the mark's height
WIDEST_LETTER = 1.7


def check_text_searches(case: Case, layout: LaidOutText | None) -> None:
    """Texts: ten searches one after another, then ten that are closed and looked at."""
    texts = [paragraph.text for paragraph in case.evidence.paragraphs]
    words = sample(texts, WORDS)
    for number, word in enumerate(words):
        case.seconds_left()
        hits = case.viewer.search(word)
        expected = occurrences(word, texts)
        case.outcome.judge('counts', hits == expected, f'"{word}": {hits} hits, the file has {expected}')
        if number >= IN_A_ROW and hits > 0:
            _check_text_mark(case, word, layout)
    if words:
        case.viewer.end_search()


def check_sheet_searches(case: Case) -> None:
    """The first sheet of a workbook: hits are cells. The suite may show another result of a formula than the file has
    stored, and words in numbers and dates."""
    texts = [cell.text for cell in case.evidence.cells]
    hidden = [cell.text for cell in case.evidence.cells if cell.hidden]
    words = [word for word in sample(texts, WORDS) if not texts_with(word, hidden)]
    for number, word in enumerate(words):
        case.seconds_left()
        hits = case.viewer.search(word)
        expected = {texts_with(word, sheet) for sheet in (texts, case.evidence.shown_cells) if sheet}
        case.outcome.judge('counts', hits in expected,
                           f'"{word}": {hits} cells, the file has {" or ".join(map(str, sorted(expected)))}')
        if number >= IN_A_ROW and hits > 0:
            _check_cell_mark(case, word)
    if words:
        case.viewer.end_search()


def check_slide_searches(case: Case) -> None:
    """Decks, whose hits are not counted: each word is marked on the slide that has it."""
    slides = case.evidence.slides
    for word in sample([text for slide in slides for text in slide], WORDS):
        case.seconds_left()
        number = next(i for i, slide in enumerate(slides) if occurrences(word, slide))
        if number >= case.viewer.slide_count():
            continue  # another check tells that slides are missing
        case.viewer.show_slide(number)
        before = case.viewer.paint().pixels
        case.viewer.search(word)
        marked = case.viewer.paint().pixels
        case.viewer.end_search()
        boxes = _marks(marked, before)
        elsewhere = sum(box.width * box.height for box in boxes) > before.shape[0] * before.shape[1] / 2
        right = bool(boxes) and not elsewhere and any(has_ink(before, box) for box in boxes)
        picture = None if right else case.keep(f'mark-{word}', [before, marked])
        case.outcome.judge('marks', right, f'"{word}" is not marked on slide {number + 1}', picture)


def fault_of_mark(box: Box, word: str, without: numpy.ndarray) -> str:
    """Why a mark cannot be that of the word; empty when it can."""
    if not has_ink(without, box):
        return 'a mark where nothing is written'
    if box.width > WIDEST_LETTER * len(word) * box.height:
        return 'a mark that is too wide for the word'
    if box.width < NARROWEST_LETTER * len(word) * box.height:
        return 'a mark that is too narrow for the word'
    return ''


def _marks(marked: numpy.ndarray, without: numpy.ndarray) -> list[Box]:
    return [box for box in rectangles_of(changed_pixels(marked, without))
            if box.width >= LEAST_MARK and box.height >= LEAST_MARK]


def _check_text_mark(case: Case, word: str, layout: LaidOutText | None) -> None:
    marked = case.viewer.paint()
    case.viewer.end_search()
    without = case.viewer.paint()
    boxes = _marks(marked.pixels, without.pixels) if (marked.x, marked.y) == (without.x, without.y) else []
    whole = [box for box in boxes if 0 < box.top and box.bottom < without.pixels.shape[0]]
    faults = [fault for box in whole if (fault := fault_of_mark(box, word, without.pixels))]
    if not boxes:
        faults.append('no mark on the screen')
    elif layout is not None and not faults:
        faults += [fault for box in whole if (fault := layout.fault_of_mark(box, word))]
    picture = case.keep(f'mark-{word}', [without.pixels, marked.pixels]) if faults else None
    case.outcome.judge('marks', not faults, f'"{word}": {faults[0] if faults else ""}', picture)


def _check_cell_mark(case: Case, word: str) -> None:
    """The view brings a hit into its frame, but the headers may push it out of sight: then it is moved by their size."""
    marked, without = _pictures_of_search(case, moved=False)
    if not _marks(marked, without):
        case.viewer.search(word)
        marked, without = _pictures_of_search(case, moved=True)
    boxes = _marks(marked, without)
    right = bool(boxes) and any(has_ink(without, box) for box in boxes)
    picture = None if right else case.keep(f'mark-{word}', [without, marked])
    case.outcome.judge('marks', right, f'"{word}": no mark on the screen', picture)


def _pictures_of_search(case: Case, moved: bool) -> tuple[numpy.ndarray, numpy.ndarray]:
    """Pictures with the marks of the running search, which then ends, and without them."""
    marked = case.viewer.paint()
    if moved:
        across, down = header_size(marked.pixels)
        case.viewer.scroll(marked.x + across, marked.y + down)
        marked = case.viewer.paint()
    case.viewer.end_search()
    return marked.pixels, case.viewer.paint().pixels
