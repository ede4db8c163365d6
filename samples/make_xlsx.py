#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes workbooks for tests and benchmarks:

make_xlsx.py long ROWS OUT.xlsx [WORD HITS]
    A header and ROWS rows of six columns: an unordered number, words, an amount,
    a share, a date, a text. WORD, which the rows do not contain otherwise, is
    inserted into HITS rows at even distances.
make_xlsx.py coloured OUT.xlsx
    Columns and rows of many sizes, some hidden, up to column 520 and row 10050.
    Four blocks of filled cells, each cell with its own colour: colour_of(column,
    row), both counted from 0.
make_xlsx.py labelled OUT.xlsx
    Columns and rows of many sizes, some hidden. Two blocks of filled cells, one at
    A1 and one far away. Each cell has its own colour, whose red is below 40, and
    this colour as its comment, in the form RRGGBB.
make_xlsx.py spread OUT.xlsx
    A sheet with only a chart, at AL3000, and a sheet with only a merged area,
    AA80:AD100.
make_xlsx.py charted OUT.xlsx
    Two charts of 3 x 1.2 cm, at H20 and H200, on green cells in rows whose heights
    are not whole pixels.
make_xlsx.py noted OUT.xlsx
    A column with 3, 1 and 2; the cell with 3 has the comment "three".
make_xlsx.py gaps OUT.xlsx
    Texts from C3 on: first, a merged area G3:I3 whose column G is hidden, a filtered
    list with two of four rows hidden, and an array formula in C10:C12. A second sheet
    with 3, 1 and 2 from A1 on, where A2:B2 is merged.
make_xlsx.py wordy OUT.xlsx
    A column of 70 texts of 20,000 characters.
make_xlsx.py plain OUT.xlsx ROW...
    A sheet with the given rows. A row is a list of values, separated by commas. A
    value that is a number becomes one; a value that begins with = is a formula.
