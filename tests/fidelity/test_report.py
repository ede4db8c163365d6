# SPDX-License-Identifier: Apache-2.0
"""The report."""
import pathlib
import unittest

from fidelity.outcome import Outcome
from fidelity.report import is_right, line_of, table_of

FOLDER = pathlib.Path('/documents')


def outcome(name: str, kind: str, state: str = 'opened') -> Outcome:
    return Outcome(FOLDER / name, kind, state=state, suite_opens=True, seconds=0.5, megabytes=150)


class Report(unittest.TestCase):
    def test_a_line_tells_the_document_its_faults_and_their_pictures(self) -> None:
        wrong = outcome('deck.ppt', 'slide')
        wrong.judge('slides', False, 'slide 2 differs by 0.100', pathlib.Path('/pictures/deck.ppt-slide-2.png'))
        wrong.judge('marks', False, '"word" is not\nmarked')
        self.assertEqual('deck.ppt  slides: slide 2 differs by 0.100 [deck.ppt-slide-2.png]; marks: "word" is not marked',
                         line_of(wrong, FOLDER))

    def test_a_check_that_is_not_wanted_does_not_count(self) -> None:
        wanted = Outcome(FOLDER / 'a.docx', 'word', wanted=frozenset({'marks'}))
        wanted.judge('counts', False, 'not wanted')
        self.assertEqual([], wanted.faults)

    def test_many_faults_are_cut_short(self) -> None:
        wrong = outcome('a.docx', 'word')
        for number in range(5):
            wrong.judge('counts', False, f'fault {number}')
        self.assertEqual('a.docx  counts: fault 0; counts: fault 1; counts: fault 2; and 2 more', line_of(wrong, FOLDER))

    def test_a_line_of_every_document_tells_its_state_time_and_memory(self) -> None:
        right, lost = outcome('a.docx', 'word'), outcome('b.xls', 'sheet', 'lost')
        right.notes.append('no layout')
        self.assertEqual('a.docx  opened in 0.5 s, 150 MB, the suite opens it; no layout', line_of(right, FOLDER, True))
        self.assertEqual('b.xls  lost, the suite opens it', line_of(lost, FOLDER, True))

    def test_the_table_counts_what_was_right_of_what_was_tried(self) -> None:
        right, wrong = outcome('a.docx', 'word'), outcome('b.doc', 'word')
        right.judge('counts', True, '')
        wrong.judge('counts', False, 'none')
        table = '\n'.join(table_of([right, wrong, outcome('c.xls', 'sheet', 'lost')]))
        self.assertRegex(table, r'documents +2 +1 +3')
        self.assertRegex(table, r'  lost +0 +1 +1')
        self.assertRegex(table, r'  without a fault +1 +0 +1')
        self.assertRegex(table, r'counts: right of tried +1/2 +- +1/2')

    def test_a_lost_or_unfinished_document_is_not_right_and_a_refused_one_can_be(self) -> None:
        self.assertEqual([True, True, False, False],
                         [is_right(outcome('a.docx', 'word', state)) for state in ('opened', 'refused', 'lost', 'unfinished')])


if __name__ == '__main__':
    unittest.main()
