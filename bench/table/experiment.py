# SPDX-License-Identifier: Apache-2.0
"""Experiments: ways to do the same work, measured in turns, and the rows of the table made from their figures."""
import statistics
from collections.abc import Callable, Iterable
from dataclasses import dataclass, field

Figures = dict[str, float]


class WayFailed(Exception):
    """A program of a way failed, or did not print what was expected."""


@dataclass(frozen=True)
class Way:
    """One way to do the work. `measure` does it once and returns named figures."""
    measure: Callable[[], Figures]
    needs: str | None = None  # a peer's program; without it the way is left out


@dataclass(frozen=True)
class Row:
    """A row of the table. `value` and `per` compute from the medians of the figures, which are named WAY.FIGURE."""
    title: str
    value: Callable[[Figures], float]
    per: Callable[[Figures], float] | None = None  # what the value is compared with; the goal is a ratio then
    goal: float | None = None  # at most; None for a row that only informs
    unit: str = 'ms'


@dataclass(frozen=True)
class Experiment:
    name: str
    title: str
    rounds: int
    ways: dict[str, Way]
    rows: list[Row]


@dataclass(frozen=True)
class Line:
    """A measured row. Without figures (a peer is not installed) `value` is None."""
    row: Row
    value: float | None = None
    per: float | None = None

    @property
    def measure(self) -> float | None:
        """What the goal limits: the ratio if there is something to compare with, else the value."""
        if self.value is None or self.per is None:
            return self.value
        return self.value / self.per

    @property
    def met(self) -> bool | None:
        return None if self.measure is None or self.row.goal is None else self.measure <= self.row.goal


@dataclass
class Outcome:
    experiment: Experiment
    lines: list[Line] = field(default_factory=list)


def figure(name: str) -> Callable[[Figures], float]:
    return lambda figures: figures[name]


def measure(experiment: Experiment, installed: Callable[[str], bool],
            progress: Callable[[str], None] = lambda _: None, rounds: int | None = None) -> Outcome:
    """Measures all ways in turns, so that other work on the machine slows all of them."""
    samples: dict[str, list[float]] = {}
    ways = {name: way for name, way in experiment.ways.items() if way.needs is None or installed(way.needs)}
    rounds = rounds or experiment.rounds
    for number in range(rounds):
        for name, way in ways.items():
            progress(f'{experiment.name}: {name}, round {number + 1} of {rounds}')
            for key, value in way.measure().items():
                samples.setdefault(f'{name}.{key}', []).append(value)
    medians = {name: statistics.median(values) for name, values in samples.items()}
    return Outcome(experiment, [_line(row, medians, experiment, ways) for row in experiment.rows])


def _line(row: Row, medians: Figures, experiment: Experiment, ways: Iterable[str]) -> Line:
    try:
        return Line(row, row.value(medians), row.per(medians) if row.per else None)
    except KeyError as missing:
        way = missing.args[0].split('.')[0]
        if way in experiment.ways and way not in ways:
            return Line(row)
        raise WayFailed(f'{experiment.name}: no figure {missing} for the row "{row.title}"') from missing
