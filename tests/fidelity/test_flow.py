# SPDX-License-Identifier: Apache-2.0
"""The checks of a text's layout, each with a fault that they must find."""
import unittest

import numpy

from fidelity.flow import disordered, missing, outside, overlaps, rows_with_ink_at_the_edges, unpainted
from fidelity.layout import LaidOutText, PlacedWord, read_words
from fidelity.pictures import Box
from fidelity.word_text import Paragraph

LINE = 14.0
LISTED = '''<html xmlns="http://www.w3.org/1999/xhtml"><body><doc>
<page width="240" height="1000"><word xMin="40" yMin="100" xMax="400" yMax="240">Hello</word></page>
<page width="240" height="1000"><word xMin="60" yMin="100" xMax="420" yMax="240">again</word></page>
</doc></body></html>'''


def placed(text: str, left: float, top: float, width: float = 40.0) -> PlacedWord:
    return PlacedWord(text, 0, left, top, left + width, top + LINE)


def layout(*words: PlacedWord) -> LaidOutText:
    return LaidOutText(480.0, list(words))


def body(*texts: str) -> list[Paragraph]:
    return [Paragraph(text, 'body') for text in texts]


class Flow(unittest.TestCase):
    def test_words_side_by_side_and_below_each_other_are_right(self) -> None:
        text = layout(placed('first', 4, 0), placed('second', 50, 0), placed('third', 4, LINE - 3))
        self.assertEqual([], overlaps(text))
        self.assertEqual([], outside(text))

    def test_words_on_top_of_each_other_are_found(self) -> None:
        self.assertEqual(['"body" and "frame"'], overlaps(layout(placed('body', 4, 60), placed('frame', 20, 66))))

    def test_a_word_drawn_twice_is_a_shadow(self) -> None:
        self.assertEqual([], overlaps(layout(placed('title', 4, 0), placed('“title”,', 5, 1))))

    def test_words_beyond_the_edges_are_found(self) -> None:
        text = layout(placed('left', -9, 0), placed('right', 460, 0), placed('inside', 430, 20))
        self.assertEqual(['left', 'right'], outside(text))

    def test_punctuation_may_hang_into_the_margin(self) -> None:
        self.assertEqual([], outside(layout(placed('有点长，', 446, 0))))

    def test_a_word_that_is_not_painted_is_found(self) -> None:
        text = layout(placed('painted', 4, 0))
        self.assertEqual(['vanished'], missing(text, body('painted vanished')))

    def test_a_word_broken_over_two_lines_is_there(self) -> None:
        self.assertEqual([], missing(layout(placed('hyphen', 400, 0), placed('ated', 4, LINE)), body('hyphenated')))

    def test_a_word_without_ink_in_the_picture_is_found(self) -> None:
        frame = numpy.full((100, 480, 3), 255, numpy.uint8)
        frame[4:10, 10:30:3] = 0
        text = layout(placed('painted', 4, 0), placed('faint,', 60, 0), placed('footnote', 4, 40), placed('painted', 60, 40),
                      placed('below', 4, 200))
        self.assertEqual(['faint'], unpainted(text, body('painted faint below'), frame))

    def test_a_line_along_the_edge_of_the_screen_is_found(self) -> None:
        frame = numpy.full((100, 480, 3), 255, numpy.uint8)
        frame[10:90, 4:470:3] = 0
        self.assertEqual(0, rows_with_ink_at_the_edges(frame))
        frame[:, 479] = 150
        self.assertEqual(100, rows_with_ink_at_the_edges(frame))

    def test_letters_from_right_to_left_may_come_in_another_order(self) -> None:
        self.assertEqual([], missing(layout(placed('حابص', 4, 0)), body('صباح')))

    def test_a_later_word_above_an_earlier_one_is_found(self) -> None:
        text = layout(placed('first', 4, 100), placed('second', 4, 20), placed('third', 4, 140))
        self.assertEqual(['"second" above "first"'], disordered(text, body('first second', 'third')))

    def test_cells_of_a_table_may_stand_beside_each_other(self) -> None:
        text = layout(placed('left', 4, 40), placed('right', 100, 0))
        self.assertEqual([], disordered(text, [Paragraph('left', 'table'), Paragraph('right', 'table')]))


class Layout(unittest.TestCase):
    def test_pages_that_are_scaled_down_are_scaled_up(self) -> None:
        self.assertEqual([PlacedWord('Hello', 0, 4, 10, 40, 24), PlacedWord('again', 1, 6, 10, 42, 24)],
                         read_words(LISTED, 480).words)

    def test_a_mark_on_its_word_is_right(self) -> None:
        self.assertEqual('', layout(placed('harbour,', 100, 0)).fault_of_mark(Box(101, 0, 136, 14), 'Harbour'))

    def test_a_mark_beside_its_word_is_found(self) -> None:
        self.assertEqual('a mark beside the word',
                         layout(placed('harbour,', 100, 0)).fault_of_mark(Box(60, 0, 95, 14), 'harbour'))


if __name__ == '__main__':
    unittest.main()
