# SPDX-License-Identifier: Apache-2.0
"""The text of a .docx as a reader sees it: insertions, but no deletions and nothing hidden."""
import dataclasses
import pathlib
import xml.etree.ElementTree as ET

from fidelity.package import Package, attribute, local_name, shown_children

LEFT_OUT = {'del', 'moveFrom', 'delText', 'instrText', 'rt', 'pPr', 'rPr', 'sdtPr', 'tblPr', 'trPr', 'tcPr', 'oMath',
            'oMathPara', 'posOffset', 'annotationRef'}
CHARACTERS = {'tab': '\t', 'br': '\n', 'cr': '\n', 'noBreakHyphen': '\u2011', 'softHyphen': '\u00ad'}
OFF = ('0', 'false', 'off')


@dataclasses.dataclass
class Paragraph:
    text: str
    place: str  # 'body', 'table' or 'box'


class _Walk:
    """Collects paragraphs. A text box stands inside of a paragraph and has paragraphs of its own."""

    def __init__(self) -> None:
        self.paragraphs: list[Paragraph] = []
        self._open: list[Paragraph] = []
        # For each open field whether its instruction, rather than its result, is being read.
        self._instructions: list[bool] = []

    def visit(self, element: ET.Element, place: str) -> None:
        name = local_name(element)
        if name in LEFT_OUT or (name == 'r' and _is_hidden(element)):
            return
        if name == 'p':
            self._paragraph(element, place)
        elif name == 't':
            self._add(element.text or '')
        elif name in CHARACTERS:
            self._add(CHARACTERS[name])
        elif name == 'fldChar':
            self._field(attribute(element, 'fldCharType'))
        elif name == 'textpath':
            self.paragraphs.append(Paragraph(attribute(element, 'string') or '', 'box'))
        else:
            inner = {'tbl': 'table' if place == 'body' else place, 'txbxContent': 'box'}.get(name, place)
            for child in shown_children(element):
                self.visit(child, inner)

    def _paragraph(self, element: ET.Element, place: str) -> None:
        paragraph = Paragraph('', place)
        self.paragraphs.append(paragraph)
        self._open.append(paragraph)
        for child in shown_children(element):
            self.visit(child, place)
        self._open.pop()

    def _add(self, text: str) -> None:
        if self._open and not any(self._instructions):
            self._open[-1].text += text

    def _field(self, kind: str | None) -> None:
        if kind == 'begin':
            self._instructions.append(True)
        elif self._instructions and kind == 'separate':
            self._instructions[-1] = False
        elif self._instructions and kind == 'end':
            self._instructions.pop()


def _is_hidden(run: ET.Element) -> bool:
    for properties in run:
        if local_name(properties) == 'rPr':
            return any(local_name(mark) == 'vanish' and attribute(mark, 'val') not in OFF for mark in properties)
    return False


def paragraphs_of(body: ET.Element) -> list[Paragraph]:
    walk = _Walk()
    walk.visit(body, 'body')
    return walk.paragraphs


def read_word(path: pathlib.Path) -> list[Paragraph]:
    """The paragraphs of the body with its tables and boxes. Notes, comments, headers and footers are not part of the
    text that Lectern lays out and searches."""
    package = Package(path)
    try:
        return paragraphs_of(package.part(package.main_part()))
    finally:
        package.close()


def read_plain(path: pathlib.Path) -> list[Paragraph]:
    """The lines of a plain text: UTF-8 or UTF-16 where it is valid, else Windows' Western encoding."""
    data = path.read_bytes()
    utf16 = data[:2] in (b'\xff\xfe', b'\xfe\xff')
    for encoding in (['utf-16'] if utf16 else []) + ['utf-8-sig', 'cp1252']:
        try:
            return [Paragraph(line, 'body') for line in data.decode(encoding).splitlines()]
        except UnicodeDecodeError:
            continue
    return [Paragraph(line, 'body') for line in data.decode('latin-1').splitlines()]
