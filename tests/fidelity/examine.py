# SPDX-License-Identifier: Apache-2.0
"""All checks of one document."""
import pathlib
import shutil
import subprocess
import tempfile
import time

from fidelity.case import Case, OutOfTime, Programs
from fidelity.cells import check_cell_texts, check_sheet_picture
from fidelity.evidence import gather
from fidelity.flow import check_flow
from fidelity.layout import LaidOutText, NoLayout, lay_out
from fidelity.outcome import KINDS, Outcome
from fidelity.pictures import is_uniform
from fidelity.searches import check_sheet_searches, check_slide_searches, check_text_searches
from fidelity.slides import WIDTH, check_slides, picture_height
from fidelity.suite import Suite
from fidelity.viewer import Viewer, ViewerFailed

PHONE = (480, 800)
TEXT_DPI = 72  # of a text as it opens


class Examiner:
    """Examines documents one after the other, with one Lectern service and one suite."""

    def __init__(self, programs: Programs, pictures: pathlib.Path, checks: frozenset[str], seconds: float) -> None:
        self._programs = programs
        self._pictures = pictures
        self._checks = checks
        self._seconds = seconds
        self._viewer = Viewer(programs.viewer)
        self._suite = Suite()

    def close(self) -> None:
        self._viewer.close()
        self._suite.close()

    def examine(self, path: pathlib.Path) -> Outcome:
        outcome = Outcome(path, KINDS[path.suffix.lower()], wanted=self._checks)
        began = time.monotonic()
        scratch = pathlib.Path(tempfile.mkdtemp(prefix='fidelity-'))
        try:
            evidence = gather(path, outcome.kind, self._suite, scratch, self._seconds)
            case = Case(self._viewer, self._programs, evidence, outcome, scratch, self._pictures,
                        time.monotonic() + self._seconds)
            self._examine(case)
        except OutOfTime:
            outcome.judge('opening', False, f'not finished within {self._seconds:.0f} s')
        except ViewerFailed as failure:
            outcome.state = 'lost' if failure.lost else outcome.state
            outcome.judge('opening', False, str(failure))
        except (subprocess.SubprocessError, OSError, ValueError) as failure:
            outcome.judge('opening', False, f'not examined: {failure}')
        finally:
            shutil.rmtree(scratch, ignore_errors=True)
        outcome.megabytes = self._viewer.engine_megabytes()
        self._close_document(outcome)
        outcome.whole_seconds = time.monotonic() - began
        return outcome

    def _examine(self, case: Case) -> None:
        case.outcome.suite_opens = case.evidence.suite_opens
        pages, height = 0, PHONE[1]
        if case.outcome.kind == 'slide' and case.evidence.pdf is not None and case.evidence.suite_opens:
            pages, height = picture_height(case.evidence.pdf, case.seconds_left())
        if not self._opens(case, (WIDTH if pages else PHONE[0], height)):
            return
        if case.outcome.kind == 'word':
            self._check_text(case)
        elif case.outcome.kind == 'sheet':
            self._check_sheet(case)
        else:
            self._check_deck(case, pages, height)

    def _opens(self, case: Case, size: tuple[int, int]) -> bool:
        began = time.monotonic()
        try:
            case.viewer.open(case.path, *size, case.seconds_left())
            frame = case.viewer.paint()
        except ViewerFailed as failure:
            case.outcome.state = 'lost' if failure.lost else 'refused'
            case.outcome.reason = _reason(str(failure))
            case.outcome.judge('opening', not (failure.lost or case.evidence.suite_opens),
                               f'{case.outcome.state}: {case.outcome.reason}; the suite '
                               f'{"opens it" if case.evidence.suite_opens else "does not open it"}')
            return False
        case.outcome.state = 'opened'
        case.outcome.seconds = time.monotonic() - began
        black = is_uniform(frame.pixels) and not frame.pixels.any()
        case.outcome.judge('opening', not black, 'opened, and black')
        case.first_frame = frame.pixels
        return True

    def _check_text(self, case: Case) -> None:
        layout = self._layout(case) if self._checks & {'flow', 'marks'} else None
        if layout is not None and 'flow' in self._checks:
            check_flow(case, layout)
        if self._checks & {'counts', 'marks'}:
            check_text_searches(case, layout)

    def _check_sheet(self, case: Case) -> None:
        if 'pictures' in self._checks:
            check_sheet_picture(case)
        if 'cells' in self._checks:
            check_cell_texts(case)
        if self._checks & {'counts', 'marks'}:
            check_sheet_searches(case)

    def _check_deck(self, case: Case, pages: int, height: int) -> None:
        if 'slides' in self._checks and pages:
            check_slides(case, pages, height)
        if 'marks' in self._checks:
            check_slide_searches(case)

    def _layout(self, case: Case) -> LaidOutText | None:
        try:
            return lay_out(self._programs.word_layout, case.path, PHONE[0], TEXT_DPI, case.scratch,
                           case.seconds_left())
        except NoLayout as failure:
            case.outcome.notes.append(f'no layout to check: {failure}')
            return None

    def _close_document(self, outcome: Outcome) -> None:
        if outcome.state == 'opened':
            try:
                self._viewer.close_document()
            except ViewerFailed:
                outcome.notes.append('the service did not answer at the end')


def _reason(text: str) -> str:
    """The reason without the path, which the report tells anyway."""
    return text.rpartition("': ")[2]
