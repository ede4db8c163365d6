# SPDX-License-Identifier: Apache-2.0
"""scripts/bench: the command line."""
import argparse
import fnmatch
import pathlib
import sys
import tempfile

from table import report
from table.documents import Documents
from table.experiment import Outcome, WayFailed, measure
from table.machine import machine, missing_peers
from table.rows import FULL, SHORT, experiments
from table.ways import ROOT, Ways

STATUS_BROKEN = 1
STATUS_MISUSE = 2

DESCRIPTION = """Measures Lectern and its peers in the same run, in turns, and prints one table: each
row with its measured value, what it is compared with, the ratio, the goal, and
whether the goal is met. Values are medians. Ends with status 1 only if a program
fails, never because of a time. docs/performance.md explains the rows."""


def parse(words: list[str]) -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog='scripts/bench', description=DESCRIPTION,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('experiments', nargs='*', metavar='EXPERIMENT',
                        help='measure these only, such as open-text or "frames-*" (default: all)')
    parser.add_argument('--list', action='store_true', help='print the names of the experiments and measure nothing')
    parser.add_argument('--short', action='store_true',
                        help='measure each row once with small documents; shows only that the benchmarks work')
    parser.add_argument('--rounds', type=int, metavar='N', help='measure every way N times')
    parser.add_argument('--markdown', action='store_true', help='print the table as Markdown, at the end')
    parser.add_argument('--update', type=pathlib.Path, metavar='PAGE',
                        help='put that table into a page such as docs/performance.md, between the comments that mark it')
    parser.add_argument('--programs', type=pathlib.Path, default=ROOT / 'build' / 'release' / 'bin', metavar='FOLDER',
                        help='the built programs (default: build/release/bin)')
    return parser.parse_args(words)


def _progress(text: str) -> None:
    if sys.stderr.isatty():
        print(f'\r\033[K{text}', end='', file=sys.stderr, flush=True)


def _measure_all(options: argparse.Namespace, scratch: pathlib.Path) -> int:
    _progress('writing documents')
    sizes = SHORT if options.short else FULL
    ways = Ways(options.programs.resolve(), scratch)
    chosen = experiments(ways, Documents(scratch), sizes)
    for name in options.experiments:
        if not any(fnmatch.fnmatch(experiment.name, name) for experiment in chosen):
            print(f'bench: no experiment {name}; --list prints the names', file=sys.stderr)
            return STATUS_MISUSE
    if options.experiments:
        chosen = [experiment for experiment in chosen
                  if any(fnmatch.fnmatch(experiment.name, name) for name in options.experiments)]
    if options.list:
        _progress('')
        print('\n'.join(f'{experiment.name:24} {experiment.title}' for experiment in chosen))
        return 0
    markdown = options.markdown or options.update
    page = options.update.read_text() if options.update else ''
    outcomes: list[Outcome] = []
    broken = False
    for experiment in chosen:
        try:
            outcomes.append(measure(experiment, ways.has, _progress, options.rounds))
        except WayFailed as failure:
            broken = True
            _progress('')
            print(f'bench: {failure}', file=sys.stderr)
            continue
        _progress('')
        if not markdown:
            print(report.plain(outcomes[-1]), flush=True)
    if markdown:
        table = report.markdown(outcomes, machine(), missing_peers(ways.has))
        if options.update:
            options.update.write_text(report.page_with(table, page))
        else:
            print(table, end='')
    else:
        print('\n' + '\n'.join([machine(), *missing_peers(ways.has), report.summary(outcomes)]))
    return STATUS_BROKEN if broken else 0


def main(words: list[str]) -> int:
    options = parse(words)
    with tempfile.TemporaryDirectory(prefix='lectern-bench-') as scratch:
        return _measure_all(options, pathlib.Path(scratch))
