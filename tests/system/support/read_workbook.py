#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Prints the contents of a workbook, read independently of the engine.

read_workbook.py sheets FILE            names of the sheets that are not hidden
read_workbook.py properties FILE        title, author and description
read_workbook.py columns FILE SHEET     letters of hidden columns
read_workbook.py rows FILE SHEET        numbers of hidden rows
read_workbook.py comments FILE SHEET    cell, tab, comment
read_workbook.py column FILE SHEET C    values of column C, from the first row on
read_workbook.py hits FILE SHEET WORD   cells whose text contains WORD, ignoring case
read_workbook.py colours FILE SHEET     column, row, both from 0, and fill as RRGGBB

SHEET is a name. Prints one item per line.
"""
import sys

from openpyxl import load_workbook
from openpyxl.cell.read_only import EmptyCell
from openpyxl.utils import get_column_letter


def spanned(sheet):
    """Letters of the columns that each stored dimension applies to."""
    for dimension in sheet.column_dimensions.values():
        if dimension.hidden:
            yield from (get_column_letter(i) for i in range(dimension.min, dimension.max + 1))


def facts(kind, path, name=None, extra=None):
    # Comments and dimensions need the whole file in memory; colours do not, and
    # there are many.
    book = load_workbook(path, data_only=True, read_only=kind == 'colours')
    if kind == 'sheets':
        return [sheet.title for sheet in book.worksheets if sheet.sheet_state == 'visible']
    if kind == 'properties':
        return [book.properties.title, book.properties.creator, book.properties.description]
    sheet = book[name]
    if kind == 'columns':
        return spanned(sheet)
    if kind == 'rows':
        return [row for row, dimension in sorted(sheet.row_dimensions.items()) if dimension.hidden]
    if kind == 'column':
        return [sheet[f'{extra}{row}'].value for row in range(1, sheet.max_row + 1)]
    cells = [cell for row in sheet.iter_rows() for cell in row]
    if kind == 'comments':
        return [f'{cell.coordinate}\t{cell.comment.text}' for cell in cells if cell.comment]
    if kind == 'hits':
        return [cell.coordinate for cell in cells if isinstance(cell.value, str) and extra.lower() in cell.value.lower()]
    return [f'{cell.column - 1} {cell.row - 1} {cell.fill.fgColor.rgb[-6:]}' for cell in cells
            if not isinstance(cell, EmptyCell) and cell.fill.fill_type == 'solid']


if __name__ == '__main__':
    for fact in facts(*sys.argv[1:]):
        print(fact)
