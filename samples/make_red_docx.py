#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes a .docx with red words in paragraphs, headings, cells and a text box; all
other text is black: make_red_docx.py OUT.docx"""
import sys

from docx_writer import Docx

RED = 'red words that may be broken between two lines of a narrow screen'
FILLER = 'Black ink goes before it and behind it, for a few words or for many. '


def red_document():
    d = Docx(title='Red and black')

    def red(words=RED):
        return d.text(words, colour='FF0000')

    d.paragraph(['Begins with ', red(RED), ' and goes on. ' + FILLER])
    d.paragraph([red(RED), ' at the very start, and at the very end ', red(RED)])
    for i in range(6):
        d.paragraph([FILLER * (i % 3 + 1), 'with a note', d.footnote('A note with ' + RED + '.'), ' ', red(RED.upper()),
                     ' ' + FILLER, d.field('REF nowhere', 'a field'), ' ', red(RED), '. ', FILLER])
    d.table([[['A cell: ', red()], 'black'], ['black', [FILLER, red(), ' ', FILLER]]])
    d.paragraph(['A box: ', d.box([red()], 220, 80)])
    d.paragraph([FILLER, red(RED), ', the last.'])
    return d


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    red_document().save(sys.argv[1])


if __name__ == '__main__':
    main()
