# SPDX-License-Identifier: Apache-2.0
"""What the file itself and the office suite say about a document, without Lectern."""
import dataclasses
import pathlib

from fidelity.package import Unreadable
from fidelity.pictures import Box
from fidelity.sheet_text import Cell, read_first_sheet
from fidelity.slide_text import read_slides
from fidelity.suite import FirstCells, Suite, SuiteDocument, SuiteFailed
from fidelity.word_text import Paragraph, read_plain, read_word

SCREEN_PIXELS = 480  # across; cells of further columns are not looked at
CELL_ROWS = 40
SHEET_PIXELS_PER_INCH = 144  # of a sheet as it opens
OWN_XML = ('.docx', '.xlsx', '.pptx')
TEXTS = {'word': 'paragraphs', 'sheet': 'cells', 'slide': 'slides'}
READERS = {'word': read_word, 'sheet': read_first_sheet, 'slide': read_slides}


@dataclasses.dataclass
class Evidence:
    suite_opens: bool = False
    reason: str = ''                 # why the suite does not
    paragraphs: list[Paragraph] = dataclasses.field(default_factory=list)  # of a text
    slides: list[list[str]] = dataclasses.field(default_factory=list)      # of a deck: the paragraphs of each slide
    cells: list[Cell] = dataclasses.field(default_factory=list)            # of a workbook's first visible sheet: its texts
    shown_cells: list[str] = dataclasses.field(default_factory=list)       # all its cells as the suite shows them
    first_cells: FirstCells = dataclasses.field(default_factory=FirstCells)
    drawings: list[Box] = dataclasses.field(default_factory=list)          # and its comments: places in pixels
    first_sheet: int = 0             # the first that is not hidden, which Lectern shows first
    pdf: pathlib.Path | None = None  # of a deck, with its hidden slides


def gather(path: pathlib.Path, kind: str, suite: Suite, scratch: pathlib.Path, seconds: float) -> Evidence:
    """Asks the suite, and reads the file's XML. A binary file is read as the suite converts it."""
    evidence = Evidence()
    texts = _own_text(path, kind)
    try:
        with suite.document(path, kind, seconds) as document:
            _ask(document, kind, scratch, evidence)
            evidence.suite_opens = True
            if texts is None:
                texts = READERS[kind](document.write_modern(scratch))
    except (SuiteFailed, Unreadable) as failure:
        evidence.reason = str(failure)
    setattr(evidence, TEXTS[kind], texts or [])
    return evidence


def _own_text(path: pathlib.Path, kind: str) -> list | None:
    if path.suffix.lower() == '.txt':
        return read_plain(path)
    if path.suffix.lower() not in OWN_XML:
        return None
    try:
        return READERS[kind](path)
    except Unreadable:
        return None


def _ask(document: SuiteDocument, kind: str, scratch: pathlib.Path, evidence: Evidence) -> None:
    if kind == 'slide':
        evidence.pdf = scratch / 'suite.pdf'
        document.remove_hidden_shapes()
        document.write_pdf(evidence.pdf)
    elif kind == 'sheet':
        sheet = evidence.first_sheet = document.first_visible_sheet()
        evidence.first_cells = document.first_cells(sheet, SCREEN_PIXELS, CELL_ROWS, SHEET_PIXELS_PER_INCH)
        evidence.shown_cells = document.shown_cells(sheet, scratch)
        evidence.drawings = document.drawings(sheet, SHEET_PIXELS_PER_INCH)
