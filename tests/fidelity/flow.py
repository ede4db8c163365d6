# SPDX-License-Identifier: Apache-2.0
"""The layout of a text: nothing on top of each other, nothing outside, all words there and in order."""
import collections
import math
import unicodedata

import numpy

from fidelity.case import Case
from fidelity.layout import LaidOutText, PlacedWord, contains, folded, is_right_to_left, lines_of, once_each
from fidelity.pictures import Box, has_ink
from fidelity.sampling import sample, words_of
from fidelity.word_text import Paragraph

WORDS = 200          # looked for in the layout
OUTSIDE = 2.0        # pixels beyond the layout's width that are overhanging letters
CORE = 0.6           # part of a word's height that contains letters
OVERLAP = 0.15       # part of the smaller word's core that overhanging letters may cover
BAND = 64            # rows in which words are compared with each other
SAME_LINE = 6.0      # rows by which the tops of words in a line may differ
FAINT = 16           # contrast of letters that are hardly to be seen
CLEARLY = 48         # contrast of what an eye sees at the edge of the screen
EDGE_COLUMNS = 2     # of the four pixels that a text leaves free there
MOST_EDGE_ROWS = 8   # punctuation of a line may hang out
SHOWN = 3            # examples in a fault's text


def check_flow(case: Case, layout: LaidOutText) -> None:
    paragraphs = case.evidence.paragraphs
    for faults, what in ((outside(layout), 'outside of the text'), (overlaps(layout), 'on top of each other'),
                         (missing(layout, paragraphs), 'not in the layout'),
                         (disordered(layout, paragraphs), 'not in reading order'),
                         (unpainted(layout, paragraphs, case.first_frame), 'not painted')):
        case.outcome.judge('flow', not faults, f'{len(faults)} words {what}: {", ".join(faults[:SHOWN])}')
    if case.first_frame is not None:
        rows = rows_with_ink_at_the_edges(case.first_frame)
        right = rows <= MOST_EDGE_ROWS
        picture = None if right else case.keep('edge', [case.first_frame])
        case.outcome.judge('flow', right, f'{rows} rows have something at the edge of the screen', picture)


def rows_with_ink_at_the_edges(frame: numpy.ndarray) -> int:
    """How many rows have something in the first or last columns, which lie outside of a text's margins."""
    count = 0
    for strip in (frame[:, :EDGE_COLUMNS].astype(numpy.int16), frame[:, -EDGE_COLUMNS:].astype(numpy.int16)):
        ink = (strip.reshape(-1, 3).max(axis=0) - strip).max(axis=2) > CLEARLY
        count += int(ink.any(axis=1).sum())
    return count


def outside(layout: LaidOutText) -> list[str]:
    return [word.text for word in layout.words
            if word.left < -OUTSIDE or word.right > layout.width + OUTSIDE + _hanging(word)]


def _hanging(word: PlacedWord) -> float:
    """East Asian punctuation at the end of a line may hang into the margin."""
    last = word.text[-1:] or ' '
    wide = unicodedata.east_asian_width(last) in ('W', 'F') and unicodedata.category(last).startswith('P')
    return word.bottom - word.top if wide else 0.0


