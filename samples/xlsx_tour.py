# SPDX-License-Identifier: Apache-2.0
"""The content of the sample workbook: the records of a harbour office for a year."""
import datetime

from openpyxl import Workbook
from openpyxl.chart import BarChart, LineChart, Reference
from openpyxl.comments import Comment
from openpyxl.styles import Alignment, Border, Font, PatternFill, Side
from openpyxl.utils import get_column_letter

MONTHS = ['January', 'February', 'March', 'April', 'May', 'June',
          'July', 'August', 'September', 'October', 'November', 'December']
BOATS = ['Arctic Tern', 'Blue Heron', 'Cormorant', 'Dunlin', 'Egret', 'Fulmar', 'Guillemot', 'Harrier']
HEAD = PatternFill('solid', fgColor='1F4E79')
BAND = PatternFill('solid', fgColor='DDEBF7')
THIN = Side(style='thin', color='9DB7D1')


def title(sheet, text, columns):
    sheet.merge_cells(start_row=1, start_column=1, end_row=1, end_column=columns)
    sheet['A1'] = text
    sheet['A1'].font = Font(name='Arial', size=16, bold=True, color='1F4E79')
    sheet['A1'].alignment = Alignment(horizontal='center', vertical='center')
    sheet.row_dimensions[1].height = 30


def head(sheet, row, names):
    for column, name in enumerate(names, 1):
        cell = sheet.cell(row, column, name)
        cell.font = Font(name='Arial', bold=True, color='FFFFFF')
        cell.fill = HEAD
        cell.alignment = Alignment(horizontal='center')


def passengers(book):
    """A table of months and boats, totals by formula, two charts, a merged title, comments."""
    sheet = book.active
    sheet.title = 'Passengers'
    title(sheet, 'Passengers by boat and month', len(BOATS) + 2)
    head(sheet, 3, ['Month', *BOATS, 'Total'])
    for i, month in enumerate(MONTHS):
        row = 4 + i
        sheet.cell(row, 1, month).font = Font(name='Arial', bold=True)
        for j in range(len(BOATS)):
            cell = sheet.cell(row, 2 + j, 900 + (i * 137 + j * 211) % 700 + 60 * min(i, 11 - i))
            cell.number_format = '#,##0'
            cell.border = Border(bottom=THIN)
        sheet.cell(row, 10, f'=SUM(B{row}:I{row})').number_format = '#,##0'
        if i % 2:
            for column in range(1, 11):
                sheet.cell(row, column).fill = BAND
    sheet.cell(16, 1, 'Year').font = Font(name='Arial', bold=True)
    for column in range(2, 11):
        letter = get_column_letter(column)
        cell = sheet.cell(16, column, f'=SUM({letter}4:{letter}15)')
        cell.number_format = '#,##0'
        cell.font = Font(name='Arial', bold=True)
    sheet['C9'].comment = Comment('The regatta: the Heron sailed twice a day.', 'Harbour office')
    sheet['J16'].comment = Comment('All boats, all year.', 'Harbour office')
    sheet.column_dimensions['A'].width = 14
    for column in range(2, 11):
        sheet.column_dimensions[get_column_letter(column)].width = 12
    bars = BarChart()
    bars.title = 'Passengers of the year'
    bars.add_data(Reference(sheet, min_col=10, min_row=3, max_row=15), titles_from_data=True)
    bars.set_categories(Reference(sheet, min_col=1, min_row=4, max_row=15))
    sheet.add_chart(bars, 'A19')
    lines = LineChart()
    lines.title = 'Three boats'
    lines.add_data(Reference(sheet, min_col=2, max_col=4, min_row=3, max_row=15), titles_from_data=True)
    lines.set_categories(Reference(sheet, min_col=1, min_row=4, max_row=15))
    sheet.add_chart(lines, 'F19')


