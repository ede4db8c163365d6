# SPDX-License-Identifier: Apache-2.0
"""Tests of the table's arithmetic and of the generated documents."""
import itertools
import os
import pathlib
import tempfile
import unittest
import zipfile
from xml.etree import ElementTree

from table.documents import Documents
from table.experiment import Experiment, Row, Way, WayFailed, figure, measure
from table.report import BEGIN, END, markdown, page_with, plain, summary
from table.ways import figures_in, raster_figures, run


def experiment(ours, theirs, rows, rounds=3, needs=None):
    return Experiment('open', 'Open', rounds, {'ours': Way(ours), 'theirs': Way(theirs, needs)}, rows)


RATIO = Row('open; theirs', figure('ours.time'), figure('theirs.time'), goal=0.5)


def always(_):
    return True


class MeasureTest(unittest.TestCase):
    def test_compares_medians(self):
        ours = iter([40.0, 10.0, 90.0])
        outcome = measure(experiment(lambda: {'time': next(ours)}, lambda: {'time': 100.0}, [RATIO]), always)
        self.assertEqual([(line.measure, line.met) for line in outcome.lines], [(0.4, True)])

    def test_takes_the_ways_in_turns(self):
        order = []

        def way(name):
            return lambda: order.append(name) or {'time': 1.0}
        measure(experiment(way('ours'), way('theirs'), [RATIO], rounds=2), always)
        self.assertEqual(order, ['ours', 'theirs', 'ours', 'theirs'])

    def test_a_goal_is_missed_above_it(self):
        outcome = measure(experiment(lambda: {'time': 51.0}, lambda: {'time': 100.0}, [RATIO]), always)
        self.assertIs(outcome.lines[0].met, False)
        self.assertEqual(summary([outcome]), '0 goals met, 1 not met')

    def test_rows_of_a_missing_peer_are_left_out(self):
        rows = [RATIO, Row('open', figure('ours.time'), goal=60)]
        outcome = measure(experiment(lambda: {'time': 50.0}, lambda: {'time': 1.0}, rows, needs='peer'), lambda _: False)
        self.assertEqual([line.value for line in outcome.lines], [None, 50.0])
        self.assertIn('not measured', plain(outcome))

    def test_a_figure_that_a_program_does_not_print_is_a_fault(self):
        with self.assertRaisesRegex(WayFailed, 'theirs.time'):
            measure(experiment(lambda: {'time': 50.0}, lambda: {}, [RATIO]), always)

    def test_every_round_is_reported_as_progress(self):
        told = []
        measure(experiment(lambda: {'time': 1.0}, lambda: {'time': 1.0}, [RATIO]), always, told.append, rounds=1)
        self.assertEqual(told, ['open: ours, round 1 of 1', 'open: theirs, round 1 of 1'])


class ReportTest(unittest.TestCase):
    def test_markdown_names_the_machine_and_missing_peers(self):
        outcome = measure(experiment(lambda: {'time': 20.0}, lambda: {'time': 100.0}, [RATIO]), always)
        self.assertEqual(markdown([outcome], 'a machine', ['abiword is not installed']).splitlines(),
                         ['Measured by `scripts/bench --markdown` on: a machine.', '', 'abiword is not installed.', '',
                          '### Open', '', '| Row | Measured | Compared with | Ratio | Goal | Met |',
                          '|---|--:|--:|--:|--:|---|', '| open; theirs | 20.0 ms | 100 ms | 0.20 | 0.5 | yes |'])


    def test_a_new_table_replaces_the_one_of_a_page(self):
        page = f'before\n{BEGIN}\nold\n\n{END}after\n'
        self.assertEqual(page_with('new\n', page), f'before\n{BEGIN}\nnew\n\n{END}after\n')
        with self.assertRaises(ValueError):
            page_with('new\n', 'a page without marks\n')


class RunTest(unittest.TestCase):
    def test_a_command_that_takes_too_long_ends_with_all_that_it_started(self):
        with tempfile.TemporaryDirectory() as folder:
            fifo = pathlib.Path(folder, 'fifo')
            os.mkfifo(fifo)
            with self.assertRaisesRegex(WayFailed, 'more than 0.2 s'):
                run(['sh', '-c', f'sleep 100 <>{fifo} & exec sleep 100'], {}, longest=0.2)
            with self.assertRaises(OSError):  # because nobody has it open any more
                os.open(fifo, os.O_WRONLY | os.O_NONBLOCK)

    def test_a_failure_names_the_command_and_its_message(self):
        with self.assertRaisesRegex(WayFailed, 'sh -c .* status 3: no'):
            run(['sh', '-c', 'echo no >&2; exit 3'], {})
        with self.assertRaisesRegex(WayFailed, '/nonexistent'):
            run(['/nonexistent'], {})


class OutputTest(unittest.TestCase):
    def test_figures_are_pairs_of_a_name_and_a_number(self):
        self.assertEqual(figures_in('start 1.5 load 20\nopen-10 -3.25\nof 7, twice\n'),
                         {'start': 1.5, 'load': 20.0, 'open-10': -3.25})

    def test_raster_figures_have_the_operation_the_size_and_the_column(self):
        table = ('operation   size     plain/ours  ours/memcpy\n'
                 'copy, whole 480x800        3.60         1.02\n'
                 'erase       480x800        7.00         0.45\n')
        self.assertEqual(raster_figures(table), {
            'copy, whole 480x800 plain/ours': 3.6, 'copy, whole 480x800 ours/memcpy': 1.02,
            'erase 480x800 plain/ours': 7.0, 'erase 480x800 ours/memcpy': 0.45})


class DocumentsTest(unittest.TestCase):
    def test_a_workbook_has_the_rows_and_every_twentieth_has_the_hit(self):
        with tempfile.TemporaryDirectory() as folder:
            with zipfile.ZipFile(Documents(pathlib.Path(folder)).rows(60)) as package:
                texts = [item.findtext('{*}t') for item in ElementTree.fromstring(package.read('xl/strings.xml'))]
                rows = ElementTree.fromstring(package.read('xl/sheet.xml')).findall('.//{*}row')
                values = [[cell.findtext('{*}v') for cell in row] for row in rows]
        self.assertEqual([len(row) for row in values], [6] * 60)
        hits = [number for number, row in enumerate(values) if texts[int(row[5])] == 'zebra']
        self.assertEqual(hits, list(itertools.islice(itertools.count(0, 20), 3)))

    def test_a_document_is_written_once(self):
        with tempfile.TemporaryDirectory() as folder:
            documents = Documents(pathlib.Path(folder))
            first = documents.pages(1).stat().st_mtime_ns
            self.assertEqual(documents.pages(1).stat().st_mtime_ns, first)


if __name__ == '__main__':
    unittest.main()
