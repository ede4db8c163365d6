# SPDX-License-Identifier: Apache-2.0
"""The first screen of a workbook: its cells' texts, and the picture that the suite itself paints of them."""
import subprocess

import numpy

from fidelity.case import Case
from fidelity.evidence import SHEET_PIXELS_PER_INCH
from fidelity.pictures import Box, changed_pixels

TWIPS_PER_INCH = 1440
WHITE = 255
NEARLY_WHITE = 250     # the corner between the headers is blended from white
CLEARLY = 48           # difference of a channel that an eye sees
MOST_CHANGED = 0.002   # part of the pixels that may differ
DISPLACED = 24         # pixels by which the suite alone displaces drawings at most
SHORTEST_DRAG = 10     # pixels; a shorter one is a tap, which selects nothing


def check_cell_texts(case: Case) -> None:
    """Selects the columns of the first screen, and compares the copy with the suite's texts."""
    frame = case.viewer.paint().pixels
    across, down = header_size(frame)
    points = case.evidence.first_cells.touch_points(frame.shape[1] - across)
    if not points:
        return
    first, last = round(points[0]), round(max(points[-1], points[0] + SHORTEST_DRAG))
    copied = case.viewer.copied_columns(across + first, across + last, max(down // 2, 1), case.scratch / 'copied')
    faults = [fault_of_copy(copied, case.evidence.first_cells.texts(len(points), with_hidden))
              for with_hidden in (False, True)]  # a copy may contain hidden rows
    case.outcome.judge('cells', not all(faults), faults[0])


def fault_of_copy(copied: str, expected: list[str]) -> str:
    """Where a copy does not begin with these texts; empty when it does. White space does not count: a line feed in a
    cell may have become a blank."""
    got = copied.split()
    for number, word in enumerate(' '.join(expected).split()):
        if got[number:number + 1] != [word]:
            return f'word {number + 1} is "{"".join(got[number:number + 1])}", in the suite "{word}"'
    return ''


def check_sheet_picture(case: Case) -> None:
    """Compares the cells' pixels with those that the suite alone paints."""
    if not case.evidence.suite_opens:
        return
    frame = case.viewer.paint().pixels
    across, down = header_size(frame)
    cells = frame[down + 1:, across + 1:]
    bare = _bare_picture(case, cells.shape[1], cells.shape[0])
    if bare is None:
        case.outcome.notes.append('the suite alone paints no picture of it')
        return
    part = changed_part(cells, bare, case.evidence.drawings)
    right = part <= MOST_CHANGED
    picture = None if right else case.keep('cells', [cells, bare])
    case.outcome.judge('pictures', right, f'{100 * part:.1f} % of the pixels differ from the suite\'s', picture)


def header_size(frame: numpy.ndarray) -> tuple[int, int]:
    """Width of the row headers and height of the column headers: the size of the white corner between them."""
    return _leading_white(frame[0]), _leading_white(frame[:, 0])


def changed_part(cells: numpy.ndarray, bare: numpy.ndarray, drawings: list[Box]) -> float:
    """The part of the used cells' pixels that differ. The suite alone displaces drawings, and Lectern
    marks comments in its own way, so these do not count."""
    changed = changed_pixels(cells, bare, CLEARLY)
    for box in drawings:
        changed[max(box.top - DISPLACED, 0):max(box.bottom + DISPLACED, 0),
                max(box.left - DISPLACED, 0):max(box.right + DISPLACED, 0)] = False
    bottom, right = used_size(cells)
    return float(changed[:bottom, :right].mean()) if bottom and right else 0.0


def used_size(cells: numpy.ndarray) -> tuple[int, int]:
    """Rows and columns of pixels up to the last that is not white: Lectern shows a sheet up to its last used cell, and
    white beyond, where the suite has grid lines."""
    drawn = (cells != WHITE).any(axis=2)
    rows, columns = numpy.flatnonzero(drawn.any(axis=1)), numpy.flatnonzero(drawn.any(axis=0))
    return (int(rows[-1]) + 1, int(columns[-1]) + 1) if rows.size else (0, 0)


def _leading_white(line: numpy.ndarray) -> int:
    other = numpy.flatnonzero((line < NEARLY_WHITE).any(axis=1))
    return int(other[0]) if other.size else 0


def _bare_picture(case: Case, width: int, height: int) -> numpy.ndarray | None:
    twips = TWIPS_PER_INCH // SHEET_PIXELS_PER_INCH
    folder = case.scratch / 'bare'
    folder.mkdir(exist_ok=True)
    try:
        subprocess.run([case.programs.bare_parts, case.path.resolve(), str(width), str(height), str(width * twips),
                        str(height * twips), folder, str(case.evidence.first_sheet + 1)], check=True, capture_output=True,
                       timeout=case.seconds_left())
    except (subprocess.SubprocessError, OSError):
        return None
    size = width * height * 4
    pixels = numpy.fromfile(folder / 'pixels', numpy.uint8, offset=case.evidence.first_sheet * size)
    return pixels.reshape(height, width, 4)[:, :, 2::-1] if pixels.size == size else None
