# SPDX-License-Identifier: Apache-2.0
"""scripts/fidelity: the command line, and the processes that work side by side."""
import argparse
import collections
import multiprocessing
import os
import pathlib
import queue
import signal
import sys
import traceback
from collections.abc import Iterator
from typing import Any

from fidelity.case import Programs
from fidelity.examine import Examiner
from fidelity.outcome import CHECKS, KINDS, Outcome
from fidelity.report import is_right, line_of, table_of

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
INTERRUPTED = 130
STATUS_FAULTS = 1
STATUS_MISUSE = 2
POLL_SECONDS = 1.0  # between looks at whether the workers live

DESCRIPTION = """Shows whether Lectern shows documents right. Compares the built service with what the
office suite says of each document, and with the file's own XML where it has some.
docs/fidelity.md explains the checks and the table. Ends with status 0 only if nothing
differs."""


def parse(words: list[str]) -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog='scripts/fidelity', description=DESCRIPTION,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('documents', nargs='+', type=pathlib.Path, metavar='FOLDER|FILE')
    parser.add_argument('--only', action='append', choices=list(CHECKS), metavar='CHECK',
                        help=f'run this check only; can be repeated. Checks: {", ".join(CHECKS)}')
    parser.add_argument('--all', action='store_true',
                        help='print a line for every document, with its state, time and memory')
    parser.add_argument('--pictures', type=pathlib.Path, default=pathlib.Path('fidelity-pictures'), metavar='FOLDER',
                        help='receives a picture of each difference (default: fidelity-pictures)')
    parser.add_argument('--limit', type=float, default=60, metavar='SECONDS',
                        help='for one document in the suite, and again in Lectern (default: 60)')
    parser.add_argument('-j', dest='jobs', type=int, default=2, metavar='JOBS',
                        help='number of documents at the same time (default: 2)')
    parser.add_argument('--programs', type=pathlib.Path, default=ROOT / 'build' / 'release' / 'bin', metavar='FOLDER',
                        help='the built programs (default: build/release/bin)')
    return parser.parse_args(words)


def documents_in(places: list[pathlib.Path]) -> list[pathlib.Path]:
    """The documents in and below folders, and files as they are named."""
    found = []
    for place in places:
        found += sorted(place.rglob('*')) if place.is_dir() else [place]
    return [path for path in found if path.is_file() and path.suffix.lower() in KINDS]


def _work(options: argparse.Namespace, tasks: Any, results: Any) -> None:
    """A worker: examines documents until there are no more, or its parent is gone. SIGTERM ends it in an orderly way."""
    parent = os.getppid()
    signal.signal(signal.SIGINT, signal.SIG_IGN)  # the first process tells when to end
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(INTERRUPTED))
    examiner = Examiner(Programs(options.programs.resolve()), options.pictures.resolve(), frozenset(options.only or CHECKS),
                        options.limit)
    try:
        while (path := tasks.get()) is not None and os.getppid() == parent:
            results.put(_examined(examiner, path))
    finally:
        examiner.close()


def _examined(examiner: Examiner, path: pathlib.Path) -> Outcome:
    try:
        return examiner.examine(path)
    except Exception as failure:  # a fault of the checks must not cost the other documents
        traceback.print_exc()
        outcome = Outcome(path, KINDS[path.suffix.lower()])
        outcome.judge('opening', False, f'the checks failed: {failure!r}')
        return outcome


class Workers:
    """The processes that examine documents. Leaving the context early, by an exception, ends them."""

    def __init__(self, options: argparse.Namespace, paths: list[pathlib.Path]) -> None:
        context = multiprocessing.get_context('fork')
        self._count = len(paths)
        self._results = context.Queue()
        self._tasks = context.Queue()
        for path in [*paths, *[None] * options.jobs]:
            self._tasks.put(path)
        self._processes = [context.Process(target=_work, args=(options, self._tasks, self._results))
                           for _ in range(options.jobs)]

    def __enter__(self) -> 'Workers':
        for process in self._processes:
            process.start()
        return self

    def __exit__(self, kind: object, *_: object) -> None:
        for process in self._processes:
            if kind is not None:
                process.terminate()
            process.join()
        self._tasks.cancel_join_thread()  # nobody takes the documents that are left

    def outcomes(self) -> Iterator[Outcome]:
        """The documents' outcomes in the order in which they are finished."""
        for _ in range(self._count):
            yield self._next()

    def _next(self) -> Outcome:
        while True:
            try:
                return self._results.get(timeout=POLL_SECONDS)
            except queue.Empty:
                if not any(process.is_alive() for process in self._processes):
                    raise RuntimeError('the workers have ended') from None


def _show_progress(done: int, whole: int, path: pathlib.Path) -> None:
    if sys.stderr.isatty():
        print(f'\r\033[K{done}/{whole} {path.name}', end='', file=sys.stderr, flush=True)


def _show_line(line: str) -> None:
    if sys.stderr.isatty():
        print('\r\033[K', end='', file=sys.stderr, flush=True)
    print(line, flush=True)


def _examine_all(options: argparse.Namespace, paths: list[pathlib.Path], outcomes: list[Outcome]) -> None:
    folder = options.documents[0] if options.documents[0].is_dir() else pathlib.Path()
    with Workers(options, paths) as workers:
        for outcome in workers.outcomes():
            outcomes.append(outcome)
            if outcome.faults or options.all:
                _show_line(line_of(outcome, folder, options.all))
            _show_progress(len(outcomes), len(paths), outcome.path)


def _interrupt(*_: object) -> None:
    raise KeyboardInterrupt


def _show_end(outcomes: list[Outcome], pictures: pathlib.Path) -> None:
    _show_line('')
    for line in table_of(outcomes):
        print(line)
    reasons = collections.Counter(outcome.reason for outcome in outcomes if outcome.state == 'refused')
    for reason, count in reasons.most_common():
        print(f'refused {count}: {reason}')
    if any(fault.picture for outcome in outcomes for fault in outcome.faults):
        print(f'Pictures of what differs, Lectern\'s on the left: {pictures}')


def main(words: list[str]) -> int:
    options = parse(words)
    paths = documents_in(options.documents)
    if not paths:
        print(f'fidelity: no documents in {", ".join(map(str, options.documents))}', file=sys.stderr)
        return STATUS_MISUSE
    if not Programs(options.programs).are_built():
        print(f'fidelity: {options.programs} has not all programs; run: scripts/build release', file=sys.stderr)
        return STATUS_MISUSE
    signal.signal(signal.SIGTERM, _interrupt)
    outcomes: list[Outcome] = []
    status = 0
    try:
        _examine_all(options, paths, outcomes)
    except KeyboardInterrupt:
        status = INTERRUPTED
    _show_end(outcomes, options.pictures)
    return status or (0 if all(map(is_right, outcomes)) else STATUS_FAULTS)