def overlaps(layout: LaidOutText) -> list[str]:
    """Pairs of words that cover each other."""
    bands: dict[tuple[int, int], list[PlacedWord]] = collections.defaultdict(list)
    for word in layout.words:
        bands[word.page, int(word.top) // BAND].append(word)
    found = []
    for (page, band), words in bands.items():
        below = bands.get((page, band + 1), [])
        for number, word in enumerate(words):
            found += [f'"{word.text}" and "{other.text}"' for other in [*words[number + 1:], *below]
                      if _cover(word, other)]
    return found


def _cover(one: PlacedWord, other: PlacedWord) -> bool:
    across = min(one.right, other.right) - max(one.left, other.left)
    down = min(_core_bottom(one), _core_bottom(other)) - max(_core_top(one), _core_top(other))
    smaller = min(_core_area(one), _core_area(other))
    return (across > 0 and down > 0 and smaller > 0 and across * down > OVERLAP * smaller
            and not _are_same(one, other) and not _are_pieces(one, other))


def _are_same(one: PlacedWord, other: PlacedWord) -> bool:
    """A text drawn twice, as with a shadow, perhaps without its punctuation."""
    texts = [''.join(filter(str.isalnum, word.text)) for word in (one, other)]
    return one.text == other.text or (texts[0] == texts[1] and bool(texts[0]))


def _are_pieces(one: PlacedWord, other: PlacedWord) -> bool:
    """Joined letters in a line from right to left come from PDF as words that cover each other."""
    return (abs(one.top - other.top) < (one.bottom - one.top) / 2
            and is_right_to_left(one.text) and is_right_to_left(other.text))


def _core_top(word: PlacedWord) -> float:
    """A word's place is as high as its font, and lines may be closer: only the middle surely contains letters."""
    return word.top + (word.bottom - word.top) * (1 - CORE) / 2


def _core_bottom(word: PlacedWord) -> float:
    return word.bottom - (word.bottom - word.top) * (1 - CORE) / 2


def _core_area(word: PlacedWord) -> float:
    return (word.right - word.left) * (word.bottom - word.top) * CORE


def missing(layout: LaidOutText, paragraphs: list[Paragraph]) -> list[str]:
    """Words of the file that the layout does not show. A word may be broken over two lines, so the text is joined;
    in a line from right to left it may come backwards or in pieces, so its letters are looked for in each line."""
    joined = folded(''.join(word.text for word in layout.words))
    lines = lines_of(layout.words)
    return [word for word in sample([paragraph.text for paragraph in paragraphs], WORDS)
            if folded(word) not in joined and folded(word)[::-1] not in joined
            and not (is_right_to_left(word) and any(contains(line, folded(word)) for line in lines))]


def unpainted(layout: LaidOutText, paragraphs: list[Paragraph], frame: numpy.ndarray | None) -> list[str]:
    """Words of the file that the layout has on the first screen, and the picture does not. The layout also has notes,
    after the text, which are not shown: as many of a word need no ink as it has more often than the file."""
    if frame is None:
        return []
    in_file = collections.Counter(word for paragraph in paragraphs for word in map(folded, words_of(paragraph.text)))
    placed = [(word, placed) for placed in layout.words for word in map(folded, words_of(placed.text))]
    in_layout = collections.Counter(word for word, _ in placed)
    without_ink = collections.Counter(word for word, place in placed if _is_on(frame, place)
                                      and not has_ink(frame, _box(place), FAINT))
    return [word for word, count in without_ink.items() if count > max(in_layout[word] - in_file[word], 0)]


def _is_on(frame: numpy.ndarray, word: PlacedWord) -> bool:
    return (word.page == 0 and 0 <= word.left and word.right <= frame.shape[1]
            and 0 <= word.top and word.bottom <= frame.shape[0])


def _box(word: PlacedWord) -> Box:
    return Box(int(word.left), int(word.top), math.ceil(word.right), math.ceil(word.bottom))


def disordered(layout: LaidOutText, paragraphs: list[Paragraph]) -> list[str]:
    """Words of body paragraphs that stand above a word that comes before them. Cells of a row stand beside each
    other, and boxes where their paragraph is, so only words that stand once in the file and in the layout count."""
    places = once_each(layout.words)
    counts = collections.Counter(word for paragraph in paragraphs for word in map(folded, words_of(paragraph.text)))
    found = []
    before: PlacedWord | None = None
    for paragraph in paragraphs:
        for word in map(folded, words_of(paragraph.text) if paragraph.place == 'body' else []):
            place = places.get(word)
            if place is None or counts[word] != 1:
                continue
            if before is not None and (place.page, place.bottom) < (before.page, before.top + SAME_LINE):
                found.append(f'"{place.text}" above "{before.text}"')
            before = place
    return found
