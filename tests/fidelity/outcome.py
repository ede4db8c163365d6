# SPDX-License-Identifier: Apache-2.0
"""What the checks have found about a document."""
import collections
import dataclasses
import pathlib

# The checks in the order of the report, with the kinds of documents that they apply to.
CHECKS = {
    'opening': 'word sheet slide',
    'counts': 'word sheet',
    'marks': 'word sheet slide',
    'flow': 'word',
    'cells': 'sheet',
    'pictures': 'sheet',
    'slides': 'slide',
}
KINDS = {'.doc': 'word', '.docx': 'word', '.txt': 'word', '.xls': 'sheet', '.xlsx': 'sheet', '.ppt': 'slide',
         '.pptx': 'slide'}


@dataclasses.dataclass
class Fault:
    check: str
    text: str
    picture: pathlib.Path | None = None


@dataclasses.dataclass
class Tally:
    right: int = 0
    tried: int = 0

    def __iadd__(self, other: 'Tally') -> 'Tally':
        return Tally(self.right + other.right, self.tried + other.tried)


@dataclasses.dataclass
class Outcome:
    """A document's results. `state` is opened, refused, lost or unfinished."""
    path: pathlib.Path
    kind: str
    state: str = 'unfinished'
    wanted: frozenset[str] = frozenset(CHECKS)
    reason: str = ''
    suite_opens: bool | None = None
    seconds: float = 0.0       # until Lectern's first picture
    whole_seconds: float = 0.0
    megabytes: int = 0
    faults: list[Fault] = dataclasses.field(default_factory=list)
    notes: list[str] = dataclasses.field(default_factory=list)
    tallies: dict[str, Tally] = dataclasses.field(default_factory=lambda: collections.defaultdict(Tally))

    def judge(self, check: str, right: bool, text: str, picture: pathlib.Path | None = None) -> bool:
        """Counts one thing that was tried, and keeps the fault when it is not right. Opening is always wanted."""
        if check != 'opening' and check not in self.wanted:
            return right
        self.tallies[check] += Tally(int(right), 1)
        if not right:
            self.faults.append(Fault(check, text, picture))
        return right
