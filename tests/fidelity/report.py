# SPDX-License-Identifier: Apache-2.0
"""The report: a line for each document with faults, and a table of all."""
import pathlib
from collections.abc import Callable, Iterator

from fidelity.outcome import CHECKS, Outcome

STATES = ('opened', 'refused', 'lost', 'unfinished')
NAMES = {'word': 'texts', 'sheet': 'sheets', 'slide': 'decks'}
LONGEST = 160  # characters of a fault in a line
FAULTS_IN_LINE = 3


def is_right(outcome: Outcome) -> bool:
    return not outcome.faults and outcome.state in ('opened', 'refused')


def line_of(outcome: Outcome, folder: pathlib.Path, with_state: bool = False) -> str:
    """The faults of a document in one line; with its state, time, memory and notes, if asked for."""
    path = outcome.path.relative_to(folder) if outcome.path.is_relative_to(folder) else outcome.path
    told = [f'{fault.check}: {_shortened(fault.text)}' + (f' [{fault.picture.name}]' if fault.picture else '')
            for fault in outcome.faults[:FAULTS_IN_LINE]]
    if len(outcome.faults) > FAULTS_IN_LINE:
        told.append(f'and {len(outcome.faults) - FAULTS_IN_LINE} more')
    if with_state:
        told = [_state(outcome), *told, *map(_shortened, outcome.notes)]
    return f'{path}  ' + '; '.join(told)


def _state(outcome: Outcome) -> str:
    suite = 'the suite opens it' if outcome.suite_opens else 'the suite does not open it'
    if outcome.state != 'opened':
        return f'{outcome.state}, {suite}'
    return f'opened in {outcome.seconds:.1f} s, {outcome.megabytes} MB, {suite}'


def table_of(outcomes: list[Outcome]) -> list[str]:
    kinds = [kind for kind in NAMES if any(outcome.kind == kind for outcome in outcomes)]
    rows = [['', *(NAMES[kind] for kind in kinds), 'all']]
    groups = [[outcome for outcome in outcomes if outcome.kind == kind] for kind in kinds] + [outcomes]
    rows.append(['documents', *(str(len(group)) for group in groups)])
    rows += [[f'  {state}', *(str(sum(outcome.state == state for outcome in group)) for group in groups)]
             for state in STATES]
    rows.append(['  opened by the suite', *(str(sum(bool(outcome.suite_opens) for outcome in group)) for group in groups)])
    rows.append(['  without a fault', *(str(sum(map(is_right, group))) for group in groups)])
    rows += [[f'{check}: right of tried', *(_tally(group, check) for group in groups)] for check in CHECKS]
    rows += [[name, *(_spread(group, values) for group in groups)] for name, values in (
        ('first picture, s: median, most', lambda outcome: outcome.seconds),
        ('memory, MB: median, most', lambda outcome: outcome.megabytes))]
    return list(_aligned(rows))


def _tally(group: list[Outcome], check: str) -> str:
    right = sum(outcome.tallies[check].right for outcome in group)
    tried = sum(outcome.tallies[check].tried for outcome in group)
    return f'{right}/{tried}' if tried else '-'


def _spread(group: list[Outcome], values: Callable[[Outcome], float]) -> str:
    sorted_values = sorted(values(outcome) for outcome in group if outcome.state == 'opened')
    if not sorted_values:
        return '-'
    shown = [f'{value:.1f}' if isinstance(value, float) else str(value)
             for value in (sorted_values[len(sorted_values) // 2], sorted_values[-1])]
    return ', '.join(shown)


def _aligned(rows: list[list[str]]) -> Iterator[str]:
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    for row in rows:
        yield '  '.join([row[0].ljust(widths[0]), *(cell.rjust(width) for cell, width in zip(row[1:], widths[1:]))])


def _shortened(text: str) -> str:
    line = ' '.join(text.split())
    return line if len(line) <= LONGEST else line[:LONGEST - 3] + '...'
