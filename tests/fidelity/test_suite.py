# SPDX-License-Identifier: Apache-2.0
"""What the suite says about the first cells of a sheet."""
import unittest

from fidelity.suite import FirstCells


class FirstCellsOfASheet(unittest.TestCase):
    CELLS = FirstCells(rows=[['a', 'b', 'c'], ['d', 'e', 'f']], visible=[True, False], widths=[100.0, 6.0, 300.0])

    def test_columns_are_touched_away_from_their_edges(self) -> None:
        self.assertEqual([4.0, 103.0, 110.0], self.CELLS.touch_points(480))

    def test_the_last_touched_column_is_wide_and_clearly_on_the_screen(self) -> None:
        self.assertEqual([4.0], self.CELLS.touch_points(112))
        self.assertEqual([], FirstCells(widths=[5.0]).touch_points(480))

    def test_hidden_rows_are_left_out_if_asked_for(self) -> None:
        self.assertEqual(['a', 'b'], self.CELLS.texts(2, with_hidden=False))
        self.assertEqual(['a', 'b', 'd', 'e'], self.CELLS.texts(2, with_hidden=True))


if __name__ == '__main__':
    unittest.main()
