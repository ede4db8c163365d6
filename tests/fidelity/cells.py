# SPDX-License-Identifier: Apache-2.0
"""The first screen of a workbook: its cells' texts, and the picture that the suite itself paints of them."""
import re
import subprocess

import numpy

from fidelity.case import Case
from fidelity.pictures import changed_pixels

PIXELS_PER_INCH = 144  # of a sheet as it opens
TWIPS_PER_INCH = 1440
WHITE = 255
NEARLY_WHITE = 250     # the corner between the headers is blended from white
CLEARLY = 48           # difference of a channel that an eye sees
MOST_CHANGED = 0.002   # part of the pixels that may differ
ONE_PART = '1'


def check_cell_texts(case: Case) -> None:
    """Selects the columns of the first screen, and compares the copy with the suite's texts."""
    if case.evidence.cells is None or case.evidence.first_sheet_hidden:
        return
    frame = case.viewer.paint().pixels
    across, down = header_size(frame)
    copied = case.viewer.copied_columns(across + 2, frame.shape[1] - 2, max(down // 2, 1), case.scratch / 'copied')
    columns = max((line.count('\t') for line in copied.splitlines()), default=0) + 1
    expected = flattened('\n'.join('\t'.join(row[:columns]) for row in case.evidence.cells))
    got = flattened(copied)[:len(expected)]
    wrong = next((i for i in range(len(expected)) if i >= len(got) or got[i] != expected[i]), None)
    case.outcome.judge('cells', wrong is None, '' if wrong is None else
                       f'cell text {wrong + 1} is "{got[wrong] if wrong < len(got) else ""}", '
                       f'in the suite "{expected[wrong]}"')


def check_sheet_picture(case: Case) -> None:
    """Compares the cells' pixels with those that the suite alone paints."""
    if not case.evidence.suite_opens or case.evidence.first_sheet_hidden or case.evidence.first_sheet_commented:
        return  # Lectern marks comments in its own way
    frame = case.viewer.paint().pixels
    across, down = header_size(frame)
    cells = frame[down + 1:, across + 1:]
    bare = _bare_picture(case, cells.shape[1], cells.shape[0])
    if bare is None:
        case.outcome.notes.append('the suite alone paints no picture of it')
        return
    bottom, right_edge = used_size(cells)
    part = float(changed_pixels(cells, bare, CLEARLY)[:bottom, :right_edge].mean()) if bottom and right_edge else 0.0
    right = part <= MOST_CHANGED
    picture = None if right else case.keep('cells', [cells, bare])
    case.outcome.judge('pictures', right, f'{100 * part:.1f} % of the pixels differ from the suite\'s', picture)


def header_size(frame: numpy.ndarray) -> tuple[int, int]:
    """Width of the row headers and height of the column headers: the size of the white corner between them."""
    return _leading_white(frame[0]), _leading_white(frame[:, 0])


def used_size(cells: numpy.ndarray) -> tuple[int, int]:
    """Rows and columns of pixels up to the last that is not white: Lectern shows a sheet up to its last used cell, and
    white beyond, where the suite has grid lines."""
    drawn = (cells != WHITE).any(axis=2)
    rows, columns = numpy.flatnonzero(drawn.any(axis=1)), numpy.flatnonzero(drawn.any(axis=0))
    return (int(rows[-1]) + 1, int(columns[-1]) + 1) if rows.size else (0, 0)


def flattened(text: str) -> list[str]:
    """The texts of cells without the empty ones: a line feed inside of a text looks like the end of a row."""
    return [piece for piece in (' '.join(part.split()) for part in re.split('[\t\n]', text)) if piece]


def _leading_white(line: numpy.ndarray) -> int:
    other = numpy.flatnonzero((line < NEARLY_WHITE).any(axis=1))
    return int(other[0]) if other.size else 0


def _bare_picture(case: Case, width: int, height: int) -> numpy.ndarray | None:
    twips = TWIPS_PER_INCH // PIXELS_PER_INCH
    folder = case.scratch / 'bare'
    folder.mkdir(exist_ok=True)
    try:
        subprocess.run([case.programs.bare_parts, case.path.resolve(), str(width), str(height), str(width * twips),
                        str(height * twips), folder, ONE_PART], check=True, capture_output=True,
                       timeout=case.seconds_left())
    except (subprocess.SubprocessError, OSError):
        return None
    pixels = numpy.fromfile(folder / 'pixels', numpy.uint8, width * height * 4)
    return pixels.reshape(height, width, 4)[:, :, 2::-1] if pixels.size == width * height * 4 else None