def moorings(book):
    """Number formats of every kind; a hidden column and two hidden rows."""
    sheet = book.create_sheet('Moorings')
    head(sheet, 1, ['Berth', 'Since', 'Length (m)', 'Fee', 'Paid', 'Depth', 'Notice', 'Key'])
    for i in range(40):
        row = 2 + i
        values = [f'B{i + 1:02d}', datetime.date(2019, 1, 15) + datetime.timedelta(days=53 * i), 4.5 + (i * 7 % 23) / 2,
                  120.5 + (i * 37 % 19) * 15, (i * 13 % 11) / 10, -(2 + i % 5) / 4,
                  datetime.time(6 + i % 12, (i * 7) % 60), 1_000_000 + i * 9973]
        formats = ['General', 'yyyy-mm-dd', '0.0', '#,##0.00 [$€]', '0%', '0.00;[Red]-0.00', 'hh:mm', '0.00E+00']
        for column, (value, number_format) in enumerate(zip(values, formats), 1):
            sheet.cell(row, column, value).number_format = number_format
    sheet.column_dimensions['H'].hidden = True
    sheet.row_dimensions[5].hidden = True
    sheet.row_dimensions[6].hidden = True
    sheet.freeze_panes = 'B2'
    for letter, width in zip('ABCDEFG', (8, 12, 11, 13, 8, 9, 9)):
        sheet.column_dimensions[letter].width = width


def voices(book):
    """Texts in many scripts, long and wrapped texts, an error and a logical value."""
    sheet = book.create_sheet('Voices')
    rows = ['Good morning, and welcome to the harbour.', 'Guten Morgen und willkommen im schönen Hafen.',
            'Καλημέρα και καλώς ήρθατε στο λιμάνι.', 'Доброе утро и добро пожаловать в гавань.',
            'صباح الخير وأهلا بكم في الميناء.', '早上好，欢迎来到港口。', 'おはようございます。港へようこそ。',
            '좋은 아침입니다. 항구에 오신 것을 환영합니다.', 'हिन्दी: सुप्रभात।']
    for row, text in enumerate(rows, 1):
        sheet.cell(row, 1, text)
    sheet['A12'] = 'A line that is wrapped because its cell is narrow, and taller for it.'
    sheet['A12'].alignment = Alignment(wrap_text=True)
    sheet.row_dimensions[12].height = 45
    sheet['A13'] = '=1/0'
    sheet['A14'] = True
    sheet['A15'] = 'two\nlines'
    sheet.column_dimensions['A'].width = 44
    sheet.merge_cells('C2:E6')
    sheet['C2'] = 'One cell of fifteen'
    sheet['C2'].fill = PatternFill('solid', fgColor='FCE4D6')
    sheet['C2'].alignment = Alignment(horizontal='center', vertical='center', wrap_text=True)
    sheet['C2'].comment = Comment('A comment on a merged area.', 'Harbour office')


def hebrew(book):
    sheet = book.create_sheet('נמל')
    sheet.sheet_view.rightToLeft = True
    for row, words in enumerate([('סירה', 'נוסעים'), ('כחולה', 120), ('לבנה', 75), ('ירוקה', 98)], 1):
        for column, word in enumerate(words, 1):
            sheet.cell(row, column, word)


def tour(path):
    book = Workbook()
    book.properties.title = 'The Year of the Harbour'
    book.properties.creator = 'The Lectern makers'
    book.properties.description = 'A workbook of everything that a workbook is made of.'
    book.properties.created = datetime.datetime(2026, 1, 5, 8, 30)
    passengers(book)
    moorings(book)
    voices(book)
    hebrew(book)
    kept = book.create_sheet('Drafts')
    kept['A1'] = 'not for everybody'
    kept.sheet_state = 'hidden'
    guarded = book.create_sheet('Guarded')
    for row, value in enumerate([30, 10, 20], 1):
        guarded.cell(row, 1, value)
    guarded.protection.sheet = True
    guarded.protection.password = 'anchor'
    book.properties.modified = datetime.datetime(2026, 2, 11, 16, 5)
    book.save(path)
