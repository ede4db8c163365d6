# SPDX-License-Identifier: Apache-2.0
"""Comparing pictures."""
import pathlib
import tempfile
import unittest

import numpy

from fidelity.cells import changed_part, fault_of_copy, header_size, used_size
from fidelity.pictures import (Box, has_ink, is_uniform, keep_side_by_side, mean_difference, read_ppm_stream,
                               rectangles_of)
from fidelity.slides import MOST_DIFFERENT


def white(width: int, height: int) -> numpy.ndarray:
    return numpy.full((height, width, 3), 255, numpy.uint8)


def with_boxes(picture: numpy.ndarray, *boxes: Box) -> numpy.ndarray:
    drawn = picture.copy()
    for box in boxes:
        drawn[box.top:box.bottom, box.left:box.right] = 0
    return drawn


class Pictures(unittest.TestCase):
    def test_black_and_white_differ_wholly(self) -> None:
        self.assertEqual(1.0, mean_difference(white(4, 4), numpy.zeros((4, 4, 3), numpy.uint8)))

    def test_a_slide_that_is_shifted_differs_too_much(self) -> None:
        slide = with_boxes(white(96, 54), *(Box(10, y, 86, y + 4) for y in range(5, 50, 8)))
        self.assertEqual(0.0, mean_difference(slide, slide))
        self.assertGreater(mean_difference(slide, numpy.roll(slide, 2, axis=0)), MOST_DIFFERENT)

    def test_marks_on_neighbouring_lines_are_two_rectangles(self) -> None:
        mask = numpy.zeros((30, 60), bool)
        mask[5:15, 10:30] = True
        mask[15:25, 20:45] = True
        self.assertEqual([Box(10, 5, 30, 15), Box(20, 15, 45, 25)], rectangles_of(mask))

    def test_words_beside_each_other_are_two_rectangles(self) -> None:
        mask = numpy.zeros((12, 60), bool)
        mask[2:10, 5:25] = True
        mask[2:10, 30:55] = True
        self.assertEqual([Box(5, 2, 25, 10), Box(30, 2, 55, 10)], rectangles_of(mask))

    def test_letters_in_a_mark_do_not_divide_it(self) -> None:
        mask = numpy.zeros((12, 40), bool)
        mask[2:10, 5:35] = True
        mask[4:8, 12:22] = False
        mask[3:9, 5:8] = False
        self.assertEqual([Box(5, 2, 35, 10)], rectangles_of(mask))

    def test_ink_is_something_of_another_colour(self) -> None:
        picture = with_boxes(white(20, 20), Box(5, 5, 6, 15))
        self.assertTrue(has_ink(picture, Box(2, 2, 12, 18)))
        self.assertFalse(has_ink(picture, Box(10, 2, 18, 18)))
        self.assertFalse(is_uniform(picture))

    def test_pictures_of_a_stream_are_read_one_after_the_other(self) -> None:
        first, second = bytes(range(12)), bytes(range(100, 106))
        pictures = read_ppm_stream(b'P6\n2 2\n255\n' + first + b'P6\n1 2\n255\n' + second)
        self.assertEqual([first, second], [picture.tobytes() for picture in pictures])

    def test_kept_pictures_stand_side_by_side(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            path = keep_side_by_side(pathlib.Path(folder) / 'new' / 'two.png', [white(10, 5), white(20, 8)])
            self.assertTrue(path.read_bytes().startswith(b'\x89PNG'))


class Cells(unittest.TestCase):
    def test_the_corner_between_the_headers_tells_their_size(self) -> None:
        frame = numpy.full((20, 30, 3), 200, numpy.uint8)
        frame[:5, :8] = 254
        self.assertEqual((8, 5), header_size(frame))

    def test_what_is_beyond_the_last_used_cell_does_not_count(self) -> None:
        shown = with_boxes(white(40, 40), Box(3, 3, 10, 10))
        self.assertEqual((10, 10), used_size(shown))
        self.assertEqual(0.0, changed_part(shown, with_boxes(shown, Box(20, 20, 30, 30)), []))

    def test_a_missing_line_counts(self) -> None:
        bare = with_boxes(white(40, 40), Box(0, 0, 40, 1), Box(0, 20, 40, 22), Box(0, 39, 40, 40))
        shown = with_boxes(white(40, 40), Box(0, 0, 40, 1), Box(0, 39, 40, 40))
        self.assertAlmostEqual(2 / 40, changed_part(shown, bare, []))

    def test_drawings_do_not_count(self) -> None:
        bare = with_boxes(white(100, 100), Box(0, 0, 100, 1), Box(0, 99, 100, 100), Box(40, 40, 60, 60))
        shown = with_boxes(white(100, 100), Box(0, 0, 100, 1), Box(0, 99, 100, 100), Box(45, 45, 65, 65))
        self.assertEqual(0.0, changed_part(shown, bare, [Box(40, 40, 60, 60)]))

    def test_a_copy_with_another_date_is_wrong(self) -> None:
        self.assertEqual('', fault_of_copy('Month\tSum\nJul-01\t5\nmore\t6\n', ['Month', 'Sum', 'Jul-01', '5']))
        self.assertEqual('word 3 is "07/01", in the suite "Jul-01"',
                         fault_of_copy('Month\tSum\n07/01\t5\n', ['Month', 'Sum', 'Jul-01', '5']))

    def test_an_empty_copy_is_wrong(self) -> None:
        self.assertEqual('word 1 is "", in the suite "Month"', fault_of_copy('', ['', 'Month']))


if __name__ == '__main__':
    unittest.main()
