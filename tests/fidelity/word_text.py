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

    def __init__(self, hidden_styles: set[str]) -> None:
        self.paragraphs: list[Paragraph] = []
        self._hidden_styles = hidden_styles
        self._style_hides = False  # the style of the open paragraph
        self._open: list[Paragraph] = []
        # For each open field whether its instruction, rather than its result, is being read.
        self._instructions: list[bool] = []

    def visit(self, element: ET.Element, place: str) -> None:
        name = local_name(element)
        if name in LEFT_OUT or (name == 'r' and self._is_hidden(element)):
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
        outer, self._style_hides = self._style_hides, _style(element, 'pPr', 'pStyle') in self._hidden_styles
        for child in shown_children(element):
            self.visit(child, place)
        self._style_hides = outer
        self._open.pop()

    def _is_hidden(self, run: ET.Element) -> bool:
        """A mark of the run itself counts before its style, and that before the paragraph's."""
        mark = _vanishes(run)
        if mark is None and _style(run, 'rPr', 'rStyle') in self._hidden_styles:
            return True
        return self._style_hides if mark is None else mark

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


def _child(element: ET.Element, name: str) -> ET.Element | None:
    return next((child for child in element if local_name(child) == name), None)


def _style(element: ET.Element, properties: str, name: str) -> str | None:
    """The style that a paragraph or run names in its properties."""
    found = _child(element, properties)
    style = None if found is None else _child(found, name)
    return None if style is None else attribute(style, 'val')


def _vanishes(element: ET.Element) -> bool | None:
    """Whether a run or style hides letters; None if it does not tell."""
    properties = _child(element, 'rPr')
    mark = None if properties is None else _child(properties, 'vanish')
    return None if mark is None else attribute(mark, 'val') not in OFF


def hidden_styles(styles: ET.Element) -> set[str]:
    """The identifiers of the styles that hide letters, also through a style that they are based on."""
    known = {attribute(style, 'styleId') or '': style for style in styles if local_name(style) == 'style'}

    def hides(name: str | None, depth: int = 0) -> bool:
        style = known.get(name or '')
        if style is None or depth > len(known):
            return False
        own = _vanishes(style)
        base = _child(style, 'basedOn')
        return own if own is not None else base is not None and hides(attribute(base, 'val'), depth + 1)

    return {name for name in known if hides(name)}


def paragraphs_of(body: ET.Element, hidden: set[str] | None = None) -> list[Paragraph]:
    walk = _Walk(hidden or set())
    walk.visit(body, 'body')
    return walk.paragraphs


def read_word(path: pathlib.Path) -> list[Paragraph]:
    """The paragraphs of the body with its tables and boxes. Notes, comments, headers and footers are not part of the
    text that Lectern lays out and searches."""
    package = Package(path)
    try:
        main = package.main_part()
        styles = package.related(main, 'styles')
        hidden = hidden_styles(package.part(styles[0])) if styles else set()
        return paragraphs_of(package.part(main), hidden)
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
