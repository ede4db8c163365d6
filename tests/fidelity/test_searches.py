# SPDX-License-Identifier: Apache-2.0
"""The checks of searches, with a viewer that finds and marks wrongly."""
import pathlib
import tempfile
import time
import unittest

import numpy

from fidelity.case import Case, OutOfTime, Programs
from fidelity.evidence import Evidence
from fidelity.outcome import Outcome, Tally
from fidelity.pictures import Box
from fidelity.sampling import occurrences
from fidelity.searches import check_sheet_searches, check_slide_searches, check_text_searches, fault_of_mark
from fidelity.sheet_text import Cell
from fidelity.viewer import Frame
from fidelity.word_text import Paragraph

TEXT = 'alpha bravo charlie delta echo foxtrot golf hotel india juliett lima'
INK = Box(20, 10, 60, 20)


class FakeViewer:
    """Shows a page with one word, finds words in a text, and marks a box of its picture."""

    def __init__(self, text: str, mark: Box | None = INK) -> None:
        self._text = text
        self._mark = mark
        self._searching = False

    def search(self, word: str) -> int:
        self._searching = True
        return occurrences(word, [self._text])

    def end_search(self) -> None:
        self._searching = False

    def show_slide(self, number: int) -> None:
        pass

    def scroll(self, x: int, y: int) -> None:
        pass

    def slide_count(self) -> int:
        return 1

    def paint(self) -> Frame:
        pixels = numpy.full((60, 100, 3), 255, numpy.uint8)
        pixels[INK.top + 3:INK.bottom - 3, INK.left + 1:INK.right - 1:3] = 0
        if self._searching and self._mark is not None:
            box = self._mark
            pixels[box.top:box.bottom, box.left:box.right] -= numpy.minimum(
                pixels[box.top:box.bottom, box.left:box.right], 60)
        return Frame(pixels, 0, 0)


class Searches(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self._folder = pathlib.Path(folder.name)

    def case(self, viewer: FakeViewer, evidence: Evidence, seconds: float = 60) -> Case:
        return Case(viewer, Programs(self._folder), evidence, Outcome(self._folder / 'a.docx', 'word'), self._folder,
                    self._folder / 'pictures', time.monotonic() + seconds)

    def checked_text(self, viewer: FakeViewer) -> Outcome:
        case = self.case(viewer, Evidence(paragraphs=[Paragraph(TEXT, 'body')]))
        check_text_searches(case, None)
        return case.outcome

    def test_right_counts_and_marks_have_no_fault(self) -> None:
        outcome = self.checked_text(FakeViewer(TEXT))
        self.assertEqual([], outcome.faults)
        self.assertEqual((Tally(11, 11), Tally(1, 1)), (outcome.tallies['counts'], outcome.tallies['marks']))

    def test_a_word_that_is_found_too_often_is_a_fault(self) -> None:
        outcome = self.checked_text(FakeViewer(TEXT + ' bravo'))
        self.assertEqual(['"bravo": 2 hits, the file has 1'], [fault.text for fault in outcome.faults])

    def test_a_word_that_is_not_found_is_a_fault(self) -> None:
        outcome = self.checked_text(FakeViewer(TEXT.replace('hotel', '')))
        self.assertEqual(['"hotel": 0 hits, the file has 1'], [fault.text for fault in outcome.faults])

    def test_a_hit_without_a_mark_is_a_fault_with_a_picture(self) -> None:
        outcome = self.checked_text(FakeViewer(TEXT, mark=None))
        self.assertEqual(['"lima": no mark on the screen'], [fault.text for fault in outcome.faults])
        picture = outcome.faults[0].picture
        self.assertTrue(picture is not None and picture.is_file())

    def test_a_mark_where_nothing_is_written_is_a_fault(self) -> None:
        outcome = self.checked_text(FakeViewer(TEXT, mark=Box(20, 40, 60, 50)))
        self.assertEqual(['"lima": a mark where nothing is written'], [fault.text for fault in outcome.faults])

    def test_a_mark_of_a_whole_field_is_too_wide_for_a_word_in_it(self) -> None:
        picture = FakeViewer(TEXT).paint().pixels
        self.assertEqual('', fault_of_mark(Box(20, 10, 60, 20), 'lima', picture))
        self.assertEqual('a mark that is too wide for the word', fault_of_mark(Box(20, 10, 95, 20), 'lima', picture))

    def test_a_sheet_is_searched_by_cells(self) -> None:
        cells = [Cell(0, 0, 'kilo kilo', False), Cell(0, 1, 'lima', False), Cell(0, 2, 'unseen', True)]
        case = self.case(FakeViewer('kilo lima lima'), Evidence(cells=cells))
        check_sheet_searches(case)
        self.assertEqual(['"lima": 2 cells, the file has 1'], [fault.text for fault in case.outcome.faults])

    def test_cells_are_also_counted_as_the_suite_shows_them(self) -> None:
        case = self.case(FakeViewer('lima lima'), Evidence(cells=[Cell(0, 0, 'lima', False)], shown_cells=['lima'] * 2))
        check_sheet_searches(case)
        self.assertEqual([], case.outcome.faults)

    def test_a_word_on_a_slide_must_be_marked_there(self) -> None:
        right = self.case(FakeViewer('lima'), Evidence(slides=[['lima']]))
        check_slide_searches(right)
        wrong = self.case(FakeViewer('lima', mark=None), Evidence(slides=[['lima']]))
        check_slide_searches(wrong)
        self.assertEqual([0, 1], [len(right.outcome.faults), len(wrong.outcome.faults)])

    def test_a_document_that_takes_too_long_is_given_up(self) -> None:
        with self.assertRaises(OutOfTime):
            check_text_searches(self.case(FakeViewer(TEXT), Evidence(paragraphs=[Paragraph(TEXT, 'body')]), seconds=-1),
                                None)


if __name__ == '__main__':
    unittest.main()
