#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes a .docx with headings, a table of two columns and one of fourteen, between
paragraphs: make_wide_table_docx.py OUT.docx"""
import sys

from docx_writer import Docx

FILLER = 'The harbour keeps its own hours, and the boats keep theirs. '
COLUMNS = 14
ROWS = 12


def wide_table_document():
    d = Docx(title='A wide table')
    d.heading('Before the tables')
    for _ in range(12):
        d.paragraph([FILLER * 4])
    d.heading('A narrow table', level=2)
    d.table([['Quay', 'Boats'], ['North', 'Four'], ['South', 'Seven']])
    d.heading('A wide table', level=2)
    d.table([['C%d' % c for c in range(1, COLUMNS + 1)]] +
            [['Boat', 'Quay'] * (COLUMNS // 2) for _ in range(ROWS)])
    d.heading('Behind the tables')
    for _ in range(12):
        d.paragraph([FILLER * 4])
    return d


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    wide_table_document().save(sys.argv[1])


if __name__ == '__main__':
    main()
