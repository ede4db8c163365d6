# SPDX-License-Identifier: Apache-2.0
"""What the checks of one document work with."""
import dataclasses
import pathlib
import time

import numpy

from fidelity.evidence import Evidence
from fidelity.outcome import Outcome
from fidelity.pictures import keep_side_by_side
from fidelity.viewer import Viewer


class OutOfTime(Exception):
    """The document's time is over."""


@dataclasses.dataclass
class Programs:
    """The built programs that the checks start."""
    folder: pathlib.Path

    def are_built(self) -> bool:
        return all(program.is_file() for program in (self.viewer, self.word_layout, self.bare_parts))

    @property
    def viewer(self) -> pathlib.Path:
        return self.folder / 'fidelity_viewer'

    @property
    def word_layout(self) -> pathlib.Path:
        return self.folder / 'word_layout'

    @property
    def bare_parts(self) -> pathlib.Path:
        return self.folder / 'bare_slides'


@dataclasses.dataclass
class Case:
    """One document, open in Lectern."""
    viewer: Viewer
    programs: Programs
    evidence: Evidence
    outcome: Outcome
    scratch: pathlib.Path   # for files; removed afterwards
    pictures: pathlib.Path  # folder for pictures of what differs
    last_moment: float      # of time.monotonic()
    first_frame: numpy.ndarray | None = None  # Lectern's first picture

    @property
    def path(self) -> pathlib.Path:
        return self.outcome.path

    def seconds_left(self) -> float:
        left = self.last_moment - time.monotonic()
        if left <= 0:
            raise OutOfTime
        return left

    def keep(self, what: str, pictures: list[numpy.ndarray]) -> pathlib.Path:
        """Keeps pictures side by side under a name that tells the document and its folder."""
        name = f'{self.path.resolve().parent.name}-{self.path.name}-{what}.png'
        return keep_side_by_side(self.pictures / name, pictures)
