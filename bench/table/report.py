# SPDX-License-Identifier: Apache-2.0
"""The table, for a terminal and for docs/performance.md."""
from table.experiment import Line, Outcome

HEAD = ('Row', 'Measured', 'Compared with', 'Ratio', 'Goal', 'Met')
LEFT_OUT = 'not measured'
# Mark the generated part of a page.
BEGIN = '<!-- The table of scripts/bench begins. -->\n'
END = '<!-- The table of scripts/bench ends. -->\n'


def _amount(value: float, unit: str) -> str:
    digits = 0 if value >= 100 else 1 if value >= 10 else 2
    return f'{value:.{digits}f} {unit}'.rstrip()


def _cells(line: Line) -> tuple[str, ...]:
    row = line.row
    if line.value is None:
        return (row.title, LEFT_OUT, '', '', '', '')
    ratio = '' if line.per is None else f'{line.measure:.2f}'
    goal = '' if row.goal is None else f'{row.goal:g}' if row.per else _amount(row.goal, row.unit)
    met = '' if line.met is None else 'yes' if line.met else 'no'
    return (row.title, _amount(line.value, row.unit), '' if line.per is None else _amount(line.per, row.unit),
            ratio, goal, met)


def plain(outcome: Outcome) -> str:
    """A block of aligned columns under the experiment's title."""
    rows = [HEAD, *map(_cells, outcome.lines)]
    widths = [max(len(row[i]) for row in rows) for i in range(len(HEAD))]
    lines = ['  '.join([row[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])])
             for row in rows]
    return '\n'.join([f'\n{outcome.experiment.title} ({outcome.experiment.name})', *(line.rstrip() for line in lines)])


def markdown(outcomes: list[Outcome], machine: str, missing: list[str]) -> str:
    """The generated part of docs/performance.md."""
    parts = [f'Measured by `scripts/bench --markdown` on: {machine}.', *(f'{peer}.' for peer in missing)]
    for outcome in outcomes:
        parts.append(f'### {outcome.experiment.title}')
        rows = ['| ' + ' | '.join(HEAD) + ' |', '|---|--:|--:|--:|--:|---|']
        rows += ['| ' + ' | '.join(_cells(line)) + ' |' for line in outcome.lines]
        parts.append('\n'.join(rows))
    return '\n\n'.join(parts) + '\n'


def page_with(table: str, page: str) -> str:
    """The page with this table instead of the one that it has. A page without the marks raises ValueError."""
    before, rest = page.split(BEGIN)
    _, after = rest.split(END)
    return f'{before}{BEGIN}\n{table}\n{END}{after}'


def summary(outcomes: list[Outcome]) -> str:
    met = [line.met for outcome in outcomes for line in outcome.lines]
    return f'{met.count(True)} goals met, {met.count(False)} not met'