"""
import datetime
import random
import sys

from openpyxl import Workbook
from openpyxl.chart import BarChart, Reference
from openpyxl.comments import Comment
from openpyxl.styles import PatternFill
from openpyxl.utils import get_column_letter

WORDS = 'harbour boat rope tide quay gull bread river window lamp letter market stone bell ferry coat rain'.split()

COLUMNS, ROWS = 520, 10050
# Column and row of the first cell, columns, rows.
BLOCKS = [(0, 0, 30, 50), (490, 0, 30, 50), (0, 10000, 30, 50), (490, 10000, 30, 50)]


def long(path, rows, word=None, hits=0):
    chance = random.Random(rows)
    order = list(range(1, rows + 1))
    chance.shuffle(order)
    marked = {i * rows // hits for i in range(hits)} if hits else set()
    book = Workbook(write_only=True)
    sheet = book.create_sheet('Ledger')
    sheet.append(['Number', 'Words', 'Amount', 'Share', 'Day', 'Mark'])
    first = datetime.date(2000, 1, 1)
    for i in range(rows):
        words = ' '.join(chance.choice(WORDS) for _ in range(3))
        sheet.append([order[i], words, round(chance.uniform(1, 10000), 2), chance.random(),
                      first + datetime.timedelta(days=chance.randrange(9000)), word if i in marked else 'no'])
    book.save(path)


def colour_of(column, row):
    """Returns the colour of a cell: unique within the blocks, clearly neither white nor black."""
    for number, (left, top, columns, rows) in enumerate(BLOCKS):
        if left <= column < left + columns and top <= row < top + rows:
            index = (number * rows + row - top) * columns + column - left
            return 0x202020 + index * 967 % 0xC0C0C0
    return None


def coloured(path):
    book = Workbook()
    sheet = book.active
    for column in range(COLUMNS):
        letter = get_column_letter(column + 1)
        sheet.column_dimensions[letter].width = 4 + column * 7 % 11
        sheet.column_dimensions[letter].hidden = column % 37 == 5
    for row in range(ROWS):
        sheet.row_dimensions[row + 1].height = 11 + row * 5 % 13 + row % 3 / 4
        sheet.row_dimensions[row + 1].hidden = row % 53 == 7
    for left, top, columns, rows in BLOCKS:
        for row in range(top, top + rows):
            for column in range(left, left + columns):
                fill = PatternFill('solid', fgColor=f'{colour_of(column, row):06X}')
                sheet.cell(row + 1, column + 1).fill = fill
        # A fill alone does not make a cell a used one.
        sheet.cell(top + rows, left + columns).value = ' '
    book.save(path)


def labelled(path):
    book = Workbook()
    sheet = book.active
    for column in range(225):
        letter = get_column_letter(column + 1)
        sheet.column_dimensions[letter].width = 5 + column * 7 % 11
        sheet.column_dimensions[letter].hidden = column % 9 == 4
    for row in range(3056):
        sheet.row_dimensions[row + 1].height = 13 + row * 5 % 13 + row % 3 / 4
        sheet.row_dimensions[row + 1].hidden = row % 11 == 6
    for number, (left, top) in enumerate([(0, 0), (215, 3020)]):
        for index in range(10 * 36):
            colour = f'{0x20 + number * 8:02X}{0x20 + index // 192 * 20:02X}{0x20 + index % 192:02X}'
            cell = sheet.cell(top + index // 10 + 1, left + index % 10 + 1, ' ')
            cell.fill = PatternFill('solid', fgColor=colour)
            cell.comment = Comment(colour, 'Somebody')
    book.save(path)


def spread(path):
    book = Workbook()
    chart = BarChart()
    chart.add_data(Reference(book.active, min_col=1, min_row=1, max_row=3))
    book.active.add_chart(chart, 'AL3000')
    book.create_sheet('Merged').merge_cells('AA80:AD100')
    book.save(path)


def charted(path):
    book = Workbook()
    sheet = book.active
    for row in sheet.iter_rows(max_row=220, max_col=12):
        for cell in row:
            cell.value = ' '
            cell.fill = PatternFill('solid', fgColor='00AA00')
    for row in range(1, 221):
        sheet.row_dimensions[row].height = 12.75
    for row in (20, 200):
        chart = BarChart()
        chart.width, chart.height, chart.legend = 3, 1.2, None
        chart.add_data(Reference(sheet, min_col=12, min_row=1, max_row=3))
        sheet.add_chart(chart, f'H{row}')
    book.save(path)


def noted(path):
    book = Workbook()
    for value in (3, 1, 2):
        book.active.append([value])
    book.active['A1'].comment = Comment('three', 'Somebody')
    book.save(path)


def gaps(path):
    book = Workbook()
    sheet = book.active
    sheet['C3'], sheet['G3'] = 'first', 'merged'
    sheet.merge_cells('G3:I3')
    sheet.column_dimensions['G'].hidden = True
    for row, name in enumerate(['Boat', 'Tern', 'Egret', 'Tern\nagain', 'Egret'], 5):
        sheet.cell(row, 3, name)
    sheet.auto_filter.ref = 'C5:C9'
    sheet.auto_filter.add_filter_column(0, ['Tern', 'Tern\nagain'])
    sheet.row_dimensions[7].hidden = sheet.row_dimensions[9].hidden = True
    sheet['C10'] = '=LEN(C5:C7)'
    sheet.formula_attributes['C10'] = {'t': 'array', 'ref': 'C10:C12'}
    merged = book.create_sheet('Merged')
    for row in ((3, 'c'), (1, None), (2, 'b')):
        merged.append(row)
    merged.merge_cells('A2:B2')
    book.save(path)


def wordy(path):
    book = Workbook()
    for _ in range(70):
        book.active.append(['w' * 20000])
    book.save(path)


def value_of(text):
    try:
        return float(text)
    except ValueError:
        return text or None


def plain(path, rows):
    book = Workbook()
    for row in rows:
        book.active.append([value_of(text) for text in row.split(',')])
    book.save(path)


MAKERS = {'charted': charted, 'coloured': coloured, 'gaps': gaps, 'labelled': labelled, 'spread': spread,
          'noted': noted, 'wordy': wordy}


def main(arguments):
    kind, *rest = arguments
    if kind == 'long':
        long(rest[1], int(rest[0]), *(rest[2:3]), *(int(hits) for hits in rest[3:4]))
    elif kind in MAKERS:
        MAKERS[kind](rest[0])
    else:
        plain(rest[0], rest[1:])


if __name__ == '__main__':
    main(sys.argv[1:])
