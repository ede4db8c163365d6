# SPDX-License-Identifier: Apache-2.0
"""What the file itself and the office suite say about a document, without Lectern."""
import dataclasses
import pathlib

from fidelity.package import Unreadable
from fidelity.sheet_text import SheetText, read_first_sheet
from fidelity.slide_text import read_slides
from fidelity.suite import Suite, SuiteDocument, SuiteFailed
from fidelity.word_text import Paragraph, read_plain, read_word

CELL_COLUMNS = 12  # more than a first screen shows
CELL_ROWS = 40
OWN_XML = ('.docx', '.xlsx', '.pptx')
READERS = {'word': read_word, 'sheet': read_first_sheet, 'slide': read_slides}


@dataclasses.dataclass
class Evidence:
    suite_opens: bool = False
    reason: str = ''                              # why the suite does not
    paragraphs: list[Paragraph] | None = None     # of a text
    slides: list[list[str]] | None = None         # of a deck: the paragraphs of each slide
    sheet: SheetText | None = None                # of a workbook: its first sheet
    cells: list[list[str]] | None = None          # the same, as the suite shows its first cells
    first_sheet_hidden: bool = False
    first_sheet_commented: bool = False
    pdf: pathlib.Path | None = None               # of a deck, with its hidden slides


def gather(path: pathlib.Path, kind: str, suite: Suite, scratch: pathlib.Path, seconds: float) -> Evidence:
    """Asks the suite, and reads the file's XML. A binary file is read as the suite converts it."""
    evidence = Evidence()
    texts = _own_text(path, kind)
    try:
        with suite.document(path, kind, seconds) as document:
            evidence.suite_opens = True
            _ask(document, kind, scratch, evidence)
            if texts is None:
                texts = READERS[kind](document.write_modern(scratch))
    except (SuiteFailed, Unreadable) as failure:
        evidence.reason = str(failure)
    if kind == 'word':
        evidence.paragraphs = texts
    elif kind == 'slide':
        evidence.slides = texts
    else:
        evidence.sheet = texts
    return evidence


def _own_text(path: pathlib.Path, kind: str) -> object | None:
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
        evidence.cells = document.cell_rows(0, CELL_COLUMNS, CELL_ROWS)
        evidence.first_sheet_hidden = document.is_hidden(0)
        evidence.first_sheet_commented = document.has_comments(0)
