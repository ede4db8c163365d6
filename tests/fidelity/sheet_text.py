# SPDX-License-Identifier: Apache-2.0
"""The texts in the cells of a .xlsx. Numbers and dates are not read: how they look depends on their formats."""
import dataclasses
import pathlib
import re
import xml.etree.ElementTree as ET

from fidelity.package import Package, Unreadable, attribute, local_name, reference


@dataclasses.dataclass
class Cell:
    column: int  # from 0
    row: int     # from 0
    text: str
    hidden: bool


def column_number(name: str) -> int:
    """The number of column "A" is 0."""
    number = 0
    for letter in name:
        number = number * 26 + ord(letter) - ord('A') + 1
    return number - 1


def cells_of(sheet: ET.Element, shared: list[str]) -> list[Cell]:
    hidden_columns = {number for span in _named(sheet, 'col') if _is_on(span, 'hidden')
                      for number in range(int(span.get('min', 1)) - 1, int(span.get('max', 1)))}
    cells: list[Cell] = []
    row_number = -1
    for row in _named(sheet, 'row'):
        row_number = int(row.get('r', row_number + 2)) - 1
        column = -1
        for cell in row:
            place = re.match('[A-Z]+', cell.get('r', ''))
            column = column_number(place.group()) if place else column + 1
            text = _text_of(cell, shared)
            if text:
                cells.append(Cell(column, row_number, text, _is_on(row, 'hidden') or column in hidden_columns))
    return cells


def read_first_sheet(path: pathlib.Path) -> list[Cell]:
    """The first sheet that is not hidden, which Lectern shows first."""
    package = Package(path)
    try:
        main = package.main_part()
        links = package.relations(main)
        entry = next((entry for entry in _named(package.part(main), 'sheet')
                      if reference(entry) in links and entry.get('state', 'visible') == 'visible'), None)
        if entry is None:
            raise Unreadable('no sheet')
        shared = [_joined(item) for part in package.related(main, 'sharedStrings') for item in package.part(part)]
        return cells_of(package.part(links[reference(entry)][1]), shared)
    finally:
        package.close()


def _named(root: ET.Element, name: str) -> list[ET.Element]:
    return [element for element in root.iter() if local_name(element) == name]


def _is_on(element: ET.Element, name: str) -> bool:
    return attribute(element, name) in ('1', 'true')


def _joined(item: ET.Element) -> str:
    """A text that may consist of runs; not the readings of East Asian words."""
    if local_name(item) == 't':
        return item.text or ''
    return ''.join(_joined(child) for child in item if local_name(child) not in ('rPh', 'phoneticPr'))


def _text_of(cell: ET.Element, shared: list[str]) -> str:
    kind = cell.get('t')
    if kind == 'inlineStr':
        return _joined(cell)
    value = next((child.text or '' for child in cell if local_name(child) == 'v'), '')
    if kind == 's':
        return shared[int(value)] if value.isdigit() and int(value) < len(shared) else ''
    return value if kind == 'str' else ''
